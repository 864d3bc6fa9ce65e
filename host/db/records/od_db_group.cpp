#include "host/db/records/od_db_group.h"

#include "host/db/audit/od_db_audit_info.h"

#include <algorithm>

OD_DB_DEFINE_CLASS(OdDbGroup, OdDbObject, "GROUP")

OdDbFieldTable const& OdDbGroup::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbGroup::m_description> (300, OdDbWriteRule::kAlways),
        odField<&OdDbGroup::m_isAnonymous> (70, OdDbWriteRule::kAlways),
        odField<&OdDbGroup::m_isSelectable>(71, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table({{"AcDbGroup", s_fields, nullptr, &writeMembers, &readMember}});
    return s_table;
}

bool OdDbGroup::readMember(OdDbObject& object, OdDbTag const& tag, OdDbReferenceResolver& resolver)
{
    if (tag.code != 340)
        return false;
    static_cast<OdDbGroup&>(object).m_members.push_back(resolver.byHandle(tag.handle()));
    return true;
}

void OdDbGroup::writeMembers(OdDbObject const& object, OdDbTagSink& sink)
{
    for (OdDbObjectId const id : static_cast<OdDbGroup const&>(object).m_members)
        if (!id.isNull() && !id.stub()->erased)
            sink.handle(340, id.getHandle());
}

void OdDbGroup::setDescription(OdString const& text)
{
    assertWriteEnabled();
    m_description = text;
}

void OdDbGroup::setAnonymous(bool anonymous)
{
    assertWriteEnabled();
    m_isAnonymous = anonymous ? 1 : 0;
}

void OdDbGroup::setSelectable(bool selectable)
{
    assertWriteEnabled();
    m_isSelectable = selectable ? 1 : 0;
}

std::vector<OdDbObjectId> OdDbGroup::allEntityIds() const
{
    std::vector<OdDbObjectId> ids;
    std::ranges::copy_if(m_members, std::back_inserter(ids), [](OdDbObjectId id) { return !id.isErased(); });
    return ids;
}

bool OdDbGroup::has(OdDbObjectId entity) const
{
    return std::ranges::find(m_members, entity) != m_members.end();
}

void OdDbGroup::append(OdDbObjectId entity)
{
    if (entity.isNull())
        throw OdError(eNullObjectId);
    if (database() && entity.database() != database())
        throw OdError(eWrongDatabase);
    if (has(entity))
        return;
    assertWriteEnabled();
    m_members.push_back(entity);
}

bool OdDbGroup::remove(OdDbObjectId entity)
{
    if (!has(entity))
        return false;
    assertWriteEnabled();
    std::erase(m_members, entity);
    return true;
}

void OdDbGroup::audit(OdDbAuditInfo& info) const
{
    OdDbObject::audit(info);
    auto const isNothing = [](OdDbObjectId id) { return !id.isValid(); };
    long long const count = std::ranges::count_if(m_members, isNothing);
    if (count == 0)
        return;
    info.report(*this, odFormat(count == 1 ? L"%lld member does not exist" : L"%lld members do not exist", count),
                L"removed", [isNothing](OdDbObject& object) {
                    auto& self = static_cast<OdDbGroup&>(object);
                    self.assertWriteEnabled();
                    std::erase_if(self.m_members, isNothing);
                });
}
