// CIRCLE: by center and radius or diameter, by the ends of a diameter, through three points.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/drawing_plane.h"
#include "host/app/commands/new_entity.h"
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_circle.h"
#include "host/geom/od_ge_circle_build.h"

namespace ca {

namespace {

SysVar const& lastRadius()
{
    return *SysVar::find(L"CIRCLERAD");
}

void drawCircle(Editor& editor, DrawingPlane const& plane, OdGePoint3d const& center, double radius)
{
    OdDbCirclePtr const circle = new OdDbCircle;
    circle->setNormal(plane.normal());
    circle->setCenter(center);
    circle->setRadius(radius);
    appendNew(editor, circle);
    lastRadius().set(radius, &editor.doc());
}

void drawCircle(Editor& editor, DrawingPlane const& plane, OdGeCircleData2d const& circle)
{
    drawCircle(editor, plane, plane.toWorld(circle.center), circle.radius);
}

/// A length that must be positive; the remembered one is offered once there is one.
Prompt lengthPrompt(wchar_t const* text, OdGePoint3d const& center, double remembered)
{
    Prompt prompt(text);
    prompt.base(center).atLeast(0, true);
    if (remembered > 0)
        prompt.defaultText(odFormat(L"%g", remembered));
    return prompt;
}

Task<> circleByCenter(Editor& editor, OdGePoint3d center)
{
    double const remembered = std::get<double>(lastRadius().value(&editor.doc()));
    Prompt const radiusPrompt =
        lengthPrompt(L"Specify radius of circle or", center, remembered).keywords(L"Diameter");
    Answer const radius = co_await editor.distance(radiusPrompt);
    double length = radius.isNone() ? remembered : radius.real;
    if (radius.isKeyword()) {
        Prompt const diameterPrompt = lengthPrompt(L"Specify diameter of circle", center, 2 * remembered);
        Answer const diameter = co_await editor.distance(diameterPrompt);
        length = diameter.isNone() ? remembered : diameter.real / 2;
    }
    drawCircle(editor, DrawingPlane(editor, center), center, length);
}

Task<> circleOnDiameter(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first end point of circle's diameter"));
    Answer const second =
        co_await editor.point(Prompt(L"Specify second end point of circle's diameter").base(first.point));
    DrawingPlane const plane(editor, first.point);
    auto const circle = odgeCircleOnDiameter(plane.toPlane(first.point), plane.toPlane(second.point));
    drawCircle(editor, plane, orRefuse(circle, L"The two points are the same."));
}

Task<> circleThroughPoints(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first point on circle"));
    Answer const second = co_await editor.point(Prompt(L"Specify second point on circle").base(first.point));
    Answer const third = co_await editor.point(Prompt(L"Specify third point on circle").base(second.point));
    DrawingPlane const plane(editor, first.point);
    auto const circle = odgeCircleThrough3Points(plane.toPlane(first.point), plane.toPlane(second.point),
                                                 plane.toPlane(third.point));
    drawCircle(editor, plane, orRefuse(circle, L"The three points lie on a line."));
}

Task<> circleCommand(Editor& editor)
{
    Answer const center = co_await editor.point(Prompt(L"Specify center point for circle or").keywords(L"3P 2P"));
    if (center.isKeyword(L"3P"))
        co_await circleThroughPoints(editor);
    else if (center.isKeyword(L"2P"))
        co_await circleOnDiameter(editor);
    else
        co_await circleByCenter(editor, center.point);
}

constexpr CommandDef s_commands[] = {{L"CIRCLE", L"C", kPlain, &circleCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
