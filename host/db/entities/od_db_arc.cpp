#include "host/db/entities/od_db_arc.h"

#include "host/db/entities/od_db_transform.h"

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

OdGeEllipticArc OdDbArc::curve() const
{
    OdGeMatrix3d const plane = odDbPlaneToWorld(normal());
    double const start = startAngle();
    return {center(), plane.column(0) * radius(), plane.column(1) * radius(), start,
            start + odgeSweep(start, endAngle())};
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
    if (moved == first)
        return;
    // The sweep decides, not the image of the other angle: rounding must not make a full turn an arc of nothing.
    double const sweep = odgeSweep(startAngle(), endAngle());
    bool const isFull = sweep >= Oda2PI;
    m_startAngle = moved;
    m_endAngle = isFull ? moved : OdDbAngle::ofRadians(odgeFoldAngle(moved.radians() + sweep));
}

void OdDbArc::outline(OdDbOutlineSink& sink) const
{
    sink.arc(curve());
}
