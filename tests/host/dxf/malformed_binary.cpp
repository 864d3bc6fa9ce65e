#include "host/dxf/dxf_binary_form.h"
#include "tests/host/dxf/malformed_drawings.h"

#include <cstring>
#include <limits>

namespace {

using namespace std::string_literals;

constexpr int kRefused = MalformedDrawing::kRefused;

// Tags of a binary file, group codes in two bytes.

template <class Value>
std::string bytesOf(Value value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

std::string code(int code)
{
    return bytesOf(static_cast<std::int16_t>(code));
}

std::string text(int group, std::string const& value)
{
    return code(group) + value + '\0';
}

std::string real(int group, double value)
{
    return code(group) + bytesOf(value);
}

std::string header(std::string const& release = "AC1015")
{
    return std::string(dxf::kBinarySentinel) + text(0, "SECTION") + text(2, "HEADER") + text(9, "$ACADVER") +
           text(1, release) + text(0, "ENDSEC"); // 22 + 10 + 9 + 11 + 9 + 9 = 70 bytes
}

/// Header and the section ENTITIES, not closed; entities begin at byte 91.
std::string open(std::string const& content)
{
    return header() + text(0, "SECTION") + text(2, "ENTITIES") + content;
}

std::string entities(std::string const& content)
{
    return open(content) + text(0, "ENDSEC") + text(0, "EOF");
}

/// 43 bytes.
std::string point()
{
    return text(0, "POINT") + text(5, "A0") + real(10, 1) + real(20, 2) + real(30, 3);
}

} // namespace

std::vector<MalformedDrawing> wrongBinaryDrawings()
{
    // clang-format off
    return {
        {"the sentinel alone", [] { return std::string(dxf::kBinarySentinel); },
            ": byte 22: The file ends before the first entity; it is cut off", kRefused},
        {"half a sentinel", [] { return std::string(dxf::kBinarySentinel.substr(0, 18)); },
            ":1: This is not a drawing", kRefused},
        {"cut off in a name", [] { return open(point() + code(0) + "LIN"); }, ": byte 91: POINT is damaged and left out", 0},
        {"cut off in a number", [] { return open(point() + text(0, "LINE") + code(10) + "abc"); }, ": byte 141: LINE: ", 1},
        {"cut off in a group code", [] { return open(point() + text(0, "LINE") + "\x0A"); }, ": byte 141: LINE: ", 1},
        {"cut off in a text", [] { return open(point() + text(0, "TEXT") + code(1) + "abc"); }, ": byte 141: TEXT: ", 1},
        {"cut off in bytes", [] { return open(point() + text(0, "PROXY") + code(310) + "\xFF" "abc"); }, ": byte 142: PROXY: ", 1},
        {"no end mark", [] { return open(point() + text(0, "ENDSEC")); },
            ": byte 134: The file ends without its end mark EOF; it is cut off", 1},
        {"wild group codes", [] { return entities(point() + code(0x7F7F) + "abc" + text(0, "CIRCLE")); },
            ": byte 134: POINT: ", 1},
        {"a negative group code", [] { return entities(point() + code(-300) + "abc" + text(0, "CIRCLE")); },
            ": byte 134: POINT: ", 1},
        {"numbers that are none", [] {
            return entities(text(0, "POINT") + real(10, std::numeric_limits<double>::quiet_NaN()) +
                            real(20, std::numeric_limits<double>::infinity())); },
            ": byte 99: POINT: ", 1},
        {"a name of control characters", [] { return entities(point() + text(0, "\x01\x02") + text(0, "CIRCLE")); },
            ": byte 134: ", 1},
        {"line ends in texts", [] { return entities(text(0, "TEXT") + text(1, "a\r\nb\n0\nEOF")); }, "", 1},
        {"a wrong handle", [] { return entities(text(0, "POINT") + text(5, "XYZ") + text(330, "")); }, "", 1},
        {"an unknown release", [] { return header("AC9999") + text(0, "EOF"); },
            ": byte 52: \"AC9999\" is not a known release of drawing files", kRefused},
        {"zeros", [] { return open(std::string(1'000'000, '\0')); }, ": byte 91: ", 0},
        {"bytes FF", [] { return open(std::string(20'000'000, '\xFF')); }, ": byte 91: ", 0},
        {"a record of the largest size", [] {
            std::string bytes;
            for (int i = 0; i < 100'000; ++i)
                bytes += code(310) + "\xFF" + std::string(255, 'x');
            return entities(text(0, "PROXY") + bytes); }, "", 1},
    };
    // clang-format on
}
