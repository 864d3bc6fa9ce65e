// LWEIGHT: the lineweight that new entities take.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/app/line_weight.h"
#include "host/app/sys_var.h"

namespace ca {

namespace {

constexpr wchar_t const* kCurrent = L"CELWEIGHT";

void listWeights(Editor& editor)
{
    editor.message(L"ByLayer  ByBlock  Default");
    constexpr std::size_t kInLine = 6;
    std::span<int const> const weights = lineWeights();
    for (std::size_t first = 0; first < weights.size(); first += kInLine) {
        OdString line;
        for (int const weight : weights.subspan(first, std::min(kInLine, weights.size() - first)))
            line += (line.isEmpty() ? OdString() : OdString(L"  ")) + lineWeightText(weight);
        editor.message(line);
    }
}

Task<> lineWeightCommand(Editor& editor)
{
    SysVar const& current = *SysVar::find(kCurrent);
    OdString const present = entityLineWeightText(std::get<int>(current.value(&editor.doc())));
    for (;;) {
        Answer const answer = co_await editor.text(
            Prompt(L"Enter default lineweight for new objects or").keywords(L"?").defaultText(present));
        if (answer.isNone())
            co_return;
        if (answer.text == L"?") {
            listWeights(editor);
            continue;
        }
        std::optional<int> const weight = parseEntityLineWeight(answer.text);
        if (!weight)
            throw AnswerRejected(L"Requires a lineweight between 0 and 2.11 mm, ByLayer, ByBlock, or Default.");
        current.set(*weight, &editor.doc());
        editor.message(L"Lineweight of new objects: " + entityLineWeightText(*weight));
        co_return;
    }
}

constexpr CommandDef s_commands[] = {
    {L"LWEIGHT", L"LW LINEWEIGHT", kTransparent, &lineWeightCommand},
    {L"-LWEIGHT", L"-LW -LINEWEIGHT", kTransparent, &lineWeightCommand},
};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
