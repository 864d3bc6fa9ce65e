#include "host/db/entities/od_db_attribute_base.h"

#include "host/db/od_db_property_sink.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbAttributeBase, OdDbText)

namespace {

constexpr int kVersionOrLock = 280;

} // namespace

void OdDbAttributeBase::setTag(OdString const& tag)
{
    if (tag.isEmpty() || tag.spanExcluding(L" \t").getLength() != tag.getLength())
        throw OdError(eInvalidName, odFormat(L"\"%ls\" is not a valid attribute tag", tag.c_str()));
    assertWriteEnabled();
    m_tag = tag;
}

void OdDbAttributeBase::setFlag(std::int16_t flag, bool on)
{
    assertWriteEnabled();
    m_flags = static_cast<std::int16_t>(on ? m_flags | flag : m_flags & ~flag);
}

void OdDbAttributeBase::setLockPositionInBlock(bool lock)
{
    assertWriteEnabled();
    m_lockPosition = lock ? 1 : 0;
}

void OdDbAttributeBase::listProperties(OdDbPropertySink& sink) const
{
    sink.text(L"tag", m_tag);
    sink.flag(L"invisible", isInvisible());
    sink.flag(L"constant", isConstant());
    sink.flag(L"verified", isVerifiable());
    sink.flag(L"preset", isPreset());
    sink.flag(L"position locked in block", lockPositionInBlock());
    OdDbText::listProperties(sink);
    if (OdDbMTextPtr const text = getMTextAttribute()) {
        sink.text(L"multiline contents", text->contents());
        sink.distance(L"multiline width", text->width());
    }
}

bool OdDbAttributeBase::readVersionOrLock(OdDbObject& object, OdDbTag const& tag)
{
    auto& attribute = static_cast<OdDbAttributeBase&>(object);
    if (tag.code != kVersionOrLock || tag.kind != OdDbTagKind::kInteger)
        return false;
    // Older files have the lock alone; then the tag was read before it.
    bool const isVersion = !attribute.m_hasVersion && attribute.m_tag.isEmpty();
    bool& has = isVersion ? attribute.m_hasVersion : attribute.m_hasLock;
    std::int8_t& value = isVersion ? attribute.m_version : attribute.m_lockPosition;
    if (has)
        return false;
    has = true;
    value = static_cast<std::int8_t>(tag.integer);
    return true;
}

void OdDbAttributeBase::writeVersion(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& attribute = static_cast<OdDbAttributeBase const&>(object);
    bool const isNewWithLock = attribute.m_lockPosition != 0 && !attribute.m_hasLock;
    if (attribute.m_hasVersion || isNewWithLock)
        sink.integer(kVersionOrLock, attribute.m_version);
}

void OdDbAttributeBase::writeLock(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& attribute = static_cast<OdDbAttributeBase const&>(object);
    if (attribute.m_hasLock || attribute.m_lockPosition != 0)
        sink.integer(kVersionOrLock, attribute.m_lockPosition);
}
