#include "host/dxf/dxf_real_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace dxf {

namespace {

constexpr int kDecimals = 6;
constexpr std::uint64_t kScale = 1'000'000;

/// The magnitude in millionths when it is a whole number of them, else 0. What has at most 15 digits is the only
/// such text for its bits, and so the shortest: decimals as programs round them need no search for digits.
std::uint64_t millionthsOf(double magnitude)
{
    constexpr double kSmallest = 1e-5;
    constexpr double kLargest = 1e9;
    if (!(magnitude >= kSmallest && magnitude < kLargest))
        return 0;
    auto const count = static_cast<std::uint64_t>(magnitude * static_cast<double>(kScale) + 0.5);
    return static_cast<double>(count) / static_cast<double>(kScale) == magnitude ? count : 0;
}

char* putMillionths(char* at, std::uint64_t count)
{
    constexpr std::uint32_t kTenth = kScale / 10;
    at = std::to_chars(at, at + kLongestReal, count / kScale).ptr;
    *at++ = '.';
    auto rest = static_cast<std::uint32_t>(count % kScale);
    char* last = at; // behind the last digit that is not 0, at least one
    for (int i = 0; i < kDecimals; ++i) {
        std::uint32_t const digit = rest / kTenth;
        rest = (rest - digit * kTenth) * 10;
        at[i] = static_cast<char>('0' + digit);
        if (digit != 0 || i == 0)
            last = at + i + 1;
    }
    return last;
}

char* putAnyReal(char* at, double value)
{
    double const size = std::abs(value);
    bool const isPlain = size == 0.0 || (size >= 1e-5 && size < 1e15);
    char* const begin = at;
    at = std::to_chars(at, at + kLongestReal, value,
                       isPlain ? std::chars_format::fixed : std::chars_format::scientific)
             .ptr;
    if (std::memchr(begin, '.', static_cast<std::size_t>(at - begin)))
        return at;
    char* const exponent = isPlain ? at : std::find(begin, at, 'e');
    std::memmove(exponent + 2, exponent, static_cast<std::size_t>(at - exponent));
    exponent[0] = '.';
    exponent[1] = '0';
    return at + 2;
}

} // namespace

char* putReal(char* at, double value)
{
    std::uint64_t const millionths = millionthsOf(std::abs(value));
    if (millionths == 0)
        return putAnyReal(at, value);
    if (value < 0)
        *at++ = '-';
    return putMillionths(at, millionths);
}

} // namespace dxf
