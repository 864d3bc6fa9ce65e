// ZOOM: how much of the drawing the viewport of the screen shows.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/view_space.h"
#include "host/app/editor.h"
#include "host/app/screen_view.h"
#include "host/app/select_objects.h"
#include "host/app/unit_format.h"
#include "host/app/view_extents.h"
#include "host/ut/ut_number.h"

namespace ca {

namespace {

ScreenView viewOf(Editor& editor)
{
    return screenView(editor.db());
}

void show(Editor& editor, OdGeExtents2d const& box)
{
    ScreenView view = viewOf(editor);
    view.showBox(box);
    setScreenView(editor.doc(), view);
}

OdGePoint2d inDisplay(Editor& editor, OdGePoint3d const& point)
{
    return (viewOf(editor).displayToWorld().inverse() * point).convert2d();
}

/// A typed scale: "2" relative to the limits, "2X" to the present view, "2XP" to the units of a sheet.
struct Scale
{
    enum class EBase
    {
        kLimits,
        kView,
        kPaper
    };
    double factor = 0;
    EBase base = EBase::kLimits;
};

Scale parseScale(OdString const& text)
{
    constexpr std::pair<std::wstring_view, Scale::EBase> kSuffixes[] = {
        {L"XP", Scale::EBase::kPaper}, {L"X", Scale::EBase::kView}, {L"", Scale::EBase::kLimits}};
    OdString const upper = text.upper();
    std::wstring_view number = upper.str();
    Scale scale;
    for (auto const& [suffix, base] : kSuffixes) {
        if (!number.ends_with(suffix))
            continue;
        number.remove_suffix(suffix.size());
        scale.base = base;
        break;
    }
    if (!ut::parseReal(number, scale.factor) || !std::isfinite(scale.factor))
        throw AnswerRejected(L"Requires a number, a number and X, or an option keyword.");
    if (!(scale.factor > 0))
        throw AnswerRejected(L"Value must be positive and nonzero.");
    if (scale.base == Scale::EBase::kPaper)
        throw AnswerRejected(L"A scale relative to paper units (XP) needs a viewport of a sheet.");
    return scale;
}

void zoomByScale(Editor& editor, OdString const& text)
{
    Scale const scale = parseScale(text);
    ScreenView view = viewOf(editor);
    if (scale.base == Scale::EBase::kLimits) {
        ScreenView whole = view;
        whole.showBox(limitsInView(editor.db(), view));
        view.height = whole.height;
    }
    view.height /= scale.factor;
    setScreenView(editor.doc(), view);
}

Task<> zoomScale(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter a scale factor (nX or nXP)"));
    zoomByScale(editor, answer.text);
}

/// The limits, or more where the drawing reaches beyond them. Seen from the side, limits mean nothing.
Task<> zoomAll(Editor& editor)
{
    ScreenView const view = viewOf(editor);
    OdGeExtents2d box = drawingInView(editor.doc(), view);
    if (view.direction.isParallelTo(OdGeVector3d::kZAxis))
        box.addExt(limitsInView(editor.db(), view));
    show(editor, box);
    co_return;
}

Task<> zoomExtents(Editor& editor)
{
    show(editor, drawingInView(editor.doc(), viewOf(editor)));
    co_return;
}

Task<> zoomCenter(Editor& editor)
{
    Answer const center = co_await editor.point(Prompt(L"Specify center point"));
    ScreenView view = viewOf(editor);
    OdString const present = distanceText(view.height, unitFormatOf(editor.db()));
    Answer const size = co_await editor.real(
        Prompt(L"Enter magnification or height").defaultText(present).atLeast(0, true).orText());
    view.center = inDisplay(editor, center.point);
    if (size.isValue() && size.text.isEmpty())
        view.height = size.real;
    else if (Scale const scale = size.isNone() ? Scale{1, Scale::EBase::kView} : parseScale(size.text);
             scale.base == Scale::EBase::kView)
        view.height /= scale.factor;
    setScreenView(editor.doc(), view);
}

Task<> zoomPrevious(Editor& editor)
{
    if (!restorePreviousView(editor.doc()))
        editor.message(L"No previous view is saved.");
    co_return;
}

Task<> zoomWindowFrom(Editor& editor, OdGePoint3d first)
{
    Answer const second = co_await editor.point(Prompt(L"Specify opposite corner").base(first));
    OdGeExtents2d const box(inDisplay(editor, first), inDisplay(editor, second.point));
    if (box.minPoint() == box.maxPoint())
        throw AnswerRejected(L"The window has no size.");
    show(editor, box);
}

Task<> zoomWindow(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first corner"));
    co_await zoomWindowFrom(editor, first.point);
}

Task<> zoomObject(Editor& editor)
{
    std::vector<OdDbObjectId> const ids =
        co_await selectObjects(editor, L"Select objects", ELockedLayers::kIncluded);
    OdGeExtents2d const box = extentsInView(viewOf(editor), ids);
    if (box.isValidExtents())
        show(editor, box);
    else if (!ids.empty())
        editor.message(L"The objects have no extents.");
}

struct Option
{
    wchar_t const* keyword;
    Task<> (*run)(Editor&);
};
constexpr Option kOptions[] = {
    {L"All", &zoomAll},     {L"Center", &zoomCenter}, {L"Extents", &zoomExtents}, {L"Previous", &zoomPrevious},
    {L"Scale", &zoomScale}, {L"Window", &zoomWindow}, {L"Object", &zoomObject},
};

Task<> zoomCommand(Editor& editor)
{
    refuseOnSheet(editor);
    Answer const answer =
        co_await editor.point(Prompt(L"Specify corner of window, enter a scale factor (nX or nXP), or")
                                  .keywords(L"All Center Extents Previous Scale Window Object")
                                  .orText());
    for (Option const& option : kOptions)
        if (answer.isKeyword(option.keyword))
            co_await option.run(editor);
    if (answer.isKeyword())
        co_return;
    if (answer.hasPoint)
        co_await zoomWindowFrom(editor, answer.point);
    else
        zoomByScale(editor, answer.text);
}

constexpr CommandDef s_commands[] = {{L"ZOOM", L"Z", kTransparent | kViewOnly, &zoomCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
