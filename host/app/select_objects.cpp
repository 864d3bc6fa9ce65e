#include "host/app/select_objects.h"

#include "host/app/ca_doc.h"
#include "host/app/selection_finder.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"

#include <algorithm>

namespace ca {

namespace {

constexpr wchar_t const* kOptions = L"Window Crossing BOX Last ALL Previous Add Remove Undo SIngle AUto Multiple";

/// The selection that grows and shrinks while the question is asked.
class Gathering
{
public:
    explicit Gathering(Editor& editor) : m_editor(editor), m_set(OdDbSelectionSet::create(&editor.db())) {}

    void setRemoving(bool removing) { m_isRemoving = removing; }
    bool isRemoving() const { return m_isRemoving; }
    OdDbSelectionSet& set() { return *m_set; }

    /// Adds or removes and says so: "3 found (1 duplicate), 7 total".
    void take(std::vector<OdDbObjectId> const& ids)
    {
        std::vector<OdDbObjectId> changed;
        for (OdDbObjectId const id : ids) {
            if (m_set->member(id) != m_isRemoving)
                continue;
            if (m_isRemoving)
                m_set->remove(id);
            else
                m_set->append(id);
            changed.push_back(id);
        }
        report(ids.size(), changed.size());
        m_steps.push_back({m_isRemoving, std::move(changed)});
    }

    void undo()
    {
        if (m_steps.empty()) {
            m_editor.message(L"Nothing to undo.");
            return;
        }
        for (OdDbObjectId const id : m_steps.back().ids) {
            if (m_steps.back().removed)
                m_set->append(id);
            else
                m_set->remove(id);
        }
        m_steps.pop_back();
        m_editor.message(odFormat(L"%lld total", static_cast<long long>(m_set->numEntities())));
    }

private:
    struct Step
    {
        bool removed;
        std::vector<OdDbObjectId> ids;
    };

    void report(std::size_t found, std::size_t changed)
    {
        OdString text = odFormat(L"%lld found", static_cast<long long>(found));
        if (m_isRemoving)
            text += odFormat(L", %lld removed", static_cast<long long>(changed));
        else if (changed < found)
            text += odFormat(L" (%lld duplicate)", static_cast<long long>(found - changed));
        if (m_set->numEntities() != changed || m_isRemoving)
            text += odFormat(L", %lld total", static_cast<long long>(m_set->numEntities()));
        m_editor.message(text);
    }

    Editor& m_editor;
    OdDbSelectionSetPtr m_set;
    std::vector<Step> m_steps;
    bool m_isRemoving = false;
};

using EMode = SelectionFinder::EMode;

/// A second corner; from left to right the rectangle is a window, from right to left it crosses.
Task<> takeBox(Editor& editor, Gathering& gathering, OdGePoint3d first)
{
    Answer const second = co_await editor.point(Prompt(L"Specify opposite corner").base(first));
    OdGeMatrix3d const worldToUcs = editor.ucsToWorld().inverse();
    bool const toRight = (worldToUcs * second.point).x >= (worldToUcs * first).x;
    EMode const mode = toRight ? EMode::kWindow : EMode::kCrossing;
    gathering.take(SelectionFinder(editor.doc()).inRectangle(first, second.point, mode));
}

Task<> takeRectangle(Editor& editor, Gathering& gathering, EMode mode)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first corner"));
    Answer const second = co_await editor.point(Prompt(L"Specify opposite corner").base(first.point));
    gathering.take(SelectionFinder(editor.doc()).inRectangle(first.point, second.point, mode));
}

/// A point picks what lies under it; where nothing does, it is the first corner of a rectangle.
Task<> takePoint(Editor& editor, Gathering& gathering, OdGePoint3d point)
{
    OdDbObjectId const picked = SelectionFinder(editor.doc()).at(point);
    if (picked.isNull())
        co_await takeBox(editor, gathering, point);
    else
        gathering.take({picked});
}

std::vector<OdDbObjectId> present(std::vector<OdDbObjectId> ids)
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
void takeNamed(Editor& editor, Gathering& gathering, std::vector<OdDbObjectId> ids)
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

void takeOne(Gathering& gathering, OdDbObjectId id)
{
    gathering.take(id.isNull() ? std::vector<OdDbObjectId>() : std::vector<OdDbObjectId>{id});
}

Task<> takeOption(Editor& editor, Gathering& gathering, OdString option)
{
    SelectionFinder const finder(editor.doc());
    if (option == L"Window" || option == L"Crossing") {
        co_await takeRectangle(editor, gathering, option == L"Window" ? EMode::kWindow : EMode::kCrossing);
    } else if (option == L"BOX") {
        Answer const first = co_await editor.point(Prompt(L"Specify first corner"));
        co_await takeBox(editor, gathering, first.point);
    } else if (option == L"Last") {
        takeOne(gathering, finder.last());
    } else if (option == L"ALL") {
        gathering.take(finder.all());
    } else if (option == L"Previous") {
        OdDbSelectionSetPtr const previous = editor.doc().previousSelection();
        if (previous.isNull())
            editor.message(L"No previous selection set.");
        else
            takeNamed(editor, gathering, previous->objectIds());
    } else if (option == L"Add" || option == L"Remove") {
        gathering.setRemoving(option == L"Remove");
    } else if (option == L"Undo") {
        gathering.undo();
    }
}

Task<> takeAnswer(Editor& editor, Gathering& gathering, Answer answer)
{
    if (answer.isKeyword())
        co_await takeOption(editor, gathering, answer.text);
    else if (!answer.selection.isNull())
        takeNamed(editor, gathering, answer.selection->objectIds());
    else if (!answer.entity.isNull())
        takeNamed(editor, gathering, std::vector<OdDbObjectId>(1, answer.entity));
    else
        co_await takePoint(editor, gathering, answer.point);
}

} // namespace

Task<std::vector<OdDbObjectId>> selectObjects(Editor& editor, OdString question, ELockedLayers lockedLayers)
{
    Gathering gathering(editor);
    bool isSingle = false;
    for (;;) {
        OdString const text = gathering.isRemoving() ? OdString(L"Remove objects") : question;
        Answer const answer = co_await editor.selection(Prompt(text).hiddenKeywords(kOptions).allowEnter());
        if (answer.isNone())
            break;
        isSingle = isSingle || answer.isKeyword(L"SIngle");
        co_await takeAnswer(editor, gathering, answer);
        if (isSingle && gathering.set().numEntities() > 0)
            break;
    }
    std::vector<OdDbObjectId> ids = present(gathering.set().objectIds());
    if (!ids.empty())
        editor.doc().setPreviousSelection(OdDbSelectionSetPtr(&gathering.set()));
    if (lockedLayers == ELockedLayers::kLeftOut)
        reportLeft(editor, std::erase_if(ids, isOnLockedLayer), L"on a locked layer");
    co_return ids;
}

} // namespace ca
