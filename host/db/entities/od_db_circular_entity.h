#pragma once

#include "host/db/entities/od_db_curve.h"
#include "host/db/entities/od_db_plane_transform.h"

/// What circles and arcs have in common: a center in a plane, a radius, an extrusion along the plane's normal. The
/// parameter of the curve is the angle from the X axis of the plane.
class OdDbCircularEntity : public OdDbCurve
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

    /// The arc in the world, counterclockwise seen against the normal, for whoever needs it without a curve
    /// object.
    OdGeEllipticArc curve() const;
    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;
    OdGeVector3d planeNormal() const override;
    void outline(OdDbOutlineSink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;
    static OdDbSection circleSection();

protected:
    OdDbCircularEntity() = default;
    OdDbCircularEntity(OdGePoint3d const& center, double radius, OdGeVector3d const& normal);
    double curveThickness() const override { return m_thickness; }
    /// The angles between which it runs, the second greater than the first by at most a full turn.
    virtual OdGeInterval angleRange() const = 0;
    /// Nothing when the image is no circle of constant thickness.
    std::optional<OdDbPlaneTransform> transformOfCircle(OdGeMatrix3d const& transformation) const;
    void moveCircle(OdDbPlaneTransform const& plane);
    /// Center and radius in the coordinates of the plane; the height of the plane stays.
    void setCircleInPlane(OdGePoint2d const& center, double radius);
    OdGePoint3d const& centerInPlane() const { return m_center; }

private:
    double m_thickness = 0.0;
    OdGePoint3d m_center; ///< ECS
    double m_radius = 1.0;
    OdGeVector3d m_normal{0, 0, 1};
};
