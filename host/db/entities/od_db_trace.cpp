#include "host/db/entities/od_db_trace.h"

OD_DB_DEFINE_CLASS(OdDbTrace, OdDbFilledQuad, "TRACE")

OdDbFieldTable const& OdDbTrace::fields()
{
    static OdDbFieldTable const s_table = quadTable();
    return s_table;
}
