// POLYGON: a regular polygon about or inside a circle, or upon one of its edges.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/arc_bulges.h"
#include "host/app/commands/ask_number.h"
#include "host/app/commands/flat_polyline.h"
#include "host/app/sys_var.h"

namespace ca {

namespace {

/// How the radius is measured; POLYGON offers the last choice again.
enum class ECircle
{
    kInscribed,    ///< the corners lie on the circle
    kCircumscribed ///< the edges touch the circle
};

std::vector<FlatVertex> cornersAbout(OdGePoint2d const& center, OdGeVector2d const& toCorner, int sides)
{
    std::vector<FlatVertex> corners;
    for (int i = 0; i < sides; ++i)
        corners.push_back({center + turned(toCorner, Oda2PI * i / sides)});
    return corners;
}

Task<> polygonOnEdge(Editor& editor, int sides)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first endpoint of edge"));
    Answer const second = co_await editor.point(Prompt(L"Specify second endpoint of edge").base(first.point));
    DrawingPlane const plane(editor, first.point);
    OdGePoint2d const start = plane.toPlane(first.point);
    OdGeVector2d const edge = plane.toPlane(second.point) - start;
    if (edge.isZeroLength())
        throw AnswerRejected(L"The two points are the same.");
    OdGeVector2d const toCenter = edge.perpVector() / (2 * std::tan(OdaPI / sides));
    OdGePoint2d const center = start + edge / 2 + toCenter;
    std::vector<FlatVertex> corners = cornersAbout(center, start - center, sides);
    corners[0].point = start; // free from rounding
    corners[1].point = start + edge;
    drawClosedPolyline(editor, plane, corners);
}

Task<ECircle> askCircle(Editor& editor)
{
    auto& remembered = editor.doc().commandMemory().get<ECircle>();
    Answer const answer =
        co_await editor.keyword(Prompt(L"Enter an option [Inscribed in circle/Circumscribed about circle]")
                                    .hiddenKeywords(L"Inscribed Circumscribed")
                                    .defaultText(remembered == ECircle::kInscribed ? L"I" : L"C"));
    if (answer.isKeyword())
        remembered = answer.isKeyword(L"Inscribed") ? ECircle::kInscribed : ECircle::kCircumscribed;
    co_return remembered;
}

/// From the center to the first corner. A point answers with the place of a corner, or of the middle of an edge;
/// with a number the lowest edge lies along the snap grid.
OdGeVector2d cornerOf(Editor& editor, DrawingPlane const& plane, OdGePoint3d const& center, Answer const& radius,
                      ECircle circle, int sides)
{
    double const halfEdge = OdaPI / sides; // the angle from the middle of an edge to its end, seen from the center
    double const stretch = circle == ECircle::kInscribed ? 1 : 1 / std::cos(halfEdge);
    if (!radius.hasPoint) {
        double const snapAngle = odgeToRadians(std::get<double>(SysVar::find(L"SNAPANG")->value(&editor.doc())));
        return plane.directionOf(snapAngle - OdaPI2 + halfEdge) * (radius.real * stretch);
    }
    OdGeVector2d const toPoint = plane.toPlane(radius.point) - plane.toPlane(center);
    if (toPoint.isZeroLength())
        throw AnswerRejected(L"The point lies above the center.");
    return circle == ECircle::kInscribed ? toPoint : turned(toPoint, halfEdge) * stretch;
}

Task<> polygonAboutCenter(Editor& editor, int sides, OdGePoint3d center)
{
    ECircle const circle = co_await askCircle(editor);
    Answer const radius =
        co_await editor.distance(Prompt(L"Specify radius of circle").base(center).atLeast(0, true));
    DrawingPlane const plane(editor, center);
    OdGeVector2d const toCorner = cornerOf(editor, plane, center, radius, circle, sides);
    drawClosedPolyline(editor, plane, cornersAbout(plane.toPlane(center), toCorner, sides));
}

Task<> polygonCommand(Editor& editor)
{
    SysVar const& lastSides = *SysVar::find(L"POLYSIDES");
    Prompt const sidesPrompt = Prompt(L"Enter number of sides").atLeast(3).atMost(1024);
    int const sides = co_await askInteger(editor, sidesPrompt, std::get<int>(lastSides.value(&editor.doc())));
    lastSides.set(sides, &editor.doc());
    Answer const center = co_await editor.point(Prompt(L"Specify center of polygon or").keywords(L"Edge"));
    if (center.isKeyword())
        co_await polygonOnEdge(editor, sides);
    else
        co_await polygonAboutCenter(editor, sides, center.point);
}

constexpr CommandDef s_commands[] = {{L"POLYGON", L"POL", kPlain, &polygonCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
