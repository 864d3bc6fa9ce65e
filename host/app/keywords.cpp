#include "host/app/keywords.h"

#include <iterator>
#include <sstream>
#include <vector>

namespace ca {

namespace {

std::vector<std::wstring> words(OdString const& text)
{
    std::wistringstream stream(text.str());
    return {std::istream_iterator<std::wstring, wchar_t>(stream), {}};
}

bool isCapitalOrDigit(wchar_t ch)
{
    return odToLower(ch) != ch || (ch >= L'0' && ch <= L'9') || ch == L'?';
}

bool matches(OdString const& keyword, OdString const& upperAnswer)
{
    OdString abbreviation;
    for (wchar_t const ch : keyword.str())
        if (isCapitalOrDigit(ch))
            abbreviation += ch;
    OdString const whole = keyword.upper();
    if (upperAnswer == abbreviation || upperAnswer == whole)
        return true;
    return whole.startsWith(abbreviation.str()) && upperAnswer.startsWith(abbreviation.str()) &&
           whole.startsWith(upperAnswer.str());
}

} // namespace

OdString matchKeyword(OdString const& keywords, OdString const& answer)
{
    OdString upperAnswer = answer.upper();
    if (upperAnswer.startsWith(L"_"))
        upperAnswer.deleteChars(0, 1);
    if (!upperAnswer.isEmpty())
        for (std::wstring const& keyword : words(keywords))
            if (matches(keyword, upperAnswer))
                return keyword;
    return {};
}

OdString keywordsForPrompt(OdString const& keywords)
{
    OdString text;
    for (std::wstring const& keyword : words(keywords)) {
        text += text.isEmpty() ? L"[" : L"/";
        text += keyword;
    }
    return text.isEmpty() ? text : text + L"]";
}

} // namespace ca
