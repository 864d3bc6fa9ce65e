// TEXT: single lines of text, each an entity of its own, one below the other.
#include "host/app/command_registry.h"
#include "host/app/commands/drawing_plane.h"
#include "host/app/commands/text_placement.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_text_style_table_record.h"
#include "host/ut/ut_text.h"

namespace ca {

namespace {

struct Justification
{
    wchar_t const* keyword;
    OdDbTextHorizontalMode horizontal;
    OdDbTextVerticalMode vertical;
    wchar_t const* question;
};

using Horizontal = OdDbTextHorizontalMode;
using Vertical = OdDbTextVerticalMode;

// clang-format off
constexpr Justification kJustifications[] = {
    {L"Left",   Horizontal::kLeft,    Vertical::kBaseline, L"Specify start point of text"},
    {L"Center", Horizontal::kCenter,  Vertical::kBaseline, L"Specify center point of text"},
    {L"Right",  Horizontal::kRight,   Vertical::kBaseline, L"Specify right endpoint of text baseline"},
    {L"Align",  Horizontal::kAligned, Vertical::kBaseline, L"Specify first endpoint of text baseline"},
    {L"Middle", Horizontal::kMiddle,  Vertical::kBaseline, L"Specify middle point of text"},
    {L"Fit",    Horizontal::kFit,     Vertical::kBaseline, L"Specify first endpoint of text baseline"},
    {L"TL",     Horizontal::kLeft,    Vertical::kTop,      L"Specify top-left point of text"},
    {L"TC",     Horizontal::kCenter,  Vertical::kTop,      L"Specify top-center point of text"},
    {L"TR",     Horizontal::kRight,   Vertical::kTop,      L"Specify top-right point of text"},
    {L"ML",     Horizontal::kLeft,    Vertical::kMiddle,   L"Specify middle-left point of text"},
    {L"MC",     Horizontal::kCenter,  Vertical::kMiddle,   L"Specify middle point of text"},
    {L"MR",     Horizontal::kRight,   Vertical::kMiddle,   L"Specify middle-right point of text"},
    {L"BL",     Horizontal::kLeft,    Vertical::kBottom,   L"Specify bottom-left point of text"},
    {L"BC",     Horizontal::kCenter,  Vertical::kBottom,   L"Specify bottom-center point of text"},
    {L"BR",     Horizontal::kRight,   Vertical::kBottom,   L"Specify bottom-right point of text"},
};
// clang-format on
constexpr wchar_t const* kJustificationKeywords = L"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR";

Justification const& justification(OdString const& keyword)
{
    for (Justification const& each : kJustifications)
        if (keyword == each.keyword)
            return each;
    throw OdError(eKeyNotFound, L"Unknown justification " + keyword);
}

OdDbTextStyleTableRecordPtr currentStyle(Editor const& editor)
{
    return editor.db().getTEXTSTYLE().open<OdDbTextStyleTableRecord>();
}

double currentHeight(Editor const& editor)
{
    constexpr double kHeightOfNewDrawings = 2.5;
    double const fixed = currentStyle(editor)->textSize();
    double const remembered = editor.db().header().real("TEXTSIZE", kHeightOfNewDrawings);
    return fixed > 0 ? fixed : remembered > 0 ? remembered : kHeightOfNewDrawings;
}

void showStyle(Editor& editor)
{
    editor.message(odFormat(L"Current text style:  \"%ls\"  Text height:  %.4f",
                            currentStyle(editor)->getName().c_str(), currentHeight(editor)));
}

Task<> listStyles(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter text style(s) to list").defaultText(L"*"));
    OdString const mask = answer.isNone() ? OdString(L"*") : answer.text;
    for (OdDbStub* const stub : editor.db().table(OdDbTableKind::kTextStyle).records()) {
        OdDbObjectId const id(stub);
        if (id.isErased())
            continue;
        auto const style = id.open<OdDbTextStyleTableRecord>();
        if (style->isNameless() ||
            !ut::matchesWildcard(style->getName().str(), mask.str(), ut::ECase::kInsensitive))
            continue;
        editor.message(odFormat(L"Style name: \"%ls\"  Font file: %ls  Height: %.4f  Width factor: %.4f  "
                                L"Obliquing angle: %g",
                                style->getName().c_str(), style->fileName().c_str(), style->textSize(),
                                style->xScale(), odgeToDegrees(style->obliquingAngle())));
    }
}

Task<> askStyle(Editor& editor)
{
    for (;;) {
        Answer const answer =
            co_await editor.text(Prompt(L"Enter style name or [?]").defaultText(currentStyle(editor)->getName()));
        if (answer.isNone())
            co_return;
        if (answer.text == L"?") {
            co_await listStyles(editor);
            continue;
        }
        OdDbObjectId const style = editor.db().table(OdDbTableKind::kTextStyle).getAt(answer.text);
        if (style.isNull())
            throw AnswerRejected(odFormat(L"There is no text style \"%ls\".", answer.text.c_str()));
        editor.db().setCurrent(OdDbTableKind::kTextStyle, style);
        co_return;
    }
}

Task<double> askHeight(Editor& editor, OdGePoint3d anchor)
{
    double const offered = currentHeight(editor);
    if (currentStyle(editor)->textSize() > 0)
        co_return offered;
    Answer const height = co_await editor.distance(
        Prompt(L"Specify height").defaultText(odFormat(L"%g", offered)).base(anchor).atLeast(0, true));
    if (height.isNone())
        co_return offered;
    if (height.real != editor.db().header().real("TEXTSIZE"))
        editor.db().setHeaderReal("TEXTSIZE", 40, height.real);
    co_return height.real;
}

/// The rest of the questions once the anchor is known.
Task<> completePlacement(Editor& editor, TextPlacement& placement)
{
    DrawingPlane const plane(editor, placement.anchor);
    placement.normal = plane.normal();
    placement.style = editor.db().getTEXTSTYLE();
    if (placement.runsBetweenPoints()) {
        Answer const end =
            co_await editor.point(Prompt(L"Specify second endpoint of text baseline").base(placement.anchor));
        // In the plane of the first point, wherever the second one was picked.
        placement.end = plane.toWorld(plane.toPlane(end.point));
        if (placement.end.isEqualTo(placement.anchor))
            throw AnswerRejected(L"The two points are the same.");
        placement.rotation = plane.toPlane(placement.end - placement.anchor).angle();
    }
    if (!placement.isAligned())
        placement.height = co_await askHeight(editor, placement.anchor);
    if (!placement.runsBetweenPoints()) {
        Answer const rotation = co_await editor.angle(
            Prompt(L"Specify rotation angle of text").defaultText(L"0").base(placement.anchor));
        placement.rotation = plane.angleToPlane(rotation.real);
    }
}

Task<> askJustified(Editor& editor, TextPlacement& placement, OdString keyword)
{
    if (keyword == L"Justify") {
        Answer const answer = co_await editor.keyword(Prompt(L"Enter an option").keywords(kJustificationKeywords));
        keyword = answer.text;
    }
    Justification const& chosen = justification(keyword);
    placement.horizontal = chosen.horizontal;
    placement.vertical = chosen.vertical;
    Answer const anchor = co_await editor.point(Prompt(chosen.question));
    placement.anchor = anchor.point;
}

/// Below the last text and like it.
TextPlacement continuedPlacement(Editor const& editor)
{
    OdDbTextPtr const last = lastText(editor);
    if (last.isNull())
        throw AnswerRejected(L"There is no text to continue.");
    TextPlacement placement = TextPlacement::of(*last);
    placement.moveDown(last->height());
    return placement;
}

Task<TextPlacement> askPlacement(Editor& editor)
{
    Answer first;
    do {
        showStyle(editor);
        // Justifications are taken at once, too.
        first = co_await editor.point(Prompt(L"Specify start point of text or")
                                          .keywords(L"Justify Style")
                                          .hiddenKeywords(kJustificationKeywords)
                                          .allowEnter());
        if (first.isKeyword(L"Style"))
            co_await askStyle(editor);
    } while (first.isKeyword(L"Style"));
    if (first.isNone())
        co_return continuedPlacement(editor);
    TextPlacement placement;
    placement.anchor = first.point;
    if (first.isKeyword())
        co_await askJustified(editor, placement, first.text);
    co_await completePlacement(editor, placement);
    co_return placement;
}

Task<> textCommand(Editor& editor)
{
    TextPlacement placement = co_await askPlacement(editor);
    for (;;) {
        Answer const line = co_await editor.text(Prompt(L"Enter text").allowEnter());
        if (line.isNone())
            co_return;
        placement.drawLine(editor, line.text);
    }
}

constexpr CommandDef s_commands[] = {{L"TEXT", L"DTEXT DT", kLiteralStrings, &textCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
