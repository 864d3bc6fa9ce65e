// Loading a data file of many arcs: as test data, and for comparison by the XML parser alone.
#include "testapi/ta_test_data_fixture.h"
#include "testapi/ta_utils.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

namespace {

constexpr int s_arcCount = 100000;

/// A data file of arcs with coordinates of 15 digits, removed at the end.
class ArcFile
{
public:
    ArcFile()
    {
        std::ofstream file(m_path);
        file.precision(15);
        file << "<Arcs>\n";
        for (int i = 0; i < s_arcCount; ++i)
            file << "  <TestOdGeCircArc2d center=\"" << i / 7.0 << ',' << -i / 3.0 << "\" radius=\""
                 << 1 + i / 11.0 << "\" startAng=\"" << (i % 60) / 60.0 << "\" endAng=\"" << 1.5 + (i % 40) / 30.0
                 << "\"/>\n";
        file << "</Arcs>\n";
    }
    ~ArcFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    ArcFile(ArcFile const&) = delete;
    ArcFile& operator=(ArcFile const&) = delete;

    std::wstring path() const { return m_path.wstring(); }

private:
    std::filesystem::path m_path = std::string(ta::createUniqueTempFileName(L"arcs", L"xml").toUtf8());
};

void count(benchmark::State& state, std::size_t elements)
{
    if (elements != s_arcCount)
        state.SkipWithError("not all arcs were read");
    state.SetItemsProcessed(state.items_processed() + static_cast<std::int64_t>(elements));
}

void parserAlone(benchmark::State& state)
{
    ArcFile const file;
    for (auto _ : state) {
        pugi::xml_document document;
        document.load_file(file.path().c_str());
        auto const children = document.document_element().children();
        count(state, static_cast<std::size_t>(std::distance(children.begin(), children.end())));
    }
}
BENCHMARK(parserAlone)->Unit(benchmark::kMillisecond);

void testData(benchmark::State& state)
{
    ArcFile const file;
    for (auto _ : state) {
        ta::TestGeDataArray data;
        ta::readDataFromXML(data, file.path().c_str(), ta::kReadDataDefault, nullptr);
        count(state, data.size());
    }
}
BENCHMARK(testData)->Unit(benchmark::kMillisecond);

} // namespace
