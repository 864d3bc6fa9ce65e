// -BLOCK: makes a block of entities, or defines one anew. The entities go from the space into the block.
#include "host/app/command_registry.h"
#include "host/app/commands/block_names.h"
#include "host/app/select_objects.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/od_db_copy.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_raw_object.h"

namespace ca {

namespace {

using Ids = std::vector<OdDbObjectId>;

OdDbObjectId blockNamed(Editor& editor, OdString const& name)
{
    return editor.db().table(OdDbTableKind::kBlock).getAt(name);
}

void checkDefinable(Editor& editor, OdString const& name)
{
    if (!OdDbSymbolTable::isValidName(name) || name.startsWith(L"*"))
        throw AnswerRejected(odFormat(L"\"%ls\" is not a valid block name.", name.c_str()));
    OdDbObjectId const id = blockNamed(editor, name);
    if (!id.isNull() && !isUserBlock(*id.open<OdDbBlockTableRecord>()))
        throw AnswerRejected(odFormat(L"Block \"%ls\" cannot be redefined.", name.c_str()));
}

/// Asks when the name is taken.
Task<bool> mayDefine(Editor& editor, OdString name)
{
    OdDbObjectId const id = blockNamed(editor, name);
    if (id.isNull())
        co_return true;
    OdString const question = odFormat(L"Block \"%ls\" already exists. Redefine it?",
                                       id.open<OdDbBlockTableRecord>()->getName().c_str());
    Answer const answer = co_await editor.keyword(Prompt(question).keywords(L"Yes No").defaultText(L"No"));
    co_return answer.isKeyword(L"Yes");
}

/// A block cannot hold references to itself, at any depth.
void checkNoLoop(OdDbObjectId block, Ids const& ids)
{
    if (block.isNull())
        return;
    for (OdDbObjectId const id : ids) {
        auto const* reference = odCast<OdDbBlockReference>(id.stub()->object);
        OdDbObjectId const used = reference ? reference->blockTableRecord() : OdDbObjectId();
        if (used.isValid() && (used == block || used.open<OdDbBlockTableRecord>()->contains(block)))
            throw OdError(eSelfReference);
    }
}

/// The block, new or emptied.
OdDbBlockTableRecordPtr emptyBlock(Editor& editor, OdString const& name)
{
    if (OdDbObjectId const id = blockNamed(editor, name); !id.isNull()) {
        auto block = id.open<OdDbBlockTableRecord>(OdDb::kForWrite);
        for (OdDbObjectIterator it = block->newIterator(); !it.done(); it.step())
            it.entity(OdDb::kForWrite)->erase();
        block->setOrigin(OdGePoint3d());
        return block;
    }
    OdDbBlockTableRecordPtr block(new OdDbBlockTableRecord);
    block->setName(name);
    editor.db().getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(block);
    block->upgradeOpen();
    return block;
}

/// From the world into a block that is to look the same when it is inserted at the base point, as the user sees
/// it.
OdGeMatrix3d worldToBlock(Editor& editor, OdGePoint3d const& base)
{
    OdGeMatrix3d const toUcs = editor.ucsToWorld().inverse();
    return OdGeMatrix3d::translation(-(toUcs * base).asVector()) * toUcs;
}

void fillBlock(OdDbBlockTableRecord& block, Ids const& ids, OdGeMatrix3d const& toBlock)
{
    for (OdDbObjectId const id : ids) {
        OdDbEntityPtr const original = id.open<OdDbEntity>(OdDb::kForWrite);
        OdDbEntityPtr const copy = odDbCopyEntity(*original, block);
        if (OdResult const result = copy->transformBy(toBlock); result != eOk)
            throw OdError(result);
        original->erase();
    }
}

Task<> blockCommand(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter block name or").keywords(L"?"));
    if (answer.text == L"?") {
        co_await listBlocks(editor);
        co_return;
    }
    OdString const name = answer.text;
    checkDefinable(editor, name);
    bool const isAgreed = co_await mayDefine(editor, name);
    if (!isAgreed)
        co_return;
    Answer const base = co_await editor.point(Prompt(L"Specify insertion base point"));
    Ids ids = co_await selectObjects(editor);
    auto const left = std::erase_if(ids, [](OdDbObjectId id) { return odCast<OdDbRawEntity>(id.stub()->object); });
    if (left > 0)
        editor.message(odFormat(left == 1 ? L"%lld object cannot be put into a block and stays where it is."
                                          : L"%lld objects cannot be put into a block and stay where they are.",
                                static_cast<long long>(left)));
    if (ids.empty()) {
        editor.message(L"No objects, so no block is defined.");
        co_return;
    }
    checkNoLoop(blockNamed(editor, name), ids);
    bool const isNew = blockNamed(editor, name).isNull();
    OdDbBlockTableRecordPtr const block = emptyBlock(editor, name);
    fillBlock(*block, ids, worldToBlock(editor, base.point));
    editor.message(
        odFormat(isNew ? L"Block \"%ls\" defined." : L"Block \"%ls\" redefined.", block->getName().c_str()));
}

constexpr CommandDef s_commands[] = {{L"-BLOCK", L"-B", kPlain, &blockCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
