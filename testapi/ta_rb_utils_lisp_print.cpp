#include "testapi/ta_rb_lisp_text.h"
#include "testapi/ta_rb_utils_lisp.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace ta {

namespace {

bool isControl(wchar_t ch)
{
    constexpr wchar_t deleteCharacter = 0x7F;
    return ch < L' ' || ch == deleteCharacter;
}

void appendOctal(std::wstring& text, wchar_t ch)
{
    for (int shift = 6; shift >= 0; shift -= 3)
        text += static_cast<wchar_t>(L'0' + (ch >> shift & 7));
}

bool needsEscape(wchar_t ch)
{
    return lispText::escaped(ch) != 0 || isControl(ch);
}

void appendEscaped(std::wstring& text, wchar_t ch)
{
    if (!needsEscape(ch)) {
        text += ch;
        return;
    }
    text += L'\\';
    if (wchar_t const letter = lispText::escaped(ch))
        text += letter;
    else
        appendOctal(text, ch);
}

/// Whether an atom of these letters reads as this text.
bool isSymbol(std::wstring const& text)
{
    auto const fits = [](wchar_t ch) { return !lispText::endsAtom(ch) && odToUpper(ch) == ch; };
    return !text.empty() && text.front() != L'.' && std::ranges::all_of(text, fits) && !lispText::isNil(text) &&
           !ut::isNumber(text.c_str(), nullptr);
}

class LispPrinter
{
public:
    int print(sds_resbuf const* list);
    std::wstring& text() { return m_text; }

private:
    int printNode(sds_resbuf const& node, sds_resbuf const* previous);
    int printText(wchar_t const* text, sds_resbuf const* previous);
    int printLiteral(wchar_t const* text);
    int printReal(double value);
    int printLong(std::int64_t value);

    std::wstring m_text;
    std::size_t m_depth = 0;
};

int LispPrinter::print(sds_resbuf const* list)
{
    sds_resbuf const* previous = nullptr;
    for (sds_resbuf const* node = list; node; previous = node, node = node->rbnext) {
        bool const isEnd = node->restype == RTLE;
        if (previous && m_depth == 0)
            return kLispMalformed;
        if (previous && previous->restype != RTLB && !isEnd)
            m_text += L' ';
        if (int const status = printNode(*node, previous); status != kLispOk)
            return status;
    }
    return m_depth == 0 ? kLispOk : kLispMalformed;
}

int LispPrinter::printNode(sds_resbuf const& node, sds_resbuf const* previous)
{
    switch (node.restype) {
    case RTLB:
        m_text += L'(';
        ++m_depth;
        return kLispOk;
    case RTLE:
        m_text += L')';
        m_depth -= m_depth > 0 ? 1 : 0; // alone it is an expression
        return kLispOk;
    case RTDOTE: m_text += L'.'; return kLispOk;
    case RTNIL: m_text += L"nil"; return kLispOk;
    case RTSTR: return printText(node.resval.rstring, previous);
    case RTREAL: return printReal(node.resval.rreal);
    case RTLONG: return printLong(node.resval.rlong);
    default: return kLispMalformed;
    }
}

int LispPrinter::printText(wchar_t const* text, sds_resbuf const* previous)
{
    if (!text)
        return kLispMalformed;
    std::wstring_view const characters(text);
    bool const isPlain = std::ranges::none_of(characters, needsEscape);
    if (!isPlain && lispText::isLiteralBehind(previous))
        return printLiteral(text);
    m_text += L'"';
    if (isPlain)
        m_text += characters;
    else
        for (wchar_t const ch : characters)
            appendEscaped(m_text, ch);
    m_text += L'"';
    return kLispOk;
}

int LispPrinter::printLiteral(wchar_t const* text)
{
    std::wstring const quoted = L'"' + std::wstring(text) + L'"';
    if (ut::findEndingQuote(quoted.c_str()) == quoted.c_str() + quoted.size() - 1)
        m_text += quoted;
    else if (isSymbol(text))
        m_text += text;
    else
        return kLispMalformed;
    return kLispOk;
}

int LispPrinter::printReal(double value)
{
    if (!std::isfinite(value))
        return kLispNumberOutOfRange;
    std::wstring const digits = ut::formatRealShortest(value).str();
    m_text += digits;
    if (std::ranges::none_of(digits, lispText::marksReal))
        m_text += L".0";
    return kLispOk;
}

int LispPrinter::printLong(std::int64_t value)
{
    constexpr double limit = 9223372036854775808.0; // 2 to the 63rd
    double const asRead = static_cast<double>(value);
    if (asRead >= limit || static_cast<std::int64_t>(asRead) != value)
        return kLispNumberOutOfRange;
    m_text += std::to_wstring(value);
    return kLispOk;
}

} // namespace

int rb2lspexpr(sds_resbuf const* list, OdString& text)
{
    try {
        LispPrinter printer;
        int const status = printer.print(list);
        if (status == kLispOk)
            text = OdString(std::move(printer.text()));
        return status;
    } catch (std::bad_alloc const&) {
        return kLispNoMemory;
    }
}

} // namespace ta
