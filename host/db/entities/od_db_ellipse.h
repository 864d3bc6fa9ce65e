#pragma once

#include "host/db/entities/od_db_curve.h"

class OdGeEllipArc3d;

/// How far an ellipse runs between two parameters as files hold them, in (0, 2 pi]. Whole turns are left out; what
/// differs from a full turn by the rounding of a file is one.
double odDbEllipseSweep(double start, double end);

/// Ellipse or part of one: point(t) = center + cos t major axis + sin t minor axis. The parameter is the t of that
/// formula, not the angle seen from the center, and grows counterclockwise seen against the normal. All is in
/// world coordinates. A new one is the unit circle at the origin with half the height.
class OdDbEllipse : public OdDbCurve
{
    OD_DB_DECLARE_CLASS(OdDbEllipse)
public:
    /// Taken for the ratio of a damaged ellipse that has none.
    static constexpr double kLeastRatio = 1e-6;

    OdDbEllipse() = default;
    /// As set().
    OdDbEllipse(OdGePoint3d const& center, OdGeVector3d const& normal, OdGeVector3d const& majorAxis, double ratio,
                double start = 0, double end = Oda2PI);

    /// All at once. The part of the major axis along the normal is left out. Throws OdError: eOutOfRange for a
    /// ratio that is not in (0, 1] or parameters that are no numbers, eDegenerateGeometry for a zero normal or a
    /// major axis that is zero or along the normal.
    void set(OdGePoint3d const& center, OdGeVector3d const& normal, OdGeVector3d const& majorAxis, double ratio,
             double start = 0, double end = Oda2PI);

    OdGePoint3d center() const { return m_center; }
    void setCenter(OdGePoint3d const& center);
    OdGeVector3d normal() const { return m_normal; }
    /// The major axis keeps its length and is turned into the plane of the normal; errors as for set().
    void setNormal(OdGeVector3d const& normal);
    /// From the center to the point of parameter 0.
    OdGeVector3d majorAxis() const { return m_majorAxis; }
    void setMajorAxis(OdGeVector3d const& majorAxis);
    /// From the center to the point of a quarter turn; zero where a damaged ellipse has none.
    OdGeVector3d minorAxis() const;
    /// Length of the minor axis by that of the major one. Positive, above 1 only as a damaged file has it.
    double radiusRatio() const;
    void setRadiusRatio(double ratio);

    /// The parameters as they were given, also beyond a full turn and in any order: the ellipse runs from the
    /// start counterclockwise to the end, and as full turn where they differ by whole turns. OdDbCurve's functions
    /// of these names give the range of the curve instead, in which the end is greater than the start; all
    /// functions that take a parameter take both. Always eOk.
    OdResult getStartParam(double& param) const;
    OdResult getEndParam(double& param) const;
    /// Throw OdError(eOutOfRange) for what is no number.
    void setStartParam(double param);
    void setEndParam(double param);

    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;
    bool isClosed() const override;
    OdResult reverseCurve() override;
    OdGeVector3d planeNormal() const override;

    /// Takes any transformation that leaves it an area.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void outline(OdDbOutlineSink& sink) const override;
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

private:
    double sweep() const { return odDbEllipseSweep(m_start, m_end); }
    /// Becomes the image of its curve; `startBefore` is where the curve began.
    void takeImage(OdGeEllipArc3d const& image, double startBefore);
    void mendRatio();

    OdGePoint3d m_center;
    OdGeVector3d m_majorAxis{1, 0, 0};
    OdGeVector3d m_normal{0, 0, 1};
    double m_ratio = 0.5;
    double m_start = 0;
    double m_end = Oda2PI;
};
using OdDbEllipsePtr = OdSmartPtr<OdDbEllipse>;
