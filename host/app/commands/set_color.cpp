// COLOR: the color that new entities take.
#include "host/app/color_text.h"
#include "host/app/command_registry.h"
#include "host/app/commands/ask_color.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

Task<> colorCommand(Editor& editor)
{
    OdString const present = colorText(editor.db().getCECOLOR());
    std::optional<OdCmColor> const color = co_await askEntityColor(editor, L"Enter default object color", present);
    if (color)
        editor.db().setCECOLOR(*color);
}

constexpr CommandDef s_commands[] = {
    {L"COLOR", L"COL COLOUR", kTransparent, &colorCommand},
    {L"-COLOR", L"-COL -COLOUR", kTransparent, &colorCommand},
};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
