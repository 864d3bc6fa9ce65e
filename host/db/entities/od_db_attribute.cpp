#include "host/db/entities/od_db_attribute.h"

OD_DB_DEFINE_CLASS(OdDbAttribute, OdDbAttributeBase, "ATTRIB")

OdDbFieldTable const& OdDbAttribute::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbAttribute::m_tag>         (2, OdDbWriteRule::kAlways),
        odField<&OdDbAttribute::m_flags>       (70, OdDbWriteRule::kAlways),
        odField<&OdDbAttribute::m_fieldLength> (73),
        odField<&OdDbAttribute::m_verticalMode>(74),
    };
    // clang-format on
    static OdDbFieldTable const s_table(attributeSections("AcDbAttribute", s_fields));
    return s_table;
}
