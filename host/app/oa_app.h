#pragma once

#include "host/app/oa_shell_commands.h"
#include "host/db/od_db_database.h"

namespace oa {

/// The drawing-database part of a document: what needs no file name, commands or window.
class ApDoc
{
public:
    enum EFlags : unsigned
    {
        kRecordsUndo = 1
    };

    explicit ApDoc(OdDbDatabasePtr database);
    virtual ~ApDoc() = default;
    ApDoc(ApDoc const&) = delete;
    ApDoc& operator=(ApDoc const&) = delete;

    /// Never null.
    OdDbDatabase* database() const { return m_database.get(); }

    virtual void setModified(bool modified) = 0;
    virtual bool isModified() const = 0;

    /// EFlags.
    unsigned flags() const { return m_flags; }
    /// Whether commands can be taken back; on for a new document. While off, commands start no undo records and U
    /// finds nothing to undo. Sets the drawing's recording alike.
    void enableUndoRecording(bool enable);
    bool isUndoRecordingEnabled() const { return (m_flags & kRecordsUndo) != 0; }

private:
    OdDbDatabasePtr m_database;
    unsigned m_flags = kRecordsUndo;
};

/// The application as far as it knows nothing of commands and files.
class OaApp
{
public:
    OaApp() = default;
    virtual ~OaApp() = default;
    OaApp(OaApp const&) = delete;
    OaApp& operator=(OaApp const&) = delete;

    /// Set around undoing: what follows changes (reactors, the view) answers them with no changes of its own.
    bool isUndoInProgress() const { return m_isUndoInProgress; }
    void setUndoInProgress(bool inProgress) { m_isUndoInProgress = inProgress; }

    ShellCommandTable const& shellCommands() const { return m_shellCommands; }

private:
    ShellCommandTable m_shellCommands;
    bool m_isUndoInProgress = false;
};

/// The same object as ca::app(); never null.
OaApp* app();

} // namespace oa
