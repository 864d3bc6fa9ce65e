#pragma once

#include "host/db/entities/od_db_curve.h"
#include "host/geom/od_ge_arrays.h"

/// A spline: a NURBS curve, and the points that it was drawn through where it came from such (fit data). Files
/// hold both; the control points decide where the curve runs, unless there are none. Files may hold data that make
/// no curve (too few knots, say): they are kept, and getOdGeCurve() gives null.
class OdDbSpline : public OdDbCurve
{
    OD_DB_DECLARE_CLASS(OdDbSpline)
public:
    OdDbSpline() = default;
    explicit OdDbSpline(OdGeNurbCurve3d const& curve) { setCurve(curve); }

    int degree() const { return m_degree; }
    /// Control points have weights.
    bool isRational() const { return (m_flags & kRationalFlag) != 0 || !m_weights.empty(); }
    bool isPeriodic() const { return (m_flags & kPeriodicFlag) != 0; }
    bool isClosed() const override;
    /// All of it lies in the plane of planeNormal().
    bool isPlanar() const { return (m_flags & kPlanarFlag) != 0; }
    OdGeVector3d planeNormal() const override;

    /// @name Control data
    /// @{
    int numControlPoints() const { return static_cast<int>(m_controlPoints.size()); }
    int numKnots() const { return static_cast<int>(m_knots.size()); }
    /// Throw OdError(eInvalidIndex).
    OdGePoint3d getControlPointAt(int index) const;
    /// 1 where the curve is not rational.
    double weightAt(int index) const;
    /// Fit data go, because the curve no longer passes their points. Of a periodic spline the control point that
    /// repeats this one goes along. Throws OdError(eInvalidIndex).
    void setControlPointAt(int index, OdGePoint3d const& point);
    /// Weights are empty where the curve is not rational. The closed flag is what was set, or what the file said.
    void getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic, OdGePoint3dArray& controlPoints,
                      OdGeKnotVector& knots, OdGeDoubleArray& weights, double& controlPtTol) const;
    /// Fit data go; weights count for rational curves only. Programs call closed curves periodic, too, whose
    /// control points do not repeat: that is allowed. Throws OdError: eInvalidInput for data that make no curve,
    /// with what is wrong; eOutOfRange for a negative tolerance.
    void setNurbsData(int degree, bool rational, bool closed, bool periodic, OdGePoint3dArray const& controlPoints,
                      OdGeKnotVector const& knots, OdGeDoubleArray const& weights, double controlPtTol = 1e-7);
    /// The same from a curve; closed where it ends where it starts.
    void setCurve(OdGeNurbCurve3d const& curve);
    /// @}

    /// @name Fit data
    /// @{
    bool hasFitData() const { return !m_fitPoints.empty(); }
    int numFitPoints() const { return static_cast<int>(m_fitPoints.size()); }
    /// eNotApplicable without fit data, eInvalidIndex.
    OdResult getFitPointAt(int index, OdGePoint3d& point) const;
    /// Directions along the curve at its ends, zero where none was given; eNotApplicable without fit data.
    OdResult getFitTangents(OdGeVector3d& startTangent, OdGeVector3d& endTangent) const;
    /// How far from the fit points the curve may pass; 0 without fit data.
    double fitTolerance() const { return hasFitData() ? m_fitTolerance : 0; }
    /// Computes the curve through points (od_ge_nurb_curve3d.h, interpolate) and keeps them. Zero tangents leave
    /// the ends free; a closed curve goes back to its first point. Throws OdError: eInvalidInput for fewer than
    /// two different points, eOutOfRange for a degree that is not 3 to 25 and a negative tolerance.
    void setFitData(OdGePoint3dArray const& points, OdGeVector3d const& startTangent = {},
                    OdGeVector3d const& endTangent = {}, int degree = 3, double fitTolerance = 0,
                    bool isClosed = false);
    /// Forgets the fit data; the curve stays.
    void purgeFitData();
    /// @}

    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;
    OdResult reverseCurve() override;
    /// Takes every transformation that leaves a planar spline in a plane.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// Where the data make no curve: straight lines through control points or fit points.
    void outline(OdDbOutlineSink& sink) const override;
    /// The fit points, else the control points.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

private:
    using Definition = OdGeNurbCurve3d::Definition;
    static constexpr std::int16_t kClosedFlag = 1;
    static constexpr std::int16_t kPeriodicFlag = 2;
    static constexpr std::int16_t kRationalFlag = 4;
    static constexpr std::int16_t kPlanarFlag = 8;
    static constexpr std::int16_t kLinearFlag = 16;

    static bool readCount(OdDbObject& object, OdDbTag const& tag);
    static void writeCounts(OdDbObject const& object, OdDbTagSink& sink);
    static bool readList(OdDbObject& object, OdDbTag const& tag);
    static void writeLists(OdDbObject const& object, OdDbTagSink& sink);

    bool hasFlag(std::int16_t flag) const { return (m_flags & flag) != 0; }
    void setFlag(std::int16_t flag, bool on);
    /// The data as they are, which may have a problem().
    Definition definition() const;
    /// The definition without a promise to be periodic that it does not keep.
    Definition usableDefinition() const;
    std::optional<OdGeNurbCurve3d> curve() const;
    std::optional<OdGeNurbCurve3d> curveThroughFitPoints() const;
    void takeDefinition(Definition const& definition);
    /// Sets the plane and the flags that tell of it.
    void takePlane(OdGeNurbCurve3d const& curve);
    void forgetFitData();
    /// The control point that repeats another one of a periodic spline, or -1.
    int repeatOf(int index) const;
    void putControlPoint(int index, OdGePoint3d const& point);
    std::size_t numStretchPoints() const;
    OdResult moveFitPoints(std::vector<bool> const& isCaught, OdGeVector3d const& offset);
    void mend();

    std::int16_t m_flags = 0;
    std::int16_t m_degree = 3;
    double m_knotTolerance = 1e-7;
    double m_controlTolerance = 1e-7;
    double m_fitTolerance = 1e-10;
    OdGeVector3d m_startTangent;
    OdGeVector3d m_endTangent;
    OdGeVector3d m_normal{0, 0, 1};
    std::vector<double> m_knots;
    std::vector<double> m_weights;
    std::vector<OdGePoint3d> m_controlPoints;
    std::vector<OdGePoint3d> m_fitPoints;
};
using OdDbSplinePtr = OdSmartPtr<OdDbSpline>;
