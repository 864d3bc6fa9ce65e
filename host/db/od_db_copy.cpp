#include "host/db/od_db_copy.h"

#include "host/db/entities/od_db_attribute.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/od_db_raw_object.h"

OdDbEntityPtr odDbCopyEntity(OdDbEntity const& entity, OdDbBlockTableRecord& target)
{
    if (odCast<OdDbRawEntity>(&entity))
        throw OdError(eNotApplicable);
    OdDbEntityPtr copy(entity.clone());
    target.appendOdDbEntity(copy);
    if (auto* const reference = odCast<OdDbBlockReference>(copy.get()))
        for (OdDbStub* const stub : entity.subentities())
            if (!stub->erased)
                reference->appendAttribute(OdSmartPtr<OdDbAttribute>(stub->object->clone()));
    return copy;
}
