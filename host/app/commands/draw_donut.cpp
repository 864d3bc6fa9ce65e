// DONUT: filled rings and disks, polylines of two half circles that are as wide as the ring.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/ask_number.h"
#include "host/app/commands/flat_polyline.h"
#include "host/app/sys_var.h"

namespace ca {

namespace {

Task<double> askDiameter(Editor& editor, Prompt prompt, wchar_t const* variable)
{
    SysVar const& last = *SysVar::find(variable);
    double const diameter = co_await askDistance(editor, prompt, std::get<double>(last.value(&editor.doc())));
    last.set(diameter, &editor.doc());
    co_return diameter;
}

void drawDonut(Editor& editor, OdGePoint3d const& at, double inside, double outside)
{
    DrawingPlane const plane(editor, at);
    OdGePoint2d const center = plane.toPlane(at);
    OdGeVector2d const radius = plane.directionOf(0) * ((inside + outside) / 4);
    FlatVertex const ends[] = {{center - radius, 1}, {center + radius, 1}};
    drawClosedPolyline(editor, plane, ends, (outside - inside) / 2);
}

Task<> donutCommand(Editor& editor)
{
    double const first =
        co_await askDiameter(editor, Prompt(L"Specify inside diameter of donut").atLeast(0), L"DONUTID");
    double const second =
        co_await askDiameter(editor, Prompt(L"Specify outside diameter of donut").atLeast(0, true), L"DONUTOD");
    for (;;) {
        Answer const center = co_await editor.point(Prompt(L"Specify center of donut or").defaultText(L"exit"));
        if (center.isNone())
            co_return;
        drawDonut(editor, center.point, std::min(first, second), std::max(first, second));
    }
}

constexpr CommandDef s_commands[] = {{L"DONUT", L"DO DOUGHNUT", kPlain, &donutCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
