#include "host/db/entities/od_db_sequence_end.h"

OD_DB_DEFINE_CLASS(OdDbSequenceEnd, OdDbEntity, "SEQEND")

OdDbFieldTable const& OdDbSequenceEnd::fields()
{
    static OdDbFieldTable const s_table({entitySection()});
    return s_table;
}
