#include "host/app/commands/purge_entities.h"

#include "host/app/selection_finder.h"
#include "host/db/entities/od_db_attribute_base.h"
#include "host/db/entities/od_db_curve.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

namespace ca {

namespace {

bool isZeroLength(OdDbEntity const& entity)
{
    auto const* const curve = odCast<OdDbCurve>(&entity);
    double length = 0;
    return curve && curve->getLength(length) == eOk && length == 0;
}

/// Attribute definitions are texts too, but stand for the texts of others.
bool isEmptyText(OdDbEntity const& entity)
{
    auto const* const text = odCast<OdDbText>(&entity);
    return text && !odCast<OdDbAttributeBase>(&entity) &&
           text->textString().str().find_first_not_of(L" \t") == std::wstring::npos;
}

struct IdleKind
{
    bool (*isIdle)(OdDbEntity const&);
    wchar_t const* what;
};
constexpr IdleKind kKinds[] = {{&isZeroLength, L"zero-length"}, {&isEmptyText, L"empty text"}};

} // namespace

void purgeEntities(Editor& editor, EIdleEntities which)
{
    IdleKind const& kind = kKinds[static_cast<std::size_t>(which)];
    int erased = 0;
    for (OdDbStub const* const stub : editor.db().table(OdDbTableKind::kBlock).records()) {
        auto const* const block = stub->erased ? nullptr : odCast<OdDbBlockTableRecord>(stub->object);
        if (!block || !block->isLayout())
            continue;
        for (OdDbObjectIterator it = block->newIterator(); !it.done(); it.step()) {
            OdDbObjectId const id = it.objectId();
            if (!kind.isIdle(*it.entity()) || isOnLockedLayer(id))
                continue;
            id.safeOpenObject(OdDb::kForWrite)->erase();
            ++erased;
        }
    }
    if (erased == 0)
        editor.message(odFormat(L"No %ls objects found.", kind.what));
    else
        editor.message(
            odFormat(erased == 1 ? L"%d %ls object deleted." : L"%d %ls objects deleted.", erased, kind.what));
}

} // namespace ca
