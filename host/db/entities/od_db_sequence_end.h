#pragma once

#include "host/db/od_db_entity.h"

/// The end mark that drawing files put behind the subentities of an entity. It has no shape of its own.
class OdDbSequenceEnd : public OdDbEntity
{
    OD_DB_DECLARE_CLASS(OdDbSequenceEnd)
public:
    OdDbSequenceEnd() = default;
    OdResult transformBy(OdGeMatrix3d const&) override { return eOk; }
};
using OdDbSequenceEndPtr = OdSmartPtr<OdDbSequenceEnd>;
