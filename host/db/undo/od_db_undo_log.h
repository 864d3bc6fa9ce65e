#pragma once

#include "host/db/od_db_object_id.h"

#include <deque>
#include <memory>
#include <vector>

/// One reversible change. Reverting leaves in the step what is needed to revert the reversion.
class OdDbUndoStep
{
public:
    virtual ~OdDbUndoStep() = default;
    virtual void revert(OdDbDatabase& database) = 0;
};

/// Records of changes, each the changes between two calls of start. Fields of an object are kept once in a record
/// as a before-image; what containers own is kept as single steps, so that a change costs the same in a drawing of
/// any size.
class OdDbUndoLog
{
public:
    explicit OdDbUndoLog(OdDbDatabase& database) : m_database(database) {}

    /// Ends the running record and starts another; what was undone can no longer be redone.
    void start(OdString const& name);
    /// Ends the running record; changes until the next start are not recorded. An empty record is dropped.
    void end();
    bool isRecording() const { return m_enabled && m_running && !m_reverting; }
    void enable(bool on) { m_enabled = on; }
    bool isEnabled() const { return m_enabled; }
    bool isReverting() const { return m_reverting; }
    /// Number of the running record; an object created in it needs no image.
    std::uint32_t serial() const { return m_serial; }

    void keepImageOf(OdDbObject& object);
    void add(std::unique_ptr<OdDbUndoStep> step);

    /// Whether a record can be taken back, the running one included.
    bool hasUndo() const { return !m_records.empty(); }
    bool hasRedo() const { return !m_undone.empty(); }
    OdString const& undoName() const { return m_records.back().name; }
    /// Takes back the last record; nothing without one. Also works while recording is off.
    void undo();
    void redo();

private:
    struct Record
    {
        OdString name;
        std::vector<std::unique_ptr<OdDbUndoStep>> steps;
    };
    void revert(Record& record);
    void dropLastIfEmpty();

    OdDbDatabase& m_database;
    std::deque<Record> m_records;
    std::deque<Record> m_undone;
    std::uint32_t m_serial = 0;
    bool m_enabled = true;
    bool m_running = false;
    bool m_reverting = false;
};
