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

void OdDbUndoLog::start(OdString const& name)
{
    if (!m_enabled)
        return;
    dropLastIfEmpty();
    m_records.push_back({name, {}});
    m_undone.clear();
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
    if (!m_records.empty() && m_records.back().steps.empty())
        m_records.pop_back();
}

void OdDbUndoLog::keepImageOf(OdDbObject& object)
{
    if (!isRecording() || object.m_imageSerial == m_serial)
        return;
    object.m_imageSerial = m_serial;
    add(std::make_unique<FieldsStep>(object.m_stub, OdDbObjectPtr(object.copyFields())));
}

void OdDbUndoLog::add(std::unique_ptr<OdDbUndoStep> step)
{
    if (isRecording())
        m_records.back().steps.push_back(std::move(step));
}

void OdDbUndoLog::undo()
{
    m_running = false;
    if (m_records.empty())
        return;
    Record record = std::move(m_records.back());
    m_records.pop_back();
    revert(record);
    if (!record.steps.empty())
        m_undone.push_back(std::move(record));
}

void OdDbUndoLog::redo()
{
    m_running = false;
    if (m_undone.empty())
        return;
    Record record = std::move(m_undone.back());
    m_undone.pop_back();
    revert(record);
    m_records.push_back(std::move(record));
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
