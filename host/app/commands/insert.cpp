// -INSERT: places a reference to a block.
#include "host/app/command_registry.h"
#include "host/app/commands/insert_attributes.h"
#include "host/app/commands/insert_placement.h"

namespace ca {

namespace {

Task<> insertCommand(Editor& editor)
{
    OdDbObjectId const block = co_await askInsertBlock(editor);
    if (block.isNull())
        co_return;
    InsertPlacement const placement = co_await askInsertPlacement(editor);
    std::vector<AttributeValue> const values = co_await askAttributes(editor, block);
    OdDbBlockReferencePtr const reference(new OdDbBlockReference);
    placeReference(editor, *reference, block, placement);
    editor.append(reference);
    reference->upgradeOpen();
    appendAttributes(*reference, values);
}

constexpr CommandDef s_commands[] = {{L"-INSERT", L"-I", kLiteralStrings, &insertCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
