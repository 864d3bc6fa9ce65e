// Test module that makes command tests of XML files, so that nobody has to write a module for them.
#include "testmodules/cmdtests/cmd_suite.h"

#include "vorntest/suite_module.h"

namespace {

class CmdTests : public vorntest::SuiteModule
{
    std::unique_ptr<CppUnit::Test> createSuite(vorntest::SuiteConfig const& config,
                                               vorntest::VornTestBench& bench) override
    {
        auto suite = std::make_unique<CmdSuite>(config.name());
        suite->init(&bench);
        return suite;
    }
};

} // namespace

CPPUNIT_PLUGIN_EXPORTED_FUNCTION_IMPL(CmdTests);
