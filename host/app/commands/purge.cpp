// PURGE: removes named objects that nothing refers to, and entities that show nothing.
#include "host/app/command_registry.h"
#include "host/app/commands/purge_entities.h"
#include "host/app/editor.h"
#include "host/app/name_list.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_references.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_table_kinds.h"

#include <algorithm>
#include <unordered_set>

namespace ca {

namespace {

struct NamedKind
{
    wchar_t const* keyword;
    OdDbTableKind table;
    wchar_t const* singular;
    wchar_t const* plural;
};
/// In the order of purging: what goes first can be all that refers to what follows.
constexpr NamedKind kNamedKinds[] = {
    {L"Blocks", OdDbTableKind::kBlock, L"block", L"blocks"},
    {L"Dimstyles", OdDbTableKind::kDimStyle, L"dimension style", L"dimension styles"},
    {L"LAyers", OdDbTableKind::kLayer, L"layer", L"layers"},
    {L"LTypes", OdDbTableKind::kLinetype, L"linetype", L"linetypes"},
    {L"textSTyles", OdDbTableKind::kTextStyle, L"text style", L"text styles"},
    {L"Regapps", OdDbTableKind::kRegApp, L"registered application", L"registered applications"},
};
constexpr wchar_t const* kKeywords =
    L"Blocks Dimstyles LAyers LTypes textSTyles Regapps Zero-length Empty-text All";

constexpr wchar_t const* kOwnApplication = L"ACAD"; ///< every drawing has it

/// Which records, and whether the user is asked for each.
struct Wish
{
    OdString list;
    bool verifies = true;
};

bool isProtected(NamedKind const& kind, OdDbSymbolTableRecord const& record)
{
    constexpr wchar_t kExternalMark = L'|'; // of a record that comes with an external reference
    OdString const& name = record.getName();
    if (record.isNameless() || name.find(kExternalMark) != OdString::npos)
        return true;
    if (kind.table == OdDbTableKind::kRegApp)
        return name.equalsNoCase(kOwnApplication);
    auto const* const block = odCast<OdDbBlockTableRecord>(&record);
    if (block && (block->isLayout() || block->isFromExternalReference()))
        return true;
    return std::ranges::any_of(odDbRequiredRecords(), [&](OdDbRequiredRecord const& required) {
        return required.table == kind.table && name.equalsNoCase(required.name);
    });
}

std::vector<OdDbObjectId> unreferenced(Editor& editor, NamedKind const& kind, OdString const& list)
{
    OdDbReferences const references(editor.db());
    std::vector<OdDbObjectId> found;
    for (OdDbStub* const stub : editor.db().table(kind.table).records()) {
        if (stub->erased)
            continue;
        auto const& record = static_cast<OdDbSymbolTableRecord const&>(*stub->object);
        bool const isUsed =
            references.isReferenced(record.objectId()) ||
            (kind.table == OdDbTableKind::kRegApp && references.isApplicationUsed(record.getName()));
        if (!isUsed && !isProtected(kind, record) && isInList(record.getName(), list))
            found.push_back(record.objectId());
    }
    return found;
}

Task<bool> isConfirmed(Editor& editor, NamedKind const& kind, OdString name)
{
    Answer const answer =
        co_await editor.keyword(Prompt(odFormat(L"Purge %ls \"%ls\"?", kind.singular, name.c_str()))
                                    .keywords(L"Yes No")
                                    .defaultText(L"N"));
    co_return answer.isKeyword(L"Yes");
}

/// Blocks that were within others, which are gone, are found in a further round.
Task<> purgeNamed(Editor& editor, NamedKind const& kind, Wish wish)
{
    std::unordered_set<OdDbObjectId> declined;
    int purged = 0;
    for (bool goesOn = true; goesOn;) {
        goesOn = false;
        for (OdDbObjectId const id : unreferenced(editor, kind, wish.list)) {
            if (declined.contains(id))
                continue;
            OdString const name = id.open<OdDbSymbolTableRecord>()->getName();
            bool isWanted = true;
            if (wish.verifies)
                isWanted = co_await isConfirmed(editor, kind, name);
            if (!isWanted) {
                declined.insert(id);
                continue;
            }
            id.safeOpenObject(OdDb::kForWrite)->erase();
            editor.message(odFormat(L"Deleting %ls \"%ls\".", kind.singular, name.c_str()));
            ++purged;
            goesOn = kind.table == OdDbTableKind::kBlock;
        }
    }
    if (purged > 0)
        editor.message(odFormat(L"%d %ls deleted.", purged, purged == 1 ? kind.singular : kind.plural));
    else if (declined.empty())
        editor.message(odFormat(L"No unreferenced %ls found.", kind.plural));
}

Task<Wish> askWish(Editor& editor)
{
    Wish wish;
    Answer const names = co_await editor.text(Prompt(L"Enter name(s) to purge").defaultText(L"*"));
    wish.list = L"*";
    if (!names.isNone())
        wish.list = names.text;
    if (namesOfList(wish.list).empty())
        throw AnswerRejected(L"A name is required.");
    Answer const verify =
        co_await editor.keyword(Prompt(L"Verify each name to be purged?").keywords(L"Yes No").defaultText(L"Y"));
    wish.verifies = !verify.isKeyword(L"No");
    co_return wish;
}

Task<> purgeCommand(Editor& editor)
{
    Answer const answer =
        co_await editor.keyword(Prompt(L"Enter type of unused objects to purge").keywords(kKeywords));
    if (answer.isKeyword(L"Zero-length") || answer.isKeyword(L"Empty-text")) {
        purgeEntities(editor,
                      answer.isKeyword(L"Zero-length") ? EIdleEntities::kZeroLength : EIdleEntities::kEmptyText);
        co_return;
    }
    Wish const wish = co_await askWish(editor);
    for (NamedKind const& kind : kNamedKinds)
        if (answer.isKeyword(L"All") || answer.isKeyword(kind.keyword))
            co_await purgeNamed(editor, kind, wish);
}

constexpr CommandDef s_commands[] = {
    {L"PURGE", L"PU", kPlain, &purgeCommand},
    {L"-PURGE", L"-PU", kPlain, &purgeCommand},
};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
