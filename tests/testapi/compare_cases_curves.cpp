#include "tests/testapi/compare_cases.h"

template <>
OdDbPointPtr madeForComparison(OdDbDatabase&)
{
    return OdDbPointPtr(new OdDbPoint({1, 2, 3}));
}

template <>
OdDbLinePtr madeForComparison(OdDbDatabase&)
{
    OdDbLinePtr line(new OdDbLine);
    line->setStartPoint({1, 2, 3});
    line->setEndPoint({4, 6, 8});
    return line;
}

template <>
OdDbArcPtr madeForComparison(OdDbDatabase&)
{
    OdDbArcPtr arc(new OdDbArc);
    arc->setRadius(5);
    arc->setStartAngle(0.5);
    arc->setEndAngle(2.5);
    return arc;
}

template <>
OdDbCirclePtr madeForComparison(OdDbDatabase&)
{
    OdDbCirclePtr circle(new OdDbCircle);
    circle->setRadius(5);
    return circle;
}

template <>
OdDbSolidPtr madeForComparison(OdDbDatabase&)
{
    OdDbSolidPtr solid(new OdDbSolid);
    OdGePoint3d const corners[] = {{0, 0, 0}, {4, 0, 0}, {0, 3, 0}, {4, 3, 0}};
    for (int i = 0; i < 4; ++i)
        solid->setPointAt(i, corners[i]);
    return solid;
}

template <>
OdDbRayPtr madeForComparison(OdDbDatabase&)
{
    OdDbRayPtr ray(new OdDbRay);
    ray->setBasePoint({1, 2, 3});
    return ray;
}

template <>
OdDbXlinePtr madeForComparison(OdDbDatabase&)
{
    OdDbXlinePtr xline(new OdDbXline);
    xline->setBasePoint({1, 2, 3});
    return xline;
}

template <>
OdDbEllipsePtr madeForComparison(OdDbDatabase&)
{
    return OdDbEllipsePtr(new OdDbEllipse({0, 0, 0}, {0, 0, 1}, {4, 0, 0}, 0.5, 0.5, 2.5));
}

template <>
OdDbPolylinePtr madeForComparison(OdDbDatabase&)
{
    OdDbPolylinePtr polyline(new OdDbPolyline);
    polyline->addVertexAt(0, {0, 0}, 0.5, 0.1, 0.2);
    polyline->addVertexAt(1, {5, 0}, 0, 0.3, 0.4);
    polyline->addVertexAt(2, {5, 5}, 0, 0.5, 0.6);
    return polyline;
}

namespace {

/// A normal that leans by an angle; unit vectors differ in one coordinate by the angle then.
OdGeVector3d leaning(double angle)
{
    return {angle, 0, 1};
}

OdDbEntityPtr fitSpline(OdDbDatabase&)
{
    OdDbSplinePtr spline(new OdDbSpline);
    spline->setFitData({{0, 0, 0}, {2, 3, 0}, {5, 1, 0}, {7, 4, 0}}, {1, 0, 0}, {0, 1, 0}, 3, 0.25);
    return spline;
}

OdGeKnotVector knotsOf(std::vector<double> knots)
{
    return OdGeKnotVector(std::move(knots));
}

OdDbEntityPtr rationalSpline(OdDbDatabase&)
{
    OdDbSplinePtr spline(new OdDbSpline);
    spline->setNurbsData(2, true, false, false, {{0, 0, 0}, {2, 3, 0}, {5, 1, 0}}, knotsOf({0, 0, 0, 1, 1, 1}),
                         {1, 2, 1});
    return spline;
}

/// Could be called periodic: its first control points repeat as its last ones.
OdDbEntityPtr repeatingSpline(OdDbDatabase&)
{
    OdDbSplinePtr spline(new OdDbSpline);
    spline->setNurbsData(2, false, true, false, {{0, 0, 0}, {2, 3, 0}, {5, 1, 0}, {0, 0, 0}, {2, 3, 0}},
                         knotsOf({0, 1, 2, 3, 4, 5, 6, 7}), {});
    return spline;
}

/// Sets NURBS data again after a change of them.
template <class Change>
void changeNurbs(OdDbSpline& spline, Change const& change)
{
    struct
    {
        int degree;
        bool rational, closed, periodic;
        OdGePoint3dArray points;
        OdGeKnotVector knots;
        OdGeDoubleArray weights;
        double tolerance;
    } data;
    spline.getNurbsData(data.degree, data.rational, data.closed, data.periodic, data.points, data.knots,
                        data.weights, data.tolerance);
    change(data);
    spline.setNurbsData(data.degree, data.rational, data.closed, data.periodic, data.points, data.knots,
                        data.weights, data.tolerance);
}

/// Sets fit data again after a change of them.
template <class Change>
void changeFit(OdDbSpline& spline, Change const& change)
{
    OdGePoint3dArray points;
    for (int i = 0; i < spline.numFitPoints(); ++i) {
        points.append(OdGePoint3d());
        spline.getFitPointAt(i, points.last());
    }
    OdGeVector3d start, end;
    spline.getFitTangents(start, end);
    double tolerance = spline.fitTolerance();
    change(points, start, end, tolerance);
    spline.setFitData(points, start, end, spline.degree(), tolerance);
}

void addSimpleCurveCases(std::vector<CompareCase>& cases)
{
    CompareCasesOf<OdDbPoint>{cases}
        .near("normal", [](OdDbPoint& e, double d) { e.setNormal(leaning(d)); })
        .near("position", [](OdDbPoint& e, double d) {
            e.setPosition({1, 2, 3 + d});
        });
    CompareCasesOf<OdDbLine>{cases}
        .near("normal", [](OdDbLine& e, double d) { e.setNormal(leaning(d)); })
        .near("startPoint",
              [](OdDbLine& e, double d) {
                  e.setStartPoint({1, 2 + d, 3});
              })
        .near("endPoint", [](OdDbLine& e, double d) {
            e.setEndPoint({4, 6, 8 + d});
        });
    CompareCasesOf<OdDbArc>{cases}
        .near("normal", [](OdDbArc& e, double d) { e.setNormal(leaning(d)); })
        .near("center",
              [](OdDbArc& e, double d) {
                  e.setCenter({d, 0, 0});
              })
        .near("radius", [](OdDbArc& e, double d) { e.setRadius(5 + d); })
        .near("startAngle", [](OdDbArc& e, double d) { e.setStartAngle(0.5 + d); })
        .near("endAngle", [](OdDbArc& e, double d) { e.setEndAngle(2.5 + d); });
    CompareCasesOf<OdDbCircle>{cases}
        .near("normal", [](OdDbCircle& e, double d) { e.setNormal(leaning(d)); })
        .near("center",
              [](OdDbCircle& e, double d) {
                  e.setCenter({0, d, 0});
              })
        .near("radius", [](OdDbCircle& e, double d) { e.setRadius(5 + d); });
    CompareCasesOf<OdDbRay>{cases}
        .near("basePoint",
              [](OdDbRay& e, double d) {
                  e.setBasePoint({1 + d, 2, 3});
              })
        .near("unitDir", [](OdDbRay& e, double d) {
            e.setUnitDir({1, d, 0});
        });
    CompareCasesOf<OdDbXline>{cases}
        .near("basePoint",
              [](OdDbXline& e, double d) {
                  e.setBasePoint({1, 2, 3 + d});
              })
        .near("unitDir", [](OdDbXline& e, double d) {
            e.setUnitDir({1, 0, d});
        });
    CompareCasesOf<OdDbSolid>{cases}
        .near("normal", [](OdDbSolid& e, double d) { e.setNormal(leaning(d)); })
        .inCompany();
    for (int i = 0; i < 4; ++i)
        CompareCasesOf<OdDbSolid>{cases}.near(
            "point", [i](OdDbSolid& e, double d) { e.setPointAt(i, e.getPointAt(i) + OdGeVector3d(0, d, 0)); });
}

void addEllipseCases(std::vector<CompareCase>& cases)
{
    CompareCasesOf<OdDbEllipse>{cases}
        .near("normal",
              [](OdDbEllipse& e, double d) {
                  e.setNormal({0, d, 1});
              })
        .near("center",
              [](OdDbEllipse& e, double d) {
                  e.setCenter({0, 0, d});
              })
        .near("majorAxis",
              [](OdDbEllipse& e, double d) {
                  e.setMajorAxis({4 + d, 0, 0});
              })
        .near("radiusRatio", [](OdDbEllipse& e, double d) { e.setRadiusRatio(0.5 + d); })
        // The tolerance of parameters counts whole turns.
        .add(L"Incorrect startParam value", "(res1 == eOk) && (res2 == eOk) && bStartsCoincide", CompareCase::kRel,
             [](OdDbEllipse& e, double d) { e.setStartParam(0.5 + d * Oda2PI); })
        .add(L"Incorrect endParam value", "(res1 == eOk) && (res2 == eOk) && bEndsCoincide", CompareCase::kRel,
             [](OdDbEllipse& e, double d) { e.setEndParam(2.5 + d * Oda2PI); });
}

void addPolylineCases(std::vector<CompareCase>& cases)
{
    CompareCasesOf<OdDbPolyline>{cases}
        .near("normal", [](OdDbPolyline& e, double d) { e.setNormal(leaning(d)); })
        .exact("isClosed", [](OdDbPolyline& e) { e.setClosed(true); })
        .exact("hasPlinegen", [](OdDbPolyline& e) { e.setPlinegen(true); })
        .exact("numVerts",
               [](OdDbPolyline& e) {
                   e.addVertexAt(3, {9, 9}, 0, 0.5, 0.5);
               })
        .nearRel("thickness", [](OdDbPolyline& e, double d) { e.setThickness(d); })
        .nearRel("elevation", [](OdDbPolyline& e, double d) { e.setElevation(d); })
        .nearRel("point",
                 [](OdDbPolyline& e, double d) {
                     e.setPointAt(2, {5 + d, 5});
                 })
        .nearRel("bulge", [](OdDbPolyline& e, double d) { e.setBulgeAt(0, 0.5 + d); })
        .near("startWidth", [](OdDbPolyline& e, double d) { e.setWidthsAt(1, 0.3 + d, 0.4); })
        .near("endWidth", [](OdDbPolyline& e, double d) { e.setWidthsAt(1, 0.3, 0.4 + d); });
    CompareCasesOf<OdDbPolyline> constantWidth{cases};
    // Without vertices, which would show the width, too.
    constantWidth.make = [](OdDbDatabase&) -> OdDbEntityPtr {
        OdDbPolylinePtr polyline(new OdDbPolyline);
        polyline->setConstantWidth(0.5);
        return polyline;
    };
    constantWidth.nearRel("getConstantWidth", [](OdDbPolyline& e, double d) { e.setConstantWidth(0.5 + d); });
}

void addSplineCases(std::vector<CompareCase>& cases)
{
    CompareCasesOf<OdDbSpline> fit{cases, &fitSpline};
    fit.exact("hasFitData", [](OdDbSpline& e) { e.purgeFitData(); });
    fit.nearRel("fitTolerance",
                [](OdDbSpline& e, double d) { changeFit(e, [d](auto&, auto&, auto&, double& t) { t += d; }); });
    fit.exact("numFitPoints", [](OdDbSpline& e) {
        changeFit(e, [](OdGePoint3dArray& points, auto&, auto&, auto&) { points.append({9, 9, 0}); });
    });
    fit.near("fitPoint", [](OdDbSpline& e, double d) {
        changeFit(e, [d](OdGePoint3dArray& points, auto&, auto&, auto&) { points[2].y += d; });
    });
    fit.near("startTangent", [](OdDbSpline& e, double d) {
        changeFit(e, [d](auto&, OdGeVector3d& start, auto&, auto&) { start.y += d; });
    });
    fit.near("endTangent", [](OdDbSpline& e, double d) {
        changeFit(e, [d](auto&, auto&, OdGeVector3d& end, auto&) { end.x += d; });
    });

    CompareCasesOf<OdDbSpline> curve{cases, &rationalSpline};
    curve.exact("isRational", [](OdDbSpline& e) {
        changeNurbs(e, [](auto& data) {
            data.rational = false;
            data.weights.clear();
        });
    });
    curve.inCompany(); // curves that are not rational have no weights
    curve.exact("degree", [](OdDbSpline& e) {
        changeNurbs(e, [](auto& data) {
            data.degree = 1;
            data.knots = knotsOf({0, 0, 0.5, 1, 1});
        });
    });
    curve.inCompany(); // fewer knots
    curve.exact(L"Incorrect isClosed value", "bClosed[0] == bClosed[1]",
                [](OdDbSpline& e) { changeNurbs(e, [](auto& data) { data.closed = true; }); });
    CompareCasesOf<OdDbSpline>{cases, &repeatingSpline}.exact(
        L"Incorrect isPeriodic value", "bPeriodic[0] == bPeriodic[1]",
        [](OdDbSpline& e) { changeNurbs(e, [](auto& data) { data.periodic = true; }); });
    curve.exact(L"Incorrect numControlPoints value", "points1.size() == points2.size()", [](OdDbSpline& e) {
        changeNurbs(e, [](auto& data) {
            data.points.append({9, 9, 0});
            data.weights.append(1);
            data.knots = knotsOf({0, 0, 0, 0.5, 1, 1, 1});
        });
    });
    curve.inCompany(); // as many weights, and a knot more
    curve.near("controlPoint",
               [](OdDbSpline& e, double d) { changeNurbs(e, [d](auto& data) { data.points[1].x += d; }); });
    curve.near("knot", [](OdDbSpline& e, double d) {
        changeNurbs(e, [d](auto& data) { data.knots = knotsOf({0, 0, 0, 1 + d, 1 + d, 1 + d}); });
    });
    curve.inCompany(); // the other two knots at the end
    curve.near("weight",
               [](OdDbSpline& e, double d) { changeNurbs(e, [d](auto& data) { data.weights[1] += d; }); });
}

} // namespace

void addCurveCases(std::vector<CompareCase>& cases)
{
    addSimpleCurveCases(cases);
    addEllipseCases(cases);
    addPolylineCases(cases);
    addSplineCases(cases);
}
