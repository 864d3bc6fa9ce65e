#include "host/root/od_error.h"
#include "vorntest/exception_protector.h"
#include "vorntest/performance_test_case.h"
#include "vorntest/test_case_arg_base.h"

#include <cppunit/TestFailure.h>
#include <cppunit/TestResult.h>
#include <cppunit/TestResultCollector.h>
#include <cppunit/extensions/HelperMacros.h>

#include <chrono>
#include <functional>

namespace {

using Step = std::function<void()>;

/// A test made of three steps; notes which of them ran.
class SteppedTest : public vorntest::PerformanceTestCase
{
public:
    SteppedTest(Step setUpStep, Step body, Step tearDownStep)
        : PerformanceTestCase(std::string("stepped")),
          m_setUp(std::move(setUpStep)),
          m_body(std::move(body)),
          m_tearDown(std::move(tearDownStep))
    {
    }
    void setUp() override { step("setUp ", m_setUp); }
    void runTest() override { step("body ", m_body); }
    void tearDown() override { step("tearDown ", m_tearDown); }

    std::string steps;

private:
    void step(char const* name, Step const& action)
    {
        steps += name;
        if (action)
            action();
    }
    Step m_setUp, m_body, m_tearDown;
};

/// The failures of a run, each as "E" or "F" and its message's lines joined by "|".
std::vector<std::string> failuresOf(CppUnit::Test& test)
{
    CppUnit::TestResult result;
    CppUnit::TestResultCollector collector;
    result.addListener(&collector);
    result.pushProtector(new vorntest::ExceptionProtector);
    test.run(&result);
    std::vector<std::string> failures;
    for (CppUnit::TestFailure const* const failure : collector.failures()) {
        CppUnit::Message const message = failure->thrownException()->message();
        std::string text = (failure->isError() ? "E|" : "F|") + message.shortDescription();
        for (int i = 0; i < message.detailCount(); ++i)
            text += "|" + message.detailAt(i);
        failures.push_back(text);
    }
    return failures;
}

void burn(std::chrono::milliseconds time)
{
    auto const end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) {
    }
}

std::string failureOfBody(Step body)
{
    SteppedTest test({}, std::move(body), {});
    auto const failures = failuresOf(test);
    return failures.size() == 1 ? failures[0] : std::to_string(failures.size()) + " failures";
}

} // namespace

class TestPerformanceTestCase : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestPerformanceTestCase);
    CPPUNIT_TEST(measuresTheBodyAlone);
    CPPUNIT_TEST(measuresABodyThatThrows);
    CPPUNIT_TEST(failingSetUpSkipsTheBody);
    CPPUNIT_TEST(bodyAndTearDownFailIndependently);
    CPPUNIT_TEST(reportsForeignExceptionsWithTheirText);
    CPPUNIT_TEST(argumentHasForwardSlashes);
    CPPUNIT_TEST_SUITE_END();

    void measuresTheBodyAlone()
    {
        using namespace std::chrono_literals;
        auto const start = std::chrono::steady_clock::now();
        SteppedTest test([] { burn(20ms); }, [] { burn(10ms); }, [] { burn(20ms); });
        CPPUNIT_ASSERT(failuresOf(test).empty());
        double const whole = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        CPPUNIT_ASSERT(test.wallSeconds() >= 0.01 && test.wallSeconds() <= whole - 0.04);
        CPPUNIT_ASSERT(test.cpuSeconds() > 0.0 && test.cpuSeconds() <= test.wallSeconds() + 0.001);
    }

    void measuresABodyThatThrows()
    {
        SteppedTest test({}, [] { burn(std::chrono::milliseconds(5)), CPPUNIT_FAIL("no"); }, {});
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), failuresOf(test).size());
        CPPUNIT_ASSERT(test.wallSeconds() >= 0.005);
        CPPUNIT_ASSERT_EQUAL(std::string("setUp body tearDown "), test.steps);
    }

    void failingSetUpSkipsTheBody()
    {
        SteppedTest test([] { throw OdError(eNoDocument, L"No current document"); }, {}, {});
        auto const failures = failuresOf(test);
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), failures.size());
        CPPUNIT_ASSERT_EQUAL(std::string("E|setUp() failed|uncaught exception of type OdError|No current document|"
                                         "error code 18"),
                             failures[0]);
        CPPUNIT_ASSERT_EQUAL(std::string("setUp tearDown "), test.steps);
        CPPUNIT_ASSERT_EQUAL(0.0, test.wallSeconds());
    }

    void bodyAndTearDownFailIndependently()
    {
        SteppedTest test(
            {}, [] { CPPUNIT_FAIL("body text"); }, [] { throw "tear-down text"; });
        auto const failures = failuresOf(test);
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), failures.size());
        CPPUNIT_ASSERT_EQUAL(std::string("F|forced failure|body text"), failures[0]);
        CPPUNIT_ASSERT_EQUAL(
            std::string("E|tearDown() failed|uncaught exception of type char const*|tear-down text"), failures[1]);
    }

    void reportsForeignExceptionsWithTheirText()
    {
        std::string const uncaught = "E|uncaught exception of type ";
        CPPUNIT_ASSERT_EQUAL(uncaught + "char const*|narrow", failureOfBody([] { throw "narrow"; }));
        CPPUNIT_ASSERT_EQUAL(uncaught + "char const*|(null)",
                             failureOfBody([] { throw static_cast<char const*>(nullptr); }));
        CPPUNIT_ASSERT_EQUAL(uncaught + "wchar_t const*|\xD1\x82", failureOfBody([] { throw L"\u0442"; }));
        CPPUNIT_ASSERT_EQUAL(uncaught + "std::string|text", failureOfBody([] { throw std::string("text"); }));
        CPPUNIT_ASSERT_EQUAL(uncaught + "OdString|text", failureOfBody([] { throw OdString(L"text"); }));
        CPPUNIT_ASSERT_EQUAL(uncaught + "OdError|Out|error code 19",
                             failureOfBody([] { throw OdError(eOutOfRange, L"Out"); }));
        CPPUNIT_ASSERT_EQUAL(uncaught + "std::exception (or derived).|known to CppUnit",
                             failureOfBody([] { throw std::runtime_error("known to CppUnit"); }));
        CPPUNIT_ASSERT_EQUAL(std::string("E|uncaught exception of unknown type"), failureOfBody([] { throw 42; }));
    }

    void argumentHasForwardSlashes()
    {
        struct Argument : vorntest::TestCaseArgBase
        {
            using TestCaseArgBase::TestCaseArgBase;
            std::wstring const& testArg() const override { return TestCaseArgBase::testArg(); }
        };
        CPPUNIT_ASSERT(Argument(L"C:\\tests\\a/b.xml").testArg() == L"C:/tests/a/b.xml");
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestPerformanceTestCase);
