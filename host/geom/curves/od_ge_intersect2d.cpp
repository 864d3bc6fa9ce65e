#include "host/geom/curves/od_ge_intersect2d.h"

#include "host/geom/curves/od_ge_intersect.h"

std::vector<OdGeIntersection2d> odgeIntersect(OdGeCurve2d const& a, OdGeCurve2d const& b, OdGeTol const& tol)
{
    std::vector<OdGeIntersection2d> result;
    for (OdGeIntersection const& found : odgeIntersect(a.curve3d(), b.curve3d(), tol))
        result.push_back({found.point.convert2d(), found.paramA, found.paramB, found.isOverlap});
    return result;
}
