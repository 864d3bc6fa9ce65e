#include "host/app/editor.h"

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

namespace ca {

void PendingPrompt::await_suspend(std::coroutine_handle<> asker)
{
    m_asker = asker;
    m_processor.wait(*this);
}

void Editor::message(OdString const& text)
{
    app()->commandLine().message(text);
}

CaDoc& Editor::doc() const
{
    if (!m_document)
        throw OdError(eNoDocument);
    return *m_document;
}

OdDbDatabase& Editor::db() const
{
    return *doc().database();
}

OdDbObjectId Editor::append(OdDbEntityPtr const& entity)
{
    entity->setDatabaseDefaults(db());
    auto const space = oa::getActiveSpace(&db()).open<OdDbBlockTableRecord>(OdDb::kForWrite);
    return space->appendOdDbEntity(entity);
}

OdGeMatrix3d Editor::ucsToWorld() const
{
    return oa::ucsToWorld(&db());
}

OdGeVector3d Editor::ucsNormal() const
{
    return ucsToWorld() * OdGeVector3d::kZAxis;
}

OdGePoint3d Editor::lastPoint() const
{
    return doc().lastPoint();
}

void Editor::setLastPoint(OdGePoint3d const& point)
{
    doc().setLastPoint(point);
}

} // namespace ca
