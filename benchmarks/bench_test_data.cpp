// Loading data files of many elements: as test data, and for comparison by the XML parser alone.
#include "testapi/ta_test_data_fixture.h"
#include "testapi/ta_utils.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

namespace {

constexpr int s_count = 100000;

void writeArc(std::ostream& out, int i)
{
    out << "<TestOdGeCircArc2d center=\"" << i / 7.0 << ',' << -i / 3.0 << "\" radius=\"" << 1 + i / 11.0
        << "\" startAng=\"" << (i % 60) / 60.0 << "\" endAng=\"" << 1.5 + (i % 40) / 30.0 << "\"/>\n";
}

void writeChain(std::ostream& out, int i)
{
    out << "<TestOdGeSegmentChain2d closed=\"true\">";
    for (int j = 1; j <= 4; ++j)
        out << "<vertex pt=\"" << i / 7.0 * j << ',' << j / 3.0 << "\" bulge=\"" << j / 9.0 << "\"/>";
    out << "</TestOdGeSegmentChain2d>\n";
}

void writePoints(std::ostream& out, int i)
{
    out << "<TestOdGePolyline3d nPt=\"4\" aPt=\"";
    for (int j = 1; j <= 4; ++j)
        out << (j > 1 ? " " : "") << i / 7.0 * j << ',' << j / 3.0 << ',' << i / 9.0;
    out << "\"/>\n";
}

using WriteElement = void (*)(std::ostream&, int);

/// A data file of many elements with coordinates of 15 digits, removed at the end.
class DataFile
{
public:
    explicit DataFile(WriteElement writeElement)
    {
        std::ofstream file(m_path);
        file.precision(15);
        file << "<Data>\n";
        for (int i = 0; i < s_count; ++i)
            writeElement(file, i);
        file << "</Data>\n";
    }
    ~DataFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    DataFile(DataFile const&) = delete;
    DataFile& operator=(DataFile const&) = delete;

    std::wstring path() const { return m_path.wstring(); }

private:
    std::filesystem::path m_path = std::string(ta::createUniqueTempFileName(L"data", L"xml").toUtf8());
};

void count(benchmark::State& state, std::size_t elements)
{
    if (elements != s_count)
        state.SkipWithError("not all elements were read");
    state.SetItemsProcessed(state.items_processed() + static_cast<std::int64_t>(elements));
}

void parserAlone(benchmark::State& state, WriteElement writeElement)
{
    DataFile const file(writeElement);
    for (auto _ : state) {
        pugi::xml_document document;
        document.load_file(file.path().c_str());
        auto const children = document.document_element().children();
        count(state, static_cast<std::size_t>(std::distance(children.begin(), children.end())));
    }
}

void testData(benchmark::State& state, WriteElement writeElement)
{
    DataFile const file(writeElement);
    for (auto _ : state) {
        ta::TestGeDataArray data;
        ta::readDataFromXML(data, file.path().c_str(), ta::kReadDataDefault, nullptr);
        count(state, data.size());
    }
}

#define BENCH_DATA_FILE(name, writeElement)                                                                       \
    BENCHMARK_CAPTURE(parserAlone, name, writeElement)->Unit(benchmark::kMillisecond);                            \
    BENCHMARK_CAPTURE(testData, name, writeElement)->Unit(benchmark::kMillisecond);

BENCH_DATA_FILE(arcs, &writeArc)
BENCH_DATA_FILE(chains, &writeChain)
BENCH_DATA_FILE(points, &writePoints)

} // namespace
