#pragma once

#include "host/db/entities/od_db_endless_curve.h"

/// Construction line: through its base point along its direction, without end on both sides.
class OdDbXline : public OdDbEndlessCurve
{
    OD_DB_DECLARE_CLASS(OdDbXline)
public:
    OdDbXline() = default;
    /// Throws OdError(eDegenerateGeometry) for a zero direction.
    OdDbXline(OdGePoint3d const& base, OdGeVector3d const& direction) : OdDbEndlessCurve(base, direction) {}

    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;
    OdResult reverseCurve() override;

protected:
    bool isRay() const override { return false; }
};
using OdDbXlinePtr = OdSmartPtr<OdDbXline>;
