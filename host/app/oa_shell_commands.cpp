#include "host/app/oa_shell_commands.h"

#include "host/app/command_registry.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace oa {

namespace {

// Names and aliases of commands that take file names or free text and that the command line does not have.
constexpr std::wstring_view s_missingCommands[] = {L"SCRIPT",    L"SCR",    L"SHELL", L"SH",
                                                   L"PDFATTACH", L"-MTEXT", L"-T",    L"-STYLE"};

} // namespace

std::optional<bool> ShellCommandTable::find(OdString const& name) const
{
    if (ca::CommandDef const* const command = ca::commandRegistry::find(name))
        return (command->flags & ca::kLiteralStrings) != 0;
    OdString const bare = ca::parseCommandName(name).name;
    if (std::ranges::find(s_missingCommands, std::wstring_view(bare.str())) != std::end(s_missingCommands))
        return true;
    return std::nullopt;
}

} // namespace oa
