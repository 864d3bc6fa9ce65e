#include "host/db/entities/od_db_circular_entity.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_transform.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbCircularEntity, OdDbEntity)

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

void OdDbCircularEntity::audit(OdDbAuditInfo& info) const
{
    OdDbEntity::audit(info);
    if (m_radius == 0)
        info.reportUseless(*this, L"its radius is 0");
    else if (m_radius < 0)
        info.report(*this, odFormat(L"its radius %g is negative", m_radius), L"made positive",
                    [](OdDbObject& object) {
                        auto& circle = static_cast<OdDbCircularEntity&>(object);
                        circle.setRadius(-circle.radius());
                    });
}
