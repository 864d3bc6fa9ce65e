#pragma once

#include "apps/vornbench/data_file_warnings.h"
#include "apps/vornbench/module_loader.h"
#include "apps/vornbench/test_catalog.h"
#include "vorntest/vorn_test_bench.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A configuration with its modules loaded and its tests built.
class BenchSession
{
public:
    /// Throws vorntest::ConfigError when the configuration cannot be used or a module not be loaded, UsageError
    /// when modules fail to make their tests.
    explicit BenchSession(std::string const& configPath);

    vorntest::TestsConfig const& config() const { return m_bench.testsConfig(); }
    TestCatalog const& catalog() const { return *m_catalog; }
    CppUnit::PlugInManager& plugIns() { return m_modules.plugIns(); }
    /// What looks wrong in configuration and suite files but does not keep tests from running.
    std::vector<std::string> warnings() const;
    /// What looks wrong in data files that were read since the last call, by modules or by tests that ran.
    std::vector<std::string> takeDataFileWarnings() { return m_dataFiles.take(); }

private:
    void makeTests();

    // In the order of construction: tests live in their modules' code, modules ask for the bench and read data.
    DataFileWarnings m_dataFiles;
    vorntest::VornTestBench m_bench;
    ModuleLoader m_modules;
    std::unique_ptr<CppUnit::Test> m_tests;
    std::optional<TestCatalog> m_catalog;
};
