#include "host/app/selection_path.h"

#include "host/geom/od_ge_region2d.h"

namespace ca {

namespace {

using Points = std::vector<OdGePoint3d>;

bool touches(std::span<OdGePoint2d const> path, OdGePoint2d const& a, OdGePoint2d const& b)
{
    return !path.empty() && OdGeRegion2d::fence({path.begin(), path.end()}).crosses(a, b);
}

/// Two segments with a common end run along each other for a stretch.
bool foldsBack(OdGePoint2d const& from, OdGePoint2d const& joint, OdGePoint2d const& to)
{
    auto const isOn = [&](OdGePoint2d const& end, OdGePoint2d const& point) {
        return OdGeRegion2d::fence({joint, end}).contains(point);
    };
    return isOn(from, to) || isOn(to, from);
}

/// The segment from the last point on to a new one touches those before it.
bool crossesItself(std::span<OdGePoint2d const> points, OdGePoint2d const& next)
{
    std::size_t const count = points.size();
    return next == points.back() || touches(points.first(count - 1), points.back(), next) ||
           (count > 1 && foldsBack(points[count - 2], points.back(), next));
}

/// The segment that closes the polygon touches others than its neighbours.
bool closesWrong(std::span<OdGePoint2d const> points)
{
    std::size_t const count = points.size();
    return touches(points.subspan(1, count - 2), points.back(), points.front()) ||
           foldsBack(points[count - 2], points.back(), points.front()) ||
           foldsBack(points.back(), points.front(), points[1]);
}

std::vector<OdGePoint2d> flattened(Editor& editor, Points const& points)
{
    OdGeMatrix3d const toPlane = editor.ucsToWorld().inverse();
    std::vector<OdGePoint2d> flat;
    for (OdGePoint3d const& point : points)
        flat.push_back((toPlane * point).convert2d());
    return flat;
}

/// What makes the difference between the two kinds of paths.
struct Path
{
    wchar_t const* firstQuestion;
    wchar_t const* nextQuestion;
    std::size_t leastPoints;
    wchar_t const* tooFew;
    bool isPolygon;
};
constexpr Path kPolygon = {L"Specify first polygon point", L"Specify endpoint of line or", 3,
                           L"A polygon needs at least three points.", true};
constexpr Path kFence = {L"Specify first fence point", L"Specify next fence point or", 2,
                         L"A fence needs at least two points.", false};

constexpr wchar_t const* kRefusal = L"Invalid point: the sides of the polygon cannot touch or cross each other.";

void add(Editor& editor, Path const& path, Points& points, OdGePoint3d const& next)
{
    OdGeMatrix3d const toPlane = editor.ucsToWorld().inverse();
    if (path.isPolygon && crossesItself(flattened(editor, points), (toPlane * next).convert2d()))
        editor.message(kRefusal);
    else
        points.push_back(next);
}

void undo(Editor& editor, Points& points)
{
    if (points.size() > 1)
        points.pop_back();
    else
        editor.message(L"All segments already undone.");
}

Task<Points> askPath(Editor& editor, Path const& path)
{
    Answer const first = co_await editor.point(Prompt(path.firstQuestion));
    Points points(1, first.point);
    for (;;) {
        Answer const next =
            co_await editor.point(Prompt(path.nextQuestion).keywords(L"Undo").base(points.back()).allowEnter());
        if (next.isKeyword())
            undo(editor, points);
        else if (next.isValue())
            add(editor, path, points, next.point);
        else if (points.size() < path.leastPoints)
            break;
        else if (path.isPolygon && closesWrong(flattened(editor, points)))
            editor.message(L"The side that closes the polygon cannot touch or cross the others.");
        else
            co_return points;
    }
    editor.message(path.tooFew);
    co_return Points();
}

} // namespace

Task<Points> askPolygon(Editor& editor)
{
    return askPath(editor, kPolygon);
}

Task<Points> askFence(Editor& editor)
{
    return askPath(editor, kFence);
}

} // namespace ca
