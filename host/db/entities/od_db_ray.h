#pragma once

#include "host/db/entities/od_db_endless_curve.h"

/// Half a line: from its base point on along its direction, without end.
class OdDbRay : public OdDbEndlessCurve
{
    OD_DB_DECLARE_CLASS(OdDbRay)
public:
    OdDbRay() = default;
    /// Throws OdError(eDegenerateGeometry) for a zero direction.
    OdDbRay(OdGePoint3d const& base, OdGeVector3d const& direction) : OdDbEndlessCurve(base, direction) {}

    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;

protected:
    bool isRay() const override { return true; }
};
using OdDbRayPtr = OdSmartPtr<OdDbRay>;
