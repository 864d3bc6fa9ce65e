// XLINE: construction lines through a point, in a direction, halving an angle, or at a distance from a line.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/pick_line.h"
#include "host/app/commands/through_points.h"
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_xline.h"

namespace ca {

namespace {

void drawXline(Editor& editor, OdGePoint3d const& base, OdGeVector3d const& direction)
{
    editor.append(OdDbXlinePtr(new OdDbXline(base, direction)));
}

/// Parallel lines through each point until Enter.
Task<> drawParallels(Editor& editor, OdGeVector3d direction)
{
    for (;;) {
        Answer const through = co_await editor.point(Prompt(L"Specify through point").allowEnter());
        if (through.isNone())
            co_return;
        drawXline(editor, through.point, direction);
    }
}

Task<> drawHorizontals(Editor& editor)
{
    return drawParallels(editor, editor.ucsToWorld() * OdGeVector3d::kXAxis);
}

Task<> drawVerticals(Editor& editor)
{
    return drawParallels(editor, editor.ucsToWorld() * OdGeVector3d::kYAxis);
}

/// An angle counted from the X axis of the user coordinate system, or from a line that the user points at.
Task<> drawAtAngle(Editor& editor)
{
    Answer angle = co_await editor.angle(
        Prompt(L"Enter angle of xline (0) or").keywords(L"Reference").base(editor.lastPoint()).allowEnter());
    OdGeVector3d direction = editor.ucsToWorld() * OdGeVector3d::kXAxis;
    if (angle.isKeyword()) {
        std::optional<PickedLine> const line = co_await pickLine(editor, Prompt(L"Select a line object"));
        direction = line->direction;
        angle = co_await editor.angle(Prompt(L"Enter angle of xline").defaultText(L"0").base(editor.lastPoint()));
    }
    if (angle.isValue())
        direction = OdGeMatrix3d::rotation(angle.real, editor.ucsNormal()) * direction;
    co_await drawParallels(editor, direction);
}

/// Halves the angle at `vertex`; that of a straight line in the plane of the user coordinate system.
OdGeVector3d halvingDirection(Editor& editor, OdGePoint3d const& vertex, OdGePoint3d const& start,
                              OdGePoint3d const& end)
{
    OdGeVector3d const toStart = (start - vertex).normal();
    OdGeVector3d const toEnd = (end - vertex).normal();
    if (toStart.isZeroLength() || toEnd.isZeroLength())
        throw AnswerRejected(L"The two points are the same.");
    OdGeVector3d const middle = toStart + toEnd;
    if (!middle.isZeroLength())
        return middle;
    OdGeVector3d const across = editor.ucsNormal().crossProduct(toStart);
    if (across.isZeroLength())
        throw AnswerRejected(L"The three points lie on a line.");
    return across;
}

Task<> drawBisectors(Editor& editor)
{
    Answer const vertex = co_await editor.point(Prompt(L"Specify angle vertex point"));
    Answer const start = co_await editor.point(Prompt(L"Specify angle start point").base(vertex.point));
    for (;;) {
        Answer const end =
            co_await editor.point(Prompt(L"Specify angle end point").base(vertex.point).allowEnter());
        if (end.isNone())
            co_return;
        drawXline(editor, vertex.point, halvingDirection(editor, vertex.point, start.point, end.point));
    }
}

/// The line moved by a distance to the side of a point, within the plane of the user coordinate system.
void drawOffset(Editor& editor, PickedLine const& line, double distance, OdGePoint3d const& side)
{
    OdGeVector3d across = editor.ucsNormal().crossProduct(line.direction);
    if (across.isZeroLength())
        throw AnswerRejected(L"The line is perpendicular to the plane of the user coordinate system.");
    if (across.dotProduct(side - line.point) < 0)
        across = -across;
    drawXline(editor, line.point + across.normal() * distance, line.direction);
}

/// Nothing for Through. OFFSETDIST is negative where that is offered.
Task<std::optional<double>> askOffset(Editor& editor)
{
    SysVar const& last = *SysVar::find(L"OFFSETDIST");
    double const present = std::get<double>(last.value(&editor.doc()));
    OdString const offered = present > 0 ? odFormat(L"%g", present) : OdString(L"Through");
    Answer const answer = co_await editor.distance(Prompt(L"Specify offset distance or")
                                                       .keywords(L"Through")
                                                       .defaultText(offered)
                                                       .base(editor.lastPoint())
                                                       .atLeast(0, true));
    double const distance = answer.isNone() ? present : answer.isKeyword() ? -1 : answer.real;
    last.set(distance, &editor.doc());
    co_return distance > 0 ? std::optional(distance) : std::nullopt;
}

Task<> drawOffsets(Editor& editor)
{
    std::optional<double> const distance = co_await askOffset(editor);
    for (;;) {
        std::optional<PickedLine> const line =
            co_await pickLine(editor, Prompt(L"Select a line object or").defaultText(L"exit"));
        if (!line)
            co_return;
        Answer const place =
            co_await editor.point(Prompt(distance ? L"Specify side to offset" : L"Specify through point"));
        if (distance)
            drawOffset(editor, *line, *distance, place.point);
        else
            drawXline(editor, place.point, line->direction);
    }
}

struct XlineOption
{
    wchar_t const* keyword;
    Task<> (*draw)(Editor&);
};
constexpr XlineOption kOptions[] = {
    {L"Hor", &drawHorizontals},  {L"Ver", &drawVerticals},  {L"Ang", &drawAtAngle},
    {L"Bisect", &drawBisectors}, {L"Offset", &drawOffsets},
};

Task<> xlineCommand(Editor& editor)
{
    Answer const first =
        co_await editor.point(Prompt(L"Specify a point or").keywords(L"Hor Ver Ang Bisect Offset"));
    if (first.isValue())
        co_await drawThroughPoints<OdDbXline>(editor, first.point);
    for (XlineOption const& option : kOptions)
        if (first.isKeyword(option.keyword))
            co_await option.draw(editor);
}

constexpr CommandDef s_commands[] = {{L"XLINE", L"XL", kPlain, &xlineCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
