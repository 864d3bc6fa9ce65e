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
    constexpr std::string_view kMarker = "AcDbAttribute";
    static OdDbFieldTable const s_table({
        entitySection(),
        textSection(),
        {.marker = kMarker, .fields = {}, .readTail = &readVersionOrLock, .writeTail = &writeVersion},
        {.marker = kMarker, .fields = s_fields, .writeTail = &writeLock, .continues = true},
    });
    return s_table;
}
