#include "host/app/color_text.h"
#include "host/app/commands/ask_color.h"
#include "host/app/commands/layer_options.h"
#include "host/app/keywords.h"
#include "host/app/line_weight.h"
#include "host/app/name_list.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_linetype_table_record.h"

#include <functional>

namespace ca {

namespace {

/// What a layer is to get, and how the question for the layers names it. Empty: the user chose to give nothing.
struct Change
{
    OdString forWhat; ///< "color 1 (red)"
    std::function<void(OdDbLayerTableRecord&)> apply;
};

Task<Change> askColor(Editor& editor)
{
    constexpr wchar_t const* kOptions = L"Truecolor";
    OdCmColor const present = currentLayer(editor)->color();
    Answer const answer =
        co_await editor.text(Prompt(L"New color").keywords(kOptions).defaultText(colorText(present)));
    OdCmColor color = present;
    if (!matchKeyword(kOptions, answer.text).isEmpty()) {
        color = co_await askTrueColor(editor);
    } else if (!answer.isNone()) {
        std::optional<OdCmColor> const given = parsePaletteColor(answer.text);
        if (!given)
            throw AnswerRejected(
                L"Requires a color: a number between 1 and 255, the name of one of the first seven, "
                L"or Truecolor.");
        color = *given;
    }
    co_return Change{L"color " + colorText(color), [color](auto& layer) { layer.setColor(color); }};
}

Task<> listLinetypes(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter linetype name(s) to list").defaultText(L"*"));
    OdString const list = answer.isNone() ? OdString(L"*") : answer.text;
    for (OdDbObjectId const id : recordsOfList(editor.db().table(OdDbTableKind::kLinetype), list, L"Linetype")) {
        auto const linetype = id.open<OdDbLinetypeTableRecord>();
        editor.message(odFormat(L"\"%ls\"  %ls", linetype->getName().c_str(), linetype->comments().c_str()));
    }
}

Task<Change> askLinetype(Editor& editor)
{
    Answer answer =
        co_await editor.text(Prompt(L"Enter loaded linetype name or").keywords(L"?").defaultText(L"Continuous"));
    if (answer.text == L"?") {
        co_await listLinetypes(editor);
        co_return Change();
    }
    OdString const name = answer.isNone() ? OdString(L"Continuous") : answer.text;
    OdDbObjectId const id = editor.db().table(OdDbTableKind::kLinetype).getAt(name);
    if (id.isNull())
        throw AnswerRejected(odFormat(L"Linetype \"%ls\" is not loaded.", name.c_str()));
    OdString const spelling = id.open<OdDbLinetypeTableRecord>()->getName();
    if (spelling.equalsNoCase(L"ByLayer") || spelling.equalsNoCase(L"ByBlock"))
        throw AnswerRejected(odFormat(L"A layer cannot have the linetype \"%ls\".", spelling.c_str()));
    co_return Change{L"linetype \"" + spelling + L"\"", [id](auto& layer) { layer.setLinetypeObjectId(id); }};
}

Task<Change> askLineWeight(Editor& editor)
{
    Answer const answer = co_await editor.text(
        Prompt(L"Enter lineweight (0.0mm - 2.11mm)").defaultText(lineWeightText(kDefaultLineWeight)));
    std::optional<int> const weight = answer.isNone() ? kDefaultLineWeight : parseLineWeight(answer.text);
    if (!weight)
        throw AnswerRejected(L"Requires a lineweight between 0 and 2.11 mm, or Default.");
    co_return Change{L"lineweight " + lineWeightText(*weight),
                     [width = *weight](auto& layer) { layer.setLineWeight(width); }};
}

Task<Change> askPlotting(Editor& editor)
{
    Answer const answer =
        co_await editor.keyword(Prompt(L"Enter a plotting preference").keywords(L"Plot No").defaultText(L"Plot"));
    bool const isPlotted = !answer.isKeyword(L"No");
    co_return Change{L"this plot preference", [isPlotted](auto& layer) { layer.setIsPlottable(isPlotted); }};
}

Task<Change> askDescription(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter layer description"));
    co_return Change{L"this description", [text = answer.text](auto& layer) { layer.setDescription(text); }};
}

struct PropertyOption
{
    wchar_t const* keyword;
    Task<Change> (*ask)(Editor&);
};
constexpr PropertyOption kOptions[] = {
    {L"Color", &askColor},   {L"Ltype", &askLinetype},          {L"LWeight", &askLineWeight},
    {L"Plot", &askPlotting}, {L"Description", &askDescription},
};

Task<> runProperty(Editor& editor, PropertyOption const& option)
{
    Change const change = co_await option.ask(editor);
    if (!change.apply)
        co_return;
    OdString const current = currentLayer(editor)->getName();
    Answer const answer =
        co_await editor.text(Prompt(L"Enter name list of layer(s) for " + change.forWhat).defaultText(current));
    std::vector<OdDbObjectId> layers{editor.db().getCLAYER()};
    if (!answer.isNone())
        layers = recordsOfList(layerTable(editor), answer.text, L"Layer");
    for (OdDbObjectId const id : layers)
        change.apply(*id.open<OdDbLayerTableRecord>(OdDb::kForWrite));
}

} // namespace

Task<bool> runLayerPropertyOption(Editor& editor, OdString keyword)
{
    for (PropertyOption const& option : kOptions) {
        if (keyword == option.keyword) {
            co_await runProperty(editor, option);
            co_return true;
        }
    }
    co_return false;
}

} // namespace ca
