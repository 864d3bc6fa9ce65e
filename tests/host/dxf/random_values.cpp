#include "tests/host/dxf/random_values.h"

#include "host/db/od_dxf_code.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace {

using Limits = std::numeric_limits<double>;

constexpr double kReals[] = {0.0,
                             -0.0,
                             1.0,
                             -1.0,
                             0.1,
                             1e-5,
                             -9.999999999999999e-6,
                             1e15,
                             999999999999999.9,
                             123456789.12345679,
                             0.30000000000000004,
                             1e20,
                             1e308,
                             Limits::max(),
                             Limits::lowest(),
                             Limits::min(),
                             Limits::denorm_min(),
                             -Limits::denorm_min()};

struct CharacterRange
{
    wchar_t first;
    wchar_t last;
};

constexpr CharacterRange kCharacters[] = {
    {L' ', L'~'},       {L'a', L'z'},         {L'0', L'9'},     {0x0B, 0x1F},     {0x7F, 0x9F},
    {0xA0, 0xFF},       {0x0391, 0x044F},     {0x0590, 0x06FF}, {0x2018, 0x2028}, {0x3042, 0x30FF},
    {0x4E00, 0x9FA5},   {0xAC00, 0xD7A3},     {0xE000, 0xF8FF}, {0xFDD0, 0xFFFF}, {0x1F600, 0x1F64F},
    {0x20000, 0x2A6DF}, {0x10FFFE, 0x10FFFF}, {0x0300, 0x036F}, {L'\\', L'\\'},   {L'^', L'^'},
};

/// What means something to those who show the text, or looks like an escape and is none.
constexpr std::wstring_view kPieces[] = {L"\\P",      L"\\U+00zz",     L"\\U+12 ", L"\\M+x", L"%%c", L"^J",
                                         L"^ ",       L"{\\fArial;x}", L"\t",      L"  ",    L"<>",  L"\\\\",
                                         L"\x1B[31m", L"\xFEFF",       L"]]>",     L"\x01"};

bool breaksLine(wchar_t ch)
{
    return ch == L'\n' || ch == L'\r' || ch == L'\0';
}

} // namespace

double RandomValues::real()
{
    switch (below(4)) {
    case 0: return pick(kReals);
    case 1: return static_cast<double>(integer(16)) / 8.0;
    case 2: return static_cast<double>(integer(32)) * 1e-4;
    default: break;
    }
    for (;;)
        if (double const value = std::bit_cast<double>(m_engine()); std::isfinite(value))
            return value;
}

std::int64_t RandomValues::integer(int bits)
{
    auto const highest = static_cast<std::int64_t>(~std::uint64_t{0} >> (65 - bits));
    switch (below(4)) {
    case 0: return pick(std::array<std::int64_t, 5>{0, 1, -1, highest, -highest - 1});
    case 1: return static_cast<std::int64_t>(below(100));
    default: return static_cast<std::int64_t>(m_engine()) >> (64 - bits);
    }
}

std::string RandomValues::text()
{
    constexpr int kFewCharacters = 12;
    constexpr int kManyCharacters = 3000;
    std::wstring text;
    auto const length = below(oneIn(100) ? kManyCharacters : kFewCharacters);
    for (std::uint64_t i = 0; i < length; ++i) {
        if (oneIn(6)) {
            text += pick(kPieces);
            continue;
        }
        CharacterRange const range = pick(kCharacters);
        auto const count = static_cast<std::uint64_t>(range.last - range.first) + 1;
        wchar_t const ch = range.first + static_cast<wchar_t>(below(count));
        text += breaksLine(ch) ? L'.' : ch;
    }
    return OdString(text).toUtf8();
}

std::string RandomValues::bytes()
{
    constexpr std::uint64_t kLongest = 127; // as much as the lines of text files have
    std::string bytes(below(oneIn(3) ? kLongest + 1 : 8), '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(below(256));
    return bytes;
}

OdDbTag RandomValues::tag(int code, std::span<OdDbHandle const> handles)
{
    switch (OdDxfCode::Type const type = OdDxfCode::_getType(code); type) {
    case OdDxfCode::kReal:
    case OdDxfCode::kAngle:
    case OdDxfCode::kPoint: return OdDbTag::ofReal(code, real());
    case OdDxfCode::kBool: return OdDbTag::ofInteger(code, integer(2) & 1);
    case OdDxfCode::kInt16: return OdDbTag::ofInteger(code, integer(16));
    case OdDxfCode::kInt32: return OdDbTag::ofInteger(code, integer(32));
    case OdDxfCode::kInt64: return OdDbTag::ofInteger(code, integer(64));
    case OdDxfCode::kBinary: m_text = bytes(); return OdDbTag::ofBinary(code, m_text);
    default:
        if (OdDxfCode::isHandleText(type))
            return OdDbTag::ofHandle(code, oneIn(8) ? OdDbHandle() : pick(handles));
        m_text = text();
        return OdDbTag::ofText(code, m_text);
    }
}
