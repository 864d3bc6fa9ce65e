#pragma once

#include "host/db/records/od_db_block_table_record.h"
#include "host/dxf/dxf_reading.h"

namespace dxf {

/// Reads entities one after another; those that belong to the entity before them (vertices, attributes, the end
/// mark of the sequence) become parts of that one.
class EntityReader
{
public:
    explicit EntityReader(Reading& reading) : m_reading(reading) {}
    ~EntityReader() = default;
    EntityReader(EntityReader const&) = delete;
    EntityReader& operator=(EntityReader const&) = delete;

    /// Reads the entity at which the reading stands into a block; without one, into the space that the entity
    /// names.
    void read(OdDbBlockTableRecord* block);
    /// The next entity, if any, has nothing to do with those before.
    void endSequence();

private:
    OdDbEntityPtr create(std::string_view name, OdDbEntity const* whole) const;
    bool readAsPart(std::string_view name);
    bool leaveOutIfBroken(std::string_view name, RecordHead const& head);
    void partsAreRead();
    OdDbBlockTableRecord& spaceOf(RecordHead const& head) const;

    Reading& m_reading;
    OdDbEntityPtr m_parent; ///< entity whose parts may follow
    std::size_t m_parentPlace = 0;
    bool m_isParentLeftOut = false; ///< parts may follow that have nothing to belong to
    std::string_view m_partName;
};

/// The block of model space or paper space; added where the file lacks it.
OdDbBlockTableRecord& spaceBlock(Reading& reading, bool isPaperSpace);

} // namespace dxf
