#pragma once

#include "host/db/filer/od_db_field.h"
#include "host/root/od_string.h"

#include <unordered_set>

class OdDbDatabase;

/// What the objects of a drawing refer to, other than their owners: found once, for the drawing as it is then.
/// What stands in objects that the host only keeps counts whenever it could be a reference, so that "not referred
/// to" can be relied on.
class OdDbReferences
{
public:
    explicit OdDbReferences(OdDbDatabase& database);

    bool isReferenced(OdDbObjectId id) const { return m_referenced.contains(id.stub()); }
    /// Something has extended data of this application.
    bool isApplicationUsed(OdString const& name) const { return m_applications.contains(name.upper()); }

private:
    class Collector;

    std::unordered_set<OdDbStub const*> m_referenced;
    std::unordered_set<OdString> m_applications; ///< upper case
};
