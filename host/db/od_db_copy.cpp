#include "host/db/od_db_copy.h"

#include "host/db/od_db_raw_object.h"

OdDbEntityPtr odDbCopyEntity(OdDbEntity const& entity, OdDbBlockTableRecord& target)
{
    if (odCast<OdDbRawEntity>(&entity))
        throw OdError(eNotApplicable);
    OdDbEntityPtr copy(entity.clone());
    target.appendOdDbEntity(copy);
    return copy;
}
