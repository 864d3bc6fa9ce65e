#pragma once

#include "host/geom/od_ge_extents3d.h"
#include "host/geom/od_ge_interval.h"
#include "host/geom/od_ge_matrix3d.h"
#include "host/geom/od_ge_plane.h"

#include <memory>
#include <optional>
#include <vector>

/// A curve in space, run through as its parameter grows over its interval. The classes are OdGeLine3d, OdGeRay3d,
/// OdGeLineSeg3d, OdGeCircArc3d, OdGeEllipArc3d, OdGeNurbCurve3d and OdGeSegmentChain3d; each says in its header
/// what its parameter is. Parameters outside the interval are evaluated where the formula goes on (lines, arcs)
/// and moved to the nearest bound elsewhere. Curves in the plane: od_ge_curve2d.h.
class OdGeCurve3d
{
public:
    enum class EType
    {
        kLine,
        kRay,
        kLineSeg,
        kCircArc,
        kEllipArc,
        kNurb,
        kSegmentChain
    };

    virtual ~OdGeCurve3d() = default;
    virtual EType type() const = 0;
    virtual std::unique_ptr<OdGeCurve3d> copy() const = 0;

    virtual OdGeInterval getInterval() const = 0;
    virtual OdGePoint3d evalPoint(double param) const = 0;
    /// First (order 1) or second (order 2) derivative by the parameter. At the joints of a chain: of the piece
    /// that begins there.
    virtual OdGeVector3d derivative(double param, int order = 1) const = 0;

    /// Throws OdError(eDegenerateGeometry) where the image is no curve of the class (a circle that would become an
    /// ellipse, a direction that collapses); then nothing changes.
    virtual void transformBy(OdGeMatrix3d const& transformation) = 0;
    /// Runs through the same points in the other direction.
    virtual void reverseParam() = 0;
    /// The part between two parameters, from < to, of the same class; parameters keep their meaning as far as the
    /// class allows. A closed curve may be run through over its start: to may exceed the interval by up to a turn.
    /// Lines and arcs are prolonged to parameters outside the interval, other open curves end where they end.
    /// Throws OdError(eInvalidInput) when nothing is between the parameters.
    virtual std::unique_ptr<OdGeCurve3d> trimmed(double from, double to) const = 0;

    /// Length between two parameters, negative when from > to; infinite for an unbounded interval.
    virtual double length(double from, double to) const = 0;
    /// Parameter of the point nearest to `point`; the least such parameter when there are several.
    virtual double closestParam(OdGePoint3d const& point) const = 0;
    /// The exact box; empty for unbounded curves.
    virtual OdGeExtents3d extents() const = 0;
    /// A plane in which the curve lies, with the normal for which a closed curve is counterclockwise where the
    /// class has no normal of its own. Nothing for curves out of a plane and for straight ones.
    virtual std::optional<OdGePlane> plane(OdGeTol const& tol = OdGeContext::gTol) const = 0;
    /// All points lie on one line.
    virtual bool isLinear(OdGeTol const& tol = OdGeContext::gTol) const = 0;
    /// Parameters in between, in ascending order, at which the curve is not smooth: joints of chains, multiple
    /// knots.
    virtual std::vector<double> breakParams() const { return {}; }

    /// @name What follows from the above
    /// @{
    bool hasStartPoint(OdGePoint3d& point) const;
    bool hasEndPoint(OdGePoint3d& point) const;
    /// Start and end agree and the curve has length. Circular and elliptic arcs: the sweep is a full turn within
    /// the tolerance of vectors.
    virtual bool isClosed(OdGeTol const& tol = OdGeContext::gTol) const;
    double length() const;
    /// The parameter at which the length from `from` is `length` (which may be negative); clamped to the interval.
    double paramAtLength(double from, double length) const;
    OdGePoint3d closestPointTo(OdGePoint3d const& point, double* param = nullptr) const;
    double distanceTo(OdGePoint3d const& point) const { return closestPointTo(point).distanceTo(point); }
    bool isOn(OdGePoint3d const& point, double* param = nullptr, OdGeTol const& tol = OdGeContext::gTol) const;
    /// Area enclosed by a closed curve of the plane, positive when it runs counterclockwise about `normal`; an
    /// open curve is closed by the straight line between its ends. 0 for straight curves.
    double signedArea(OdGeVector3d const& normal) const;
    /// Points from start to end, near enough that no chord is farther from the curve than `chordError`; an error
    /// that would need far more than 10,000 points counts as a greater one. Empty for unbounded curves.
    std::vector<OdGePoint3d> samplePoints(double chordError) const;
    /// @}

protected:
    OdGeCurve3d() = default;
    OdGeCurve3d(OdGeCurve3d const&) = default;
    OdGeCurve3d& operator=(OdGeCurve3d const&) = default;

    /// Twice the area swept by the vector from `pole` to the curve, about `normal` (a unit vector).
    virtual double sweptArea(OdGePoint3d const& pole, OdGeVector3d const& normal) const = 0;
    /// In how many parts sampling cuts the interval at least, so that no bend escapes between its probes.
    virtual int leastSamplingParts() const { return 1; }

    /// @name What every class demands of arguments; they throw OdError(eInvalidInput)
    /// @{
    static void requireOrder(int order);
    static void requireAscending(double from, double to);
    /// @}

private:
    double paramAtLengthInPiece(double from, double to, double length, double whole) const;
};
