#include "tests/testapi/lisp_recursion.h"

#include "testapi/ta_rb_utils_lisp.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <utility>

namespace lispRecursion {

namespace {

using Tokens = std::vector<std::string>;

constexpr int kMalformed = -1;
constexpr int kOutOfRange = -5;

std::string shownText(std::wstring const& text)
{
    return "<" + odWideToUtf8(text) + ">";
}

std::wstring withoutEscapes(std::wstring const& text)
{
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::wstring const rest = text.substr(i + 1);
        std::size_t const meaning = rest.empty() ? std::wstring::npos : std::wstring(L"\\\"enrt").find(rest[0]);
        bool const isOctal = rest.size() >= 3 && rest.find_first_not_of(L"01234567") >= 3;
        int const code = isOctal ? std::stoi(rest.substr(0, 3), nullptr, 8) : 0;
        if (text[i] != L'\\') {
            result += text[i];
        } else if (code != 0) {
            result += static_cast<wchar_t>(code);
            i += 3;
        } else if (meaning != std::wstring::npos) {
            result += L"\\\"\x1B\n\r\t"[meaning];
            ++i;
        } else if (!rest.empty()) {
            result += L'\\';
        }
    }
    return result;
}

struct Call
{
    std::wstring text;
    std::size_t at = 0;
    bool isFirst = true;
    bool isOpen = false;
    std::size_t firstQuotes = 0;
    Tokens tokens = {};
    std::wstring lastText = {}; // of the token before, if it is a text
    bool isLastText = false;

    int run();
    int token(Tokens& read, std::size_t quotes);
    int bracket(Tokens& read, bool isBegin);
    int end(std::size_t quotes);
    int nested(Tokens& read);
    int quoted(Tokens& read);
    int atom(Tokens& read);
};

int Call::nested(Tokens& read)
{
    std::size_t end = at + 1;
    for (int depth = 1; depth > 0; ++end) {
        if (end >= text.size())
            return kMalformed;
        if (text[end] == L'"') {
            wchar_t const* const quote = ut::findEndingQuote(text.c_str() + end);
            if (!quote)
                return kMalformed;
            end = static_cast<std::size_t>(quote - text.c_str());
        } else if (text[end] == L'(') {
            ++depth;
        } else if (text[end] == L')') {
            --depth;
        }
    }
    Reading const inner = lispRecursion::read(text.substr(at, end - at));
    at = end;
    read = inner.tokens;
    isLastText = false;
    return inner.status;
}

int Call::quoted(Tokens& read)
{
    wchar_t const* const quote = ut::findEndingQuote(text.c_str() + at);
    if (!quote)
        return kMalformed;
    std::size_t const end = static_cast<std::size_t>(quote - text.c_str());
    std::wstring content = text.substr(at + 1, end - at - 1);
    at = end + 1;
    if (!isLastText || !isShellCommand(lastText.c_str()))
        content = withoutEscapes(content);
    read = {shownText(content)};
    lastText = content;
    isLastText = true;
    return 0;
}

int Call::atom(Tokens& read)
{
    std::size_t const end = std::min(text.find_first_of(L" \t\n\r\v\f()\"'", at), text.size());
    std::wstring const content = text.substr(at, end - at);
    at = end;
    isLastText = false;
    double number = 0;
    errno = 0;
    if (ut::isNumber(content.c_str(), &number)) {
        if (errno == ERANGE)
            return kOutOfRange;
        bool const isReal = content.find_first_of(L".eE") != std::wstring::npos;
        if (!isReal && std::abs(number) > 9.2e18)
            return kOutOfRange;
        std::string digits = ut::formatRealShortest(number).toUtf8();
        if (isReal && digits.find_first_of(".e") == std::string::npos)
            digits += ".0";
        read = {isReal ? digits : std::to_string(static_cast<long>(number + (number < 0 ? -1e-10 : 1e-10)))};
    } else if (OdString(content).upper() == L"NIL") {
        read = {"nil"};
    } else {
        lastText = OdString(content).upper().str();
        isLastText = true;
        read = {shownText(lastText)};
    }
    return 0;
}

int Call::bracket(Tokens& read, bool isBegin)
{
    ++at;
    isOpen = isBegin;
    isLastText = false;
    read = {isBegin ? "(" : ")"};
    return 0;
}

int Call::token(Tokens& read, std::size_t quotes)
{
    bool const wasFirst = std::exchange(isFirst, false);
    switch (text[at]) {
    case L'(': return wasFirst ? bracket(read, true) : nested(read);
    case L')': return quotes > 0 ? kMalformed : bracket(read, false);
    case L'"': return quoted(read);
    case L'.':
        ++at;
        isLastText = false;
        read = {"."};
        return 0;
    default: return atom(read);
    }
}

int Call::run()
{
    while (true) {
        std::size_t quotes = 0;
        for (; at < text.size() && std::wstring(L" \t\n\r\v\f'").find(text[at]) != std::wstring::npos; ++at)
            quotes += text[at] == L'\'';
        if (at >= text.size())
            return end(quotes);
        if (!isFirst && !isOpen)
            return kMalformed;
        bool const wasFirst = isFirst;
        Tokens read;
        if (int const status = token(read, quotes); status != 0)
            return status;
        for (std::size_t i = 0; i < quotes; ++i)
            tokens.insert(tokens.end(), {"(", "<QUOTE>"});
        tokens.insert(tokens.end(), read.begin(), read.end());
        if (wasFirst) {
            firstQuotes = quotes;
        } else if (quotes > 0) {
            tokens.insert(tokens.end(), quotes, ")");
            isLastText = false;
        }
    }
}

int Call::end(std::size_t quotes)
{
    if (isOpen || (isFirst && quotes > 0))
        return kMalformed;
    tokens.insert(tokens.end(), firstQuotes, ")");
    return 0;
}

} // namespace

Reading read(std::wstring const& text)
{
    Call call{text};
    int const status = call.run();
    return status == 0 ? Reading{0, call.tokens} : Reading{status, {}};
}

std::string shown(Reading const& reading)
{
    if (reading.status != 0)
        return "status " + std::to_string(reading.status);
    std::string line;
    for (std::string const& token : reading.tokens)
        line += (line.empty() ? "" : " ") + token;
    return line;
}

} // namespace lispRecursion
