#include "host/db/entities/od_db_solid.h"

OD_DB_DEFINE_CLASS(OdDbSolid, OdDbFilledQuad, "SOLID")

OdDbFieldTable const& OdDbSolid::fields()
{
    static OdDbFieldTable const s_table = quadTable();
    return s_table;
}
