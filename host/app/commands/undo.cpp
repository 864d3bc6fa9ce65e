// U, UNDO and REDO. What can be taken back, marks and groups included, stands in the undo log of the drawing.
#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/app/undo_in_progress.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

using Names = std::vector<OdString>;

OdDbUndoLog& logOf(Editor& editor)
{
    return editor.db().undoLog();
}

/// Names of what was undone or redone, in one line.
void reportNames(Editor& editor, Names const& names, wchar_t const* what)
{
    OdString line;
    for (OdString const& name : names)
        line += (line.isEmpty() ? OdString() : OdString(L" ")) + (name.isEmpty() ? OdString(what) : name);
    editor.message(line);
}

void undoUnits(Editor& editor, int count)
{
    OdDbUndoLog& log = logOf(editor);
    Names names;
    if (editor.doc().isUndoRecordingEnabled()) {
        oa::UndoInProgress const inProgress;
        names = log.undoUnits(count);
    }
    if (!names.empty())
        reportNames(editor, names, L"Undone.");
    if (static_cast<int>(names.size()) == count)
        return;
    if (names.empty() && !log.isGroupOpen())
        editor.message(L"Nothing to undo.");
    else
        editor.message(log.isGroupOpen() ? L"The begin of the group is reached." : L"Everything has been undone.");
}

Task<> undoOnce(Editor& editor)
{
    undoUnits(editor, 1);
    co_return;
}

Task<> redoCommand(Editor& editor)
{
    Names names;
    if (editor.doc().isUndoRecordingEnabled()) {
        oa::UndoInProgress const inProgress;
        names = logOf(editor).redo();
    }
    if (names.empty())
        editor.message(L"Nothing to redo.");
    else
        reportNames(editor, names, L"Redone.");
    co_return;
}

Task<> backToMark(Editor& editor)
{
    OdDbUndoLog& log = logOf(editor);
    if (!log.hasUndo()) {
        editor.message(L"Nothing to undo.");
        co_return;
    }
    if (!log.hasMark()) {
        Answer const answer = co_await editor.keyword(
            Prompt(L"This will undo everything. OK?").keywords(L"Yes No").defaultText(L"Y"));
        if (answer.isKeyword(L"No"))
            co_return;
    }
    bool const isMarked = log.hasMark();
    Names names;
    {
        oa::UndoInProgress const inProgress;
        names = log.undoToMark();
    }
    if (!names.empty())
        reportNames(editor, names, L"Undone.");
    editor.message(isMarked ? L"Mark encountered." : L"Everything has been undone.");
}

Task<> setMark(Editor& editor)
{
    logOf(editor).setMark();
    co_return;
}

Task<> beginGroup(Editor& editor)
{
    logOf(editor).beginGroup();
    co_return;
}

Task<> endGroup(Editor& editor)
{
    if (!logOf(editor).isGroupOpen())
        throw AnswerRejected(L"No group has been begun.");
    logOf(editor).endGroup();
    co_return;
}

wchar_t const* limitName(EUndoLimit limit)
{
    constexpr wchar_t const* kNames[] = {L"All", L"None", L"One"};
    return kNames[static_cast<int>(limit)];
}

wchar_t const* yesOrNo(bool yes)
{
    return yes ? L"Yes" : L"No";
}

void setLimit(Editor& editor, EUndoLimit limit)
{
    UndoControl control = editor.doc().undoControl();
    control.limit = limit;
    editor.doc().setUndoControl(control);
}

Task<> askCombining(Editor& editor)
{
    UndoControl control = editor.doc().undoControl();
    Answer const answer = co_await editor.keyword(Prompt(L"Combine zoom and pan operations?")
                                                      .keywords(L"Yes No")
                                                      .defaultText(yesOrNo(control.combinesViews)));
    if (answer.isNone())
        co_return;
    control.combinesViews = answer.isKeyword(L"Yes");
    editor.doc().setUndoControl(control);
}

Task<> askControl(Editor& editor)
{
    Answer const answer = co_await editor.keyword(
        Prompt(L"Enter an UNDO control option").keywords(L"All None One Combine").defaultText(L"All"));
    if (answer.isKeyword(L"Combine"))
        co_await askCombining(editor);
    else if (answer.isKeyword(L"None"))
        setLimit(editor, EUndoLimit::kNone);
    else if (answer.isKeyword(L"One"))
        setLimit(editor, EUndoLimit::kOne);
    else
        setLimit(editor, EUndoLimit::kAll);
}

struct Option
{
    wchar_t const* keyword;
    Task<> (*run)(Editor&);
};
constexpr Option kOptions[] = {
    {L"Control", &askControl}, {L"BEgin", &beginGroup}, {L"End", &endGroup},
    {L"Mark", &setMark},       {L"Back", &backToMark},
};

Task<> undoCommand(Editor& editor)
{
    if (!editor.doc().isUndoRecordingEnabled())
        throw AnswerRejected(L"Changes of this drawing are not recorded.");
    UndoControl const control = editor.doc().undoControl();
    editor.message(odFormat(L"Current settings: Control = %ls, Combine = %ls", limitName(control.limit),
                            yesOrNo(control.combinesViews)));
    if (control.limit == EUndoLimit::kNone) {
        co_await askControl(editor);
        co_return;
    }
    // Marks and groups need a log that keeps more than one command.
    OdString const options = control.limit == EUndoLimit::kAll ? L"Control BEgin End Mark Back" : L"Control";
    Answer const answer = co_await editor.integer(Prompt(L"Enter the number of operations to undo or")
                                                      .keywords(options)
                                                      .defaultText(L"1")
                                                      .atLeast(1)
                                                      .atMost(32767));
    if (!answer.isKeyword()) {
        undoUnits(editor, answer.isNone() ? 1 : static_cast<int>(answer.integer));
        co_return;
    }
    for (Option const& option : kOptions)
        if (answer.isKeyword(option.keyword))
            co_await option.run(editor);
}

constexpr CommandDef s_commands[] = {
    {L"U", L"", kNoUndoRecord, &undoOnce},
    {L"UNDO", L"", kNoUndoRecord, &undoCommand},
    {L"REDO", L"", kNoUndoRecord, &redoCommand},
};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
