#include "testapi/ta_draw_utils.h"
#include "testapi/ta_test_helper.h"
#include "testapi/ta_test_helper_create.h"

namespace ta {

OdDbObjectId TestHelperEx::createPline(OdDbObjectId const& ownerId, OdArray<OdGePoint2d> const& points,
                                       OdArray<double> const* bulges, bool is2d, bool closed,
                                       OdGeVector3d const* normal, double elevation,
                                       OdArray<double> const* startWidths, OdArray<double> const* endWidths)
{
    NormalRule const rule{normal, &ucsNormal()};
    return appendTo(ownerId, [&](OdDbBlockTableRecord const& owner) {
        auto const unitNormal = rule.in(owner);
        OdArray<OdGePoint2d> inPlane = points;
        double height = elevation;
        if (owner.isLayout())
            height = oa::ucsToEcs(&db(), *unitNormal, inPlane, elevation);
        auto const build = [&](auto const& builder) -> OdDbEntityPtr {
            return builder(inPlane, bulges, closed, unitNormal ? &*unitNormal : nullptr, height, startWidths,
                           endWidths);
        };
        OdDbEntityPtr pline = is2d ? build(createOdDb2dPolyline) : build(createOdDbPolyline);
        pline->setDatabaseDefaults(*owner.database());
        return pline;
    });
}

OdDbObjectId TestHelperEx::createPline3d(OdDbObjectId const& ownerId, OdArray<OdGePoint3d> const& points,
                                         bool closed)
{
    return appendTo(ownerId, [&](OdDbBlockTableRecord const& owner) {
        auto pline = createOdDb3dPolyline(points, closed);
        pline->setDatabaseDefaults(*owner.database());
        return pline;
    });
}

} // namespace ta
