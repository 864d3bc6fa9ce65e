#include "vorntest/test_arg_suite_builder.h"

#include "host/root/od_string.h"
#include "host/ut/ut_file_name.h"
#include "vorntest/test_case_arg_base.h"

namespace vorntest {

std::wstring TestArgNamer::suiteNameFor(TestCaseArgBase const& argument) const
{
    return ut::FileName(argument.testArg()).getName().str();
}

TestArgSuiteBuilder::TestArgSuiteBuilder(CppUnit::TestSuite& suite, VornTestBench const* bench,
                                         MakeTests makeTests)
    : m_suite(suite), m_bench(bench), m_namer(odUtf8ToWide(suite.getName())), m_makeTests(std::move(makeTests))
{
}

void TestArgSuiteBuilder::addTest(std::unique_ptr<CppUnit::Test> test)
{
    m_suite.addTest(test.release());
}

void TestArgSuiteBuilder::addTestsWith(TestCaseArgBase& argument)
{
    auto suite = std::make_unique<CppUnit::TestSuite>(odWideToUtf8(m_namer.suiteNameFor(argument)));
    for (std::unique_ptr<CppUnit::Test>& test : m_makeTests(argument))
        suite->addTest(test.release());
    addTest(std::move(suite));
}

} // namespace vorntest
