// From curves of the geometry to entities that show them.
#include "host/db/entities/od_db_3d_polyline.h"
#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_ellipse.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_ray.h"
#include "host/db/entities/od_db_spline.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/entities/od_db_xline.h"
#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

namespace {

/// The direction in which flat entities are drawn, and how far they are extruded along it.
struct Frame
{
    OdGeVector3d normal;
    double thickness;

    /// For a curve with a normal of its own: this frame where the planes are parallel, to the last bit, else the
    /// plane of the curve without thickness. With `keepsDirection` it looks to the same side as the curve.
    Frame forCurve(OdGeVector3d const& own, bool keepsDirection) const
    {
        if (!own.isParallelTo(normal))
            return {own, 0};
        if (keepsDirection && own.dotProduct(normal) < 0)
            return {-normal, -thickness};
        return *this;
    }
};

OdDbEntityPtr lineOf(OdGeLineSeg3d const& curve, Frame const& frame)
{
    OdDbLinePtr const line(new OdDbLine(curve.startPoint(), curve.endPoint()));
    line->setNormal(frame.normal);
    line->setThickness(frame.thickness);
    return line;
}

OdDbEntityPtr circleOf(OdGeCircArc3d const& curve, Frame const& given)
{
    Frame const frame = given.forCurve(curve.normal(), false);
    OdDbCirclePtr const circle(new OdDbCircle(curve.center(), curve.radius(), frame.normal));
    circle->setThickness(frame.thickness);
    return circle;
}

OdDbEntityPtr arcOf(OdGeCircArc3d const& curve, Frame const& given)
{
    if (curve.isClosed())
        return circleOf(curve, given);
    Frame const frame = given.forCurve(curve.normal(), true);
    OdGeMatrix3d const plane = odDbPlaneToWorld(frame.normal);
    double const turn =
        std::atan2(curve.refVec().dotProduct(plane.column(1)), curve.refVec().dotProduct(plane.column(0)));
    OdDbArcPtr const arc(new OdDbArc(curve.center(), curve.radius(), odgeFoldAngle(curve.startAng() + turn),
                                     odgeFoldAngle(curve.endAng() + turn), frame.normal));
    arc->setThickness(frame.thickness);
    return arc;
}

OdDbEntityPtr ellipseOf(OdGeEllipArc3d const& given, Frame const& frame)
{
    OdGeEllipArc3d curve = given;
    curve.orderAxes();
    double const ratio = std::min(curve.minorRadius() / curve.majorRadius(), 1.0);
    return new OdDbEllipse(curve.center(), frame.forCurve(curve.normal(), true).normal, curve.majorAxis(), ratio,
                           curve.startParam(), curve.endParam());
}

/// All at one height above the plane through the origin, given in coordinates of that plane.
bool isLevel(std::vector<OdGePoint3d> const& points)
{
    double size = 1;
    for (OdGePoint3d const& point : points)
        size = std::max({size, std::abs(point.x), std::abs(point.y), std::abs(point.z)});
    double const tol = OdGeContext::gTol.equalPoint() * size;
    return std::all_of(points.begin(), points.end(),
                       [&](OdGePoint3d const& point) { return OdEqual(point.z, points.front().z, tol); });
}

OdDbEntityPtr spacePolylineOf(OdGeSegmentChain3d const& chain)
{
    OdDb3dPolylinePtr const polyline(new OdDb3dPolyline);
    for (OdGePoint3d const& point : chain.vertices())
        polyline->appendVertex(new OdDb3dPolylineVertex(point));
    polyline->setClosed(chain.isClosedChain());
    return polyline;
}

OdDbEntityPtr polylineOf(OdGeSegmentChain3d const& chain, Frame const& given)
{
    Frame const frame = chain.hasBulges() ? given.forCurve(chain.normal(), false) : given;
    OdGeMatrix3d const toPlane = odDbWorldToPlane(frame.normal);
    std::vector<OdGePoint3d> points;
    for (OdGePoint3d const& point : chain.vertices())
        points.push_back(toPlane * point);
    if (!chain.hasBulges() && !isLevel(points))
        return spacePolylineOf(chain);

    double const side = chain.normal().dotProduct(frame.normal) < 0 ? -1 : 1;
    OdDbPolylinePtr const polyline(new OdDbPolyline);
    polyline->setNormal(frame.normal);
    polyline->setThickness(frame.thickness);
    polyline->setElevation(points.empty() ? 0 : points.front().z);
    polyline->setClosed(chain.isClosedChain());
    for (OdGePoint3d const& point : points) {
        unsigned const index = polyline->numVerts();
        polyline->addVertexAt(index, point.convert2d(), side * chain.bulgeAt(static_cast<int>(index)));
    }
    return polyline;
}

} // namespace

OdDbEntityPtr odDbEntityOf(OdGeCurve3d const& curve, OdGeVector3d const& normal, double thickness)
{
    using enum OdGeCurve3d::EType;
    Frame const frame{odDbSaneNormal(normal), thickness};
    switch (curve.type()) {
    case kLine: {
        auto const& line = static_cast<OdGeLine3d const&>(curve);
        return new OdDbXline(line.pointOnLine(), line.direction());
    }
    case kRay: {
        auto const& ray = static_cast<OdGeRay3d const&>(curve);
        return new OdDbRay(ray.pointOnLine(), ray.direction());
    }
    case kLineSeg: return lineOf(static_cast<OdGeLineSeg3d const&>(curve), frame);
    case kCircArc: return arcOf(static_cast<OdGeCircArc3d const&>(curve), frame);
    case kEllipArc: return ellipseOf(static_cast<OdGeEllipArc3d const&>(curve), frame);
    case kNurb: return new OdDbSpline(static_cast<OdGeNurbCurve3d const&>(curve));
    case kSegmentChain: return polylineOf(static_cast<OdGeSegmentChain3d const&>(curve), frame);
    }
    throw OdError(eNotApplicable);
}
