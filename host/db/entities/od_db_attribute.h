#pragma once

#include "host/db/entities/od_db_attribute_base.h"

/// Value of an attribute at one block reference, which owns it.
class OdDbAttribute : public OdDbAttributeBase
{
    OD_DB_DECLARE_CLASS(OdDbAttribute)
public:
    OdDbAttribute() = default;

    /// Brings its own text (string, height, rotation, position) in line with the multiline text.
    void updateMTextAttribute() { takeTextOfMText(); }

private:
    std::int16_t multilineKind() const override { return 2; }
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;
