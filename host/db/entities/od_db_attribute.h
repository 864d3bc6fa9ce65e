#pragma once

#include "host/db/entities/od_db_attribute_base.h"

/// Value of an attribute at one block reference, which owns it.
class OdDbAttribute : public OdDbAttributeBase
{
    OD_DB_DECLARE_CLASS(OdDbAttribute)
public:
    OdDbAttribute() = default;
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;
