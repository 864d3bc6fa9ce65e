#include "host/db/entities/od_db_circular_entity.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_transform.h"
#include "host/geom/curves/od_ge_circ_arc3d.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbCircularEntity, OdDbCurve)

OdDbSection OdDbCircularEntity::circleSection()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbCircularEntity::m_thickness>(39),
        odField<&OdDbCircularEntity::m_center>   (10, OdDbWriteRule::kAlways),
        odField<&OdDbCircularEntity::m_radius>   (40, OdDbWriteRule::kAlways),
        odField<&OdDbCircularEntity::m_normal>   (210),
    };
    // clang-format on
    return {"AcDbCircle", s_fields};
}

OdDbCircularEntity::OdDbCircularEntity(OdGePoint3d const& center, double radius, OdGeVector3d const& normal)
{
    setRadius(radius);
    setNormal(normal);
    setCenter(center);
}

OdGePoint3d OdDbCircularEntity::center() const
{
    return odDbToWorld(m_center, m_normal);
}

void OdDbCircularEntity::setCenter(OdGePoint3d const& center)
{
    assertWriteEnabled();
    m_center = odDbToPlane(center, m_normal);
}

void OdDbCircularEntity::setRadius(double radius)
{
    if (!(radius > 0) || !std::isfinite(radius))
        throw OdError(eOutOfRange, odFormat(L"The radius %g is not positive", radius));
    assertWriteEnabled();
    m_radius = radius;
}

void OdDbCircularEntity::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    assertWriteEnabled();
    m_center = odDbToPlane(center(), unit);
    m_normal = unit;
}

void OdDbCircularEntity::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
}

OdGeEllipticArc OdDbCircularEntity::curve() const
{
    OdGeMatrix3d const plane = odDbPlaneToWorld(m_normal);
    OdGeInterval const angles = angleRange();
    double const size = std::abs(m_radius); // negative in damaged files
    return {plane * m_center, plane.column(0) * size, plane.column(1) * size, angles.lower, angles.upper};
}

std::unique_ptr<OdGeCurve3d> OdDbCircularEntity::getOdGeCurve() const
{
    OdGeMatrix3d const plane = odDbPlaneToWorld(m_normal);
    OdGeInterval const angles = angleRange();
    try {
        return std::make_unique<OdGeCircArc3d>(plane * m_center, plane.column(2), plane.column(0),
                                               std::abs(m_radius), angles.lower, angles.upper);
    } catch (OdError const&) {
        return nullptr; // angles beyond measure
    }
}

OdGeVector3d OdDbCircularEntity::planeNormal() const
{
    return odDbSaneNormal(m_normal).normal();
}

void OdDbCircularEntity::outline(OdDbOutlineSink& sink) const
{
    odDbOutlineExtruded(sink, odDbExtrusion(m_normal, m_thickness),
                        [this](OdDbOutlineSink& flat) { flat.arc(curve()); });
}

std::optional<OdDbPlaneTransform> OdDbCircularEntity::transformOfCircle(OdGeMatrix3d const& transformation) const
{
    auto const plane = OdDbPlaneTransform::make(transformation, m_normal);
    if (!plane || !plane->keepsShape() || (m_thickness != 0 && !plane->keepsExtrusion()))
        return std::nullopt;
    return plane;
}

void OdDbCircularEntity::moveCircle(OdDbPlaneTransform const& plane)
{
    m_center = plane * m_center;
    m_radius *= plane.scale();
    m_thickness *= plane.extrusionScale();
    m_normal = plane.normal();
}

void OdDbCircularEntity::setCircleInPlane(OdGePoint2d const& center, double radius)
{
    assertWriteEnabled();
    m_center = {center.x, center.y, m_center.z};
    m_radius = radius;
}

void OdDbCircularEntity::audit(OdDbAuditInfo& info) const
{
    OdDbCurve::audit(info);
    if (m_radius == 0)
        info.reportUseless(*this, L"its radius is 0");
    else if (m_radius < 0)
        info.report(*this, odFormat(L"its radius %g is negative", m_radius), L"made positive",
                    [](OdDbObject& object) {
                        auto& circle = static_cast<OdDbCircularEntity&>(object);
                        circle.setRadius(-circle.radius());
                    });
}
