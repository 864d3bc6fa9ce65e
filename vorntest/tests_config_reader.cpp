#include "vorntest/tests_config_reader.h"

#include "host/root/od_string.h"
#include "host/ut/ut_environment.h"
#include "host/ut/ut_file_name.h"
#include "vorntest/config_schema.h"
#include "vorntest/nearest_name.h"

#include <algorithm>

namespace vorntest {

namespace {

constexpr std::wstring_view blanks = L" \t\r\n";
constexpr std::wstring_view runValues[] = {L"default", L"explicit"};

std::wstring trimmed(std::wstring_view text)
{
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::wstring_view::npos)
        return {};
    return std::wstring(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::wstring textOf(pugi::xml_node element)
{
    std::wstring text;
    for (pugi::xml_node const child : element.children())
        text += child.value();
    return trimmed(text);
}

/// "build/libgears.so" is the module "gears".
std::wstring moduleName(std::wstring const& location)
{
    std::wstring name = location.substr(location.find_last_of(L'/') + 1);
    if (name.starts_with(L"lib") && name.size() != location.size())
        name.erase(0, 3);
    return name.substr(0, name.find(L'.'));
}

std::wstring folderOf(std::wstring const& path)
{
    ut::FileName file(path);
    file.normalize(ut::FileName::kAllButCase);
    return file.getPath(1).str();
}

std::wstring absoluteFolder(std::wstring const& folder, std::wstring const& against)
{
    ut::FileName name(folder);
    name.normalize(ut::FileName::kAllButCase, against);
    std::wstring path = name.getFullPath().str();
    while (path.size() > 1 && path.back() == L'/')
        path.pop_back();
    return path;
}

} // namespace

TestsConfigReader::TestsConfigReader(std::wstring const& path) : m_source(path)
{
    m_config.m_path = path;
}

TestsConfig TestsConfigReader::read()
{
    pugi::xml_node const root = checkedRoot(m_source, L"testsConfig");
    checkElement(m_source, root);
    readRoot(root);
    for (pugi::xml_node const element : root.children()) {
        checkElement(m_source, element);
        if (std::wstring_view(element.name()) == L"module")
            readModule(element);
        else
            readSuite(element);
    }
    checkModulesOfSuites();
    return std::move(m_config);
}

void TestsConfigReader::readRoot(pugi::xml_node root)
{
    m_config.m_root = ConfigNode({}, m_source.line(root));
    for (pugi::xml_attribute const attribute : root.attributes())
        m_config.m_root.setParameter(attribute.name(), attribute.value());
    std::wstring const basePath = root.attribute(L"basePath").as_string(L".");
    m_config.m_root.setParameter(L"basePath", absoluteFolder(basePath, folderOf(m_config.m_path)));
}

void TestsConfigReader::readModule(pugi::xml_node element)
{
    ModuleConfig module;
    module.location = requiredAttribute(element, L"name");
    module.name = moduleName(module.location);
    module.line = m_source.line(element);
    for (ModuleConfig const& earlier : m_config.m_modules)
        if (earlier.name == module.name)
            fail(element,
                 L"module '" + module.name + L"' is already named in line " + std::to_wstring(earlier.line));
    m_config.m_modules.push_back(std::move(module));
}

void TestsConfigReader::readSuite(pugi::xml_node element)
{
    SuiteConfig& suite = suiteNamed(requiredAttribute(element, L"name"), m_source.line(element));
    std::wstring_view const run = element.attribute(L"run").as_string(L"default");
    if (run != runValues[0] && run != runValues[1])
        fail(element, L"run='" + std::wstring(run) + L"' of <suite>" + nearestNameHint(run, runValues));
    for (pugi::xml_attribute const attribute : element.attributes())
        suite.node.setParameter(attribute.name(), attribute.value());
    if (element.attribute(L"module"))
        m_moduleLines[suite.name()] = m_source.line(element);
    for (pugi::xml_node const child : element.children()) {
        checkElement(m_source, child);
        if (std::wstring_view(child.name()) == L"mask")
            readMask(child, suite);
        else
            readParam(child, suite);
    }
}

void TestsConfigReader::readMask(pugi::xml_node element, SuiteConfig& suite)
{
    std::wstring text = textOf(element);
    if (text.empty())
        fail(element, L"<mask> is empty");
    suite.masks.emplace_back(std::move(text), m_source.line(element));
}

void TestsConfigReader::readParam(pugi::xml_node element, SuiteConfig& suite)
{
    std::wstring const name = requiredAttribute(element, L"name");
    if (!element.attribute(L"value"))
        fail(element, L"<param> '" + name + L"' has no attribute 'value'");
    suite.node.setParameter(name, element.attribute(L"value").value());
}

SuiteConfig& TestsConfigReader::suiteNamed(std::wstring const& name, int line)
{
    auto const [it, isNew] = m_config.m_suiteIndices.try_emplace(name, m_config.m_suites.size());
    if (isNew)
        m_config.m_suites.push_back({ConfigNode(name, line), {}});
    return m_config.m_suites[it->second];
}

void TestsConfigReader::checkModulesOfSuites() const
{
    std::vector<std::wstring_view> known;
    for (ModuleConfig const& module : m_config.m_modules)
        known.push_back(module.name);
    for (SuiteConfig const& suite : m_config.m_suites) {
        std::wstring const module = suite.module();
        if (module.empty() || std::ranges::find(known, module) != known.end())
            continue;
        throw ConfigError(m_source.shownPath(), m_moduleLines.at(suite.name()),
                          L"suite '" + suite.name() + L"' wants the module '" + module +
                              L"', which no <module> names" + nearestNameHint(module, known));
    }
}

std::wstring TestsConfigReader::requiredAttribute(pugi::xml_node element, wchar_t const* name) const
{
    std::wstring value = element.attribute(name).value();
    if (value.empty())
        fail(element, L"<" + std::wstring(element.name()) + L"> needs the attribute '" + name + L"'");
    return value;
}

void TestsConfigReader::fail(pugi::xml_node node, std::wstring const& text) const
{
    throw ConfigError(m_source.shownPath(), m_source.line(node), text);
}

} // namespace vorntest
