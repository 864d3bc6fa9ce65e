#pragma once

#include "host/db/od_db_database.h"
#include "host/db/od_db_entity.h"
#include "host/sds/sds_record.h"

#include <set>

namespace ca {

/// Finds the records that a list names. Layers and applications that the drawing lacks are made for the list, but
/// only once the entity goes into the drawing; all others have to be there.
class SdsNames final : public OdDbReferenceResolver
{
public:
    explicit SdsNames(OdDbDatabase& database) : m_database(&database) {}

    /// For a layer that the drawing lacks: layer 0, until complete().
    OdDbObjectId byName(OdDbTableKind table, std::string_view utf8Name) override;
    OdDbObjectId byHandle(OdDbHandle handle) override { return m_database->getOdDbObjectId(handle, true); }
    void noteApplications(OdDbTagList const& tags);

    /// All names were found or can be made.
    bool areKnown() const { return m_areKnown; }
    /// Makes what is missing and puts the entity, which is in no drawing, onto its layer.
    void complete(OdDbEntity& entity) const;

private:
    OdDbDatabase* m_database;
    OdString m_newLayer;
    std::set<OdString> m_applications;
    bool m_areKnown = true;
};

/// A new object of the class that a record is of; null when it is of none that lists can make: other objects,
/// entities of classes that the host does not know unless the record says the subclasses (group 100), without
/// which nobody could tell their groups apart. `whole` is the entity of which the record is a part.
OdDbEntityPtr newEntityOf(SdsRecord const& record, OdDbEntity const* whole);

/// The groups of a list without the third coordinates of points that have two in files, for types of which the
/// host only keeps the groups. Points of the others are as their class has them, see readTags().
OdDbTagList withFlatPoints(OdDbTagList const& tags, std::string_view type);

/// Reads the groups into a new entity, in whatever order they are. False for a group in braces without end and for
/// names that nothing has.
bool readTags(OdDbTagList const& tags, OdDbEntity& entity, SdsNames& names);

/// All groups came that an entity of the class cannot do without.
bool hasRequiredGroups(OdDbEntity const& entity);

/// A reference to model space or a sheet, which no command makes.
bool showsSpace(OdDbEntity const& entity);

/// A reference in this block to its own block, at any depth.
bool isLoop(OdDbEntity const& entity, OdDbObjectId block);

} // namespace ca
