#include "host/app/selection_region.h"

namespace ca {

namespace {

std::vector<OdGePoint2d> flattened(OdGeMatrix3d const& worldToPlane, std::vector<OdGePoint3d> const& points)
{
    std::vector<OdGePoint2d> flat;
    for (OdGePoint3d const& point : points)
        flat.push_back((worldToPlane * point).convert2d());
    return flat;
}

} // namespace

SelectionRegion SelectionRegion::rectangle(OdGeMatrix3d const& worldToPlane, OdGePoint3d const& corner,
                                           OdGePoint3d const& opposite)
{
    OdGeExtents2d const box((worldToPlane * corner).convert2d(), (worldToPlane * opposite).convert2d());
    return {worldToPlane, OdGeRegion2d::rectangle(box)};
}

SelectionRegion SelectionRegion::polygon(OdGeMatrix3d const& worldToPlane, std::vector<OdGePoint3d> const& corners)
{
    return {worldToPlane, OdGeRegion2d::polygon(flattened(worldToPlane, corners))};
}

SelectionRegion SelectionRegion::fence(OdGeMatrix3d const& worldToPlane, std::vector<OdGePoint3d> const& points)
{
    return {worldToPlane, OdGeRegion2d::fence(flattened(worldToPlane, points))};
}

} // namespace ca
