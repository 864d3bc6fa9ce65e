#include "host/app/commands/ask_number.h"

namespace ca {

Task<double> askDistance(Editor& editor, Prompt prompt, double present)
{
    prompt.defaultText(odFormat(L"%g", present));
    Answer const answer = co_await editor.distance(prompt);
    co_return answer.isNone() ? present : answer.real;
}

Task<int> askInteger(Editor& editor, Prompt prompt, int present)
{
    prompt.defaultText(odFormat(L"%d", present));
    Answer const answer = co_await editor.integer(prompt);
    co_return answer.isNone() ? present : static_cast<int>(answer.integer);
}

} // namespace ca
