#include "host/db/records/od_db_reg_app_table_record.h"

#include "host/db/od_db_database.h"

OD_DB_DEFINE_CLASS(OdDbRegAppTableRecord, OdDbSymbolTableRecord, "APPID")

OdDbFieldTable const& OdDbRegAppTableRecord::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbRegAppTableRecord::m_name> (2, OdDbWriteRule::kAlways),
        odField<&OdDbRegAppTableRecord::m_flags>(70, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table({recordSection(), {"AcDbRegAppTableRecord", s_fields}});
    return s_table;
}

OdDbObjectId OdDbRegAppTableRecord::registerIn(OdDbDatabase& database, OdString const& name)
{
    auto const table = database.getRegAppTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
    if (OdDbObjectId const id = table->getAt(name); !id.isNull())
        return id;
    OdDbRegAppTableRecordPtr const record(new OdDbRegAppTableRecord);
    record->setName(name);
    return table->add(record);
}
