// ARC: through three points, by start, center and a third value, by start, end and a third value, or drawn on from
// the last line or arc.
#include "host/app/command_registry.h"
#include "host/app/commands/arc_bulges.h"
#include "host/app/commands/drawing_plane.h"
#include "host/app/commands/drawn_end.h"
#include "host/app/commands/new_entity.h"
#include "host/db/entities/od_db_arc.h"
#include "host/geom/od_ge_circle_build.h"

namespace ca {

namespace {

constexpr wchar_t const* kNoSweep = L"The included angle must not be zero or a full turn.";
constexpr wchar_t const* kSamePoints = L"Two of the points are the same.";

void drawArc(Editor& editor, DrawingPlane const& plane, OdGeArcData2d const& data)
{
    OdDbArcPtr const arc = new OdDbArc;
    arc->setNormal(plane.normal());
    arc->setCenter(plane.toWorld(data.center));
    arc->setRadius(data.radius);
    arc->setStartAngle(data.isClockwise ? data.endAngle : data.startAngle);
    arc->setEndAngle(data.isClockwise ? data.startAngle : data.endAngle);
    appendNew(editor, arc);

    OdGePoint2d const end = data.endPoint();
    OdGeVector2d const forward = (end - data.center).perpVector();
    rememberEnd(editor, plane.toWorld(end), plane.toWorld(data.isClockwise ? -forward : forward));
}

Task<> drawFromStartAndCenter(Editor& editor, OdGePoint3d start, OdGePoint3d center)
{
    DrawingPlane const plane(editor, start);
    OdGePoint2d const from = plane.toPlane(start);
    OdGePoint2d const about = plane.toPlane(center);
    // The option has a blank in it, so the line is given whole.
    Answer const end = co_await editor.point(
        Prompt(L"Specify end point of arc or [Angle/chord Length]").hiddenKeywords(L"Angle Length").base(center));
    if (end.isKeyword(L"Angle")) {
        Answer const sweep = co_await editor.angle(Prompt(L"Specify included angle").base(center).notZero());
        drawArc(editor, plane, orRefuse(odgeArcStartCenterSweep(from, about, sweep.real), kNoSweep));
    } else if (end.isKeyword()) {
        Answer const chord = co_await editor.distance(Prompt(L"Specify length of chord").base(start).notZero());
        drawArc(editor, plane,
                orRefuse(odgeArcStartCenterChord(from, about, chord.real),
                         L"The chord is longer than the diameter of the arc."));
    } else {
        drawArc(editor, plane,
                orRefuse(odgeArcStartCenterEnd(from, about, plane.toPlane(end.point)), kSamePoints));
    }
}

/// An arc between two known points: what the option asks for gives its bulge.
struct EndOption
{
    wchar_t const* keyword;
    Task<double> (*ask)(Editor&, DrawingPlane const&, OdGePoint3d start, OdGePoint3d end);
};

Task<double> askIncludedAngle(Editor& editor, DrawingPlane const&, OdGePoint3d start, OdGePoint3d)
{
    Answer const sweep = co_await editor.angle(Prompt(L"Specify included angle").base(start).notZero());
    co_return orRefuse(bulgeOfSweep(sweep.real), kNoSweep);
}

Task<double> askDirection(Editor& editor, DrawingPlane const& plane, OdGePoint3d start, OdGePoint3d end)
{
    Answer const direction =
        co_await editor.angle(Prompt(L"Specify tangent direction for the start point of arc").base(start));
    co_return orRefuse(
        odgeBulgeFromTangent(plane.toPlane(start), plane.directionOf(direction.real), plane.toPlane(end)),
        L"No arc of that direction ends there.");
}

Task<double> askRadius(Editor& editor, DrawingPlane const& plane, OdGePoint3d start, OdGePoint3d end)
{
    Answer const radius = co_await editor.distance(Prompt(L"Specify radius of arc").base(end).notZero());
    co_return orRefuse(bulgeOfRadius(plane.toPlane(start), plane.toPlane(end), radius.real),
                       L"The points are farther apart than the diameter.");
}

constexpr EndOption kEndOptions[] = {
    {L"Angle", &askIncludedAngle}, {L"Direction", &askDirection}, {L"Radius", &askRadius}};

Task<> drawFromStartAndEnd(Editor& editor, OdGePoint3d start)
{
    Answer const end = co_await editor.point(Prompt(L"Specify end point of arc").base(start));
    DrawingPlane const plane(editor, start);
    OdGePoint2d const from = plane.toPlane(start);
    OdGePoint2d const to = plane.toPlane(end.point);
    if (from.isEqualTo(to))
        throw AnswerRejected(kSamePoints);
    Answer const center = co_await editor.point(
        Prompt(L"Specify center point of arc or").keywords(L"Angle Direction Radius").base(start));
    if (center.isValue()) {
        drawArc(editor, plane,
                orRefuse(odgeArcStartCenterEnd(from, plane.toPlane(center.point), to), kSamePoints));
        co_return;
    }
    for (EndOption const& option : kEndOptions) {
        if (!center.isKeyword(option.keyword))
            continue;
        double const bulge = co_await option.ask(editor, plane, start, end.point);
        drawArc(editor, plane, orRefuse(odgeArcFromBulge(from, to, bulge), L"The arc would be straight."));
    }
}

Task<> drawThroughPoints(Editor& editor, OdGePoint3d start, OdGePoint3d second)
{
    Answer const end = co_await editor.point(Prompt(L"Specify end point of arc").base(second));
    DrawingPlane const plane(editor, start);
    auto const arc = odgeArcThrough3Points(plane.toPlane(start), plane.toPlane(second), plane.toPlane(end.point));
    drawArc(editor, plane, orRefuse(arc, L"The three points lie on a line."));
}

Task<> drawFromStart(Editor& editor, OdGePoint3d start)
{
    Answer const second =
        co_await editor.point(Prompt(L"Specify second point of arc or").keywords(L"Center End").base(start));
    if (second.isKeyword(L"Center")) {
        Answer const center = co_await editor.point(Prompt(L"Specify center point of arc").base(start));
        co_await drawFromStartAndCenter(editor, start, center.point);
    } else if (second.isKeyword()) {
        co_await drawFromStartAndEnd(editor, start);
    } else {
        co_await drawThroughPoints(editor, start, second.point);
    }
}

Task<> drawFromCenter(Editor& editor)
{
    Answer const center = co_await editor.point(Prompt(L"Specify center point of arc"));
    Answer const start = co_await editor.point(Prompt(L"Specify start point of arc").base(center.point));
    co_await drawFromStartAndCenter(editor, start.point, center.point);
}

/// Tangent to the last line or arc.
Task<> continueArc(Editor& editor)
{
    DrawnEnd const from = drawnEndToContinue(editor);
    editor.setLastPoint(from.point);
    Answer const end = co_await editor.point(Prompt(L"Specify end point of arc").base(from.point));
    DrawingPlane const plane(editor, from.point);
    OdGePoint2d const start = plane.toPlane(from.point);
    OdGePoint2d const to = plane.toPlane(end.point);
    double const bulge = odgeBulgeFromTangent(start, plane.toPlane(from.direction), to).value_or(0);
    drawArc(editor, plane, orRefuse(odgeArcFromBulge(start, to, bulge), L"No tangent arc ends there."));
}

Task<> arcCommand(Editor& editor)
{
    Answer const start =
        co_await editor.point(Prompt(L"Specify start point of arc or").keywords(L"Center").allowEnter());
    if (start.isNone())
        co_await continueArc(editor);
    else if (start.isKeyword())
        co_await drawFromCenter(editor);
    else
        co_await drawFromStart(editor, start.point);
}

constexpr CommandDef s_commands[] = {{L"ARC", L"A", kPlain, &arcCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
