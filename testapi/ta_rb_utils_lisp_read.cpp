#include "testapi/ta_rb_chain.h"
#include "testapi/ta_rb_lisp_text.h"
#include "testapi/ta_rb_utils_lisp.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cwchar>
#include <new>
#include <string>
#include <utility>
#include <vector>

// One pass over the text, with a stack of the lists that are open. A list within another counts as an expression
// of its own that is read only once its end is known; that matters when reading it fails, and is looked up then.

namespace ta {

namespace {

bool isOctalDigit(wchar_t ch)
{
    return ch >= L'0' && ch <= L'7';
}

/// The character of three octal digits, 0 for none.
wchar_t octalCode(wchar_t const* digits, wchar_t const* end)
{
    constexpr int length = 3;
    if (end - digits < length || !std::all_of(digits, digits + length, isOctalDigit))
        return 0;
    return ((digits[0] - L'0') * 8 + (digits[1] - L'0')) * 8 + (digits[2] - L'0');
}

/// Appends characters with their escape sequences replaced.
void appendUnescaped(std::wstring& result, wchar_t const* begin, wchar_t const* end)
{
    for (wchar_t const* at = begin; at < end; ++at) {
        wchar_t ch = *at;
        if (ch == L'\\' && at + 1 == end)
            break;
        if (wchar_t const code = ch == L'\\' ? octalCode(at + 1, end) : L'\0') {
            ch = code;
            at += 3;
        } else if (wchar_t const meant = ch == L'\\' ? lispText::unescaped(at[1]) : L'\0') {
            ch = meant;
            ++at;
        }
        result += ch;
    }
}

sds_resbuf* newReal(double value)
{
    sds_resbuf* const node = ca::allocRb(RTREAL);
    if (node)
        node->resval.rreal = value;
    return node;
}

/// A node for the integer that is meant by a number read as a double; out of range for one that no long holds.
int makeLong(double number, ca::RbListPtr& node)
{
    constexpr double nudge = 1e-10;
    constexpr double limit = 9223372036854775808.0; // 2 to the 63rd
    double const moved = std::trunc(number < 0 ? number - nudge : number + nudge);
    if (moved < -limit || moved >= limit)
        return kLispNumberOutOfRange;
    node.reset(ca::allocRb(RTLONG));
    if (!node)
        return kLispNoMemory;
    node->resval.rlong = static_cast<std::int64_t>(moved);
    return kLispOk;
}

class LispReader
{
public:
    explicit LispReader(wchar_t const* text) : m_at(text) {}

    int read();
    sds_resbuf* release() { return m_chain.release(); }

private:
    bool skipToToken();
    int readToken();
    int beginList(bool isFirst);
    int endList();
    int readSingle(bool isFirst);
    int makeSingle(ca::RbListPtr& node);
    int makeText(ca::RbListPtr& node);
    int makeAtom(ca::RbListPtr& node);
    int finish();

    bool addQuotes(std::size_t count);
    bool addEnds(std::size_t count);
    bool endsNestedList() const;

    wchar_t const* m_at;
    std::wstring m_token;     ///< the text or atom that is being read
    std::size_t m_quotes = 0; ///< quote marks in front of the next token
    bool m_isFirst = true;    ///< whether the next token is the first one
    /// For each open list how many ends follow its own, for the quote marks in front of it; those of the first
    /// token come at the end of the text.
    std::vector<std::size_t> m_lists;
    std::size_t m_deferredEnds = 0;
    RbChain m_chain;
};

int LispReader::read()
{
    while (skipToToken()) {
        if (!m_isFirst && m_lists.empty())
            return kLispMalformed;
        int const status = readToken();
        if (status != kLispOk)
            return endsNestedList() ? status : kLispMalformed;
    }
    return finish();
}

/// False at the end of the text.
bool LispReader::skipToToken()
{
    m_quotes = 0;
    for (; *m_at == L'\'' || lispText::isBlank(*m_at); ++m_at)
        m_quotes += *m_at == L'\'';
    return *m_at != 0;
}

int LispReader::readToken()
{
    bool const isFirst = std::exchange(m_isFirst, false);
    if (isFirst)
        m_deferredEnds = m_quotes;
    try {
        switch (*m_at) {
        case L'(': return beginList(isFirst);
        case L')': return endList();
        default: return readSingle(isFirst);
        }
    } catch (std::bad_alloc const&) {
        return kLispNoMemory;
    }
}

int LispReader::beginList(bool isFirst)
{
    ++m_at;
    m_lists.push_back(isFirst ? 0 : m_quotes);
    return addQuotes(m_quotes) && m_chain.add(ca::allocRb(RTLB)) ? kLispOk : kLispNoMemory;
}

int LispReader::endList()
{
    if (m_quotes > 0)
        return kLispMalformed;
    ++m_at;
    std::size_t furtherEnds = 0;
    if (!m_lists.empty()) { // a text of a closing bracket alone reads as that
        furtherEnds = m_lists.back();
        m_lists.pop_back();
    }
    return addEnds(1 + furtherEnds) ? kLispOk : kLispNoMemory;
}

int LispReader::readSingle(bool isFirst)
{
    ca::RbListPtr node;
    int const status = makeSingle(node);
    if (status != kLispOk)
        return status;
    bool const isAdded = addQuotes(m_quotes) && m_chain.add(node.release()) && addEnds(isFirst ? 0 : m_quotes);
    return isAdded ? kLispOk : kLispNoMemory;
}

int LispReader::makeSingle(ca::RbListPtr& node)
{
    switch (*m_at) {
    case L'.':
        ++m_at;
        node.reset(ca::allocRb(RTDOTE));
        return node ? kLispOk : kLispNoMemory;
    case L'"': return makeText(node);
    default: return makeAtom(node);
    }
}

int LispReader::makeText(ca::RbListPtr& node)
{
    wchar_t const* const end = ut::findEndingQuote(m_at);
    if (!end)
        return kLispMalformed;
    wchar_t const* const begin = std::exchange(m_at, end + 1) + 1;
    bool const hasEscapes = std::wmemchr(begin, L'\\', static_cast<std::size_t>(end - begin)) != nullptr;
    m_token.clear();
    if (hasEscapes && !lispText::isLiteralBehind(m_chain.last()))
        appendUnescaped(m_token, begin, end);
    else
        m_token.assign(begin, end);
    node.reset(ca::allocRb(m_token.c_str()));
    return node ? kLispOk : kLispNoMemory;
}

int LispReader::makeAtom(ca::RbListPtr& node)
{
    wchar_t const* const begin = m_at;
    while (!lispText::endsAtom(*m_at))
        ++m_at;
    m_token.assign(begin, m_at);
    double number = 0;
    errno = 0;
    if (ut::isNumber(m_token.c_str(), &number)) {
        if (errno == ERANGE)
            return kLispNumberOutOfRange;
        if (std::ranges::none_of(m_token, lispText::marksReal))
            return makeLong(number, node);
        node.reset(newReal(number));
    } else if (lispText::isNil(m_token)) {
        node.reset(ca::allocRb(RTNIL));
    } else {
        std::ranges::transform(m_token, m_token.begin(), odToUpper);
        node.reset(ca::allocRb(m_token.c_str()));
    }
    return node ? kLispOk : kLispNoMemory;
}

int LispReader::finish()
{
    bool const isQuoteOfNothing = m_isFirst && m_quotes > 0;
    if (!m_lists.empty() || isQuoteOfNothing)
        return kLispMalformed;
    return addEnds(m_deferredEnds) ? kLispOk : kLispNoMemory;
}

bool LispReader::addQuotes(std::size_t count)
{
    for (; count > 0; --count)
        if (!m_chain.add(ca::allocRb(RTLB)) || !m_chain.add(ca::allocRb(L"QUOTE")))
            return false;
    return true;
}

bool LispReader::addEnds(std::size_t count)
{
    for (; count > 0; --count)
        if (!m_chain.add(ca::allocRb(RTLE)))
            return false;
    return true;
}

/// Whether the outermost of the lists within the first one ends in the rest of the text; true outside of any.
bool LispReader::endsNestedList() const
{
    wchar_t const* at = m_at;
    for (std::size_t depth = m_lists.size(); depth > 1; ++at) {
        if (*at == L'"')
            at = ut::findEndingQuote(at);
        if (!at || *at == 0)
            return false;
        if (*at == L'(')
            ++depth;
        else if (*at == L')')
            --depth;
    }
    return true;
}

} // namespace

int lspexpr2rb(wchar_t const* text, sds_resbuf** result)
{
    if (result)
        *result = nullptr;
    if (!text)
        return kLispOk;
    LispReader reader(text);
    int const status = reader.read();
    if (status == kLispOk && result)
        *result = reader.release();
    return status;
}

} // namespace ta
