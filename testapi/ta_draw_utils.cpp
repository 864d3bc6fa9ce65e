#include "testapi/ta_draw_utils.h"

#include <algorithm>
#include <cmath>

namespace ta {

namespace {

constexpr double kNothing = 1e20;

bool isValidPoint(OdGePoint3d const& point)
{
    return isValidDouble(point.x) && isValidDouble(point.y) && isValidDouble(point.z);
}

double valueOr0(OdGeDoubleArray const* values, std::size_t index)
{
    return values && index < values->size() ? (*values)[index] : 0.0;
}

void checkList(OdGeDoubleArray const* values, OdGePoint2dArray const& points)
{
    if (values && values->size() > points.size())
        throw OdError(eInvalidInput, L"More bulges or widths than points");
}

/// Entities take negative widths for those of the whole polyline, which a list of widths cannot mean.
void checkWidths(OdGeDoubleArray const* widths, OdGePoint2dArray const& points)
{
    checkList(widths, points);
    if (widths && !std::all_of(widths->begin(), widths->end(), [](double width) { return width >= 0; }))
        throw OdError(eOutOfRange);
}

/// What polylines in a plane have in common. `addVertex` takes point, bulge, start width and end width.
template <class Polyline, class AddVertex>
void fillPolyline(Polyline& polyline, OdGePoint2dArray const& points, OdGeDoubleArray const* bulges, bool isClosed,
                  OdGeVector3d const* normal, double elevation, OdGeDoubleArray const* startWidths,
                  OdGeDoubleArray const* endWidths, AddVertex const& addVertex)
{
    checkList(bulges, points);
    checkWidths(startWidths, points);
    checkWidths(endWidths, points);
    if (normal)
        polyline.setNormal(normal->normal());
    polyline.setElevation(elevation);
    polyline.setClosed(isClosed);
    for (std::size_t i = 0; i < points.size(); ++i)
        addVertex(points[i], valueOr0(bulges, i), valueOr0(startWidths, i), valueOr0(endWidths, i));
}

} // namespace

bool isValidDouble(double value)
{
    return std::abs(value) < kNothing; // false for NaN
}

bool correctWindowSelectionArgs(OdGePoint3d& pt1Uc, OdGePoint3d& pt2Uc)
{
    if (!isValidPoint(pt1Uc) || !isValidPoint(pt2Uc))
        return false;
    if (OdEqual(pt1Uc.x, pt2Uc.x) || OdEqual(pt1Uc.y, pt2Uc.y))
        return false;
    if (pt1Uc.x > pt2Uc.x)
        std::swap(pt1Uc, pt2Uc);
    return true;
}

OdDbPolylinePtr createOdDbPolyline(OdGePoint2dArray const& points, OdGeDoubleArray const* bulges, bool isClosed,
                                   OdGeVector3d const* normal, double elevation,
                                   OdGeDoubleArray const* startWidths, OdGeDoubleArray const* endWidths)
{
    OdDbPolylinePtr polyline(new OdDbPolyline);
    auto const addVertex = [&](OdGePoint2d const& point, double bulge, double startWidth, double endWidth) {
        polyline->addVertexAt(polyline->numVerts(), point, bulge, startWidth, endWidth);
    };
    fillPolyline(*polyline, points, bulges, isClosed, normal, elevation, startWidths, endWidths, addVertex);
    return polyline;
}

OdDb2dPolylinePtr createOdDb2dPolyline(OdGePoint2dArray const& points, OdGeDoubleArray const* bulges,
                                       bool isClosed, OdGeVector3d const* normal, double elevation,
                                       OdGeDoubleArray const* startWidths, OdGeDoubleArray const* endWidths)
{
    OdDb2dPolylinePtr polyline(new OdDb2dPolyline);
    auto const addVertex = [&](OdGePoint2d const& point, double bulge, double startWidth, double endWidth) {
        polyline->appendVertex(new OdDb2dVertex({point.x, point.y, elevation}, bulge, startWidth, endWidth));
    };
    fillPolyline(*polyline, points, bulges, isClosed, normal, elevation, startWidths, endWidths, addVertex);
    return polyline;
}

OdDb3dPolylinePtr createOdDb3dPolyline(OdGePoint3dArray const& points, bool isClosed)
{
    OdDb3dPolylinePtr polyline(new OdDb3dPolyline);
    polyline->setClosed(isClosed);
    for (OdGePoint3d const& point : points)
        polyline->appendVertex(new OdDb3dPolylineVertex(point));
    return polyline;
}

OdDbSplinePtr createOdDbSpline(int degree, bool isRational, bool isClosed, OdGePoint3dArray const& controlPoints,
                               OdGeKnotVector const& knots, OdGeDoubleArray const* weights, double tolerance)
{
    OdDbSplinePtr spline(new OdDbSpline);
    spline->setNurbsData(degree, isRational, isClosed, false, controlPoints, knots,
                         weights ? *weights : OdGeDoubleArray(), tolerance);
    return spline;
}

} // namespace ta
