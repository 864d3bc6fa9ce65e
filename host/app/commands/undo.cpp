// U: takes back the last command.
#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

/// Tells the application for the time of a scope that changes come from undoing.
class UndoInProgress
{
public:
    UndoInProgress() : m_before(app()->isUndoInProgress()) { app()->setUndoInProgress(true); }
    ~UndoInProgress() { app()->setUndoInProgress(m_before); }
    UndoInProgress(UndoInProgress const&) = delete;
    UndoInProgress& operator=(UndoInProgress const&) = delete;

private:
    bool m_before;
};

Task<> undoCommand(Editor& editor)
{
    OdDbUndoLog& log = editor.db().undoLog();
    if (!editor.doc().isUndoRecordingEnabled() || !log.hasUndo()) {
        editor.message(L"Nothing to undo.");
        co_return;
    }
    OdString const name = log.undoName();
    UndoInProgress const inProgress;
    log.undo();
    editor.message(name.isEmpty() ? OdString(L"Undone.") : name);
}

constexpr CommandDef s_commands[] = {{L"U", L"", kNoUndoRecord, &undoCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
