#include "host/app/commands/block_names.h"

#include "host/app/name_list.h"
#include "host/db/od_db_database.h"

namespace ca {

bool isUserBlock(OdDbBlockTableRecord const& block)
{
    return !block.isLayout() && !block.isAnonymous() && !block.isFromExternalReference();
}

namespace {

std::size_t numEntities(OdDbBlockTableRecord const& block)
{
    std::vector<OdDbStub*> const& entities = block.entities();
    return static_cast<std::size_t>(
        std::count_if(entities.begin(), entities.end(), [](OdDbStub const* stub) { return !stub->erased; }));
}

} // namespace

Task<> listBlocks(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter block(s) to list").defaultText(L"*"));
    OdString const list = answer.isNone() ? OdString(L"*") : answer.text;
    long long listed = 0;
    editor.message(L"Defined blocks.");
    for (OdDbStub* const stub : editor.db().table(OdDbTableKind::kBlock).records()) {
        auto const& block = static_cast<OdDbBlockTableRecord const&>(*stub->object);
        if (stub->erased || !isUserBlock(block) || !isInList(block.getName(), list))
            continue;
        editor.message(odFormat(L"\"%ls\"  %lld objects%ls", block.getName().c_str(),
                                static_cast<long long>(numEntities(block)),
                                block.hasAttributeDefinitions() ? L", with attributes" : L""));
        ++listed;
    }
    editor.message(odFormat(L"User blocks: %lld", listed));
}

} // namespace ca
