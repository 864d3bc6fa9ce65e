#pragma once

#include "vorntest/tests_config.h"

#include <cppunit/plugin/PlugInManager.h>

/// Loads the test modules that a configuration names; they stay loaded as long as this object lives.
class ModuleLoader
{
public:
    /// Throws vorntest::ConfigError with the line of the module that cannot be loaded.
    void load(vorntest::TestsConfig const& config);

    CppUnit::PlugInManager& plugIns() { return m_plugIns; }

private:
    void load(vorntest::ModuleConfig const& module, vorntest::TestsConfig const& config);

    CppUnit::PlugInManager m_plugIns;
};
