#pragma once

#include "host/db/entities/od_db_circular_entity.h"

/// Full circle in any plane. A new one has radius 1 and lies at the origin.
class OdDbCircle : public OdDbCircularEntity
{
    OD_DB_DECLARE_CLASS(OdDbCircle)
public:
    OdDbCircle() = default;

    /// eDegenerateGeometry also for transformations that would make it an ellipse.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void outline(OdDbOutlineSink& sink) const override;
};
using OdDbCirclePtr = OdSmartPtr<OdDbCircle>;
