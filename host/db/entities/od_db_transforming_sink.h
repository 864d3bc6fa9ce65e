#pragma once

#include "host/db/od_db_outline.h"

#include <vector>

/// Passes an outline on to another receiver, transformed.
class OdDbTransformingSink : public OdDbOutlineSink
{
public:
    explicit OdDbTransformingSink(OdDbOutlineSink& target, OdGeMatrix3d const& transformation = {})
        : m_target(target), m_transformation(transformation)
    {
    }

    void point(OdGePoint3d const& position) override { m_target.point(m_transformation * position); }
    void segment(OdGePoint3d const& start, OdGePoint3d const& end) override
    {
        m_target.segment(m_transformation * start, m_transformation * end);
    }
    void arc(OdGeEllipticArc const& arc) override
    {
        m_target.arc(OdGeEllipticArc(arc).transformBy(m_transformation));
    }
    void spline(OdGeNurbCurve3d const& curve) override
    {
        OdGeNurbCurve3d image = curve;
        image.transformBy(m_transformation);
        m_target.spline(image);
    }
    void endless(OdGePoint3d const& base, OdGeVector3d const& direction, bool isRay) override
    {
        m_target.endless(m_transformation * base, m_transformation * direction, isRay);
    }
    void polygon(std::span<OdGePoint3d const> corners) override;
    bool isSatisfied() const override { return m_target.isSatisfied(); }

protected:
    OdDbOutlineSink& target() const { return m_target; }
    OdGeMatrix3d const& transformation() const { return m_transformation; }
    void setTransformation(OdGeMatrix3d const& transformation) { m_transformation = transformation; }

private:
    OdDbOutlineSink& m_target;
    OdGeMatrix3d m_transformation;
    std::vector<OdGePoint3d> m_corners; ///< kept between polygons, so that they need no memory of their own
};
