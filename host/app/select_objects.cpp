#include "host/app/select_objects.h"

#include "host/app/ca_doc.h"
#include "host/app/selection_finder.h"
#include "host/app/selection_gathering.h"
#include "host/app/selection_groups.h"
#include "host/app/selection_path.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"

#include <algorithm>

namespace ca {

namespace {

using Gathering = SelectionGathering;
using Ids = std::vector<OdDbObjectId>;
using Points = std::vector<OdGePoint3d>;

OdGeMatrix3d toPlane(Editor& editor)
{
    return editor.ucsToWorld().inverse();
}

/// A second corner; from left to right the rectangle is a window, from right to left it crosses.
Task<> takeBoxFrom(Editor& editor, Gathering& gathering, OdGePoint3d first)
{
    Answer const second = co_await editor.point(Prompt(L"Specify opposite corner").base(first));
    SelectionRegion const region = SelectionRegion::rectangle(toPlane(editor), first, second.point);
    if ((toPlane(editor) * second.point).x >= (toPlane(editor) * first).x)
        gathering.takeInside(region);
    else
        gathering.takeCrossing(region);
}

Task<> takeBox(Editor& editor, Gathering& gathering)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first corner"));
    co_await takeBoxFrom(editor, gathering, first.point);
}

Task<SelectionRegion> askRectangle(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first corner"));
    Answer const second = co_await editor.point(Prompt(L"Specify opposite corner").base(first.point));
    co_return SelectionRegion::rectangle(toPlane(editor), first.point, second.point);
}

Task<> takeWindow(Editor& editor, Gathering& gathering)
{
    SelectionRegion const region = co_await askRectangle(editor);
    gathering.takeInside(region);
}

Task<> takeCrossing(Editor& editor, Gathering& gathering)
{
    SelectionRegion const region = co_await askRectangle(editor);
    gathering.takeCrossing(region);
}

Task<> takeWindowPolygon(Editor& editor, Gathering& gathering)
{
    Points const corners = co_await askPolygon(editor);
    if (!corners.empty())
        gathering.takeInside(SelectionRegion::polygon(toPlane(editor), corners));
}

Task<> takeCrossingPolygon(Editor& editor, Gathering& gathering)
{
    Points const corners = co_await askPolygon(editor);
    if (!corners.empty())
        gathering.takeCrossing(SelectionRegion::polygon(toPlane(editor), corners));
}

Task<> takeFence(Editor& editor, Gathering& gathering)
{
    Points const points = co_await askFence(editor);
    if (points.empty())
        co_return;
    SelectionRegion const fence = SelectionRegion::fence(toPlane(editor), points);
    gathering.takePicked(SelectionFinder(editor.doc()).in(fence, SelectionFinder::EMode::kCrossing));
}

/// A point picks what lies under it; where nothing does, it is the first corner of a rectangle.
Task<> takePoint(Editor& editor, Gathering& gathering, OdGePoint3d point)
{
    OdDbObjectId const picked = SelectionFinder(editor.doc()).at(point);
    if (picked.isNull())
        co_await takeBoxFrom(editor, gathering, point);
    else
        gathering.takePicked(Ids(1, picked));
}

Ids present(Ids ids)
{
    std::erase_if(ids, [](OdDbObjectId id) { return id.isErased(); });
    return ids;
}

/// "1 was on a locked layer.", "2 were on a locked layer."
void reportLeft(Editor& editor, std::size_t count, wchar_t const* where)
{
    if (count > 0)
        editor.message(
            odFormat(count == 1 ? L"%lld was %ls." : L"%lld were %ls.", static_cast<long long>(count), where));
}

/// Takes what was given by name. Commands work in the active space: erased entities, other objects, and entities
/// of blocks, other spaces and other drawings are left out.
void takeNamed(Editor& editor, Gathering& gathering, Ids ids)
{
    OdDbObjectId const space = oa::getActiveSpace(&editor.db());
    ids = present(std::move(ids));
    auto const elsewhere = std::erase_if(ids, [space](OdDbObjectId id) {
        auto const* entity = odCast<OdDbEntity>(id.stub()->object);
        return !entity || entity->ownerId() != space;
    });
    gathering.take(ids);
    reportLeft(editor, elsewhere, L"not in the current space");
}

Task<> takeGroup(Editor& editor, Gathering& gathering)
{
    Answer const name = co_await editor.text(Prompt(L"Enter group name"));
    std::optional<Ids> const members = groupMembers(editor.doc(), name.text);
    if (members)
        gathering.take(*members);
    else
        editor.message(odFormat(L"Group \"%ls\" does not exist.", name.text.c_str()));
}

Task<> takeLast(Editor& editor, Gathering& gathering)
{
    OdDbObjectId const last = SelectionFinder(editor.doc()).last();
    gathering.take(last.isNull() ? Ids() : Ids(1, last));
    co_return;
}

Task<> takeAll(Editor& editor, Gathering& gathering)
{
    gathering.take(SelectionFinder(editor.doc()).all());
    co_return;
}

Task<> takePrevious(Editor& editor, Gathering& gathering)
{
    OdDbSelectionSetPtr const previous = editor.doc().previousSelection();
    if (previous.isNull())
        editor.message(L"No previous selection set.");
    else
        takeNamed(editor, gathering, previous->objectIds());
    co_return;
}

Task<> undoLast(Editor&, Gathering& gathering)
{
    gathering.undo();
    co_return;
}

Task<> beginAdding(Editor&, Gathering& gathering)
{
    gathering.setRemoving(false);
    co_return;
}

Task<> beginRemoving(Editor&, Gathering& gathering)
{
    gathering.setRemoving(true);
    co_return;
}

Task<> doNothing(Editor&, Gathering&)
{
    co_return;
}

struct Option
{
    wchar_t const* keyword;
    Task<> (*run)(Editor&, Gathering&);
};
// clang-format off
constexpr Option kOptions[] = {
    {L"Window",   &takeWindow},        {L"Crossing", &takeCrossing},        {L"BOX",   &takeBox},
    {L"WPolygon", &takeWindowPolygon}, {L"CPolygon", &takeCrossingPolygon}, {L"Fence", &takeFence},
    {L"Last",     &takeLast},          {L"ALL",      &takeAll},             {L"Group", &takeGroup},
    {L"Previous", &takePrevious},      {L"Undo",     &undoLast},
    {L"Add",      &beginAdding},       {L"Remove",   &beginRemoving},
    {L"AUto",     &doNothing},         {L"Multiple", &doNothing},           {L"SIngle", &doNothing},
};
// clang-format on

OdString const& optionKeywords()
{
    static OdString const s_keywords = [] {
        OdString list;
        for (Option const& option : kOptions)
            list += (list.isEmpty() ? OdString() : OdString(L" ")) + option.keyword;
        return list;
    }();
    return s_keywords;
}

Task<> takeAnswer(Editor& editor, Gathering& gathering, Answer answer)
{
    if (answer.isKeyword()) {
        for (Option const& option : kOptions)
            if (answer.isKeyword(option.keyword))
                co_await option.run(editor, gathering);
    } else if (!answer.selection.isNull()) {
        takeNamed(editor, gathering, answer.selection->objectIds());
    } else if (!answer.entity.isNull()) {
        takeNamed(editor, gathering, Ids(1, answer.entity));
    } else {
        co_await takePoint(editor, gathering, answer.point);
    }
}

Task<> gather(Editor& editor, Gathering& gathering, OdString question)
{
    bool isSingle = false;
    for (;;) {
        OdString const text = gathering.isRemoving() ? OdString(L"Remove objects") : question;
        Answer const answer =
            co_await editor.selection(Prompt(text).hiddenKeywords(optionKeywords()).allowEnter());
        if (answer.isNone())
            co_return;
        isSingle = isSingle || answer.isKeyword(L"SIngle");
        co_await takeAnswer(editor, gathering, answer);
        if (isSingle && gathering.set().numEntities() > 0)
            co_return;
    }
}

} // namespace

Task<SelectedObjects> selectObjectsByCrossing(Editor& editor, OdString question, ELockedLayers lockedLayers)
{
    Gathering gathering(editor);
    co_await gather(editor, gathering, question);
    SelectedObjects selected;
    selected.ids = present(gathering.set().objectIds());
    selected.crossing = gathering.lastCrossing();
    if (!selected.ids.empty())
        editor.doc().setPreviousSelection(OdDbSelectionSetPtr(&gathering.set()));
    if (lockedLayers == ELockedLayers::kLeftOut)
        reportLeft(editor, std::erase_if(selected.ids, isOnLockedLayer), L"on a locked layer");
    co_return selected;
}

Task<Ids> selectObjects(Editor& editor, OdString question, ELockedLayers lockedLayers)
{
    SelectedObjects selected = co_await selectObjectsByCrossing(editor, question, lockedLayers);
    co_return std::move(selected.ids);
}

} // namespace ca
