#include "apps/vornbench/test_catalog.h"
#include "apps/vornbench/test_runner.h"
#include "apps/vornbench/test_selection.h"
#include "apps/vornbench/usage_error.h"
#include "tests/support/temp_folder.h"
#include "vorntest/tests_config.h"

#include <cppunit/TestCase.h>
#include <cppunit/TestSuite.h>
#include <cppunit/extensions/HelperMacros.h>
#include <cppunit/extensions/RepeatedTest.h>

namespace {

class EmptyTest : public CppUnit::TestCase
{
public:
    explicit EmptyTest(std::string const& name) : TestCase(name) {}
    void runTest() override {}
};

/// Adds a suite with tests of these names; a decorated one counts as a unit.
CppUnit::TestSuite* addSuite(CppUnit::TestSuite& parent, std::string const& name,
                             std::vector<std::string> const& tests)
{
    auto* const suite = new CppUnit::TestSuite(name);
    parent.addTest(suite);
    for (std::string const& test : tests)
        suite->addTest(new EmptyTest(test));
    return suite;
}

/// Root with the suites Drawing, Lines (not configured) and Failures (explicit), added out of order.
struct Sample
{
    TempFolder folder;
    vorntest::TestsConfig config;
    CppUnit::TestSuite root{"All Tests"};

    Sample()
    {
        config.load(folder
                        .write("tests.xml",
                               "<testsConfig><suite name='Drawing'/>"
                               "<suite name='Failures' run='explicit'/><suite name='Empty'/></testsConfig>")
                        .str());
        addSuite(root, "Lines", {"short"});
        addSuite(root, "Empty", {});
        addSuite(root, "Failures", {"short", "long"});
        CppUnit::TestSuite* const drawing = addSuite(root, "Drawing", {"new"});
        addSuite(*drawing, "Lines", {"short", "very long"});
        addSuite(*drawing, "Line", {"a/b"});
    }
};

std::string selectedNames(std::vector<std::string> const& filters)
{
    Sample sample;
    TestCatalog const catalog(sample.root, sample.config);
    TestSelection selection(filters);
    std::string names;
    for (std::size_t const unit : selectUnits(catalog, selection).units)
        for (CatalogEntry const& entry : catalog.entriesOf(catalog.units()[unit]))
            names += (names.empty() ? "" : ", ") + entry.name;
    return names;
}

struct FilterCase
{
    std::vector<std::string> filters;
    char const* selected;
};

// clang-format off
FilterCase const filterCases[] = {
    {{},                              "Drawing/new, Drawing/Lines/short, Drawing/Lines/very long, Drawing/Line/a/b, Lines/short"},
    {{"Drawing"},                     "Drawing/new, Drawing/Lines/short, Drawing/Lines/very long, Drawing/Line/a/b"},
    {{"Drawing/Lines/"},              "Drawing/Lines/short, Drawing/Lines/very long"},
    {{"Lines/short"},                 "Drawing/Lines/short, Lines/short"},
    {{"short"},                       "Drawing/Lines/short, Lines/short"},
    {{"Line"},                        "Drawing/Line/a/b"},
    {{"a/b", "new"},                  "Drawing/new, Drawing/Line/a/b"},
    {{"Draw"},                        ""},
    {{"drawing"},                     ""},
    {{"*long"},                       "Drawing/Lines/very long"},
    {{"Draw*"},                       "Drawing/new, Drawing/Lines/short, Drawing/Lines/very long, Drawing/Line/a/b"},
    {{"Lin?s/*"},                     "Lines/short"},
    {{"Drawing", "!Lines"},           "Drawing/new, Drawing/Line/a/b"},
    {{"!Drawing/*"},                  "Lines/short"},
    {{"-*/short", "-new"},            "Drawing/Lines/very long, Drawing/Line/a/b"},
    {{"Failures"},                    "Failures/short, Failures/long"},
    {{"Fail*/long"},                  "Failures/long"},
    {{"Failures", "!long"},           "Failures/short"},
    {{"*"},                           "Drawing/new, Drawing/Lines/short, Drawing/Lines/very long, Drawing/Line/a/b, Lines/short"},
    {{"long"},                        ""},
};
// clang-format on

} // namespace

class TestSelectionFilters : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestSelectionFilters);
    CPPUNIT_TEST(selectsByFilters);
    CPPUNIT_TEST(tellsWhatMatchedNothing);
    CPPUNIT_TEST(refusesEmptyFilters);
    CPPUNIT_TEST(decoratedTestsRunAsOneUnit);
    CPPUNIT_TEST_SUITE_END();

    void selectsByFilters()
    {
        for (auto const& [filters, selected] : filterCases) {
            std::string shown;
            for (std::string const& filter : filters)
                shown += filter + " ";
            CPPUNIT_ASSERT_EQUAL_MESSAGE(shown, std::string(selected), selectedNames(filters));
        }
    }

    void tellsWhatMatchedNothing()
    {
        Sample sample;
        TestCatalog const catalog(sample.root, sample.config);
        TestSelection selection({"Drawing", "!Drawng", "long"});
        SelectedUnits const selected = selectUnits(catalog, selection);
        CPPUNIT_ASSERT(selected.explicitSuites.empty());
        auto const unmatched = selection.unmatchedFilters();
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), unmatched.size());
        CPPUNIT_ASSERT_EQUAL(std::string("long"), unmatched[0]); // explicit suites are not meant
        CPPUNIT_ASSERT_EQUAL(std::string("!Drawng"), unmatched[1]);

        TestSelection all({"!Lines"});
        CPPUNIT_ASSERT(selectUnits(catalog, all).explicitSuites == std::vector<std::string>{"Failures"});
    }

    void refusesEmptyFilters()
    {
        for (char const* const filter : {"", "!", "-", "/"})
            CPPUNIT_ASSERT_THROW_MESSAGE(filter, TestSelection({filter}), UsageError);
    }

    void decoratedTestsRunAsOneUnit()
    {
        struct Counter : RunObserver
        {
            void testEnded(TestOutcome const& outcome) override { names += outcome.entry->name + " "; }
            std::string names;
        };
        Sample sample;
        CppUnit::TestSuite* const outer = addSuite(sample.root, "Outer", {});
        auto* const inner = new CppUnit::TestSuite("Inner");
        inner->addTest(new EmptyTest("x"));
        inner->addTest(new EmptyTest("y"));
        outer->addTest(new CppUnit::RepeatedTest(inner, 2));
        outer->addTest(new CppUnit::RepeatedTest(new EmptyTest("z"), 2));
        TestCatalog const catalog(sample.root, sample.config);
        TestSelection selection({"Outer/Inner/y", "Outer/z"});
        Counter counter;
        RunObserver* const observers[] = {&counter};
        TestSurroundings surroundings;
        TestRunner runner(catalog, observers, surroundings);
        RunSummary const summary = runner.run(selectUnits(catalog, selection));
        CPPUNIT_ASSERT_EQUAL(
            std::string("Outer/Inner/x Outer/Inner/y Outer/Inner/x Outer/Inner/y Outer/z Outer/z "),
            counter.names);
        CPPUNIT_ASSERT_EQUAL(std::size_t(6), summary.counts.passed);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestSelectionFilters);
