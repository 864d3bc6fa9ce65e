#include "apps/vornbench/config_warnings.h"

#include "apps/vornbench/failure_location.h"
#include "host/root/od_string.h"
#include "vorntest/mask_files.h"
#include "vorntest/nearest_name.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace {

constexpr std::wstring_view suiteElement = L"TestSuite";
constexpr std::wstring_view suiteFileElements[] = {suiteElement, L"TestCase", L"TestFixture"};

std::wstring inQuotes(std::wstring_view text)
{
    return L"'" + std::wstring(text) + L"'";
}

} // namespace

ConfigWarnings::ConfigWarnings(vorntest::TestsConfig const& config, std::span<CatalogSuite const> builtSuites)
    : m_config(config)
{
    for (CatalogSuite const& suite : builtSuites)
        m_builtSuites.emplace(odUtf8ToWide(suite.name), &suite);
}

std::vector<std::string> ConfigWarnings::collect()
{
    for (vorntest::SuiteConfig const& suite : m_config.suites()) {
        checkBuilt(suite);
        checkMasks(suite);
    }
    checkUnconfigured();
    checkUnwantedFiles();
    return std::move(m_warnings);
}

void ConfigWarnings::checkBuilt(vorntest::SuiteConfig const& suite)
{
    if (m_builtSuites.contains(suite.name()))
        return;
    std::wstring const hint = suite.module().empty() ? L"; name its module with module=" : L"";
    warn(m_config.path(), suite.node.line(), L"no module builds suite " + inQuotes(suite.name()) + hint);
}

void ConfigWarnings::checkMasks(vorntest::SuiteConfig const& suite)
{
    if (suite.masks.empty() && (!suite.module().empty() || takesArguments(suite)))
        warn(m_config.path(), suite.node.line(),
             L"suite " + inQuotes(suite.name()) + L" has no <mask>, so no tests");
    bool allMatch = !suite.masks.empty();
    bool isDeclared = false;
    for (vorntest::ConfigNode const& mask : suite.masks) {
        std::vector<fs::path> const entries = entriesOf(suite, mask);
        if (takesArguments(suite))
            continue; // each file is a test, which says by itself what is wrong with it
        allMatch = allMatch && !entries.empty();
        for (fs::path const& entry : entries) {
            SuiteFile& file = suiteFile(entry);
            file.wantedBy.insert(suite.name());
            isDeclared = isDeclared || file.declaredSuite == suite.name();
        }
    }
    if (allMatch && !isDeclared && !takesArguments(suite))
        warn(m_config.path(), suite.node.line(),
             L"no file that its masks match declares suite " + inQuotes(suite.name()) + L", so it has no tests");
}

bool ConfigWarnings::takesArguments(vorntest::SuiteConfig const& suite) const
{
    auto const built = m_builtSuites.find(suite.name());
    return built != m_builtSuites.end() && built->second->takesArguments;
}

void ConfigWarnings::checkUnconfigured()
{
    for (auto const& [name, suite] : m_builtSuites)
        if (suite->takesArguments && !m_config.suite(name))
            warn(m_config.path(), m_config.root().line(),
                 L"suite " + inQuotes(name) + L" makes its tests of files, but no <suite> names it and them");
}

std::vector<fs::path> ConfigWarnings::entriesOf(vorntest::SuiteConfig const& suite,
                                                vorntest::ConfigNode const& mask)
{
    std::error_code error;
    std::vector<fs::path> entries = vorntest::matchingEntries(mask.value(), m_config, error);
    std::wstring const what = L"mask " + inQuotes(mask.value()) + L" of suite " + inQuotes(suite.name());
    if (error)
        warn(m_config.path(), mask.line(), what + L": cannot read the folder: " + odUtf8ToWide(error.message()));
    else if (entries.empty())
        warn(m_config.path(), mask.line(), what + L" matches nothing");
    return entries;
}

void ConfigWarnings::checkUnwantedFiles()
{
    std::vector<std::wstring_view> known;
    for (vorntest::SuiteConfig const& suite : m_config.suites())
        known.push_back(suite.name());
    for (auto const& [path, file] : m_files) {
        if (file.declaredSuite.empty() || file.wantedBy.contains(file.declaredSuite))
            continue;
        bool const isKnown = m_config.suite(file.declaredSuite) != nullptr;
        warn(file.shownPath, file.line,
             L"declares suite " + inQuotes(file.declaredSuite) +
                 (isKnown ? std::wstring(L", whose masks do not match this file")
                          : L", which the configuration does not name" +
                                vorntest::nearestNameHint(file.declaredSuite, known)));
    }
}

ConfigWarnings::SuiteFile& ConfigWarnings::suiteFile(fs::path const& path)
{
    auto it = m_files.find(path);
    if (it == m_files.end())
        it = m_files.emplace(path, readSuiteFile(path)).first;
    return it->second;
}

ConfigWarnings::SuiteFile ConfigWarnings::readSuiteFile(fs::path const& path)
{
    SuiteFile file;
    file.shownPath = odUtf8ToWide(shownPath(path.string()));
    try {
        vorntest::XmlSource const source(odUtf8ToWide(path.string()), file.shownPath);
        pugi::xml_node const root = source.document().document_element();
        file.line = source.line(root);
        file.declaredSuite = root.attribute(L"name").value();
        if (root.name() != suiteElement) {
            warn(file.shownPath, file.line,
                 L"the document element is <" + std::wstring(root.name()) + L">, expected <TestSuite>");
            file.declaredSuite.clear();
        } else if (file.declaredSuite.empty()) {
            warn(file.shownPath, file.line, L"<TestSuite> has no name, so no suite takes this file");
        } else {
            checkNodes(source, root);
        }
    } catch (vorntest::ConfigError const& error) {
        warn(file.shownPath, std::max(error.line(), 1), error.text());
    }
    return file;
}

// Suites nest as deeply as the file says, so this walks with a stack of its own.
void ConfigWarnings::checkNodes(vorntest::XmlSource const& source, pugi::xml_node suite)
{
    std::vector<pugi::xml_node> pending{suite};
    while (!pending.empty()) {
        pugi::xml_node const parent = pending.back();
        pending.pop_back();
        for (pugi::xml_node const child : parent.children()) {
            std::wstring_view const name = child.name();
            if (child.type() != pugi::node_element)
                warn(source.shownPath(), source.line(child), L"text in <TestSuite> has no meaning");
            else if (std::ranges::find(suiteFileElements, name) == std::end(suiteFileElements))
                warn(source.shownPath(), source.line(child),
                     L"unknown element <" + std::wstring(name) + L"> in <TestSuite>" +
                         vorntest::nearestNameHint(name, suiteFileElements, L'<', L'>'));
            else if (name == suiteElement)
                pending.push_back(child);
        }
    }
}

void ConfigWarnings::warn(std::wstring const& file, int line, std::wstring const& text)
{
    m_warnings.push_back(odWideToUtf8(file) + ":" + std::to_string(line) + ": warning: " + odWideToUtf8(text));
}
