// Test module for the bench's own tests. Each TestCase of a suite file names one behaviour in its attribute
// "does".
#include "host/root/od_error.h"
#include "host/root/od_string.h"
#include "host/ut/ut_file.h"
#include "vorntest/performance_test_case.h"
#include "vorntest/suite_module.h"
#include "vorntest/test_case_arg_base.h"
#include "vorntest/xml_source.h"

#include <cppunit/TestAssert.h>
#include <cppunit/TestSuite.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace {

void failOperation(std::wstring const& file)
{
    CppUnit::Message message("assertion failed");
    message.addDetail("Expression: length == 5.0");
    message.addDetail("expected a length of 5 <mm>,\nfound \"4\" & \x01 more");
    message.addDetail("Operation 'inner' at " + odWideToUtf8(file) + ":7");
    message.addDetail("Operation 'outer' at " + odWideToUtf8(file) + ":3");
    CppUnit::Asserter::fail(message, CppUnit::SourceLine("testapi/probe", 11));
}

struct Behaviour
{
    std::wstring_view name;
    void (*run)(std::wstring const& file);
};

Behaviour const behaviours[] = {
    {L"pass", [](std::wstring const&) {}},
    {L"fail", [](std::wstring const& file) { failOperation(file); }},
    {L"throw C string", [](std::wstring const&) { throw "a narrow text"; }},
    {L"throw OdError", [](std::wstring const&) { throw OdError(eOutOfRange, L"Radius out of range"); }},
    {L"throw exception", [](std::wstring const&) { throw std::runtime_error("a runtime error"); }},
    {L"interrupt", [](std::wstring const&) { std::raise(SIGINT); }},
    {L"crash", [](std::wstring const&) { std::abort(); }},
};

class ProbeTest : public vorntest::PerformanceTestCase, public vorntest::TestCaseArgBase
{
public:
    ProbeTest(std::wstring const& name, std::wstring file, Behaviour const& behaviour)
        : PerformanceTestCase(name), TestCaseArgBase(std::move(file)), m_behaviour(behaviour)
    {
    }
    std::wstring const& testArg() const override { return TestCaseArgBase::testArg(); }
    void runTest() override { m_behaviour.run(testArg()); }

private:
    Behaviour const& m_behaviour;
};

void addTests(CppUnit::TestSuite& suite, pugi::xml_node node, std::wstring const& file)
{
    for (pugi::xml_node const child : node.children()) {
        if (std::wstring_view(child.name()) == L"TestSuite") {
            auto* const nested = new CppUnit::TestSuite(odWideToUtf8(child.attribute(L"name").value()));
            suite.addTest(nested);
            addTests(*nested, child, file);
        }
        for (Behaviour const& behaviour : behaviours)
            if (child.attribute(L"does").value() == behaviour.name)
                suite.addTest(new ProbeTest(child.attribute(L"name").value(), file, behaviour));
    }
}

/// Takes each mask as the path of one suite file.
class ProbeModule : public vorntest::SuiteModule
{
    std::unique_ptr<CppUnit::Test> createSuite(vorntest::SuiteConfig const& config,
                                               vorntest::VornTestBench& bench) override
    {
        if (config.name() == L"Impossible")
            throw std::out_of_range("no such datum");
        auto suite = std::make_unique<CppUnit::TestSuite>(odWideToUtf8(config.name()));
        for (vorntest::ConfigNode const& mask : bench.testsConfig().range(config.name(), L"mask")) {
            std::wstring const file = bench.parameter(L"basePath") + L"/" + mask.value();
            if (!ut::fileExists(file))
                continue; // masks without a match are the bench's to tell
            vorntest::XmlSource const source(file);
            addTests(*suite, source.document().document_element(), file);
        }
        return suite;
    }
};

} // namespace

CPPUNIT_PLUGIN_EXPORTED_FUNCTION_IMPL(ProbeModule);
