#pragma once

#include "host/db/od_db_outline.h"

class OdDbPropertySink;

// What entities with a thickness have in common.

/// Receives flat pieces and passes them on, extruded: the piece, the same moved by the extrusion, and the edges
/// between the ends of the two. An edge that neighbouring pieces share is given once.
class OdDbExtrudingSink : public OdDbOutlineSink
{
public:
    OdDbExtrudingSink(OdDbOutlineSink& target, OdGeVector3d const& extrusion)
        : m_target(target), m_extrusion(extrusion)
    {
    }

    void point(OdGePoint3d const& position) override;
    void segment(OdGePoint3d const& start, OdGePoint3d const& end) override;
    void arc(OdGeEllipticArc const& arc) override;
    void spline(OdGeNurbCurve3d const& curve) override;
    void endless(OdGePoint3d const& base, OdGeVector3d const& direction, bool isRay) override;
    void polygon(std::span<OdGePoint3d const> corners) override;
    bool isSatisfied() const override { return m_target.isSatisfied(); }

private:
    /// The edges at both ends of a piece.
    void edges(OdGePoint3d const& start, OdGePoint3d const& end);
    void edge(OdGePoint3d const& base);

    OdDbOutlineSink& m_target;
    OdGeVector3d m_extrusion;
    OdGePoint3d m_lastBase; ///< of the edge given last
    bool m_hasEdge = false;
};

/// Gives an outline with a thickness: `give` gives the flat one to the receiver that it is called with. A zero
/// extrusion leaves just that.
template <class Give>
void odDbOutlineExtruded(OdDbOutlineSink& sink, OdGeVector3d const& extrusion, Give const& give)
{
    if (extrusion.x == 0 && extrusion.y == 0 && extrusion.z == 0) {
        give(sink);
        return;
    }
    OdDbExtrudingSink extruding(sink, extrusion);
    give(static_cast<OdDbOutlineSink&>(extruding));
}

/// The way from the base of an extrusion to its top; zero without thickness. A damaged normal counts as the Z
/// axis.
OdGeVector3d odDbExtrusion(OdGeVector3d const& normal, double thickness);

/// Tells thickness and extrusion direction, where they are not the usual ones: no thickness and the Z axis.
void odDbListExtrusion(OdDbPropertySink& sink, OdGeVector3d const& normal, double thickness);
