// SETVAR: shows and sets system variables; also what runs when the name of a variable is typed as a command.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/app/sys_var.h"
#include "host/ut/ut_text.h"

namespace ca {

namespace {

void show(Editor& editor, SysVar const& variable)
{
    OdString const readOnly = variable.isReadOnly() ? L" (read only)" : L"";
    editor.message(variable.name() + L" = " + variable.text(&editor.doc()) + readOnly);
}

Task<> listVariables(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter variable(s) to list").defaultText(L"*"));
    OdString const pattern = answer.isNone() ? OdString(L"*") : answer.text.upper();
    for (SysVar const& variable : SysVar::list())
        if (ut::matchesWildcard(variable.name().str(), pattern.str()))
            show(editor, variable);
}

Task<> setvarCommand(Editor& editor)
{
    Answer const name = co_await editor.text(Prompt(L"Enter variable name or [?]"));
    if (name.text == L"?") {
        co_await listVariables(editor);
        co_return;
    }
    SysVar const* const variable = SysVar::find(name.text);
    if (!variable)
        throw AnswerRejected(odFormat(L"Unknown variable name \"%ls\".", name.text.c_str()));
    if (variable->isReadOnly()) {
        show(editor, *variable);
        co_return;
    }
    OdString current = variable->text(&editor.doc());
    if (current.isEmpty())
        current = L"\"\"";
    Answer const value =
        co_await editor.text(Prompt(L"Enter new value for " + variable->name()).defaultText(current));
    if (value.isNone())
        co_return;
    // "." clears a text variable, since an empty answer keeps it.
    bool const clears = variable->type() == ESysVarType::kString && value.text == L".";
    OdString reason;
    if (!variable->setText(clears ? OdString() : value.text, &editor.doc(), &reason))
        throw AnswerRejected(reason);
}

constexpr CommandDef s_commands[] = {{L"SETVAR", L"SET", kTransparent, &setvarCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
