#include "host/db/entities/od_db_attribute_definition.h"

#include "host/db/od_db_property_sink.h"

#include <limits>

OD_DB_DEFINE_CLASS(OdDbAttributeDefinition, OdDbAttributeBase, "ATTDEF")

OdDbFieldTable const& OdDbAttributeDefinition::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbAttributeDefinition::m_prompt>      (3, OdDbWriteRule::kAlways),
        odField<&OdDbAttributeDefinition::m_tag>         (2, OdDbWriteRule::kAlways),
        odField<&OdDbAttributeDefinition::m_flags>       (70, OdDbWriteRule::kAlways),
        odField<&OdDbAttributeDefinition::m_fieldLength> (73),
        odField<&OdDbAttributeDefinition::m_verticalMode>(74),
    };
    // clang-format on
    static OdDbFieldTable const s_table(attributeSections("AcDbAttributeDefinition", s_fields));
    return s_table;
}

void OdDbAttributeDefinition::setPrompt(OdString const& prompt)
{
    assertWriteEnabled();
    m_prompt = prompt;
}

void OdDbAttributeDefinition::setFieldLength(int length)
{
    if (length < 0 || length > std::numeric_limits<std::int16_t>::max())
        throw OdError(eOutOfRange, odFormat(L"The field length %d is out of range", length));
    assertWriteEnabled();
    m_fieldLength = static_cast<std::int16_t>(length);
}

void OdDbAttributeDefinition::outline(OdDbOutlineSink& sink) const
{
    outlineOf(tag(), sink);
}

void OdDbAttributeDefinition::listProperties(OdDbPropertySink& sink) const
{
    sink.text(L"prompt", m_prompt);
    if (m_fieldLength != 0)
        sink.count(L"field length", m_fieldLength);
    OdDbAttributeBase::listProperties(sink);
}
