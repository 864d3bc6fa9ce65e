#include "host/app/commands/entity_changes.h"

#include "host/app/commands/readable_mirror.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

namespace ca {

namespace {

void appendCopies(Editor& editor, Ids const& ids, Transformation const& transformation, Ids& copies)
{
    auto const space = oa::getActiveSpace(&editor.db()).open<OdDbBlockTableRecord>(OdDb::kForWrite);
    for (OdDbObjectId const id : ids) {
        // Changed before it is part of the drawing, so that a copy that cannot be made leaves no trace there. Of
        // an entity that the host only keeps none can be made, whatever the change: it refuses every one.
        OdDbEntityPtr const copy(id.open<OdDbEntity>()->clone());
        if (transformation.applyTo(*copy) == eOk)
            copies.push_back(space->appendOdDbEntity(copy));
    }
}

} // namespace

OdResult Transformation::applyTo(OdDbEntity& entity) const
{
    return keepsTextsReadable ? mirrorReadably(entity, matrix) : entity.transformBy(matrix);
}

void reportLeft(Editor& editor, std::size_t count, wchar_t const* done)
{
    if (count > 0)
        editor.message(odFormat(count == 1 ? L"%lld object could not be %ls." : L"%lld objects could not be %ls.",
                                static_cast<long long>(count), done));
}

void transformAll(Editor& editor, Ids const& ids, Transformation const& transformation, wchar_t const* done)
{
    std::size_t left = 0;
    for (OdDbObjectId const id : ids)
        left += transformation.applyTo(*id.open<OdDbEntity>(OdDb::kForWrite)) == eOk ? 0 : 1;
    reportLeft(editor, left, done);
}

Ids copyAll(Editor& editor, Ids const& ids, Transformation const& transformation)
{
    Ids copies;
    copies.reserve(ids.size());
    appendCopies(editor, ids, transformation, copies);
    reportLeft(editor, ids.size() - copies.size(), L"copied");
    return copies;
}

void copyToPlaces(Editor& editor, Ids const& ids, std::vector<OdGeMatrix3d> const& places)
{
    Ids copies;
    copies.reserve(ids.size() * places.size());
    for (OdGeMatrix3d const& place : places)
        appendCopies(editor, ids, place, copies);
    reportLeft(editor, places.empty() ? 0 : ids.size() - copies.size() / places.size(), L"copied");
}

void transformOrCopy(Editor& editor, Ids const& ids, Transformation const& transformation, bool isCopying,
                     wchar_t const* done)
{
    if (isCopying)
        copyAll(editor, ids, transformation);
    else
        transformAll(editor, ids, transformation, done);
}

OdDbObjectId appendBeside(OdDbEntity const& source, OdDbEntityPtr const& entity)
{
    return source.ownerId().open<OdDbBlockTableRecord>(OdDb::kForWrite)->appendOdDbEntity(entity);
}

void eraseAll(Ids const& ids)
{
    for (OdDbObjectId const id : ids)
        id.safeOpenObject(OdDb::kForWrite)->erase();
}

void restoreAll(Ids const& ids)
{
    for (OdDbObjectId const id : ids)
        id.safeOpenObject(OdDb::kForWrite, true)->erase(false);
}

} // namespace ca
