// LIST: all about the selected entities.
#include "host/app/command_registry.h"
#include "host/app/list_sink.h"
#include "host/app/select_objects.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

Task<> listCommand(Editor& editor)
{
    // Looking at an entity leaves it alone, so that locked layers do not matter.
    std::vector<OdDbObjectId> const ids =
        co_await selectObjects(editor, L"Select objects", ELockedLayers::kIncluded);
    UnitFormat const format = unitFormatOf(editor.db());
    OdGeMatrix3d const worldToUcs = editor.ucsToWorld().inverse();
    for (OdDbObjectId const id : ids)
        listEntity(*id.open<OdDbEntity>(), format, worldToUcs,
                   [&editor](OdString const& line) { editor.message(line); });
}

constexpr CommandDef s_commands[] = {{L"LIST", L"LI LS", kNoUndoRecord, &listCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
