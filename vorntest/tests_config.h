#pragma once

#include "vorntest/config_error.h"
#include "vorntest/config_node.h"

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vorntest {

/// A test module that the configuration loads.
struct ModuleConfig
{
    std::wstring name;     ///< by which suites refer to it: the file name without "lib" and extension
    std::wstring location; ///< as written: a plain name, or a path when it holds a "/"
    int line = 0;
};

/// A suite of the configuration; several elements of one name are joined.
struct SuiteConfig
{
    ConfigNode node;               ///< value() is the name; parameters are the attributes and <param> settings
    std::vector<ConfigNode> masks; ///< files of the suite, in the order of the configuration

    std::wstring const& name() const { return node.value(); }
    /// Name of the module that builds the suite; empty when a module registers it by itself.
    std::wstring module() const;
    /// Whether the suite runs only when a filter names it.
    bool isExplicit() const;
};

/// The tests configuration, one XML file:
///
///     <testsConfig basePath="." logPath="logs">
///       <module name="cmdtests"/>
///       <suite name="Drawing" module="cmdtests">
///         <mask>suites/*.xml</mask>
///         <param name="own" value="setting"/>
///       </suite>
///     </testsConfig>
///
/// - basePath: the folder that relative paths of masks and modules count from. Environment variables are expanded,
///   and it is itself relative to the folder of the configuration file, which is also what it is when absent.
/// - module: a plain name is a module of the installation, a text with "/" the path of a library.
/// - suite: run="explicit" keeps it out of runs that do not name it. The settings mode, reference_folder,
///   output_folder, repeatCount, plotstyles_folder and precision are attributes, a suite's own settings are param
///   elements. Several elements of one name are joined: masks in order, later settings win.
///
/// What it does not know is an error, so that a misspelt setting never goes unnoticed.
class TestsConfig
{
public:
    /// Reads the file; throws ConfigError and keeps the present contents when it cannot be used.
    void load(std::wstring const& path);

    /// The nodes of a suite under a key, in order. The key is "mask"; others, and unknown suites, have no nodes.
    std::span<ConfigNode const> range(std::wstring_view suite, std::wstring_view key) const;
    /// The suite's own node, or null when the suite is unknown.
    ConfigNode const* node(std::wstring_view suite) const;
    /// The suite, or null when it is unknown.
    SuiteConfig const* suite(std::wstring_view name) const;
    /// The suites in order of their first mention.
    std::span<SuiteConfig const> suites() const { return m_suites; }
    std::span<ModuleConfig const> modules() const { return m_modules; }
    /// The root's parameters; "basePath" is absolute, its variables expanded, without trailing "/".
    ConfigNode const& root() const { return m_root; }
    /// The path as it was given to load().
    std::wstring const& path() const { return m_path; }

private:
    friend class TestsConfigReader;

    std::wstring m_path;
    ConfigNode m_root;
    std::vector<ModuleConfig> m_modules;
    std::vector<SuiteConfig> m_suites;
    std::map<std::wstring, std::size_t, std::less<>> m_suiteIndices;
};

} // namespace vorntest
