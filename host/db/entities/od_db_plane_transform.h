#pragma once

#include "host/db/od_db_angle.h"
#include "host/geom/od_ge_matrix3d.h"

#include <optional>

/// What an affine transformation does to an entity that lies in the plane of a normal: where the plane goes, and
/// how coordinates within the old plane become coordinates within the new one. A pure translation changes
/// coordinates only and leaves everything else to the last bit.
class OdDbPlaneTransform
{
public:
    /// Nothing when the plane collapses.
    static std::optional<OdDbPlaneTransform> make(OdGeMatrix3d const& transformation, OdGeVector3d const& normal);

    /// Of the new plane; it points to the side to which the old normal was carried.
    OdGeVector3d const& normal() const { return m_normal; }
    /// Angles within the plane stay and lengths grow by one factor: circles stay circles.
    bool keepsShape() const { return m_keepsShape; }
    /// Counterclockwise becomes clockwise.
    bool mirrors() const { return m_mirrors; }
    /// The factor for lengths within the plane; meaningful where keepsShape() holds.
    double scale() const { return m_scale; }
    /// What stood upright on the old plane stands upright on the new one.
    bool keepsExtrusion() const { return m_keepsExtrusion; }
    double extrusionScale() const { return m_extrusionScale; }

    OdGePoint3d operator*(OdGePoint3d const& point) const { return m_matrix * point; }
    OdGeVector2d operator*(OdGeVector2d const& v) const
    {
        return (m_matrix * OdGeVector3d(v.x, v.y, 0)).convert2d();
    }
    /// The image of a direction given by its angle, in [0, 2 pi) unless it stays as it is; meaningful where
    /// keepsShape() holds.
    OdDbAngle operator*(OdDbAngle angle) const;

private:
    OdDbPlaneTransform() = default;
    void analyse();

    OdGeMatrix3d m_matrix;
    OdGeVector3d m_normal;
    double m_rotation = 0;
    double m_scale = 1;
    double m_extrusionScale = 1;
    bool m_keepsShape = true;
    bool m_mirrors = false;
    bool m_keepsExtrusion = true;
};
