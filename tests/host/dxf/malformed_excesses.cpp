#include "tests/host/dxf/dxf_text.h"
#include "tests/host/dxf/malformed_drawings.h"

namespace {

using namespace dxfText;
using namespace std::string_literals;

constexpr int kRefused = MalformedDrawing::kRefused;

template <class Part>
std::string generated(int count, Part const& part)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += part(i);
    return result;
}

std::string repeated(int count, std::string const& part)
{
    return generated(count, [&part](int) -> std::string const& { return part; });
}

/// Blocks B1, B2, ..., each of which refers to the one before so many times; B0 holds a point. The entity is
/// B<levels>.
std::string nestedBlocks(int levels, int references)
{
    auto const block = [](int number, std::string const& content) {
        return "0\nBLOCK\n2\nB" + std::to_string(number) + "\n" + content + "0\nENDBLK\n";
    };
    auto const reference = [](int number) { return "0\nINSERT\n2\nB" + std::to_string(number) + "\n10\n1\n"; };
    return drawing(
        section("BLOCKS",
                block(0, "0\nPOINT\n10\n0\n") +
                    generated(levels, [&](int i) { return block(i + 1, repeated(references, reference(i))); })) +
        section("ENTITIES", reference(levels)));
}

/// Dictionaries of which each holds the next one.
std::string nestedDictionaries(int levels)
{
    constexpr int kFirst = 100000;
    return drawing(section("OBJECTS", generated(levels, [](int i) {
                               std::string const self = std::to_string(kFirst + i),
                                                 owner = std::to_string(kFirst + i - 1);
                               return "0\nDICTIONARY\n5\n" + self + "\n330\n" + (i == 0 ? "0" : owner) +
                                      "\n100\nAcDbDictionary\n3\nnext\n360\n" + std::to_string(kFirst + i + 1) +
                                      "\n";
                           })));
}

std::string longLine(std::size_t length, std::string const& before)
{
    return before + std::string(length, 'x');
}

} // namespace

std::vector<MalformedDrawing> excessiveDrawings()
{
    constexpr int kThousand = 1000;
    constexpr int kMillion = 1000 * kThousand;
    // clang-format off
    return {
        {"exponentially nested blocks", [] { return nestedBlocks(30, 10); },
            ":15: The block \"B0\" had no block record; one is added", 1, 31},
        {"deeply nested blocks", [] { return nestedBlocks(30 * kThousand, 1); },
            ":15: The block \"B0\" had no block record; one is added", 1, 30 * kThousand + 1},
        {"deeply nested dictionaries", [] { return nestedDictionaries(100 * kThousand); }, "", 0},
        {"deeply nested braces", [] { return entities("0\nPOINT\n" + repeated(100 * kThousand, "102\n{A\n")); },
            ":15: POINT: A group in braces (102) has no end; it is closed at the end of the record", 1},
        {"deeply nested extended data", [] { return entities("0\nPOINT\n1001\nA\n" + repeated(100 * kThousand, "1002\n{\n")); },
            "", 1},
        {"empty sections", [] { return drawing(repeated(20 * kThousand, section("ENTITIES", ""))); }, "", 0},
        {"many unknown sections", [] { return drawing(generated(100 * kThousand, [](int i) {
                return section("X" + std::to_string(i), ""); })); }, "", 0},
        {"empty tables", [] { return drawing(section("TABLES", repeated(100 * kThousand, "0\nTABLE\n2\nLAYER\n0\nENDTAB\n"))); },
            "", 0},
        {"a line without end", [] { return longLine(100 * kMillion, header() + "0\nSECTION\n2\nENTITIES\n0\nTEXT\n5\nA0\n1\n"); },
            ":20: TEXT: The line is longer than 16777216 bytes; it is left out", 0},
        {"a group code without end", [] { return longLine(100 * kMillion, header() + "0\nSECTION\n2\nENTITIES\n"); },
            ":15: \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\" is not a group code; the rest of the file is left out", 0},
        {"millions of empty lines", [] { return entities("0\nPOINT\n" + std::string(10 * kMillion, '\n') + "0\nPOINT\n"); },
            ":17: POINT: \"\" is not a group code; what stands up to line 10000016 is left out", 1},
        {"millions of CR", [] { return entities("0\nPOINT\n" + std::string(10 * kMillion, '\r') + "0\nPOINT\n"); },
            ":17: POINT: \"\" is not a group code; what stands up to line 10000016 is left out", 1},
        {"a million bad values", [] { return entities("0\nPOINT\n" + repeated(kMillion, "10\nx\n")); },
            ":18: POINT: \"x\" is not a number, which group 10 needs; it is left out", 1},
        {"lost step again and again", [] { return entities(repeated(100 * kThousand, "0\nPOINT\nx\n")); },
            ":17: POINT: \"x\" is not a group code; what stands up to line 17 is left out", 0},
        {"many scattered handles", [] { return entities("0\nPOINT\n102\n{ACAD_REACTORS\n" + generated(200 * kThousand, [](int i) {
                return "330\n" + std::to_string(100000 + 37 * i) + "\n"; }) + "102\n}\n"); }, "", 1},
        {"bytes FF", [] { return std::string(20 * kMillion, '\xFF'); },
            ":1: This is not a drawing: no group code 0 or 999 in the first line", kRefused},
        {"bytes FF behind a header", [] { return header() + std::string(20 * kMillion, '\xFF'); },
            ":11: ", kRefused},
    };
    // clang-format on
}
