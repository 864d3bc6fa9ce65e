// What one trivial command test costs end to end: parse its file, make a new drawing, run LINE with its answers,
// name the line, assert, close the drawing.
#include "testapi/ta_test_cmd.h"

#include <benchmark/benchmark.h>
#include <cppunit/TestResult.h>
#include <cppunit/TestResultCollector.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

/// A test file that lives as long as the program.
class TestFile
{
public:
    TestFile()
    {
        m_path =
            std::filesystem::temp_directory_path() / ("bench_command_test." + std::to_string(getpid()) + ".xml");
        std::ofstream(m_path) << R"(<test>
  <command name="_LINE" nameEntities="L1">
    <point value="0,0,0"/>
    <point value="10,0,0"/>
    <string_empty/>
  </command>
  <assert_not_erased entities="L1"/>
</test>
)";
    }
    ~TestFile() { std::filesystem::remove(m_path); }
    std::wstring path() const { return m_path.wstring(); }

private:
    std::filesystem::path m_path;
};

void trivialCommandTest(benchmark::State& state)
{
    TestFile const file;
    ta::TestCmdArg test(file.path());
    CppUnit::TestResult result;
    CppUnit::TestResultCollector collector;
    result.addListener(&collector);
    for (auto _ : state)
        test.run(&result);
    if (!collector.wasSuccessful())
        state.SkipWithError("the test failed");
    state.counters["tests/s"] = benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(trivialCommandTest)->Unit(benchmark::kMicrosecond);

void newDocument(benchmark::State& state)
{
    for (auto _ : state) {
        ca::app()->openFile();
        ca::curDoc()->close();
    }
}
BENCHMARK(newDocument)->Unit(benchmark::kMicrosecond);

} // namespace
