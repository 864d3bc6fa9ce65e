#pragma once

#include "host/db/od_db_outline.h"

/// Collects the box around an outline.
class OdDbExtentsSink : public OdDbOutlineSink
{
public:
    void point(OdGePoint3d const& position) override { m_extents.addPoint(position); }
    void segment(OdGePoint3d const& start, OdGePoint3d const& end) override
    {
        m_extents.addPoint(start);
        m_extents.addPoint(end);
    }
    void arc(OdGeEllipticArc const& arc) override { m_extents.addExt(arc.extents()); }
    void spline(OdGeNurbCurve3d const& curve) override { m_extents.addExt(curve.extents()); }
    void endless(OdGePoint3d const&, OdGeVector3d const&, bool) override {}
    void polygon(std::span<OdGePoint3d const> corners) override
    {
        for (OdGePoint3d const& corner : corners)
            m_extents.addPoint(corner);
    }
    OdGeExtents3d const& extents() const { return m_extents; }

private:
    OdGeExtents3d m_extents;
};
