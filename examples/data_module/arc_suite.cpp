// Makes the tests: one suite for each check, with one test for each datum that the check is for.
#include "arc_checks.h"

#include "testapi/ta_test_data_fixture.h"
#include "testapi/ta_utils.h"

#include "vorntest/vorn_test_bench.h"

#include <cppunit/TestSuite.h>
#include <cppunit/extensions/HelperMacros.h>

namespace {

struct ArcCheck
{
    wchar_t const* name;
    bool isForCircles;
    ArcTest::Check check;
};

constexpr ArcCheck s_checks[] = {{L"trim", false, &ArcTest::trim}, {L"offset", true, &ArcTest::offset}};

void addTests(ta::TestDataSuiteBuilderContext const& context, ArcCheck const& check)
{
    ta::TestGeDataArray const& data = *context.testData();
    for (unsigned i = 0; i < data.size(); ++i) {
        bool const isWanted = ta::isArc2d(data[i].get()) || (check.isForCircles && ta::isCircle2d(data[i].get()));
        if (!isWanted)
            continue;
        auto const& datum = static_cast<ta::TestOdGeCircArc2d const&>(*data[i]);
        std::string const name = ta::wcstombs(context.namer().getTestNameFor(check.name, i));
        context.addTest(new ArcTest(name, *datum.geometry(), check.check));
    }
}

struct ArcTests
{
    static CppUnit::TestSuite* suite()
    {
        ta::TestDataNamer const namer(L"ArcTests");
        vorntest::VornTestBench* const bench = vorntest::VornTestBench::current();
        ta::TestGeDataArray data;
        ta::ReadDataFromXML(L"data/arcs.xml")(data, bench);
        auto* const all = new CppUnit::TestSuite(ta::wcstombs(namer.getBaseName()));
        for (ArcCheck const& check : s_checks) {
            auto* const part = new CppUnit::TestSuite(ta::wcstombs(namer.getSuiteNameFor(check.name)));
            all->addTest(part);
            addTests({part, namer, bench, &data}, check);
        }
        return all;
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(ArcTests);

} // namespace
