#pragma once

#include "host/db/od_db_entity.h"
#include "host/geom/od_ge_arc_data2d.h"

#include <optional>

/// What both kinds of flat polylines are: segments and arcs with widths, in a plane.
struct OdDbBulgeChain
{
    /// With bulge and widths of the segment that leaves it; negative widths count as none.
    struct Vertex
    {
        OdGePoint2d point;
        double bulge = 0;
        double startWidth = 0;
        double endWidth = 0;
    };
    std::vector<Vertex> vertices;
    bool isClosed = false;
    double elevation = 0;
    OdGeVector3d normal{0, 0, 1}; ///< not zero

    std::size_t numSegments() const;
    Vertex const& endOf(std::size_t segment) const;
    /// The arc of a segment in the plane; nothing for a straight one and for one that is too large for numbers.
    std::optional<OdGeArcData2d> arcOf(std::size_t segment) const;
    /// Some segment is an arc or has a width: not every affine image of the chain is one.
    bool hasBulgesOrWidths() const;

    /// Gives the outline: segments and arcs without width as they are, straight ones with width as filled
    /// polygons, arcs with width with their two borders and the ends of these. A single vertex is a point.
    void outline(OdDbOutlineSink& sink) const;
    /// Lines and arcs with this thickness, without widths and properties.
    std::vector<OdDbEntityPtr> explode(double thickness) const;
};
