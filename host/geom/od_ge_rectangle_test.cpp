#include "host/geom/od_ge_rectangle_test.h"

// Every test grows the rectangle by the tolerance first and is exact from there on: what touches the border then
// cuts the grown border, so that no case of tangency needs care of its own.
namespace odgeRectangleTest {
namespace {

OdGeExtents2d grown(OdGeExtents2d const& rectangle)
{
    if (!rectangle.isValidExtents())
        return rectangle;
    OdGeVector2d const rim(OdGeContext::gTol.equalPoint(), OdGeContext::gTol.equalPoint());
    return {rectangle.minPoint() - rim, rectangle.maxPoint() + rim};
}

bool holds(OdGeExtents2d const& rectangle, OdGePoint2d const& point)
{
    return rectangle.contains(point, 0);
}

// Cuts the range of a parameter down to where from + t * step lies between low and high; false when nothing is
// left.
bool clip(double from, double step, double low, double high, double& first, double& last)
{
    if (step == 0)
        return from >= low && from <= high;
    double const atLow = (low - from) / step;
    double const atHigh = (high - from) / step;
    first = std::max(first, std::min(atLow, atHigh));
    last = std::min(last, std::max(atLow, atHigh));
    return first <= last;
}

bool segmentMeets(OdGeExtents2d const& rectangle, OdGePoint2d const& a, OdGePoint2d const& b)
{
    OdGePoint2d const& low = rectangle.minPoint();
    OdGePoint2d const& high = rectangle.maxPoint();
    double first = 0;
    double last = 1;
    return rectangle.isValidExtents() && clip(a.x, b.x - a.x, low.x, high.x, first, last) &&
           clip(a.y, b.y - a.y, low.y, high.y, first, last);
}

// One coordinate of an arc: middle + cosine cos t + sine sin t.
struct Wave
{
    double middle;
    double cosine;
    double sine;

    double at(double t) const { return middle + cosine * std::cos(t) + sine * std::sin(t); }
};

// The arc reaches one of the levels of `wave` where `other` lies between low and high.
bool arcCutsSides(OdGeEllipticArc const& arc, Wave const& wave, double level, Wave const& other, double low,
                  double high)
{
    double const amplitude = std::hypot(wave.cosine, wave.sine);
    double const height = level - wave.middle;
    if (amplitude == 0 || std::abs(height) > amplitude)
        return false;
    double const phase = std::atan2(wave.sine, wave.cosine);
    double const aside = std::acos(height / amplitude);
    auto const cuts = [&](double t) {
        double const value = other.at(t);
        return value >= low && value <= high && arc.hasParam(t, 0); // the ends are tested as points
    };
    return cuts(phase + aside) || cuts(phase - aside);
}

// Even-odd rule: a ray to the right cuts the border an odd number of times.
bool polygonHolds(std::span<OdGePoint2d const> polygon, OdGePoint2d const& point)
{
    bool odd = false;
    OdGePoint2d a = polygon.back();
    for (OdGePoint2d const& b : polygon) {
        if ((a.y > point.y) != (b.y > point.y)) {
            double const x = a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y);
            odd ^= point.x < x;
        }
        a = b;
    }
    return odd;
}

} // namespace

bool inside(OdGeExtents2d const& rectangle, OdGePoint2d const& point)
{
    return holds(grown(rectangle), point);
}

bool crosses(OdGeExtents2d const& rectangle, OdGePoint2d const& a, OdGePoint2d const& b)
{
    return segmentMeets(grown(rectangle), a, b);
}

bool inside(OdGeExtents2d const& rectangle, OdGePoint2d const& a, OdGePoint2d const& b)
{
    return inside(rectangle, a) && inside(rectangle, b);
}

bool crosses(OdGeExtents2d const& rectangle, OdGeEllipticArc const& arc)
{
    if (!rectangle.isValidExtents())
        return false;
    OdGeExtents2d const area = grown(rectangle);
    OdGePoint2d const& low = area.minPoint();
    OdGePoint2d const& high = area.maxPoint();
    if (holds(area, arc.startPoint().convert2d()) || holds(area, arc.endPoint().convert2d()))
        return true;
    Wave const x{arc.center.x, arc.u.x, arc.v.x};
    Wave const y{arc.center.y, arc.u.y, arc.v.y};
    return arcCutsSides(arc, x, low.x, y, low.y, high.y) || arcCutsSides(arc, x, high.x, y, low.y, high.y) ||
           arcCutsSides(arc, y, low.y, x, low.x, high.x) || arcCutsSides(arc, y, high.y, x, low.x, high.x);
}

bool inside(OdGeExtents2d const& rectangle, OdGeEllipticArc const& arc)
{
    OdGeExtents2d const box = arc.extents().convert2d();
    return inside(rectangle, box.minPoint(), box.maxPoint());
}

bool crosses(OdGeExtents2d const& rectangle, std::span<OdGePoint2d const> polygon)
{
    if (polygon.empty() || !rectangle.isValidExtents())
        return false;
    OdGeExtents2d const area = grown(rectangle);
    OdGePoint2d a = polygon.back();
    for (OdGePoint2d const& b : polygon) {
        if (segmentMeets(area, a, b))
            return true;
        a = b;
    }
    // No edge meets the rectangle: it lies wholly within the polygon or wholly beside it.
    return polygonHolds(polygon, rectangle.minPoint());
}

bool inside(OdGeExtents2d const& rectangle, std::span<OdGePoint2d const> polygon)
{
    OdGeExtents2d const area = grown(rectangle);
    return !polygon.empty() &&
           std::all_of(polygon.begin(), polygon.end(), [&](OdGePoint2d const& p) { return holds(area, p); });
}

} // namespace odgeRectangleTest
