#include "host/db/records/od_db_place_holder.h"

OD_DB_DEFINE_CLASS(OdDbPlaceHolder, OdDbObject, "ACDBPLACEHOLDER")

OdDbFieldTable const& OdDbPlaceHolder::fields()
{
    return OdDbObject::fields();
}
