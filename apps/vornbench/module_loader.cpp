#include "apps/vornbench/module_loader.h"

#include "host/root/od_string.h"
#include "host/ut/ut_file.h"
#include "vorntest/module_path.h"

#include <cppunit/plugin/DynamicLibraryManagerException.h>

#include <algorithm>

void ModuleLoader::load(vorntest::TestsConfig const& config)
{
    for (vorntest::ModuleConfig const& module : config.modules())
        load(module, config);
}

void ModuleLoader::load(vorntest::ModuleConfig const& module, vorntest::TestsConfig const& config)
{
    std::wstring const file = vorntest::modulePath(module, config);
    if (!ut::fileExists(file))
        throw vorntest::ConfigError(config.path(), module.line,
                                    L"module '" + module.name + L"' not found: there is no file " + file);
    try {
        m_plugIns.load(odWideToUtf8(file), CppUnit::PlugInParameters(odWideToUtf8(module.name)));
    } catch (CppUnit::DynamicLibraryManagerException const& error) {
        std::wstring reason = odUtf8ToWide(error.what());
        std::ranges::replace(reason, L'\n', L' ');
        throw vorntest::ConfigError(config.path(), module.line,
                                    L"module '" + module.name + L"' cannot be loaded: " + reason);
    }
}
