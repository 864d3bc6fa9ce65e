#pragma once

#include "vorntest/tests_config.h"
#include "vorntest/xml_source.h"

#include <unordered_map>

namespace vorntest {

/// Reads one configuration file; every deviation from the format throws ConfigError with its line.
class TestsConfigReader
{
public:
    explicit TestsConfigReader(std::wstring const& path);
    TestsConfig read();

private:
    void readRoot(pugi::xml_node root);
    void readModule(pugi::xml_node element);
    void readSuite(pugi::xml_node element);
    void readMask(pugi::xml_node element, SuiteConfig& suite);
    void readParam(pugi::xml_node element, SuiteConfig& suite);
    void checkModulesOfSuites() const;
    SuiteConfig& suiteNamed(std::wstring const& name, int line);
    std::wstring requiredAttribute(pugi::xml_node element, wchar_t const* name) const;
    [[noreturn]] void fail(pugi::xml_node node, std::wstring const& text) const;

    XmlSource m_source;
    TestsConfig m_config;
    std::unordered_map<std::wstring, int> m_moduleLines; // line where each suite last named its module
};

} // namespace vorntest
