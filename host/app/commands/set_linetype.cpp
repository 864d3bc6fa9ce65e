// -LINETYPE: loads linetypes into the drawing, makes new ones, and chooses that of new entities.
#include "host/app/ca_app.h"
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/app/linetype_file.h"
#include "host/app/name_list.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_linetype_table_record.h"
#include "host/ut/ut_text_file.h"

namespace ca {

namespace {

using Definitions = std::vector<LinetypeDefinition>;

OdDbSymbolTable& linetypes(Editor& editor)
{
    return editor.db().table(OdDbTableKind::kLinetype);
}

OdString nameOf(OdDbObjectId id)
{
    return id.isErased() ? OdString() : id.open<OdDbSymbolTableRecord>()->getName();
}

bool isReserved(OdString const& name)
{
    return name.equalsNoCase(L"ByLayer") || name.equalsNoCase(L"ByBlock") || name.equalsNoCase(L"Continuous");
}

void checkName(OdString const& name)
{
    if (!OdDbSymbolTable::isValidName(name) || name.startsWith(L"*") || isReserved(name))
        throw AnswerRejected(odFormat(L"\"%ls\" is not a valid linetype name.", name.c_str()));
}

/// Asks for the file from which definitions come; Enter for those that are there without one.
Task<Definitions> askDefinitions(Editor& editor)
{
    Answer const answer =
        co_await editor.text(Prompt(L"Enter name of linetype file to search").defaultText(L"standard linetypes"));
    if (answer.isNone())
        co_return standardLinetypes(editor.db().header().integer("MEASUREMENT", 1) != 0);
    ut::TextFile file;
    OdString reason;
    if (!file.open(app()->findFile(answer.text), &reason))
        throw AnswerRejected(reason);
    std::vector<std::wstring_view> const lines = file.lines();
    try {
        co_return parseLinetypes(lines);
    } catch (OdError const& error) {
        throw AnswerRejected(answer.text + L": " + error.description());
    }
}

void listLine(Editor& editor, OdString const& name, OdString const& description)
{
    editor.message(odFormat(L"%-20ls %ls", (L"\"" + name + L"\"").c_str(), description.c_str()));
}

Task<> listLinetypes(Editor& editor)
{
    Definitions const definitions = co_await askDefinitions(editor);
    editor.message(L"Linetype             Description");
    for (LinetypeDefinition const& each : definitions)
        listLine(editor, each.name, each.description);
}

std::vector<OdDbLinetypeTableRecord::Dash> dashesOf(Editor& editor, LinetypeDefinition const& definition)
{
    using Dash = OdDbLinetypeTableRecord::Dash;
    std::vector<Dash> dashes;
    for (LinetypeDefinition::Dash const& each : definition.dashes) {
        Dash& dash = dashes.emplace_back();
        dash.length = each.length;
        if (each.text.isEmpty())
            continue;
        dash.style = editor.db().table(OdDbTableKind::kTextStyle).getAt(each.style);
        if (dash.style.isNull())
            throw AnswerRejected(odFormat(L"Text style \"%ls\" of linetype \"%ls\" does not exist.",
                                          each.style.c_str(), definition.name.c_str()));
        dash.flags =
            static_cast<std::int16_t>(Dash::kText | (each.isRotationAbsolute ? Dash::kAbsoluteRotation : 0));
        dash.text = each.text;
        dash.scale = each.scale;
        dash.rotation = OdDbAngle::ofRadians(each.rotation);
        dash.offset = each.offset;
    }
    return dashes;
}

/// Brings a definition into the drawing, in place of the one of that name where there is one.
void define(Editor& editor, LinetypeDefinition const& definition)
{
    auto dashes = dashesOf(editor, definition);
    OdDbObjectId const present = linetypes(editor).getAt(definition.name);
    OdDbLinetypeTableRecordPtr const linetype = present.isNull()
                                                    ? OdDbLinetypeTableRecordPtr(new OdDbLinetypeTableRecord)
                                                    : present.open<OdDbLinetypeTableRecord>(OdDb::kForWrite);
    if (present.isNull())
        linetype->setName(definition.name);
    linetype->setComments(definition.description);
    linetype->setDashes(std::move(dashes));
    if (present.isNull())
        editor.db().getLinetypeTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(linetype);
}

Task<> createLinetype(Editor& editor)
{
    LinetypeDefinition definition;
    Answer const name = co_await editor.text(Prompt(L"Enter name of linetype to create"));
    definition.name = name.text;
    checkName(definition.name);
    if (linetypes(editor).has(definition.name))
        throw AnswerRejected(odFormat(L"Linetype \"%ls\" already exists.", definition.name.c_str()));
    Answer const description = co_await editor.text(Prompt(L"Descriptive text").allowEnter());
    definition.description = description.text;
    Answer const pattern = co_await editor.text(Prompt(L"Enter linetype pattern: A,"));
    try {
        definition.dashes = parseLinetypePattern(pattern.text.str());
    } catch (OdError const& error) {
        throw AnswerRejected(error.description());
    }
    define(editor, definition);
}

Task<> loadOne(Editor& editor, LinetypeDefinition const& definition)
{
    checkName(definition.name);
    if (linetypes(editor).has(definition.name)) {
        Answer const answer = co_await editor.keyword(
            Prompt(odFormat(L"Linetype \"%ls\" is already loaded. Reload it?", definition.name.c_str()))
                .keywords(L"Yes No")
                .defaultText(L"Y"));
        if (answer.isKeyword(L"No"))
            co_return;
    }
    define(editor, definition);
    editor.message(odFormat(L"Linetype \"%ls\" loaded.", definition.name.c_str()));
}

Task<> loadLinetypes(Editor& editor)
{
    Answer const list = co_await editor.text(Prompt(L"Enter linetype(s) to load"));
    if (namesOfList(list.text).empty())
        throw AnswerRejected(L"A name is required.");
    Definitions definitions = co_await askDefinitions(editor);
    std::erase_if(definitions, [&list](auto const& each) { return !isInList(each.name, list.text); });
    if (definitions.empty())
        throw AnswerRejected(odFormat(L"Linetype \"%ls\" is not in the file.", list.text.c_str()));
    for (LinetypeDefinition const& each : definitions)
        co_await loadOne(editor, each);
}

void listLoaded(Editor& editor)
{
    for (OdDbStub const* const stub : linetypes(editor).records()) {
        if (stub->erased)
            continue;
        auto const* const linetype = static_cast<OdDbLinetypeTableRecord const*>(stub->object);
        listLine(editor, linetype->getName(), linetype->comments());
    }
}

Task<> setLinetype(Editor& editor)
{
    OdString const present = nameOf(editor.db().getCELTYPE());
    for (;;) {
        Answer const answer =
            co_await editor.text(Prompt(L"Specify linetype name or").keywords(L"?").defaultText(present));
        if (answer.isNone())
            co_return;
        if (answer.text == L"?") {
            listLoaded(editor);
            continue;
        }
        OdDbObjectId const id = linetypes(editor).getAt(answer.text);
        if (id.isNull())
            throw AnswerRejected(odFormat(L"Linetype \"%ls\" is not loaded.", answer.text.c_str()));
        editor.db().setCurrent(OdDbTableKind::kLinetype, id);
        co_return;
    }
}

struct Option
{
    wchar_t const* keyword;
    Task<> (*run)(Editor&);
};
constexpr Option kOptions[] = {
    {L"?", &listLinetypes}, {L"Create", &createLinetype}, {L"Load", &loadLinetypes}, {L"Set", &setLinetype}};

Task<> linetypeCommand(Editor& editor)
{
    editor.message(odFormat(L"Current linetype:  \"%ls\"", nameOf(editor.db().getCELTYPE()).c_str()));
    for (;;) {
        Answer const answer =
            co_await editor.keyword(Prompt(L"Enter an option").keywords(L"? Create Load Set").allowEnter());
        if (answer.isNone())
            co_return;
        for (Option const& option : kOptions)
            if (answer.isKeyword(option.keyword))
                co_await option.run(editor);
    }
}

constexpr CommandDef s_commands[] = {{L"-LINETYPE", L"-LT -LTYPE", kLiteralStrings, &linetypeCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
