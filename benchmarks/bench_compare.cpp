// Compares a drawing with itself and with a copy in which all handles are others, and each entity of it with
// itself property by property:
//   bench_compare DRAWING
// Prints the time of each comparison and what it found. The drawing is a text file.
#include "benchmarks/drawing_main.h"
#include "testapi/ta_drawing_comparison.h"
#include "testapi/ta_test_helper.h"

#include "host/dxf/dxf_file.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

/// The file with all handles raised by the same number.
std::string renumbered(std::string const& text)
{
    constexpr std::uint64_t kOffset = 0x10000000;
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    auto const lineAt = [&text](std::size_t at) {
        std::size_t const end = text.find('\n', at);
        return std::string_view(text).substr(at, end == std::string::npos ? end : end + 1 - at);
    };
    for (std::size_t at = 0; at < text.size();) {
        std::string_view const codeLine = lineAt(at);
        std::string_view const valueLine = lineAt(at + codeLine.size());
        at += codeLine.size() + valueLine.size();
        result += codeLine;
        int code = -1;
        std::size_t const digits = std::min(codeLine.find_first_not_of(' '), codeLine.size());
        std::from_chars(codeLine.data() + digits, codeLine.data() + codeLine.size(), code);
        OdDbHandle const handle(valueLine.substr(0, valueLine.find_first_of("\r\n")));
        if (handle.isNull() || !OdDxfCode::isHandleText(OdDxfCode::_getType(code))) {
            result += valueLine;
            continue;
        }
        char buffer[16];
        result += OdDbHandle(handle.value() + kOffset).write(buffer);
        result += '\n';
    }
    return result;
}

void compare(char const* name, OdDbDatabase const& first, OdDbDatabase const& second)
{
    for (int i = 0; i < 3; ++i) {
        long shown = 0;
        auto const start = std::chrono::steady_clock::now();
        ta::DrawingComparison comparison(first, second, {}, [&shown](ta::DrawingDifference const& difference) {
            if (shown++ < 5)
                std::printf("  %s\n", difference.text().toUtf8().c_str());
        });
        comparison.wholeDrawings();
        std::chrono::duration<double, std::milli> const time = std::chrono::steady_clock::now() - start;
        std::printf("%-16s %.1f ms, %ld pairs of entities, %ld differences\n", name, time.count(),
                    comparison.comparedEntities(), comparison.differences());
    }
}

/// As a test does it: without the short way for entities that are the same to the last bit.
void compareEntities(OdDbDatabase& drawing)
{
    auto const space = drawing.getModelSpaceId().open<OdDbBlockTableRecord>();
    long compared = 0;
    auto const start = std::chrono::steady_clock::now();
    for (OdDbStub const* const stub : space->entities()) {
        auto const* const entity = static_cast<OdDbEntity const*>(stub->object);
        if (!ta::Comparison::knows(entity->isA()))
            continue;
        ta::TestHelperEx::compareEntities(entity, entity);
        ++compared;
    }
    std::chrono::duration<double, std::milli> const time = std::chrono::steady_clock::now() - start;
    std::printf("%-16s %.1f ms, %ld pairs of entities\n", "compareEntities", time.count(), compared);
}

void measure(OdString const& path)
{
    std::ifstream file(path.toUtf8(), std::ios::binary);
    std::string const text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    OdDbDatabasePtr const first = dxf::readBytes(path, text);
    compareEntities(*first);
    compare("equal", *first, *dxf::readBytes(path, text));
    compare("other handles", *first, *dxf::readBytes(path, renumbered(text)));
}

} // namespace

int main(int argc, char** argv)
{
    return measureDrawing(argc, argv, "bench_compare", &measure);
}
