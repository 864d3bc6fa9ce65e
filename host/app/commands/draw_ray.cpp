// RAY: half lines from one start point.
#include "host/app/command_registry.h"
#include "host/app/commands/through_points.h"
#include "host/db/entities/od_db_ray.h"

namespace ca {

namespace {

Task<> rayCommand(Editor& editor)
{
    Answer const start = co_await editor.point(Prompt(L"Specify start point"));
    co_await drawThroughPoints<OdDbRay>(editor, start.point);
}

constexpr CommandDef s_commands[] = {{L"RAY", L"", kPlain, &rayCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
