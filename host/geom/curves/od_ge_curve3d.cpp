#include "host/geom/curves/od_ge_curve3d.h"

#include "host/root/od_error.h"

namespace {

double distanceToChord(OdGePoint3d const& point, OdGePoint3d const& from, OdGePoint3d const& to)
{
    OdGeVector3d const chord = to - from;
    double const length = chord.length();
    if (!(length > 0))
        return point.distanceTo(from);
    OdGeVector3d const direction = chord / length;
    double const along = std::clamp((point - from).dotProduct(direction), 0.0, length);
    return point.distanceTo(from + direction * along);
}

/// Collects points of a curve, halving a range of parameters as long as probes lie too far from its chord.
class ChordSampler
{
public:
    ChordSampler(OdGeCurve3d const& curve, double chordError, double start)
        : m_curve(curve), m_chordError(chordError), m_points{curve.evalPoint(start)}
    {
    }
    /// Goes on to a parameter.
    void addUpTo(double from, double to, int depth = 0)
    {
        OdGePoint3d const start = m_points.back();
        OdGePoint3d const end = m_curve.evalPoint(to);
        if (depth < kMostHalvings && isBent(start, end, from, to)) {
            double const middle = from + (to - from) / 2;
            addUpTo(from, middle, depth + 1);
            addUpTo(middle, to, depth + 1);
        } else {
            m_points.push_back(end);
        }
    }
    std::vector<OdGePoint3d> take() { return std::move(m_points); }

private:
    static constexpr int kMostHalvings = 20;

    bool isBent(OdGePoint3d const& start, OdGePoint3d const& end, double from, double to) const
    {
        // Between the probes a spline may lie somewhat farther out than at them.
        constexpr double kMargin = 0.9;
        for (double const part : {0.5, 0.25, 0.75}) {
            OdGePoint3d const probe = m_curve.evalPoint(from + (to - from) * part);
            if (distanceToChord(probe, start, end) > kMargin * m_chordError)
                return true;
        }
        return false;
    }

    OdGeCurve3d const& m_curve;
    double m_chordError;
    std::vector<OdGePoint3d> m_points;
};

} // namespace

void OdGeCurve3d::requireOrder(int order)
{
    if (order != 1 && order != 2)
        throw OdError(eInvalidInput, L"only the first and the second derivative of a curve are known");
}

void OdGeCurve3d::requireAscending(double from, double to)
{
    if (!(from < to))
        throw OdError(eInvalidInput, L"a part of a curve needs two parameters in ascending order");
}

bool OdGeCurve3d::hasStartPoint(OdGePoint3d& point) const
{
    OdGeInterval const range = getInterval();
    if (range.isBoundedBelow())
        point = evalPoint(range.lower);
    return range.isBoundedBelow();
}

bool OdGeCurve3d::hasEndPoint(OdGePoint3d& point) const
{
    OdGeInterval const range = getInterval();
    if (range.isBoundedAbove())
        point = evalPoint(range.upper);
    return range.isBoundedAbove();
}

bool OdGeCurve3d::isClosed(OdGeTol const& tol) const
{
    OdGePoint3d start;
    OdGePoint3d end;
    return hasStartPoint(start) && hasEndPoint(end) && start.isEqualTo(end, tol) && length() > tol.equalPoint();
}

double OdGeCurve3d::length() const
{
    OdGeInterval const range = getInterval();
    return length(range.lower, range.upper);
}

double OdGeCurve3d::paramAtLength(double from, double length) const
{
    OdGeInterval const range = getInterval();
    double piece = range.clamped(from);
    double const bound = length < 0 ? range.lower : range.upper;
    if (!std::isfinite(bound)) // a line or a ray: its parameter is the length
        return range.clamped(piece + length);

    // Between two breaks the length is smooth, so that the search in the last piece needs few steps.
    std::vector<double> ends = breakParams();
    if (length < 0)
        std::reverse(ends.begin(), ends.end());
    ends.push_back(bound);
    double left = length;
    for (double const end : ends) {
        if (length < 0 ? end >= piece : end <= piece)
            continue;
        double const whole = this->length(piece, end);
        if (std::abs(left) < std::abs(whole))
            return paramAtLengthInPiece(piece, end, left, whole);
        left -= whole;
        piece = end;
    }
    return bound;
}

double OdGeCurve3d::paramAtLengthInPiece(double from, double to, double length, double whole) const
{
    constexpr double kPrecision = 1e-15;
    constexpr int kMostSteps = 100;
    // Newton's steps, halving the bracket where one would leave it.
    double inner = from;
    double outer = to;
    double param = from + (to - from) * (length / whole);
    for (int i = 0; i < kMostSteps; ++i) {
        double const over = this->length(from, param) - length;
        if (std::abs(over) <= kPrecision * std::abs(whole))
            break;
        (std::abs(over + length) > std::abs(length) ? outer : inner) = param;
        double next = param - over / derivative(param).length();
        if (!(next > std::min(inner, outer) && next < std::max(inner, outer)))
            next = inner + (outer - inner) / 2;
        if (next == param)
            break;
        param = next;
    }
    return param;
}

OdGePoint3d OdGeCurve3d::closestPointTo(OdGePoint3d const& point, double* param) const
{
    double const closest = closestParam(point);
    if (param)
        *param = closest;
    return evalPoint(closest);
}

bool OdGeCurve3d::isOn(OdGePoint3d const& point, double* param, OdGeTol const& tol) const
{
    return closestPointTo(point, param).isEqualTo(point, tol);
}

double OdGeCurve3d::signedArea(OdGeVector3d const& normal) const
{
    OdGePoint3d start;
    if (isLinear() || !getInterval().isBounded() || !hasStartPoint(start))
        return 0;
    // Seen from the start, the straight line that closes the curve sweeps nothing.
    return sweptArea(start, normal) / 2;
}

std::vector<OdGePoint3d> OdGeCurve3d::samplePoints(double chordError) const
{
    OdGeInterval const range = getInterval();
    if (!range.isBounded())
        return {};
    std::vector<double> ends = breakParams();
    ends.push_back(range.upper);
    // The number of points grows with the root of this quotient and of the number of pieces.
    constexpr double kFinest = 1e-9;
    double const least = length() * kFinest * static_cast<double>(ends.size());
    ChordSampler sampler(*this, chordError > least ? chordError : least, range.lower);
    double from = range.lower;
    for (double const to : ends) {
        if (!(to > from))
            continue;
        constexpr double kRounding = 1e-9;
        double const share = leastSamplingParts() * (to - from) / range.length();
        int const parts = std::max(1, static_cast<int>(std::ceil(share - kRounding)));
        for (int i = 0; i < parts; ++i)
            sampler.addUpTo(from + (to - from) * i / parts, from + (to - from) * (i + 1) / parts);
        from = to;
    }
    return sampler.take();
}
