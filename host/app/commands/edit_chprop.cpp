// CHPROP: properties of entities, one after the other until Enter.
#include "host/app/color_text.h"
#include "host/app/command_registry.h"
#include "host/app/commands/ask_color.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/commands/entity_thickness.h"
#include "host/app/line_weight.h"
#include "host/app/select_objects.h"
#include "host/app/two_points.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_symbol_table.h"

#include <algorithm>

namespace ca {

namespace {

/// What all entities have in common, as a text; "varies" where they differ.
template <class TextOf>
OdString commonText(Ids const& ids, TextOf textOf)
{
    OdString common;
    for (OdDbObjectId const id : ids) {
        OdString const text = textOf(*id.open<OdDbEntity>());
        if (common.isEmpty())
            common = text;
        else if (text != common)
            return L"varies";
    }
    return common;
}

template <class Change>
void changeAll(Ids const& ids, Change change)
{
    for (OdDbObjectId const id : ids)
        change(*id.open<OdDbEntity>(OdDb::kForWrite));
}

OdString nameOf(OdDbObjectId id)
{
    auto const* record = id.isValid() ? odCast<OdDbSymbolTableRecord>(id.stub()->object) : nullptr;
    return record ? record->getName() : OdString(L"none");
}

OdString numberText(double number)
{
    return odFormat(L"%g", number);
}

Task<> changeColor(Editor& editor, Ids ids)
{
    OdString const present = commonText(ids, [](OdDbEntity const& each) { return colorText(each.color()); });
    std::optional<OdCmColor> const color = co_await askEntityColor(editor, L"New color", present);
    if (color)
        changeAll(ids, [&color](OdDbEntity& each) { each.setColor(*color); });
}

/// A record of a table by the name that the user gives; null for Enter.
Task<OdDbObjectId> askRecord(Editor& editor, OdDbTableKind kind, OdString what, OdString present)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter new " + what + L" name").defaultText(present));
    if (answer.isNone())
        co_return OdDbObjectId();
    OdDbObjectId const record = editor.db().table(kind).getAt(answer.text);
    if (record.isNull())
        throw AnswerRejected(odFormat(L"There is no %ls \"%ls\".", what.c_str(), answer.text.c_str()));
    co_return record;
}

Task<> changeLayer(Editor& editor, Ids ids)
{
    OdString const present = commonText(ids, [](OdDbEntity const& each) { return nameOf(each.layerId()); });
    OdDbObjectId const layer = co_await askRecord(editor, OdDbTableKind::kLayer, L"layer", present);
    if (!layer.isNull())
        changeAll(ids, [layer](OdDbEntity& each) { each.setLayer(layer); });
}

Task<> changeLinetype(Editor& editor, Ids ids)
{
    OdString const present = commonText(ids, [](OdDbEntity const& each) { return nameOf(each.linetypeId()); });
    OdDbObjectId const linetype = co_await askRecord(editor, OdDbTableKind::kLinetype, L"linetype", present);
    if (!linetype.isNull())
        changeAll(ids, [linetype](OdDbEntity& each) { each.setLinetype(linetype); });
}

Task<> changeLinetypeScale(Editor& editor, Ids ids)
{
    OdString const present =
        commonText(ids, [](OdDbEntity const& each) { return numberText(each.linetypeScale()); });
    Answer const answer =
        co_await editor.real(Prompt(L"Specify new linetype scale").defaultText(present).atLeast(0, true));
    if (answer.isValue())
        changeAll(ids, [&answer](OdDbEntity& each) { each.setLinetypeScale(answer.real); });
}

Task<> changeLineWeight(Editor& editor, Ids ids)
{
    OdString const present =
        commonText(ids, [](OdDbEntity const& each) { return entityLineWeightText(each.lineWeight()); });
    Answer const answer = co_await editor.text(Prompt(L"Enter new lineweight").defaultText(present));
    if (answer.isNone())
        co_return;
    std::optional<int> const weight = parseEntityLineWeight(answer.text);
    if (!weight)
        throw AnswerRejected(L"Requires a lineweight between 0 and 2.11 mm, ByLayer, ByBlock, or Default.");
    changeAll(ids, [&weight](OdDbEntity& each) { each.setLineWeight(*weight); });
}

/// Entities without a thickness are left alone.
Task<> changeThickness(Editor& editor, Ids ids)
{
    std::erase_if(ids, [](OdDbObjectId id) { return !thicknessOf(*id.open<OdDbEntity>()); });
    if (ids.empty()) {
        editor.message(L"None of the objects has a thickness.");
        co_return;
    }
    OdString const present =
        commonText(ids, [](OdDbEntity const& each) { return numberText(*thicknessOf(each)); });
    Answer const answer = co_await askDistance(editor, Prompt(L"Specify new thickness").defaultText(present));
    if (answer.isValue())
        changeAll(ids, [&answer](OdDbEntity& each) { setThicknessOf(each, answer.real); });
}

struct PropertyOption
{
    wchar_t const* keyword;
    Task<> (*change)(Editor&, Ids);
};
// clang-format off
constexpr PropertyOption kOptions[] = {
    {L"Color",     &changeColor},
    {L"LAyer",     &changeLayer},
    {L"LType",     &changeLinetype},
    {L"ltScale",   &changeLinetypeScale},
    {L"LWeight",   &changeLineWeight},
    {L"Thickness", &changeThickness},
};
// clang-format on

Task<> chpropCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    if (ids.empty())
        co_return;
    OdString keywords;
    for (PropertyOption const& option : kOptions)
        keywords += OdString(keywords.isEmpty() ? L"" : L" ") + option.keyword;
    for (;;) {
        Answer const answer =
            co_await editor.keyword(Prompt(L"Enter property to change").keywords(keywords).allowEnter());
        if (answer.isNone())
            co_return;
        auto const* const option = std::ranges::find_if(
            kOptions, [&answer](PropertyOption const& each) { return answer.isKeyword(each.keyword); });
        co_await option->change(editor, ids);
    }
}

constexpr CommandDef s_commands[] = {{L"CHPROP", L"", kPlain, &chpropCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
