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
///
/// Among the records stand marks, to which can be gone back, and the ends of groups: the records of a closed group
/// are taken back together. Groups do not nest. What one call took back, one call of redo brings again, with its
/// marks and groups.
class OdDbUndoLog
{
public:
    explicit OdDbUndoLog(OdDbDatabase& database) : m_database(database) {}

    /// Ends the running record and starts another. With its first change, what was undone can no longer be redone.
    /// A record that changes the view alone can be combined with its like.
    void start(OdString const& name, bool ofViewOnly = false);
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
    bool hasUndo() const;
    bool hasRedo() const { return !m_undone.empty(); }
    /// Takes back the last unit, see below; nothing without one, and nothing while the running record holds no
    /// change. Also works while recording is off.
    void undo();
    /// Brings again what the last call that undoes took back. Returns the names of the records, the oldest first.
    std::vector<OdString> redo();
    /// What was taken back can no longer be brought again.
    void forgetUndone() { m_undone.clear(); }

    /// @name Units: a closed group, or a record outside of closed groups
    /// @{
    /// Takes back the last units, at most so many and, in a group that is still open, not beyond its begin. Marks
    /// on the way go too. Returns the names, the last one first; that of a group is "GROUP".
    std::vector<OdString> undoUnits(int count);
    /// Forgets all but the last unit, marks too, and what could be redone: the log of one that keeps nothing more.
    void keepLastUnit();
    /// Forgets everything.
    void clear();
    /// Makes the last record one with that before it when both are of the view only.
    void combineViews();
    /// @}

    /// @name Marks and groups. All end the running record
    /// @{
    void setMark();
    /// Whether undoToMark() finds one. Marks inside closed groups do not count.
    bool hasMark() const;
    int marks() const;
    /// Takes back what came after the last mark, and the mark; everything without one. A group that is open ends
    /// first, unless the mark is in it. Returns as undoUnits().
    std::vector<OdString> undoToMark();
    bool isGroupOpen() const;
    /// Ends an open group first.
    void beginGroup();
    /// Nothing without an open group; a group without records is forgotten.
    void endGroup();
    /// @}

private:
    enum class EKind : std::uint8_t
    {
        kChanges,
        kMark,
        kGroupBegin,
        kGroupEnd
    };
    struct Record
    {
        OdString name;
        std::vector<std::unique_ptr<OdDbUndoStep>> steps;
        EKind kind = EKind::kChanges;
        bool isOfViewOnly = false;
    };
    /// What one call took back, in the order of taking back.
    using Undone = std::vector<Record>;

    bool beforeChange();
    void revert(Record& record);
    void dropLastIfEmpty();
    void push(EKind kind);
    bool endsWith(EKind kind) const { return !m_records.empty() && m_records.back().kind == kind; }
    std::size_t beginOfGroup(std::size_t end) const;
    std::size_t lastUnit() const;
    std::size_t lastMark() const;
    OdString takeBackFrom(std::size_t first, Undone& undone);
    void takeBackLast(Undone& undone);

    OdDbDatabase& m_database;
    std::deque<Record> m_records;
    std::deque<Undone> m_undone;
    std::uint32_t m_serial = 0;
    bool m_enabled = true;
    bool m_running = false;
    bool m_reverting = false;
};
