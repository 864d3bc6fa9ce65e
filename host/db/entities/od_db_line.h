#pragma once

#include "host/db/entities/od_db_curve.h"

/// Straight segment between two points of the world; the parameter of the curve goes from 0 to 1.
class OdDbLine : public OdDbCurve
{
    OD_DB_DECLARE_CLASS(OdDbLine)
public:
    OdDbLine() = default;
    OdDbLine(OdGePoint3d const& start, OdGePoint3d const& end) : m_start(start), m_end(end) {}

    OdGePoint3d startPoint() const { return m_start; }
    void setStartPoint(OdGePoint3d const& point);
    OdGePoint3d endPoint() const { return m_end; }
    void setEndPoint(OdGePoint3d const& point);
    /// Direction in which the thickness extrudes; a unit vector.
    OdGeVector3d normal() const { return m_normal; }
    /// Throws OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);
    double thickness() const { return m_thickness; }
    void setThickness(double thickness);

    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;
    bool isClosed() const override { return false; }
    OdResult reverseCurve() override;
    OdGeVector3d planeNormal() const override;

    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void outline(OdDbOutlineSink& sink) const override;
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;

protected:
    double curveThickness() const override { return m_thickness; }

private:
    OdGePoint3d m_start;
    OdGePoint3d m_end;
    double m_thickness = 0.0;
    OdGeVector3d m_normal{0, 0, 1};
};
using OdDbLinePtr = OdSmartPtr<OdDbLine>;
