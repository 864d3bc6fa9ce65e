#pragma once

#include "host/db/entities/od_db_circular_entity.h"

/// Full circle in any plane. A new one has radius 1 and lies at the origin.
class OdDbCircle : public OdDbCircularEntity
{
    OD_DB_DECLARE_CLASS(OdDbCircle)
public:
    OdDbCircle() = default;
    /// Throws OdError: eOutOfRange for a radius that is not positive, eDegenerateGeometry for a zero normal.
    OdDbCircle(OdGePoint3d const& center, double radius, OdGeVector3d const& normal = {0, 0, 1})
        : OdDbCircularEntity(center, radius, normal)
    {
    }

    bool isClosed() const override { return true; }
    /// eDegenerateGeometry also for transformations that would make it an ellipse.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// The center, with which the circle goes along as a whole.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;

protected:
    OdGeInterval angleRange() const override { return {0, Oda2PI}; }
};
using OdDbCirclePtr = OdSmartPtr<OdDbCircle>;
