#include "testapi/ta_draw_utils.h"
#include "testapi/ta_test_helper.h"
#include "testapi/ta_test_helper_create.h"

namespace ta {

OdDbObjectId TestHelperEx::createLine(OdDbObjectId const& ownerId, OdGePoint3d const& start,
                                      OdGePoint3d const& end, OdGeVector3d const* normal)
{
    return createEntity<OdDbLine>(ownerId, {normal}, [&](OdDbLine& line) {
        line.setStartPoint(start);
        line.setEndPoint(end);
    });
}

OdDbObjectId TestHelperEx::createArc(OdDbObjectId const& ownerId, OdGePoint3d const& center, double radius,
                                     double startAngle, double endAngle, OdGeVector3d const* normal)
{
    return createEntity<OdDbArc>(ownerId, {normal, &ucsNormal()}, [&](OdDbArc& arc) {
        arc.setCenter(center);
        arc.setRadius(radius);
        arc.setStartAngle(startAngle);
        arc.setEndAngle(endAngle);
    });
}

OdDbObjectId TestHelperEx::createCircle(OdDbObjectId const& ownerId, OdGePoint3d const& center, double radius,
                                        OdGeVector3d const* normal)
{
    return createEntity<OdDbCircle>(ownerId, {normal, &ucsNormal()}, [&](OdDbCircle& circle) {
        circle.setCenter(center);
        circle.setRadius(radius);
    });
}

OdDbObjectId TestHelperEx::createXline(OdDbObjectId const& ownerId, OdGePoint3d const& base,
                                       OdGeVector3d const& direction)
{
    return createEntity<OdDbXline>(ownerId, [&](OdDbXline& xline) {
        xline.setBasePoint(base);
        xline.setUnitDir(direction);
    });
}

OdDbObjectId TestHelperEx::createRay(OdDbObjectId const& ownerId, OdGePoint3d const& base,
                                     OdGeVector3d const& direction)
{
    return createEntity<OdDbRay>(ownerId, [&](OdDbRay& ray) {
        ray.setBasePoint(base);
        ray.setUnitDir(direction);
    });
}

OdDbObjectId TestHelperEx::createEllipse(OdDbObjectId const& ownerId, OdGePoint3d const& center,
                                         OdGeVector3d const& majorAxis, double radiusRatio, double startAngle,
                                         double endAngle, OdGeVector3d const* normal)
{
    NormalRule const rule{normal, &ucsNormal()};
    return appendTo(ownerId, [&](OdDbBlockTableRecord const& owner) {
        auto ellipse = newEntity<OdDbEllipse>(*owner.database());
        // Not setNormal(): that refuses a normal along the major axis which a new ellipse happens to have.
        ellipse->set(center, rule.in(owner).value_or(ellipse->normal()), majorAxis, radiusRatio, startAngle,
                     endAngle);
        return ellipse;
    });
}

OdDbObjectId TestHelperEx::createSpline(OdDbObjectId const& ownerId, int degree, bool rational, bool closed,
                                        OdArray<OdGePoint3d> const& controlPoints, OdGeKnotVector const& knots,
                                        OdArray<double> const* weights, double tolerance)
{
    return appendTo(ownerId, [&](OdDbBlockTableRecord const& owner) {
        auto spline = createOdDbSpline(degree, rational, closed, controlPoints, knots, weights, tolerance);
        spline->setDatabaseDefaults(*owner.database());
        return spline;
    });
}

} // namespace ta
