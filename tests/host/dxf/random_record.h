#pragma once

#include "host/db/filer/od_db_field_table.h"
#include "host/db/filer/od_db_record_reader.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_symbol_table.h"
#include "tests/host/dxf/random_values.h"

#include <array>

/// What a random drawing holds around the fields of its objects.
enum class EOddities : std::uint8_t
{
    kAnywhere,
    kAtTheEnd ///< of records alone: files without subclass markers do not say what stood in which section
};

/// Gives objects random content: every field of their class, and whatever a file may hold around the fields. The
/// content comes as the tags of a record, read as those of files are.
class RandomRecord final : public OdDbReferenceResolver
{
public:
    /// References are chosen among the handles, whether objects stand behind them or not.
    RandomRecord(OdDbDatabase& database, RandomValues& values, std::vector<OdDbHandle> handles,
                 EOddities oddities);

    void fill(OdDbObject& object);
    /// From now on the record can be named by others.
    void canBeNamed(OdDbTableKind kind, OdDbSymbolTableRecord const& record);

    /// Some random tags with codes of those given.
    void putTags(OdDbTagSink& sink, std::span<std::int16_t const> codes);
    void putComments(OdDbTagSink& sink);
    /// The codes of the values that records can have, comments included.
    static std::span<std::int16_t const> recordCodes();
    std::string newName() { return values().text() + "#" + std::to_string(++m_names); }
    RandomValues& values() { return m_values; }

    OdDbObjectId byName(OdDbTableKind kind, std::string_view utf8Name) override;
    OdDbObjectId byHandle(OdDbHandle handle) override { return m_database.getOdDbObjectId(handle, true); }

private:
    class ReaderSink;
    using Sink = OdDbTagSink;

    OdDbHandle handle() { return values().pick(m_handles); }
    void putEnvelope(OdDbObject const& object, Sink& sink);
    bool mayKeepBelow(OdDbObject const& object, std::string_view marker) const;
    void putGroup(OdDbObject const& object, std::string_view marker, Sink& sink);
    void putField(OdDbObject const& object, OdDbField const& field, Sink& sink);
    void putKept(OdDbObject const& object, Sink& sink);
    void putExtendedData(Sink& sink);
    void putVertices(Sink& sink);
    void putDashes(Sink& sink);
    void putEntries(Sink& sink);
    void putDimVariables(Sink& sink);
    void putVersion(Sink& sink);
    void putSplineLists(Sink& sink);
    void putLastCorner(Sink& sink);
    void putParagraphs(Sink& sink);
    void putEmbedded(Sink& sink);

    OdDbDatabase& m_database;
    RandomValues& m_values;
    std::vector<OdDbHandle> m_handles;
    EOddities m_oddities;
    std::array<std::vector<std::string>, kOdDbTableKinds> m_namesOf;
    int m_names = 0;
};
