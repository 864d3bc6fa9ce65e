#include "host/db/od_db_raw_object.h"

OD_DEFINE_CLASS(OdDbRawEntity, OdDbEntity)
OD_DEFINE_CLASS(OdDbRawObject, OdDbObject)

OdDbFieldTable const& OdDbRawEntity::fields()
{
    static OdDbFieldTable const s_table({entitySection()});
    return s_table;
}

OdDbFieldTable const& OdDbRawObject::fields()
{
    return OdDbObject::fields();
}
