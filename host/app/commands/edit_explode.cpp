// EXPLODE: entities give way to the simpler ones that they are made of.
#include "host/app/command_registry.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/select_objects.h"

namespace ca {

namespace {

/// False for an entity that stays as it is.
bool explode(OdDbEntity& entity)
{
    std::vector<OdDbEntityPtr> pieces;
    if (entity.explode(pieces) != eOk)
        return false;
    for (OdDbEntityPtr const& piece : pieces)
        appendBeside(entity, piece);
    entity.erase();
    return true;
}

Task<> explodeCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    std::size_t left = 0;
    for (OdDbObjectId const id : ids)
        left += explode(*id.open<OdDbEntity>(OdDb::kForWrite)) ? 0 : 1;
    reportLeft(editor, left, L"exploded");
}

constexpr CommandDef s_commands[] = {{L"EXPLODE", L"X", kPlain, &explodeCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
