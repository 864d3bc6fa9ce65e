#include "host/app/commands/ask_color.h"

#include "host/app/color_text.h"
#include "host/app/keywords.h"

namespace ca {

Task<OdCmColor> askTrueColor(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Red,Green,Blue"));
    std::optional<OdCmColor> const color = parseTrueColor(answer.text);
    if (!color)
        throw AnswerRejected(L"Requires three numbers between 0 and 255, separated by commas.");
    co_return *color;
}

Task<std::optional<OdCmColor>> askEntityColor(Editor& editor, OdString question, OdString present)
{
    constexpr wchar_t const* kOptions = L"Truecolor";
    Answer const answer = co_await editor.text(Prompt(question).keywords(kOptions).defaultText(present));
    if (answer.isNone())
        co_return std::nullopt;
    if (!matchKeyword(kOptions, answer.text).isEmpty()) {
        OdCmColor const trueColor = co_await askTrueColor(editor);
        co_return trueColor;
    }
    std::optional<OdCmColor> const color = parseEntityColor(answer.text);
    if (!color)
        throw AnswerRejected(L"Requires a color: ByLayer, ByBlock, a number between 1 and 255, the name of one of "
                             L"the first seven, or Truecolor.");
    co_return color;
}

} // namespace ca
