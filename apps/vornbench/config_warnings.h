#pragma once

#include "apps/vornbench/test_catalog.h"
#include "vorntest/tests_config.h"
#include "vorntest/xml_source.h"

#include <filesystem>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

/// Looks at the suite files that a configuration means and warns of what suites pass over in silence: masks that
/// match nothing, files that cannot be used, elements that nobody knows, suites that nobody builds.
class ConfigWarnings
{
public:
    /// `builtSuites` are the top suites that the modules made; they outlive this object.
    ConfigWarnings(vorntest::TestsConfig const& config, std::span<CatalogSuite const> builtSuites);

    /// The warnings, each "file:line: warning: text" in UTF-8, in the order of the configuration.
    std::vector<std::string> collect();

private:
    /// What one suite file says about itself.
    struct SuiteFile
    {
        std::wstring shownPath;
        std::wstring declaredSuite; ///< empty when the file cannot be used
        int line = 0;
        std::set<std::wstring> wantedBy; ///< suites whose masks match it
    };

    void checkBuilt(vorntest::SuiteConfig const& suite);
    void checkMasks(vorntest::SuiteConfig const& suite);
    bool takesArguments(vorntest::SuiteConfig const& suite) const;
    void checkUnconfigured();
    std::vector<std::filesystem::path> entriesOf(vorntest::SuiteConfig const& suite,
                                                 vorntest::ConfigNode const& mask);
    void checkUnwantedFiles();
    SuiteFile& suiteFile(std::filesystem::path const& path);
    SuiteFile readSuiteFile(std::filesystem::path const& path);
    void checkNodes(vorntest::XmlSource const& source, pugi::xml_node suite);
    void warn(std::wstring const& file, int line, std::wstring const& text);

    vorntest::TestsConfig const& m_config;
    std::map<std::wstring, CatalogSuite const*> m_builtSuites;
    std::map<std::filesystem::path, SuiteFile> m_files;
    std::vector<std::string> m_warnings;
};
