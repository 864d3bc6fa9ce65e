#include "apps/vornbench/text_width.h"

#include <cmath>
#include <cstdio>

namespace {

constexpr std::string_view ellipsis = "\xe2\x80\xa6";

bool startsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

} // namespace

std::size_t textWidth(std::string_view text)
{
    std::size_t width = 0;
    for (char const byte : text)
        width += startsCharacter(byte) ? 1 : 0;
    return width;
}

std::string padded(std::string_view text, std::size_t width)
{
    std::string result(text);
    std::size_t const used = textWidth(text);
    if (used < width)
        result.append(width - used, ' ');
    return result;
}

std::string shortened(std::string_view text, std::size_t width)
{
    if (textWidth(text) <= width)
        return std::string(text);
    if (width == 0)
        return {};
    std::size_t end = 0;
    for (std::size_t characters = 0; end < text.size(); ++end)
        if (startsCharacter(text[end]) && ++characters == width)
            break;
    return std::string(text.substr(0, end)) + std::string(ellipsis);
}

std::string printable(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (char const byte : text) {
        bool const isControl =
            (static_cast<unsigned char>(byte) < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7F;
        result += isControl ? '?' : byte;
    }
    return result;
}

std::string durationText(double seconds)
{
    char text[48];
    if (seconds < 0.1) {
        std::snprintf(text, sizeof text, "%.1f ms", seconds * 1000.0);
    } else if (seconds < 59.995) {
        std::snprintf(text, sizeof text, "%.2f s", seconds);
    } else {
        auto const whole = static_cast<long long>(std::llround(seconds));
        std::snprintf(text, sizeof text, "%lld min %02lld s", whole / 60, whole % 60);
    }
    return text;
}

std::string counted(std::size_t count, std::string_view noun)
{
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}
