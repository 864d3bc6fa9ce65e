// -LAYER: creates, renames and lists layers and chooses the current one. The options that change layers named in a
// list stand in layer_states.cpp and layer_properties.cpp.
#include "host/app/ca_doc.h"
#include "host/app/color_text.h"
#include "host/app/command_registry.h"
#include "host/app/commands/layer_options.h"
#include "host/app/line_weight.h"
#include "host/app/name_list.h"
#include "host/app/pick_entity.h"
#include "host/db/od_db_database.h"

namespace ca {

OdDbSymbolTable& layerTable(Editor& editor)
{
    return editor.db().table(OdDbTableKind::kLayer);
}

OdDbLayerTableRecordPtr currentLayer(Editor& editor)
{
    return editor.db().getCLAYER().open<OdDbLayerTableRecord>();
}

namespace {

OdString recordName(OdDbObjectId id)
{
    return id.isErased() ? OdString() : id.open<OdDbSymbolTableRecord>()->getName();
}

OdDbObjectId layerNamed(Editor& editor, OdString const& name)
{
    OdDbObjectId const id = layerTable(editor).getAt(name);
    if (id.isNull())
        throw AnswerRejected(odFormat(L"Layer \"%ls\" does not exist.", name.c_str()));
    return id;
}

void checkLayerName(OdString const& name)
{
    if (!OdDbSymbolTable::isValidName(name) || name.startsWith(L"*"))
        throw AnswerRejected(odFormat(L"\"%ls\" is not a valid layer name.", name.c_str()));
}

/// A new layer is as layer 0 in what belongs to the drawing's way of plotting.
OdDbObjectId createLayer(Editor& editor, OdString const& name)
{
    auto const zero = editor.db().getLayerZeroId().open<OdDbLayerTableRecord>();
    OdDbLayerTableRecordPtr const layer(new OdDbLayerTableRecord);
    layer->setName(name);
    layer->setPlotStyleName(zero->plotStyleNameId());
    layer->setMaterialId(zero->materialId());
    return editor.db().getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(layer);
}

void makeCurrent(Editor& editor, OdDbObjectId id)
{
    auto const layer = id.open<OdDbLayerTableRecord>();
    if (layer->isFrozen())
        throw AnswerRejected(
            odFormat(L"Layer \"%ls\" is frozen and cannot be current.", layer->getName().c_str()));
    editor.db().setCurrent(OdDbTableKind::kLayer, id);
    if (layer->isOff())
        editor.message(odFormat(L"Layer \"%ls\" is current and turned off.", layer->getName().c_str()));
}

OdString stateText(OdDbLayerTableRecord const& layer)
{
    OdString text = layer.isOff() ? L"Off" : L"On";
    if (layer.isFrozen())
        text += L", frozen";
    if (layer.isLocked())
        text += L", locked";
    return text;
}

Task<> listLayers(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter layer name(s) to list").defaultText(L"*"));
    OdString const list = answer.isNone() ? OdString(L"*") : answer.text;
    editor.message(L"Layer name           State              Color        Linetype       Lineweight");
    for (OdDbObjectId const id : recordsOfList(layerTable(editor), list, L"Layer")) {
        auto const layer = id.open<OdDbLayerTableRecord>();
        OdString const quoted = L"\"" + layer->getName() + L"\"";
        editor.message(odFormat(L"%-20ls %-18ls %-12ls %-14ls %ls%ls", quoted.c_str(), stateText(*layer).c_str(),
                                colorText(layer->color()).c_str(), recordName(layer->linetypeObjectId()).c_str(),
                                lineWeightText(layer->lineWeight()).c_str(),
                                layer->isPlottable() ? L"" : L", not plotted"));
    }
}

/// Makes a layer current, and exist and be visible first.
Task<> makeLayer(Editor& editor)
{
    OdString const current = currentLayer(editor)->getName();
    Answer const answer =
        co_await editor.text(Prompt(L"Enter name for new layer (becomes the current layer)").defaultText(current));
    OdString const name = answer.isNone() ? current : answer.text;
    checkLayerName(name);
    OdDbObjectId id = layerTable(editor).getAt(name);
    if (id.isNull()) {
        id = createLayer(editor, name);
    } else if (auto const layer = id.open<OdDbLayerTableRecord>(OdDb::kForWrite); layer->isOff()) {
        layer->setIsOff(false);
        editor.message(odFormat(L"Layer \"%ls\" was off and is turned on.", layer->getName().c_str()));
    }
    makeCurrent(editor, id);
}

Task<> setLayer(Editor& editor)
{
    Answer const answer =
        co_await editor.text(Prompt(L"Enter layer name to make current or").defaultText(L"select object"));
    if (!answer.isNone()) {
        makeCurrent(editor, layerNamed(editor, answer.text));
        co_return;
    }
    PickedEntity const picked =
        co_await pickEntity(editor, Prompt(L"Select an object whose layer will become the current layer"));
    makeCurrent(editor, picked.id.open<OdDbEntity>()->layerId());
}

Task<> newLayers(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter name list for new layer(s)"));
    std::vector<OdString> const names = namesOfList(answer.text);
    if (names.empty())
        throw AnswerRejected(L"A name is required.");
    std::ranges::for_each(names, checkLayerName);
    for (OdString const& name : names) {
        if (layerTable(editor).has(name))
            editor.message(odFormat(L"Layer \"%ls\" already exists.", name.c_str()));
        else
            createLayer(editor, name);
    }
}

Task<> renameLayer(Editor& editor)
{
    Answer const old = co_await editor.text(Prompt(L"Enter old name of layer"));
    OdDbObjectId const id = layerNamed(editor, old.text);
    if (id == editor.db().getLayerZeroId())
        throw AnswerRejected(L"Layer \"0\" cannot be renamed.");
    Answer const answer = co_await editor.text(Prompt(L"Enter new name of layer"));
    checkLayerName(answer.text);
    OdDbObjectId const other = layerTable(editor).getAt(answer.text);
    if (!other.isNull() && other != id)
        throw AnswerRejected(odFormat(L"Layer \"%ls\" already exists.", answer.text.c_str()));
    id.open<OdDbLayerTableRecord>(OdDb::kForWrite)->setName(answer.text);
}

struct Action
{
    wchar_t const* keyword;
    Task<> (*run)(Editor&);
};
constexpr Action kActions[] = {
    {L"?", &listLayers},  {L"Make", &makeLayer},     {L"Set", &setLayer},
    {L"New", &newLayers}, {L"Rename", &renameLayer},
};

Task<> runOption(Editor& editor, OdString keyword)
{
    for (Action const& action : kActions) {
        if (keyword == action.keyword) {
            co_await action.run(editor);
            co_return;
        }
    }
    bool const isState = co_await runLayerStateOption(editor, keyword);
    if (!isState)
        co_await runLayerPropertyOption(editor, keyword);
}

Task<> layerCommand(Editor& editor)
{
    editor.message(odFormat(L"Current layer:  \"%ls\"", currentLayer(editor)->getName().c_str()));
    for (;;) {
        Answer const answer = co_await editor.keyword(
            Prompt(L"Enter an option")
                .keywords(
                    L"? Make Set New Rename ON OFF Color Ltype LWeight Plot Freeze Thaw LOck Unlock Description")
                .allowEnter());
        if (answer.isNone())
            co_return;
        co_await runOption(editor, answer.text);
    }
}

constexpr CommandDef s_commands[] = {{L"-LAYER", L"-LA", kPlain, &layerCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
