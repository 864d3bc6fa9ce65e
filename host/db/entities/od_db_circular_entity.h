#pragma once

#include "host/db/entities/od_db_plane_transform.h"
#include "host/db/od_db_entity.h"

/// What circles and arcs have in common: a center in a plane, a radius, an extrusion along the plane's normal.
class OdDbCircularEntity : public OdDbEntity
{
    OD_DECLARE_CLASS(OdDbCircularEntity)
public:
    OdGePoint3d center() const;
    void setCenter(OdGePoint3d const& center);
    double radius() const { return m_radius; }
    /// Throws OdError(eOutOfRange) for a radius that is not positive.
    void setRadius(double radius);
    OdGeVector3d normal() const { return m_normal; }
    /// The center stays where it is in the world. Throws OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);
    /// Signed length of the extrusion along the normal.
    double thickness() const { return m_thickness; }
    void setThickness(double thickness);

    void audit(OdDbAuditInfo& info) const override;
    static OdDbSection circleSection();

protected:
    OdDbCircularEntity() = default;
    /// Nothing when the image is no circle of constant thickness.
    std::optional<OdDbPlaneTransform> transformOfCircle(OdGeMatrix3d const& transformation) const;
    void moveCircle(OdDbPlaneTransform const& plane);

private:
    double m_thickness = 0.0;
    OdGePoint3d m_center; ///< ECS
    double m_radius = 1.0;
    OdGeVector3d m_normal{0, 0, 1};
};
