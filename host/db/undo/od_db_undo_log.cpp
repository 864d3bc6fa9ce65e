#include "host/db/undo/od_db_undo_log.h"

#include "host/db/od_db_database.h"

namespace {

/// The fields of an object as they were; reverting exchanges them with the present ones.
class FieldsStep : public OdDbUndoStep
{
public:
    FieldsStep(OdDbStub* stub, OdDbObjectPtr image) : m_stub(stub), m_image(std::move(image)) {}

    void revert(OdDbDatabase& database) override
    {
        OdDbObjectPtr const present(m_stub->object->copyFields());
        m_stub->object->assignFields(*m_image);
        m_image = present;
        m_stub->object->fieldsRestored();
        database.noteChange();
    }

private:
    OdDbStub* m_stub;
    OdDbObjectPtr m_image;
};

} // namespace

void OdDbUndoLog::start(OdString const& name, bool ofViewOnly)
{
    if (!m_enabled)
        return;
    dropLastIfEmpty();
    Record& record = m_records.emplace_back();
    record.name = name;
    record.isOfViewOnly = ofViewOnly;
    ++m_serial;
    m_running = true;
}

void OdDbUndoLog::end()
{
    m_running = false;
    dropLastIfEmpty();
}

void OdDbUndoLog::dropLastIfEmpty()
{
    if (endsWith(EKind::kChanges) && m_records.back().steps.empty())
        m_records.pop_back();
}

/// Whether a change that comes now is recorded. Recorded or not, it is in the way of what was undone before it:
/// handles are given out again.
bool OdDbUndoLog::beforeChange()
{
    if (m_reverting)
        return false;
    if (!m_undone.empty())
        m_undone.clear();
    return isRecording();
}

void OdDbUndoLog::keepImageOf(OdDbObject& object)
{
    if (!beforeChange() || object.m_imageSerial == m_serial)
        return;
    object.m_imageSerial = m_serial;
    add(std::make_unique<FieldsStep>(object.m_stub, OdDbObjectPtr(object.copyFields())));
}

void OdDbUndoLog::add(std::unique_ptr<OdDbUndoStep> step)
{
    if (beforeChange())
        m_records.back().steps.push_back(std::move(step));
}

bool OdDbUndoLog::hasUndo() const
{
    return std::any_of(m_records.rbegin(), m_records.rend(),
                       [](Record const& record) { return record.kind == EKind::kChanges; });
}

void OdDbUndoLog::undo()
{
    bool const isUnchanged = m_running && m_records.back().steps.empty();
    end();
    if (isUnchanged || !hasUndo())
        return;
    Undone& undone = m_undone.emplace_back();
    while (endsWith(EKind::kMark) || endsWith(EKind::kGroupBegin))
        takeBackLast(undone);
    takeBackFrom(lastUnit(), undone);
}

std::vector<OdString> OdDbUndoLog::redo()
{
    end();
    if (m_undone.empty())
        return {};
    Undone undone = std::move(m_undone.back());
    m_undone.pop_back();
    std::vector<OdString> names;
    for (; !undone.empty(); undone.pop_back()) {
        revert(undone.back());
        if (undone.back().kind == EKind::kChanges)
            names.push_back(undone.back().name);
        m_records.push_back(std::move(undone.back()));
    }
    return names;
}

/// Takes one record back, or moves one mark or end of a group along with those.
void OdDbUndoLog::takeBackLast(Undone& undone)
{
    undone.push_back(std::move(m_records.back()));
    m_records.pop_back();
    revert(undone.back());
}

void OdDbUndoLog::revert(Record& record)
{
    // The serial moves on: images of the reverted record must not pass for images of the record that runs now.
    ++m_serial;
    std::reverse(record.steps.begin(), record.steps.end());
    m_reverting = true;
    try {
        for (auto const& step : record.steps)
            step->revert(m_database);
    } catch (...) {
        m_reverting = false;
        throw;
    }
    m_reverting = false;
}
