#include "host/app/oa_app.h"

namespace oa {

ApDoc::ApDoc(OdDbDatabasePtr database) : m_database(std::move(database))
{
    if (m_database.isNull())
        throw OdError(eInvalidInput);
    enableUndoRecording(true);
}

void ApDoc::enableUndoRecording(bool enable)
{
    m_flags = enable ? m_flags | kRecordsUndo : m_flags & ~unsigned(kRecordsUndo);
    m_database->disableUndoRecording(!enable);
}

} // namespace oa
