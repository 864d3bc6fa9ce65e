#include "vorntest/test_arg_suite.h"

#include "host/root/od_string.h"
#include "vorntest/mask_files.h"

namespace vorntest {

TestArgSuite::TestArgSuite(std::wstring const& name, TypeDescriptor const& argumentType,
                           TestArgSuiteBuilder::MakeTests makeTests)
    : CppUnit::TestSuite(odWideToUtf8(name)), m_argumentType(argumentType), m_makeTests(std::move(makeTests))
{
}

TestArgSuite::~TestArgSuite()
{
    TestArgSuite::deleteContents();
}

void TestArgSuite::deleteContents()
{
    CppUnit::TestSuite::deleteContents();
    m_arguments.clear();
}

void TestArgSuite::init(VornTestBench const* bench)
{
    if (!bench)
        return;
    TestArgSuiteBuilder builder(*this, bench, m_makeTests);
    TestsConfig const& config = bench->testsConfig();
    for (ConfigNode const& mask : config.range(builder.namer().suiteName(), L"mask")) {
        std::error_code unreadable; // the bench warns of it
        for (std::filesystem::path const& entry : matchingEntries(mask.value(), config, unreadable)) {
            std::error_code error;
            if (!std::filesystem::is_regular_file(entry, error))
                continue;
            m_arguments.push_back(m_argumentType.create(odUtf8ToWide(entry.string())));
            m_arguments.back()->addTestsToSuite(builder);
        }
    }
}

} // namespace vorntest
