#pragma once

#include "host/db/entities/od_db_curve.h"

/// What rays and construction lines have in common: a base point and a direction, a unit vector of the world.
class OdDbEndlessCurve : public OdDbCurve
{
    OD_DECLARE_CLASS(OdDbEndlessCurve)
public:
    OdGePoint3d basePoint() const { return m_base; }
    void setBasePoint(OdGePoint3d const& base);
    /// Zero where a damaged file gives no direction.
    OdGeVector3d unitDir() const;
    /// Keeps the direction, at length 1. Throws OdError(eDegenerateGeometry) for a zero vector.
    void setUnitDir(OdGeVector3d const& direction);
    /// The point at distance 1 from the base; to set it sets the direction.
    OdGePoint3d secondPoint() const { return m_base + unitDir(); }
    void setSecondPoint(OdGePoint3d const& point) { setUnitDir(point - m_base); }

    bool isClosed() const override { return false; }
    /// eDegenerateGeometry where the direction collapses.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void outline(OdDbOutlineSink& sink) const override;
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

protected:
    OdDbEndlessCurve() = default;
    OdDbEndlessCurve(OdGePoint3d const& base, OdGeVector3d const& direction);
    static OdDbSection endlessSection(std::string_view marker);
    bool hasDirection() const { return !m_direction.isZeroLength(); }
    /// Has one end, at the base.
    virtual bool isRay() const = 0;

private:
    OdGePoint3d m_base;
    OdGeVector3d m_direction{1, 0, 0};
};
