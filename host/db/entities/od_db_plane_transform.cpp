#include "host/db/entities/od_db_plane_transform.h"

#include "host/db/entities/od_db_transform.h"

namespace {

constexpr double kSame = 1e-10;

} // namespace

std::optional<OdDbPlaneTransform> OdDbPlaneTransform::make(OdGeMatrix3d const& transformation,
                                                           OdGeVector3d const& normal)
{
    OdDbPlaneTransform result;
    result.m_normal = normal;
    if (odDbIsTranslation(transformation)) {
        result.m_matrix = OdGeMatrix3d::translation(odDbWorldToPlane(normal) * transformation.translation());
        return result;
    }
    OdGeMatrix3d const image = transformation * odDbPlaneToWorld(normal);
    OdGeVector3d const area = image.column(0).crossProduct(image.column(1));
    constexpr double kFlat = 1e-12;
    // Written so that values that are no numbers count as collapsed.
    if (!(area.length() > kFlat * image.column(0).length() * image.column(1).length()) ||
        !std::isfinite(area.length()))
        return std::nullopt;
    result.m_mirrors = area.dotProduct(image.column(2)) < 0;
    result.m_normal = odDbCleanDirection(result.m_mirrors ? -area : area, normal);
    result.m_matrix = odDbWorldToPlane(result.m_normal) * image;
    result.analyse();
    return result;
}

void OdDbPlaneTransform::analyse()
{
    OdGeVector2d const x = m_matrix.column(0).convert2d();
    OdGeVector2d const y = m_matrix.column(1).convert2d();
    OdGeVector3d const z = m_matrix.column(2);
    double const length = x.length();
    m_keepsShape = std::abs(length - y.length()) <= kSame * length &&
                   std::abs(x.dotProduct(y)) <= kSame * length * y.length();
    m_scale = odDbCleanFactor(length);
    m_rotation = std::atan2(x.y, x.x);
    m_keepsExtrusion = z.convert2d().length() <= kSame * z.length();
    m_extrusionScale = odDbCleanFactor(z.z);
}

OdDbAngle OdDbPlaneTransform::operator*(OdDbAngle angle) const
{
    if (m_rotation == 0 && !m_mirrors)
        return angle;
    return OdDbAngle::ofRadians(odgeFoldAngle(m_rotation + (m_mirrors ? -angle.radians() : angle.radians())));
}
