#pragma once

#include "host/db/od_db_object.h"

/// A named or anonymous group of entities of a drawing; its name is that of its entry in the dictionary
/// "ACAD_GROUP". Entities can be in several groups. Members that are erased stay, but are left out of files.
class OdDbGroup : public OdDbObject
{
    OD_DB_DECLARE_CLASS(OdDbGroup)
public:
    OdString const& description() const { return m_description; }
    void setDescription(OdString const& text);
    /// The program made up the name, "*A1".
    bool isAnonymous() const { return m_isAnonymous != 0; }
    void setAnonymous(bool anonymous);
    /// Who picks a member selects the group.
    bool isSelectable() const { return m_isSelectable != 0; }
    void setSelectable(bool selectable);

    /// Members that are not erased, in their order.
    std::vector<OdDbObjectId> allEntityIds() const;
    bool has(OdDbObjectId entity) const;
    /// Becomes the last member; one that is a member already stays where it is. Throws OdError: eNullObjectId, and
    /// eWrongDatabase for an entity of another drawing than the group's.
    void append(OdDbObjectId entity);
    /// False for what is no member.
    bool remove(OdDbObjectId entity);

    bool standsAmongFileObjects() const override { return true; }
    void audit(OdDbAuditInfo& info) const override;

private:
    static bool readMember(OdDbObject& object, OdDbTag const& tag, OdDbReferenceResolver& resolver);
    static void writeMembers(OdDbObject const& object, OdDbTagSink& sink);

    OdString m_description;
    std::int16_t m_isAnonymous = 0;
    std::int16_t m_isSelectable = 1;
    std::vector<OdDbObjectId> m_members;
};
using OdDbGroupPtr = OdSmartPtr<OdDbGroup>;
