#include "host/geom/curves/od_ge_intersect_pairs.h"

#include "host/geom/curves/od_ge_ellip_arc3d.h"

#include <algorithm>
#include <array>
#include <cmath>

// Distances are always taken between points that lie near each other, so that far away from the origin no more is
// lost than the coordinates themselves have lost.

namespace {

void reverse(OdGeIntersection& contact)
{
    std::swap(contact.paramA, contact.paramB);
}

void addEndContacts(OdGeCurve3d const& ended, OdGeCurve3d const& other, double slack,
                    std::vector<OdGeIntersection>& contacts)
{
    OdGeInterval const interval = ended.getInterval();
    for (double const param : {interval.lower, interval.upper}) {
        if (!std::isfinite(param))
            continue;
        OdGePoint3d const point = ended.evalPoint(param);
        double const otherParam = other.closestParam(point);
        if (other.evalPoint(otherParam).distanceTo(point) <= slack)
            contacts.push_back({point, param, otherParam, false});
    }
}

// A circle or an ellipse: center, half axes and the unit vector about which its parameter runs.
struct RoundArc
{
    OdGeEllipticArc arc;
    OdGeVector3d normal;

    explicit RoundArc(OdGeCurve3d const& curve)
        : arc(curve.type() == OdGeCurve3d::EType::kCircArc
                  ? static_cast<OdGeCircArc3d const&>(curve).ellipticArc()
                  : static_cast<OdGeEllipArc3d const&>(curve).ellipticArc()),
          normal(arc.u.crossProduct(arc.v))
    {
        normal /= normal.length();
    }

    double radius() const { return std::max(arc.u.length(), arc.v.length()); }
    double leastRadius() const { return std::min(arc.u.length(), arc.v.length()); }
    /// The parameter on the arc, moved to an end that is as near as `slack`.
    std::optional<double> paramWithin(double t, double slack) const
    {
        return odgeParamWithin({arc.start, arc.end}, t, Oda2PI, slack / leastRadius());
    }
    double paramOf(OdGePoint3d const& point) const
    {
        OdGeVector3d const v = point - arc.center;
        return std::atan2(v.dotProduct(arc.v) / arc.v.lengthSqrd(), v.dotProduct(arc.u) / arc.u.lengthSqrd());
    }

    /// Parameters at which the whole ellipse meets a plane: (point - center) * across = offset, with a unit vector
    /// that is not the normal. One parameter where the plane touches: it is reached by no more than `depth`.
    std::vector<double> paramsOnPlane(OdGeVector3d const& across, double offset, double slack, double depth) const
    {
        double const a = arc.u.dotProduct(across);
        double const b = arc.v.dotProduct(across);
        double const reach = std::hypot(a, b);
        double const direction = std::atan2(b, a);
        if (std::abs(offset) > reach + slack)
            return {};
        if (std::abs(offset) >= reach - depth)
            return {offset < 0 ? direction + OdaPI : direction};
        double const half = std::atan2(std::sqrt((reach - offset) * (reach + offset)), offset);
        return {direction - half, direction + half};
    }
};

// The point of a line nearest to another point, as an offset from that point.
OdGeVector3d offsetOfLine(OdGeLinearEnt3d const& line, OdGeVector3d const& direction, OdGePoint3d const& point)
{
    OdGeVector3d const v = line.pointOnLine() - point;
    return v - direction * v.dotProduct(direction);
}

void addOnLine(OdGeLinearEnt3d const& line, RoundArc const& round, double t, double slack, OdGeContacts& contacts)
{
    auto const onArc = round.paramWithin(t, slack);
    if (!onArc)
        return;
    OdGePoint3d const point = round.arc.evalPoint(*onArc);
    double const size = line.direction().length();
    double const param = (point - line.pointOnLine()).dotProduct(line.direction()) / (size * size);
    auto const onLine = odgeParamWithin(line.getInterval(), param, 0, slack / size);
    if (onLine && line.evalPoint(*onLine).distanceTo(point) <= 2 * slack)
        contacts.points.push_back({point, *onLine, *onArc, false});
}

void addOnCircles(RoundArc const& a, RoundArc const& b, OdGePoint3d const& point, double slack,
                  OdGeContacts& contacts)
{
    auto const onA = a.paramWithin(a.paramOf(point), slack);
    auto const onB = b.paramWithin(b.paramOf(point), slack);
    if (onA && onB && a.arc.evalPoint(*onA).distanceTo(b.arc.evalPoint(*onB)) <= 2 * slack)
        contacts.points.push_back({a.arc.evalPoint(*onA), *onA, *onB, false});
}

// Arcs of one circle: between the ends of both, taken in order, stretches are shared or not.
void addCoincidentArcs(OdGeCircArc3d const& a, OdGeCircArc3d const& b, double slack, OdGeContacts& contacts)
{
    RoundArc const roundA(a);
    RoundArc const roundB(b);
    double const slackAngle = slack / a.radius();
    std::vector<double> params = {a.startAng(), a.endAng()};
    for (OdGePoint3d const& end : {b.startPoint(), b.endPoint()})
        if (auto const t = roundA.paramWithin(roundA.paramOf(end), slack))
            params.push_back(*t);
    std::ranges::sort(params);

    auto const at = [&](double t, double towards) {
        // Seen from within the stretch, so that the start and the end of a full circle are told apart.
        double const inside = roundB.paramOf(a.evalPoint(t + (towards - t) / 2));
        double const middle = odgeParamWithin(b.getInterval(), inside, Oda2PI, slackAngle).value_or(b.startAng());
        double const turn = (t - towards) / 2 * (a.normal().dotProduct(b.normal()) < 0 ? -1 : 1);
        return OdGeIntersection{a.evalPoint(t), t, b.getInterval().clamped(middle + turn), true};
    };
    for (std::size_t i = 0; i + 1 < params.size(); ++i) {
        double const from = params[i];
        double const to = params[i + 1];
        if (to - from <= slackAngle)
            continue;
        double const middle = roundB.paramOf(a.evalPoint(from + (to - from) / 2));
        if (odgeParamWithin(b.getInterval(), middle, Oda2PI, 0))
            contacts.stretches.push_back({at(from, to), at(to, from)});
    }
    for (OdGeIntersection const& end : odgeEndContacts(a, b, slack))
        contacts.points.push_back(end);
}

void addCoplanarCircles(RoundArc const& a, RoundArc const& b, double slack, OdGeContacts& contacts)
{
    // From the center of the smaller circle: the greater one may be nearly straight there.
    bool const aIsSmaller = a.radius() <= b.radius();
    RoundArc const& small = aIsSmaller ? a : b;
    RoundArc const& great = aIsSmaller ? b : a;
    double const r = small.radius();
    double const far = great.radius();
    OdGeVector3d between = great.arc.center - small.arc.center;
    between -= small.normal * between.dotProduct(small.normal);
    double const distance = between.length();
    if (distance > r + far + slack || distance < far - r - slack || distance == 0)
        return;
    OdGeVector3d const towards = between / distance;
    double const along = ((distance - far) * (distance + far) + r * r) / (2 * distance);
    if (distance >= r + far - slack || distance <= far - r + slack) {
        addOnCircles(a, b, small.arc.center + towards * std::copysign(r, along), slack, contacts);
        return;
    }
    OdGeVector3d const across = small.normal.crossProduct(towards) * std::sqrt((r - along) * (r + along));
    for (OdGeVector3d const& side : {across, -across})
        addOnCircles(a, b, small.arc.center + towards * along + side, slack, contacts);
}

} // namespace

std::optional<double> odgeParamWithin(OdGeInterval const& interval, double param, double period, double slack)
{
    if (period > 0) {
        // The representative in the turn that begins at the lower end.
        param -= std::floor((param - interval.lower) / period) * period;
        if (param > interval.upper + slack && param - period >= interval.lower - slack)
            param -= period;
    }
    if (!(param >= interval.lower - slack && param <= interval.upper + slack))
        return std::nullopt;
    return interval.clamped(param);
}

std::vector<OdGeIntersection> odgeEndContacts(OdGeCurve3d const& a, OdGeCurve3d const& b, double slack)
{
    std::vector<OdGeIntersection> ofB;
    addEndContacts(b, a, slack, ofB);
    std::ranges::for_each(ofB, reverse);
    std::vector<OdGeIntersection> contacts;
    addEndContacts(a, b, slack, contacts);
    contacts.insert(contacts.end(), ofB.begin(), ofB.end());
    return contacts;
}

void odgeAddStretch(std::vector<OdGeIntersection> contacts, double slack, OdGeContacts& contactsOfAll)
{
    if (contacts.empty())
        return;
    auto const [first, last] = std::ranges::minmax(contacts, {}, &OdGeIntersection::paramA);
    if (first.point.distanceTo(last.point) <= 2 * slack) {
        contactsOfAll.points.push_back(first);
        return;
    }
    contactsOfAll.stretches.push_back({first, last});
}

void odgeIntersectLines(OdGeLinearEnt3d const& a, OdGeLinearEnt3d const& b, double slack, OdGeContacts& contacts)
{
    constexpr double kParallel = 1e-10;
    std::vector<OdGeIntersection> const ends = odgeEndContacts(a, b, slack);
    OdGeVector3d const u = a.direction();
    OdGeVector3d const v = b.direction();
    OdGeVector3d const normal = u.crossProduct(v);
    bool const isParallel = normal.length() <= kParallel * u.length() * v.length();
    bool const hasStretch = std::ranges::any_of(
        ends, [&](OdGeIntersection const& end) { return end.point.distanceTo(ends.front().point) > 4 * slack; });
    if (isParallel || hasStretch) {
        // A ray that runs on along a line or along a ray: the stretch has one end.
        bool const hasLine = a.type() == OdGeCurve3d::EType::kLine || b.type() == OdGeCurve3d::EType::kLine;
        if (!ends.empty() && !a.getInterval().isBounded() && !b.getInterval().isBounded() &&
            (hasLine || u.dotProduct(v) > 0)) {
            contacts.stretches.push_back({ends.front(), ends.front()});
            return;
        }
        odgeAddStretch(ends, slack, contacts);
        return;
    }
    if (!ends.empty()) {
        contacts.points.push_back(ends.front());
        return;
    }
    OdGeVector3d const gap = b.pointOnLine() - a.pointOnLine();
    double const scale = normal.lengthSqrd();
    auto const onA =
        odgeParamWithin(a.getInterval(), gap.crossProduct(v).dotProduct(normal) / scale, 0, slack / u.length());
    auto const onB =
        odgeParamWithin(b.getInterval(), gap.crossProduct(u).dotProduct(normal) / scale, 0, slack / v.length());
    if (onA && onB && a.evalPoint(*onA).distanceTo(b.evalPoint(*onB)) <= slack)
        contacts.points.push_back({a.evalPoint(*onA), *onA, *onB, false});
}

void odgeIntersectLineArc(OdGeLinearEnt3d const& line, OdGeCurve3d const& arc, double slack,
                          OdGeContacts& contacts)
{
    RoundArc const round(arc);
    OdGeVector3d const direction = line.direction() / line.direction().length();
    OdGeVector3d const offset = offsetOfLine(line, direction, round.arc.center);
    double const slope = direction.dotProduct(round.normal);
    double const height = offset.dotProduct(round.normal);
    if (std::abs(slope) * round.radius() <= slack) {
        if (std::abs(height) > slack)
            return;
        OdGeVector3d across = round.normal.crossProduct(direction);
        across /= across.length();
        for (double const t : round.paramsOnPlane(across, offset.dotProduct(across), slack, slack))
            addOnLine(line, round, t, slack, contacts);
        return;
    }
    OdGePoint3d const crossing = round.arc.center + offset - direction * (height / slope);
    addOnLine(line, round, round.paramOf(crossing), slack, contacts);
}

void odgeIntersectCircles(OdGeCircArc3d const& a, OdGeCircArc3d const& b, double slack, OdGeContacts& contacts)
{
    RoundArc const roundA(a);
    RoundArc const roundB(b);
    OdGeVector3d const between = b.center() - a.center();
    double const tilt = a.normal().crossProduct(b.normal()).length();
    if (tilt * std::min(a.radius(), b.radius()) > slack) {
        // Points of the smaller circle in the plane of the other one.
        bool const aIsSmaller = a.radius() <= b.radius();
        RoundArc const& small = aIsSmaller ? roundA : roundB;
        OdGeVector3d const& across = aIsSmaller ? b.normal() : a.normal();
        double const offset = between.dotProduct(across) * (aIsSmaller ? 1 : -1);
        for (double const t : small.paramsOnPlane(across, offset, slack, 0))
            addOnCircles(roundA, roundB, small.arc.evalPoint(t), slack, contacts);
        return;
    }
    if (std::abs(between.dotProduct(a.normal())) > slack)
        return;
    if (between.length() <= slack && std::abs(a.radius() - b.radius()) <= slack)
        addCoincidentArcs(a, b, slack, contacts);
    else
        addCoplanarCircles(roundA, roundB, slack, contacts);
}
