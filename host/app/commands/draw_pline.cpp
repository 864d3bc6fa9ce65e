// PLINE: one polyline of lines and arcs, drawn in two modes that hand over to each other.
#include "host/app/command_registry.h"
#include "host/app/commands/pline_arc.h"
#include "host/app/commands/pline_drawing.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

enum class EMode
{
    kLine,
    kArc,
    kEnd
};

/// Asks for full widths, or for halves of them.
Task<> askWidths(Editor& editor, PlineDrawing& drawing, bool asHalves)
{
    double const factor = asHalves ? 2 : 1;
    OdString const what = asHalves ? L"half-width" : L"width";
    double start = drawing.startWidth() / factor;
    Answer const first = co_await editor.distance(Prompt(L"Specify starting " + what)
                                                      .defaultText(odFormat(L"%g", start))
                                                      .base(drawing.worldEnd())
                                                      .atLeast(0));
    if (first.isValue())
        start = first.real;
    Answer const second = co_await editor.distance(
        Prompt(L"Specify ending " + what).defaultText(odFormat(L"%g", start)).base(drawing.worldEnd()).atLeast(0));
    drawing.setWidths(start * factor, (second.isValue() ? second.real : start) * factor);
}

/// Options that both modes have; false for any other one.
Task<bool> takeCommonOption(Editor& editor, PlineDrawing& drawing, OdString option)
{
    if (option == L"Width" || option == L"Halfwidth") {
        co_await askWidths(editor, drawing, option == L"Halfwidth");
        co_return true;
    }
    if (option != L"Undo")
        co_return false;
    if (!drawing.undo())
        editor.message(L"All segments already undone.");
    co_return true;
}

/// Straight on by a length.
Task<> addLength(Editor& editor, PlineDrawing& drawing)
{
    Answer const length =
        co_await editor.distance(Prompt(L"Specify length of line").base(drawing.worldEnd()).notZero());
    drawing.add(drawing.end() + drawing.direction() * length.real, 0);
}

Task<EMode> askLine(Editor& editor, PlineDrawing& drawing)
{
    OdString const options =
        drawing.hasSegments() ? L"Arc Close Halfwidth Length Undo Width" : L"Arc Halfwidth Length Undo Width";
    Answer const next = co_await editor.point(
        Prompt(L"Specify next point or").keywords(options).base(drawing.worldEnd()).allowEnter());
    if (next.isNone())
        co_return EMode::kEnd;
    if (next.isValue()) {
        drawing.add(drawing.plane().toPlane(next.point), 0);
        co_return EMode::kLine;
    }
    if (next.isKeyword(L"Close")) {
        drawing.close(0);
        co_return EMode::kEnd;
    }
    if (next.isKeyword(L"Arc"))
        co_return EMode::kArc;
    bool const isDone = co_await takeCommonOption(editor, drawing, next.text);
    if (!isDone)
        co_await addLength(editor, drawing);
    co_return EMode::kLine;
}

/// The question of the arc mode. An option has a blank in it, so the line is given whole.
Prompt arcPrompt(PlineDrawing const& drawing)
{
    bool const canClose = drawing.hasSegments();
    OdString const close = canClose ? L"CLose/" : L"";
    Prompt prompt(L"Specify endpoint of arc or [Angle/CEnter/" + close +
                  L"Direction/Halfwidth/Line/Radius/Second pt/Undo/Width]");
    prompt.hiddenKeywords(canClose ? L"Angle CEnter CLose Direction Halfwidth Line Radius Second Undo Width"
                                   : L"Angle CEnter Direction Halfwidth Line Radius Second Undo Width");
    return prompt.base(drawing.worldEnd()).allowEnter();
}

Task<EMode> askArc(Editor& editor, PlineDrawing& drawing)
{
    Answer const next = co_await editor.point(arcPrompt(drawing));
    if (next.isNone())
        co_return EMode::kEnd;
    if (next.isValue()) {
        OdGePoint2d const end = drawing.plane().toPlane(next.point);
        drawing.add(end, tangentBulge(drawing, end));
        co_return EMode::kArc;
    }
    if (next.isKeyword(L"CLose")) {
        drawing.close(tangentBulge(drawing, drawing.start()));
        co_return EMode::kEnd;
    }
    if (next.isKeyword(L"Line"))
        co_return EMode::kLine;
    bool const isDone = co_await takeCommonOption(editor, drawing, next.text);
    if (!isDone) {
        PlineArc const arc = co_await askPlineArc(editor, drawing, next.text);
        drawing.add(arc.end, arc.bulge);
    }
    co_return EMode::kArc;
}

Task<> plineCommand(Editor& editor)
{
    Answer const start = co_await editor.point(Prompt(L"Specify start point"));
    PlineDrawing drawing(editor, start.point);
    editor.message(odFormat(L"Current line-width is %g", drawing.startWidth()));
    EMode mode = EMode::kLine;
    while (mode != EMode::kEnd) {
        if (mode == EMode::kLine)
            mode = co_await askLine(editor, drawing);
        else
            mode = co_await askArc(editor, drawing);
    }
}

constexpr CommandDef s_commands[] = {{L"PLINE", L"PL", kPlain, &plineCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
