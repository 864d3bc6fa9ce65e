// COPY: once, several times from one base point, or in a row.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/displacement.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/select_objects.h"
#include "host/app/sys_var.h"

namespace ca {

namespace {

Ids copyBy(Editor& editor, Ids const& ids, OdGeVector3d const& displacement)
{
    return copyAll(editor, ids, OdGeMatrix3d::translation(displacement));
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

constexpr CommandDef s_commands[] = {{L"COPY", L"CO CP", kPlain, &copyCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
