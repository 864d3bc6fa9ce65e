#include "host/geom/curves/od_ge_bulge_segment.h"

#include "host/geom/od_ge_bulge.h"

namespace {

/// t - sin t without the loss of digits for small angles.
double angleLessSine(double t)
{
    constexpr double kSmall = 0.3;
    if (std::abs(t) > kSmall)
        return t - std::sin(t);
    double const s = t * t;
    return t * s / 6 * (1 - s / 20 * (1 - s / 42 * (1 - s / 72 * (1 - s / 110 * (1 - s / 156)))));
}

} // namespace

OdGeBulgeSegment::OdGeBulgeSegment(OdGePoint3d const& start, OdGePoint3d const& end, double bulge,
                                   OdGeVector3d const& normal)
    : m_start(start), m_end(end), m_chord(end - start)
{
    if (std::abs(bulge) <= kStraight)
        return;
    m_across = normal.crossProduct(m_chord);
    m_bulge = bulge;
    m_sweep = odgeSweepFromBulge(bulge);
    m_halfSine = 2 / (bulge + 1 / bulge);
    m_stretch = m_sweep / 2 / m_halfSine;
}

OdGeVector3d OdGeBulgeSegment::turnedChord(double angle) const
{
    return m_chord * std::cos(angle) + m_across * std::sin(angle);
}

OdGePoint3d OdGeBulgeSegment::evalPoint(double param) const
{
    if (param == 1)
        return m_end;
    if (m_sweep == 0)
        return m_start + m_chord * param;
    // The chord of a part turns from the whole chord by half of what the arc sweeps after the part.
    return m_start + turnedChord((param - 1) * m_sweep / 2) * (std::sin(param * m_sweep / 2) / m_halfSine);
}

OdGeVector3d OdGeBulgeSegment::derivative(double param, int order) const
{
    double const turn = (param - 0.5) * m_sweep;
    if (order == 1)
        return turnedChord(turn) * m_stretch;
    return (m_across * std::cos(turn) - m_chord * std::sin(turn)) * (m_stretch * m_sweep);
}

double OdGeBulgeSegment::closestParam(OdGePoint3d const& point) const
{
    double const chord = m_chord.length();
    if (!(chord > 0))
        return 0;
    if (m_sweep != 0)
        return closestParamOfArc(point);
    return std::clamp((point - m_start).dotProduct(m_chord / chord) / chord, 0.0, 1.0);
}

double OdGeBulgeSegment::closestParamOfArc(OdGePoint3d const& point) const
{
    // Seen from the apex, halfway along the arc: along its tangent and towards the center.
    double const chord = m_chord.length();
    OdGeVector3d const fromApex = point - evalPoint(0.5);
    double const along = fromApex.dotProduct(m_chord / chord);
    double const toCenter = std::copysign(1.0, m_sweep) * fromApex.dotProduct(m_across / chord);
    double const left = radius() - toCenter;
    if (along == 0 && left == 0)
        return 0;
    double const param = 0.5 + std::atan2(along, left) / std::abs(m_sweep);
    if (param > 0 && param < 1)
        return param;
    return point.distanceTo(m_start) <= point.distanceTo(m_end) ? 0 : 1;
}

void OdGeBulgeSegment::addExtents(OdGeExtents3d& box) const
{
    box.addPoint(m_start);
    box.addPoint(m_end);
    if (m_sweep == 0)
        return;
    // A coordinate is extreme where the derivative, a turned chord, has none of it.
    double const turns[] = {std::atan2(-m_chord.x, m_across.x), std::atan2(-m_chord.y, m_across.y),
                            std::atan2(-m_chord.z, m_across.z)};
    for (double const turn : turns) {
        for (double const other : {turn, turn > 0 ? turn - OdaPI : turn + OdaPI}) {
            if (std::abs(other) < std::abs(m_sweep) / 2)
                box.addPoint(evalPoint(0.5 + other / m_sweep));
        }
    }
}

double OdGeBulgeSegment::doubledChordArea() const
{
    if (m_sweep == 0)
        return 0;
    double const reach = m_chord.length() / m_halfSine / 2;
    return reach * reach * angleLessSine(m_sweep);
}

double OdGeBulgeSegment::radius() const
{
    return m_chord.length() / std::abs(m_halfSine) / 2;
}

OdGeVector3d OdGeBulgeSegment::toCenter() const
{
    return m_chord / 2 + m_across * ((1 / m_bulge - m_bulge) / 4);
}

double OdGeBulgeSegment::bulgeOfPart(double from, double to) const
{
    return from == 0 && to == 1 ? m_bulge : odgeBulgeFromSweep(m_sweep * (to - from));
}
