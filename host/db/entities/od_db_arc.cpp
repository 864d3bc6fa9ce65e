#include "host/db/entities/od_db_arc.h"

#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"
#include "host/geom/od_ge_bulge.h"

OD_DB_DEFINE_CLASS(OdDbArc, OdDbCircularEntity, "ARC")

OdDbFieldTable const& OdDbArc::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbArc::m_startAngle>(50, OdDbWriteRule::kAlways),
        odField<&OdDbArc::m_endAngle>  (51, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table({entitySection(), circleSection(), {"AcDbArc", s_fields}});
    return s_table;
}

OdDbArc::OdDbArc(OdGePoint3d const& center, double radius, double startAngle, double endAngle,
                 OdGeVector3d const& normal)
    : OdDbCircularEntity(center, radius, normal),
      m_startAngle(OdDbAngle::ofRadians(startAngle)),
      m_endAngle(OdDbAngle::ofRadians(endAngle))
{
}

void OdDbArc::setStartAngle(double angle)
{
    assertWriteEnabled();
    m_startAngle = OdDbAngle::ofRadians(angle);
}

void OdDbArc::setEndAngle(double angle)
{
    assertWriteEnabled();
    m_endAngle = OdDbAngle::ofRadians(angle);
}

OdGeInterval OdDbArc::angleRange() const
{
    double const start = startAngle();
    return {start, start + odgeSweep(start, endAngle())};
}

OdResult OdDbArc::transformBy(OdGeMatrix3d const& transformation)
{
    auto const plane = transformOfCircle(transformation);
    if (!plane)
        return eDegenerateGeometry;
    assertWriteEnabled();
    moveCircle(*plane);
    moveAngles(*plane);
    return eOk;
}

void OdDbArc::moveAngles(OdDbPlaneTransform const& plane)
{
    OdDbAngle const first = plane.mirrors() ? m_endAngle : m_startAngle;
    OdDbAngle const moved = plane * first;
    if (moved == m_startAngle)
        return;
    // The sweep decides, not the image of the other angle: rounding must not make a full turn an arc of nothing.
    double const sweep = odgeSweep(startAngle(), endAngle());
    bool const isFull = sweep >= Oda2PI;
    m_startAngle = moved;
    m_endAngle = isFull ? moved : OdDbAngle::ofRadians(odgeFoldAngle(moved.radians() + sweep));
}

void OdDbArc::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    OdGeEllipticArc const arc = curve();
    points.push_back(arc.startPoint());
    points.push_back(arc.endPoint());
}

OdResult OdDbArc::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    auto const caught = odDbCaughtPoints(indices, 2);
    if (!caught)
        return eInvalidIndex;
    bool const isStartCaught = caught->front();
    bool const isEndCaught = caught->back();
    bool const isFull = curve().isClosed(); // both ends are one
    if (isStartCaught == isEndCaught || isFull)
        return isStartCaught || isEndCaught ? transformBy(OdGeMatrix3d::translation(offset)) : eOk;
    OdGeVector2d const inPlane = (odDbWorldToPlane(normal()) * offset).convert2d();
    OdGePoint2d const center = centerInPlane().convert2d();
    auto const endAt = [&](double angle, bool isCaught) {
        OdGeVector2d const toEnd = OdGeVector2d(std::cos(angle), std::sin(angle)) * std::abs(radius());
        return center + toEnd + (isCaught ? inPlane : OdGeVector2d());
    };
    return stretchBetween(endAt(startAngle(), isStartCaught), endAt(endAngle(), isEndCaught));
}

OdResult OdDbArc::stretchBetween(OdGePoint2d const& start, OdGePoint2d const& end)
{
    OdGeInterval const angles = angleRange();
    double const height = std::abs(radius()) * (1 - std::cos(angles.length() / 2));
    double const chord = (end - start).length();
    if (!(chord > OdGeContext::gTol.equalPoint()))
        return eDegenerateGeometry;
    auto const stretched = odgeArcFromBulge(start, end, 2 * height / chord);
    if (!stretched)
        return eDegenerateGeometry;
    setCircleInPlane(stretched->center, stretched->radius);
    m_startAngle = OdDbAngle::ofRadians(stretched->startAngle);
    m_endAngle = OdDbAngle::ofRadians(stretched->endAngle);
    return eOk;
}

void OdDbArc::listProperties(OdDbPropertySink& sink) const
{
    OdGeEllipticArc const arc = curve();
    double const size = std::abs(radius());
    sink.point(L"center", center());
    sink.distance(L"radius", radius());
    sink.point(L"start point", arc.startPoint());
    sink.point(L"end point", arc.endPoint());
    sink.direction(L"start angle", startAngle(), normal());
    sink.direction(L"end angle", endAngle(), normal());
    sink.distance(L"length", size * arc.sweep());
    sink.area(L"area", size * size * (arc.sweep() - std::sin(arc.sweep())) / 2);
    odDbListExtrusion(sink, normal(), thickness());
}
