#include "testapi/ta_rb_chain.h"
#include "testapi/ta_rb_utils_lisp.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cwchar>
#include <limits>
#include <span>
#include <utility>

namespace ta {

namespace {

constexpr int s_extendedDataCode = -3;
constexpr short s_applicationCode = 1001;

/// Truncates; false for a number that the type cannot hold.
template <class Integer>
bool truncate(double number, Integer& value)
{
    // Both limits are powers of two, which doubles hold; the upper one is the first number beyond the type. NaN
    // is below neither.
    constexpr double lowest = static_cast<double>(std::numeric_limits<Integer>::min());
    double const truncated = std::trunc(number);
    if (!(truncated >= lowest && truncated < -lowest))
        return false;
    value = static_cast<Integer>(truncated);
    return true;
}

bool isReal(sds_resbuf const& node)
{
    return node.restype == RTREAL || node.restype == RTANG || node.restype == RTORINT;
}

bool takeInteger(sds_resbuf const& node, std::int64_t& value)
{
    if (node.restype == RTLONG)
        value = node.resval.rlong;
    else if (node.restype == RTSHORT)
        value = node.resval.rint;
    else
        return false;
    return true;
}

// The conversions set the value of a new node whose type is set already. kLispMalformed when the value given is of
// another kind.

int toReal(sds_resbuf const& from, sds_resbuf& to)
{
    std::int64_t integer = 0;
    if (isReal(from))
        to.resval.rreal = from.resval.rreal;
    else if (takeInteger(from, integer))
        to.resval.rreal = static_cast<double>(integer);
    else
        return kLispMalformed;
    return kLispOk;
}

int toShort(sds_resbuf const& from, sds_resbuf& to)
{
    std::int64_t integer = 0;
    if (int truncated = 0; isReal(from) && truncate(from.resval.rreal, truncated))
        integer = truncated;
    else if (!takeInteger(from, integer))
        return kLispMalformed;
    to.resval.rint = static_cast<short>(integer);
    return kLispOk;
}

int toLong(sds_resbuf const& from, sds_resbuf& to)
{
    bool const isTaken =
        isReal(from) ? truncate(from.resval.rreal, to.resval.rlong) : takeInteger(from, to.resval.rlong);
    return isTaken ? kLispOk : kLispMalformed;
}

int toText(sds_resbuf const& from, sds_resbuf& to)
{
    if (from.restype != RTSTR || !from.resval.rstring)
        return kLispMalformed;
    return ca::setRbString(to, from.resval.rstring) ? kLispOk : kLispNoMemoryForChain;
}

int toName(sds_resbuf const& from, sds_resbuf& to)
{
    if (from.restype != RTENAME && from.restype != RTPICKS)
        return kLispMalformed;
    std::copy_n(from.resval.rlname, std::size(to.resval.rlname), to.resval.rlname);
    return kLispOk;
}

/// Only decimal digits count: A to F are 0, as everything else.
unsigned digitValue(wchar_t digit)
{
    return digit >= L'0' && digit <= L'9' ? static_cast<unsigned>(digit - L'0') : 0;
}

int toBytes(sds_resbuf const& from, sds_resbuf& to)
{
    constexpr std::size_t mostBytes = 127;
    if (from.restype != RTSTR || !from.resval.rstring)
        return kLispMalformed;
    wchar_t const* const digits = from.resval.rstring;
    std::array<unsigned char, mostBytes> bytes{};
    std::size_t const count = ::wcsnlen(digits, 2 * mostBytes) / 2;
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<unsigned char>(digitValue(digits[2 * i]) * 16 + digitValue(digits[2 * i + 1]));
    return ca::setRbBinary(to, std::span(bytes.data(), count)) ? kLispOk : kLispNoMemoryForChain;
}

using Conversion = int (*)(sds_resbuf const&, sds_resbuf&);

/// Null for a kind that no value can be given to in a dotted pair.
Conversion conversionTo(short kind)
{
    switch (kind) {
    case RTREAL: return &toReal;
    case RTSHORT: return &toShort;
    case RTSTR: return &toText;
    case RTENAME: return &toName;
    case RTLONG:
    case RTINT64: return &toLong;
    case RTBINARY:
    case RTBINARYCHUNK: return &toBytes;
    default: return nullptr;
    }
}

class EntityListConverter
{
public:
    explicit EntityListConverter(sds_resbuf const* list) : m_at(list) {}

    int convert();
    sds_resbuf* release() { return m_chain.release(); }

private:
    /// Reads what a sublist holds, up to its end.
    using Content = int (EntityListConverter::*)();

    int convertSublists(Content content);
    int convertElement();
    int convertApplication();
    int convertValue();
    int convertCoded(short code);
    int convertPoint(short code);
    int convertPair(short code);
    bool takeCode(short& code);

    bool isAt(short type) const { return m_at && m_at->restype == type; }
    bool take(short type)
    {
        bool const isTaken = isAt(type);
        if (isTaken)
            m_at = m_at->rbnext;
        return isTaken;
    }

    sds_resbuf const* m_at;
    RbChain m_chain;
};

int EntityListConverter::convert()
{
    if (!take(RTLB))
        return kLispMalformed;
    if (int const status = convertSublists(&EntityListConverter::convertElement); status != kLispOk)
        return status;
    return take(RTLE) && !m_at ? kLispOk : kLispMalformed;
}

/// Sublists up to the end of the list that they stand in.
int EntityListConverter::convertSublists(Content content)
{
    while (!isAt(RTLE)) {
        if (!take(RTLB))
            return kLispMalformed;
        if (int const status = (this->*content)(); status != kLispOk)
            return status;
        if (!take(RTLE))
            return kLispMalformed;
    }
    return kLispOk;
}

int EntityListConverter::convertElement()
{
    short code = 0;
    if (!takeCode(code))
        return kLispMalformed;
    if (code == s_extendedDataCode)
        return convertSublists(&EntityListConverter::convertApplication);
    return convertCoded(code);
}

int EntityListConverter::convertApplication()
{
    if (!m_at)
        return kLispMalformed;
    ca::RbListPtr name(ca::allocRb(s_applicationCode));
    if (!name)
        return kLispNoMemoryForChain;
    if (int const status = toText(*m_at, *name); status != kLispOk)
        return status;
    m_at = m_at->rbnext;
    m_chain.add(name.release());
    return convertSublists(&EntityListConverter::convertValue);
}

int EntityListConverter::convertValue()
{
    short code = 0;
    return takeCode(code) ? convertCoded(code) : static_cast<int>(kLispMalformed);
}

int EntityListConverter::convertCoded(short code)
{
    return ca::restypeToResvalType(code) == RT3DPOINT ? convertPoint(code) : convertPair(code);
}

/// The rest of the sublist as a list of its own becomes a point. Nothing but numbers does.
int EntityListConverter::convertPoint(short code)
{
    RbChain copies;
    if (!copies.add(ca::allocRb(RTLB)))
        return kLispNoMemoryForChain;
    for (; isAt(RTREAL) || isAt(RTLONG) || isAt(RTSHORT); m_at = m_at->rbnext) {
        sds_resbuf* const number = ca::allocRb(m_at->restype);
        if (!copies.add(number))
            return kLispNoMemoryForChain;
        number->resval = m_at->resval;
    }
    if (!copies.add(ca::allocRb(RTLE)))
        return kLispNoMemoryForChain;
    ca::RbListPtr point(ca::replaceListsByPoints(copies.release()));
    if (point->restype != RT3DPOINT)
        return kLispMalformed;
    point->restype = code;
    m_chain.add(point.release());
    return kLispOk;
}

int EntityListConverter::convertPair(short code)
{
    Conversion const convertTo = conversionTo(ca::restypeToResvalType(code));
    if (!convertTo || !take(RTDOTE) || !m_at)
        return kLispMalformed;
    ca::RbListPtr node(ca::allocRb(code));
    if (!node)
        return kLispNoMemoryForChain;
    if (int const status = convertTo(*m_at, *node); status != kLispOk)
        return status;
    m_at = m_at->rbnext;
    m_chain.add(node.release());
    return kLispOk;
}

bool EntityListConverter::takeCode(short& code)
{
    constexpr std::int64_t lowestCode = -4;
    constexpr std::int64_t highestCode = 1999;
    std::int64_t number = 0;
    if (!m_at || !takeInteger(*m_at, number) || number < lowestCode || number > highestCode)
        return false;
    code = static_cast<short>(number);
    m_at = m_at->rbnext;
    return true;
}

} // namespace

int lisp2sds(sds_resbuf const* list, sds_resbuf** result)
{
    if (!result)
        return kLispMalformed;
    *result = nullptr;
    if (!list)
        return kLispOk;
    if (list->restype == RTNIL)
        return list->rbnext ? kLispMalformed : kLispOk;
    EntityListConverter converter(list);
    int const status = converter.convert();
    if (status == kLispOk)
        *result = converter.release();
    return status;
}

} // namespace ta
