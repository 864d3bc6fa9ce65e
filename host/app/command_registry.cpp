#include "host/app/command_registry.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <unordered_map>

namespace ca {

namespace {

std::unordered_map<OdString, CommandDef const*>& names()
{
    static std::unordered_map<OdString, CommandDef const*> s_names;
    return s_names;
}

void add(OdString const& name, CommandDef const* command)
{
    if (names().emplace(name, command).second)
        return;
    std::fprintf(stderr, "command %s is registered twice\n", name.toUtf8().c_str());
    std::abort();
}

} // namespace

TypedCommandName parseCommandName(OdString const& typed)
{
    TypedCommandName result;
    bool hasDash = false;
    std::size_t start = 0;
    for (; start < typed.getLength(); ++start) {
        wchar_t const mark = typed[start];
        if (mark == L'\'')
            result.isTransparent = true;
        else if (mark == L'-')
            hasDash = true;
        else if (mark != L'_' && mark != L'.')
            break;
    }
    result.name = typed.mid(start).upper();
    if (hasDash)
        result.name = L"-" + result.name;
    return result;
}

CommandDef const* commandRegistry::find(OdString const& typed)
{
    OdString const name = parseCommandName(typed).name;
    auto it = names().find(name);
    if (it == names().end() && name.startsWith(L"-")) // a command without dialog form serves under both names
        it = names().find(name.mid(1));
    return it == names().end() ? nullptr : it->second;
}

std::vector<CommandDef const*> commandRegistry::all()
{
    std::vector<CommandDef const*> commands;
    for (auto const& [name, command] : names())
        if (name == command->name)
            commands.push_back(command);
    std::sort(commands.begin(), commands.end(),
              [](auto const* a, auto const* b) { return OdString(a->name) < OdString(b->name); });
    return commands;
}

CommandRegistrar::CommandRegistrar(CommandDef const* table, std::size_t count)
{
    for (CommandDef const* command = table; command != table + count; ++command) {
        add(command->name, command);
        std::wistringstream aliases(command->aliases);
        for (std::istream_iterator<std::wstring, wchar_t> it(aliases), end; it != end; ++it)
            add(*it, command);
    }
}

} // namespace ca
