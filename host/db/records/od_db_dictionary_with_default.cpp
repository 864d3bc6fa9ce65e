#include "host/db/records/od_db_dictionary_with_default.h"

OD_DB_DEFINE_CLASS(OdDbDictionaryWithDefault, OdDbDictionary, "ACDBDICTIONARYWDFLT")

OdDbFieldTable const& OdDbDictionaryWithDefault::fields()
{
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbDictionaryWithDefault::m_default>(340, OdDbWriteRule::kAlways),
    };
    static OdDbFieldTable const s_table({dictionarySection(), {"AcDbDictionaryWithDefault", s_fields}});
    return s_table;
}

void OdDbDictionaryWithDefault::setDefaultId(OdDbObjectId id)
{
    assertWriteEnabled();
    m_default = id;
}
