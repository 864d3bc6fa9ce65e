// ERASE, MOVE and COPY: what they have in common is the selection and, for the last two, the displacement.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/select_objects.h"
#include "host/app/sys_var.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_copy.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

using Ids = std::vector<OdDbObjectId>;

/// What could not be done to how many objects.
void reportLeft(Editor& editor, std::size_t count, wchar_t const* what)
{
    if (count > 0)
        editor.message(odFormat(count == 1 ? L"%lld object could not be %ls." : L"%lld objects could not be %ls.",
                                static_cast<long long>(count), what));
}

Task<> eraseCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    for (OdDbObjectId const id : ids)
        id.safeOpenObject(OdDb::kForWrite)->erase();
}

/// A point given as a displacement: its coordinates in the user coordinate system.
OdGeVector3d displacementOf(Editor& editor, OdGePoint3d const& point)
{
    return point - editor.ucsToWorld() * OdGePoint3d();
}

Task<OdGeVector3d> askDisplacement(Editor& editor)
{
    Answer const answer = co_await editor.point(Prompt(L"Specify displacement").defaultText(L"0,0,0"));
    co_return answer.isNone() ? OdGeVector3d() : displacementOf(editor, answer.point);
}

Task<> moveCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    if (ids.empty())
        co_return;
    Answer const base = co_await editor.point(
        Prompt(L"Specify base point or").keywords(L"Displacement").defaultText(L"Displacement"));
    OdGeVector3d displacement;
    if (base.isValue()) {
        Answer const second = co_await editor.point(
            Prompt(L"Specify second point or").defaultText(L"use first point as displacement").base(base.point));
        displacement = second.isValue() ? second.point - base.point : displacementOf(editor, base.point);
    } else {
        displacement = co_await askDisplacement(editor);
    }
    OdGeMatrix3d const translation = OdGeMatrix3d::translation(displacement);
    std::size_t left = 0;
    for (OdDbObjectId const id : ids)
        left += id.open<OdDbEntity>(OdDb::kForWrite)->transformBy(translation) == eOk ? 0 : 1;
    reportLeft(editor, left, L"moved");
}

/// The copies of one displacement, so that Undo can take them back.
Ids copyBy(Editor& editor, Ids const& ids, OdGeVector3d const& displacement)
{
    auto const space = oa::getActiveSpace(&editor.db()).open<OdDbBlockTableRecord>(OdDb::kForWrite);
    OdGeMatrix3d const translation = OdGeMatrix3d::translation(displacement);
    Ids copies;
    std::size_t left = 0;
    for (OdDbObjectId const id : ids) {
        try {
            OdDbEntityPtr const copy = odDbCopyEntity(*id.open<OdDbEntity>(), *space);
            copy->transformBy(translation);
            copies.push_back(copy->objectId());
        } catch (OdError const& error) {
            if (error.code() != eNotApplicable)
                throw;
            ++left;
        }
    }
    reportLeft(editor, left, L"copied");
    return copies;
}

void eraseAll(Ids const& ids)
{
    for (OdDbObjectId const id : ids)
        id.safeOpenObject(OdDb::kForWrite)->erase();
}

Task<> copyRepeatedly(Editor& editor, Ids const& ids, OdGePoint3d base, bool isSingle)
{
    std::vector<Ids> rounds;
    for (;;) {
        Prompt prompt(L"Specify second point or");
        prompt.base(base);
        if (rounds.empty())
            prompt.defaultText(L"use first point as displacement");
        else
            prompt.keywords(L"Exit Undo").defaultText(L"Exit");
        Answer const answer = co_await editor.point(prompt);
        if (answer.isKeyword(L"Undo")) {
            eraseAll(rounds.back());
            rounds.pop_back();
            continue;
        }
        if (answer.isKeyword(L"Exit") || (answer.isNone() && !rounds.empty()))
            break;
        bool const isDisplacement = answer.isNone();
        rounds.push_back(copyBy(editor, ids, isDisplacement ? displacementOf(editor, base) : answer.point - base));
        if (isDisplacement || isSingle)
            break;
    }
}

constexpr wchar_t const* kCopyMode = L"COPYMODE"; ///< 0: COPY repeats, 1: it copies once

Task<> askCopyMode(Editor& editor)
{
    SysVar const& mode = *SysVar::find(kCopyMode);
    bool const isSingle = std::get<int>(mode.value(&editor.doc())) != 0;
    Answer const answer = co_await editor.keyword(Prompt(L"Enter a copy mode option")
                                                      .keywords(L"Single Multiple")
                                                      .defaultText(isSingle ? L"Single" : L"Multiple"));
    if (answer.isKeyword())
        mode.set(answer.isKeyword(L"Single") ? 1 : 0, &editor.doc());
}

Task<> copyCommand(Editor& editor)
{
    // A copy leaves the original alone, so locked layers do not matter.
    Ids const ids = co_await selectObjects(editor, L"Select objects", ELockedLayers::kIncluded);
    if (ids.empty())
        co_return;
    for (;;) {
        Answer const base = co_await editor.point(
            Prompt(L"Specify base point or").keywords(L"Displacement mOde").defaultText(L"Displacement"));
        if (base.isKeyword(L"mOde")) {
            co_await askCopyMode(editor);
            continue;
        }
        if (base.isValue()) {
            bool const isSingle = std::get<int>(SysVar::find(kCopyMode)->value(&editor.doc())) != 0;
            co_await copyRepeatedly(editor, ids, base.point, isSingle);
        } else {
            OdGeVector3d const displacement = co_await askDisplacement(editor);
            copyBy(editor, ids, displacement);
        }
        co_return;
    }
}

constexpr CommandDef s_commands[] = {
    {L"ERASE", L"E DELETE", kPlain, &eraseCommand},
    {L"MOVE", L"M", kPlain, &moveCommand},
    {L"COPY", L"CO CP", kPlain, &copyCommand},
};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
