#include "host/db/entities/od_db_endless_curve.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbEndlessCurve, OdDbCurve)

namespace {

OdGeVector3d unitDirection(OdGeVector3d const& direction)
{
    if (direction.isZeroLength())
        throw OdError(eDegenerateGeometry, L"A vector of zero length is no direction");
    return direction.normal();
}

} // namespace

OdDbSection OdDbEndlessCurve::endlessSection(std::string_view marker)
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbEndlessCurve::m_base>     (10, OdDbWriteRule::kAlways),
        odField<&OdDbEndlessCurve::m_direction>(11, OdDbWriteRule::kAlways),
    };
    // clang-format on
    return {marker, s_fields};
}

OdDbEndlessCurve::OdDbEndlessCurve(OdGePoint3d const& base, OdGeVector3d const& direction)
    : m_base(base), m_direction(unitDirection(direction))
{
}

void OdDbEndlessCurve::setBasePoint(OdGePoint3d const& base)
{
    assertWriteEnabled();
    m_base = base;
}

OdGeVector3d OdDbEndlessCurve::unitDir() const
{
    return m_direction.isUnitLength() ? m_direction : m_direction.normal();
}

void OdDbEndlessCurve::setUnitDir(OdGeVector3d const& direction)
{
    OdGeVector3d const unit = unitDirection(direction);
    assertWriteEnabled();
    m_direction = unit;
}

OdResult OdDbEndlessCurve::transformBy(OdGeMatrix3d const& transformation)
{
    constexpr double kCollapsed = 1e-12;
    OdGeVector3d direction = m_direction;
    if (hasDirection() && !odDbIsTranslation(transformation)) {
        OdGeVector3d const image = transformation * unitDir();
        // Written so that values that are no numbers count as collapsed.
        if (!(image.length() > kCollapsed * transformation.scale()) || !std::isfinite(image.length()))
            return eDegenerateGeometry;
        direction = odDbCleanDirection(image, m_direction);
    }
    assertWriteEnabled();
    m_base = transformation * m_base;
    m_direction = direction;
    return eOk;
}

void OdDbEndlessCurve::outline(OdDbOutlineSink& sink) const
{
    if (hasDirection())
        sink.endless(m_base, unitDir(), isRay());
    else
        sink.point(m_base);
}

void OdDbEndlessCurve::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    points.push_back(m_base);
}

OdResult OdDbEndlessCurve::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    return odDbStretchWhole(*this, indices, offset);
}

void OdDbEndlessCurve::listProperties(OdDbPropertySink& sink) const
{
    sink.point(L"base point", m_base);
    sink.vector(L"direction", unitDir());
    sink.direction(L"angle in XY plane", unitDir());
}

void OdDbEndlessCurve::audit(OdDbAuditInfo& info) const
{
    OdDbCurve::audit(info);
    if (!hasDirection())
        info.reportUseless(*this, L"it has no direction");
}
