#pragma once

#include "host/app/command_task.h"
#include "host/root/od_string.h"

#include <vector>

namespace ca {

class Editor;

/// What is special about a command.
enum ECommandFlags : unsigned
{
    kPlain = 0,
    kTransparent = 1,    ///< may run inside another command, with "'" in front of its name
    kNoUndoRecord = 2,   ///< its changes are no step of their own for U
    kLiteralStrings = 4, ///< takes file names or free text: text answers are literal
    kNoDocument = 8,     ///< runs without a current document
    kViewOnly = 16       ///< changes the view alone; U can take back several such in a row at once
};

/// A command of the command line. Names and aliases are upper case.
struct CommandDef
{
    wchar_t const* name;
    wchar_t const* aliases; ///< separated by blanks; may be empty
    unsigned flags;
    Task<> (*run)(Editor&);
};

/// The commands that the command line knows. Every source file with commands registers its own table; a second
/// command of one name terminates the program with a message.
namespace commandRegistry {
/// By name or alias, without regard to case; the marks "_", ".", "-", "'" in front are no part of it, except that
/// "-" distinguishes "-LAYER" from "LAYER". Null when unknown.
CommandDef const* find(OdString const& typed);
std::vector<CommandDef const*> all();
} // namespace commandRegistry

struct CommandRegistrar
{
    template <std::size_t N>
    explicit CommandRegistrar(CommandDef const (&table)[N]) : CommandRegistrar(table, N)
    {
    }
    CommandRegistrar(CommandDef const* table, std::size_t count);
};

/// A typed command name taken apart: marks and the name itself.
struct TypedCommandName
{
    OdString name; ///< upper case, with "-" kept in front
    bool isTransparent = false;
};
TypedCommandName parseCommandName(OdString const& typed);

} // namespace ca
