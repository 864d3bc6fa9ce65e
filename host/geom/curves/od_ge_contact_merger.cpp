#include "host/geom/curves/od_ge_contact_merger.h"

#include <algorithm>
#include <cmath>

// Sweeps along the first curve: everything is compared with its neighbours only.

namespace {

constexpr auto byParamA = [](OdGeIntersection const& point) { return point.paramA; };
constexpr auto byStart = [](OdGeStretch const& stretch) { return stretch.start.paramA; };

} // namespace

OdGeContactMerger::Side::Side(OdGeCurve3d const& c, double s)
    : curve(c), interval(c.getInterval()), isClosed(c.isClosed(s)), slack(s)
{
}

double OdGeContactMerger::Side::step(double param) const
{
    double const speed = curve.derivative(param).length();
    double const least = interval.isBounded() ? 1e-13 * interval.length() : 0;
    return speed > 0 ? std::min(8 * slack / speed + least, interval.length() / 4) : least;
}

bool OdGeContactMerger::Side::isSame(double x, double y) const
{
    double const apart = std::abs(x - y);
    double const most = step(x);
    return apart <= most || (isClosed && apart >= interval.length() - most);
}

bool OdGeContactMerger::Side::isNear(double x, double y) const
{
    constexpr double kNear = 1e-3; // of the whole interval
    double const apart = std::abs(x - y);
    return apart <= kNear * interval.length() || (isClosed && apart >= (1 - kNear) * interval.length());
}

bool OdGeContactMerger::Side::isBetween(double param, double from, double to) const
{
    double const most = step(param);
    auto const holds = [&](double p) { return p >= std::min(from, to) - most && p <= std::max(from, to) + most; };
    if (holds(param))
        return true;
    return isClosed && ((param <= interval.lower + most && holds(interval.upper)) ||
                        (param >= interval.upper - most && holds(interval.lower)));
}

OdGeContactMerger::OdGeContactMerger(OdGeCurve3d const& a, OdGeCurve3d const& b, double slack)
    : m_a(a, slack), m_b(b, slack), m_slack(slack)
{
}

std::vector<OdGeIntersection> OdGeContactMerger::merged(OdGeContacts contacts) const
{
    std::ranges::stable_sort(contacts.points, {}, byParamA);
    std::ranges::stable_sort(contacts.stretches, {}, byStart);
    dropPointsOfStretches(contacts);
    std::vector<OdGeIntersection> result = distinctPoints(contacts.points);
    for (OdGeStretch const& stretch : joinedStretches(contacts.stretches)) {
        result.push_back(stretch.start);
        if (stretch.start.paramA != stretch.end.paramA)
            result.push_back(stretch.end);
    }
    std::ranges::stable_sort(result, {}, byParamA);
    return result;
}

bool OdGeContactMerger::isSame(OdGeIntersection const& x, OdGeIntersection const& y) const
{
    return x.point.distanceTo(y.point) <= 8 * m_slack && m_a.isSame(x.paramA, y.paramA) &&
           m_b.isSame(x.paramB, y.paramB);
}

// Two points of one touch: the curves do not part in between.
bool OdGeContactMerger::isOneTouch(OdGeIntersection const& x, OdGeIntersection const& y) const
{
    constexpr double kParallel = 1e-2;
    if (!m_a.isNear(x.paramA, y.paramA) || !m_b.isNear(x.paramB, y.paramB) ||
        !m_a.curve.derivative(x.paramA).isParallelTo(m_b.curve.derivative(x.paramB), OdGeTol(0, kParallel)))
        return false;
    for (double const share : {0.5, 0.25, 0.75}) {
        OdGePoint3d const between = m_a.curve.closestPointTo(x.point + (y.point - x.point) * share);
        if (m_b.curve.distanceTo(between) > m_slack)
            return false;
    }
    return true;
}

double OdGeContactMerger::gap(OdGeIntersection const& point) const
{
    return m_a.curve.evalPoint(point.paramA).distanceTo(m_b.curve.evalPoint(point.paramB));
}

void OdGeContactMerger::dropPointsOfStretches(OdGeContacts& contacts) const
{
    if (contacts.stretches.empty())
        return;
    // Stretches that begin or end at the seam of a closed curve may be met from its other end.
    std::vector<OdGeStretch const*> always;
    if (m_a.isClosed)
        for (OdGeStretch const& stretch : contacts.stretches)
            if (m_a.isSame(stretch.start.paramA, m_a.interval.lower) ||
                m_a.isSame(stretch.end.paramA, m_a.interval.upper))
                always.push_back(&stretch);
    std::vector<OdGeStretch const*> open;
    std::size_t next = 0;
    std::erase_if(contacts.points, [&](OdGeIntersection const& point) {
        double const step = m_a.step(point.paramA);
        for (; next < contacts.stretches.size() && contacts.stretches[next].start.paramA <= point.paramA + step;
             ++next)
            open.push_back(&contacts.stretches[next]);
        std::erase_if(open, [&](OdGeStretch const* s) { return s->end.paramA < point.paramA - 2 * step; });
        auto const holds = [&](OdGeStretch const* s) {
            return m_a.isBetween(point.paramA, s->start.paramA, s->end.paramA) &&
                   m_b.isBetween(point.paramB, s->start.paramB, s->end.paramB);
        };
        return std::ranges::any_of(open, holds) || std::ranges::any_of(always, holds);
    });
}

std::vector<OdGeIntersection> OdGeContactMerger::distinctPoints(std::vector<OdGeIntersection> const& points) const
{
    std::vector<OdGeIntersection> distinct;
    for (OdGeIntersection const& point : points) {
        double const step = m_a.step(point.paramA);
        bool isKnown = false;
        for (std::size_t i = distinct.size(); i-- > 0 && !isKnown;) {
            if (point.paramA - distinct[i].paramA > step && i + 1 < distinct.size())
                break;
            isKnown = isSame(distinct[i], point) || isOneTouch(distinct[i], point);
            if (isKnown && gap(point) < gap(distinct[i]))
                distinct[i] = point;
        }
        if (!isKnown)
            distinct.push_back(point);
    }
    // The seam of a closed curve has two parameters; the first one stays.
    while (m_a.isClosed && distinct.size() > 1 &&
           (isSame(distinct.front(), distinct.back()) || isOneTouch(distinct.front(), distinct.back())))
        distinct.pop_back();
    return distinct;
}

std::vector<OdGeStretch> OdGeContactMerger::joinedStretches(std::vector<OdGeStretch> const& stretches) const
{
    std::vector<OdGeStretch> joined;
    std::vector<std::size_t> open; // of `joined`: those that may run on
    for (OdGeStretch next : stretches) {
        next.start.isOverlap = next.end.isOverlap = true;
        double const least = next.start.paramA - m_a.step(next.start.paramA);
        std::erase_if(open, [&](std::size_t i) { return joined[i].end.paramA < least; });
        auto const before =
            std::ranges::find_if(open, [&](std::size_t i) { return isSame(joined[i].end, next.start); });
        if (before != open.end()) {
            joined[*before].end = next.end;
            continue;
        }
        open.push_back(joined.size());
        joined.push_back(next);
    }
    return joined;
}
