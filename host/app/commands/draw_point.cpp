// POINT: one point for each command.
#include "host/app/command_registry.h"
#include "host/app/commands/new_entity.h"
#include "host/db/entities/od_db_point.h"

namespace ca {

namespace {

Task<> pointCommand(Editor& editor)
{
    OdDbHeader const& header = editor.db().header();
    editor.message(odFormat(L"Current point modes:  PDMODE=%lld  PDSIZE=%.4f",
                            static_cast<long long>(header.integer("PDMODE")), header.real("PDSIZE")));
    Answer const position = co_await editor.point(Prompt(L"Specify a point"));
    OdDbPointPtr const point = new OdDbPoint(position.point);
    point->setNormal(editor.ucsNormal());
    appendNew(editor, point);
}

constexpr CommandDef s_commands[] = {{L"POINT", L"PO", kPlain, &pointCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
