#include "host/app/commands/layer_options.h"
#include "host/app/name_list.h"
#include "host/app/select_objects.h"
#include "host/db/od_db_database.h"

#include <algorithm>
#include <unordered_set>

namespace ca {

namespace {

/// What happens when the current layer is among those named.
enum class ECurrentLayer
{
    kLikeOthers,
    kOnlyIfAgreed,
    kRefused ///< left alone with a message when a pattern names it
};

struct StateOption
{
    wchar_t const* keyword;
    wchar_t const* verb; ///< "Enter name list of layer(s) to ..."
    bool canSelect;      ///< Enter selects objects on the layers
    ECurrentLayer current;
    void (*apply)(OdDbLayerTableRecord&);
};

// clang-format off
constexpr StateOption kOptions[] = {
    {L"ON",     L"turn on",  false, ECurrentLayer::kLikeOthers,   [](auto& layer) { layer.setIsOff(false); }},
    {L"OFF",    L"turn off", true,  ECurrentLayer::kOnlyIfAgreed, [](auto& layer) { layer.setIsOff(true); }},
    {L"Freeze", L"freeze",   true,  ECurrentLayer::kRefused,      [](auto& layer) { layer.setIsFrozen(true); }},
    {L"Thaw",   L"thaw",     false, ECurrentLayer::kLikeOthers,   [](auto& layer) { layer.setIsFrozen(false); }},
    {L"LOck",   L"lock",     true,  ECurrentLayer::kLikeOthers,   [](auto& layer) { layer.setIsLocked(true); }},
    {L"Unlock", L"unlock",   true,  ECurrentLayer::kLikeOthers,   [](auto& layer) { layer.setIsLocked(false); }},
};
// clang-format on

using Ids = std::vector<OdDbObjectId>;

Ids layersOf(Ids const& entities)
{
    Ids layers;
    std::unordered_set<OdDbObjectId> taken;
    for (OdDbObjectId const id : entities)
        if (OdDbObjectId const layer = id.open<OdDbEntity>()->layerId(); taken.insert(layer).second)
            layers.push_back(layer);
    return layers;
}

/// Whether the name stands in the list itself, not only within what a pattern means.
bool isNamed(OdString const& name, OdString const& list)
{
    std::vector<OdString> const names = namesOfList(list);
    return std::ranges::any_of(names, [&](OdString const& entry) { return entry.equalsNoCase(name); });
}

/// Takes the current layer out where it must stay as it is.
Task<> spareCurrentLayer(Editor& editor, StateOption const& option, OdString list, Ids& layers)
{
    OdDbObjectId const current = editor.db().getCLAYER();
    bool const isAmong = std::ranges::find(layers, current) != layers.end();
    if (!isAmong || option.current == ECurrentLayer::kLikeOthers)
        co_return;
    OdString const name = currentLayer(editor)->getName();
    if (option.current == ECurrentLayer::kRefused) {
        OdString const reason = odFormat(L"Layer \"%ls\" is current and cannot be frozen.", name.c_str());
        if (layers.size() == 1 || isNamed(name, list))
            throw AnswerRejected(reason);
        editor.message(reason);
        std::erase(layers, current);
        co_return;
    }
    Answer const answer =
        co_await editor.keyword(Prompt(odFormat(L"Layer \"%ls\" is the current layer. Turn it off?", name.c_str()))
                                    .keywords(L"Yes No")
                                    .defaultText(L"No"));
    if (!answer.isKeyword(L"Yes"))
        std::erase(layers, current);
}

Task<> runState(Editor& editor, StateOption const& option)
{
    Prompt prompt(
        odFormat(L"Enter name list of layer(s) to %ls%ls", option.verb, option.canSelect ? L" or" : L""));
    if (option.canSelect)
        prompt.defaultText(L"select objects");
    Answer const answer = co_await editor.text(prompt);
    Ids layers;
    if (answer.isNone()) {
        Ids const selected = co_await selectObjects(editor, L"Select objects", ELockedLayers::kIncluded);
        layers = layersOf(selected);
    } else {
        layers = recordsOfList(layerTable(editor), answer.text, L"Layer");
    }
    co_await spareCurrentLayer(editor, option, answer.text, layers);
    for (OdDbObjectId const id : layers)
        option.apply(*id.open<OdDbLayerTableRecord>(OdDb::kForWrite));
}

} // namespace

Task<bool> runLayerStateOption(Editor& editor, OdString keyword)
{
    for (StateOption const& option : kOptions) {
        if (keyword == option.keyword) {
            co_await runState(editor, option);
            co_return true;
        }
    }
    co_return false;
}

} // namespace ca
