#pragma once

#include "host/db/od_db_outline.h"
#include "host/geom/od_ge_2d.h"

#include <vector>

/// A vertex of a flat polyline with bulge and widths of the segment that leaves it.
struct OdDbWideVertex
{
    OdGePoint2d point;
    double bulge = 0;
    double startWidth = 0;
    double endWidth = 0;
};

/// Gives the outline of a flat polyline: segments and arcs without width as they are, straight ones with width as
/// filled polygons, arcs with width with their two borders and the ends of these. A single vertex is a point.
/// Negative widths count as none.
void odDbOutlineWide(OdDbOutlineSink& sink, std::vector<OdDbWideVertex> const& vertices, bool isClosed,
                     OdGeMatrix3d const& planeToWorld, double elevation);
