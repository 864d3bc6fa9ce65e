// ERASE and MOVE.
#include "host/app/command_registry.h"
#include "host/app/commands/displacement.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/select_objects.h"

namespace ca {

namespace {

Task<> eraseCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    eraseAll(ids);
}

Task<> moveCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    if (ids.empty())
        co_return;
    OdGeVector3d const way = co_await askWay(editor);
    transformAll(editor, ids, OdGeMatrix3d::translation(way), L"moved");
}

constexpr CommandDef s_commands[] = {
    {L"ERASE", L"E DELETE", kPlain, &eraseCommand},
    {L"MOVE", L"M", kPlain, &moveCommand},
};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
