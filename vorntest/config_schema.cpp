#include "vorntest/config_schema.h"

#include "vorntest/config_error.h"
#include "vorntest/nearest_name.h"

#include <algorithm>

namespace vorntest {

namespace {

using Names = std::wstring_view const[];

// clang-format off
constexpr Names configAttributes = {L"basePath", L"logPath"};
constexpr Names configChildren   = {L"module", L"suite"};
constexpr Names moduleAttributes = {L"name"};
constexpr Names suiteAttributes  = {L"name", L"module", L"run", L"mode", L"reference_folder", L"output_folder",
                                    L"repeatCount", L"plotstyles_folder", L"precision"};
constexpr Names suiteChildren    = {L"mask", L"param"};
constexpr Names paramAttributes  = {L"name", L"value"};

constexpr ElementRule rules[] = {
    // element        attributes        children        text
    {L"testsConfig",  configAttributes, configChildren, false},
    {L"module",       moduleAttributes, {},             false},
    {L"suite",        suiteAttributes,  suiteChildren,  false},
    {L"mask",         {},               {},             true },
    {L"param",        paramAttributes,  {},             false},
};
// clang-format on

std::wstring tag(std::wstring_view name)
{
    return L"<" + std::wstring(name) + L">";
}

void checkAttributes(XmlSource const& source, pugi::xml_node element, ElementRule const& rule)
{
    for (pugi::xml_attribute const attribute : element.attributes()) {
        std::wstring_view const name = attribute.name();
        if (std::ranges::find(rule.attributes, name) == rule.attributes.end())
            throw ConfigError(source.shownPath(), source.line(element),
                              L"unknown attribute '" + std::wstring(name) + L"' of " + tag(rule.name) +
                                  nearestNameHint(name, rule.attributes));
        if (element.attribute(attribute.name()) != attribute)
            throw ConfigError(source.shownPath(), source.line(element),
                              L"attribute '" + std::wstring(name) + L"' of " + tag(rule.name) +
                                  L" is given twice");
    }
}

void checkChild(XmlSource const& source, pugi::xml_node child, ElementRule const& rule)
{
    if (child.type() == pugi::node_element) {
        std::wstring_view const name = child.name();
        if (std::ranges::find(rule.children, name) == rule.children.end())
            throw ConfigError(source.shownPath(), source.line(child),
                              L"unknown element " + tag(name) + L" in " + tag(rule.name) +
                                  nearestNameHint(name, rule.children, L'<', L'>'));
    } else if (!rule.holdsText) {
        throw ConfigError(source.shownPath(), source.line(child), L"text is not allowed in " + tag(rule.name));
    }
}

} // namespace

ElementRule const* elementRule(std::wstring_view name)
{
    auto const it = std::ranges::find(rules, name, &ElementRule::name);
    return it == std::end(rules) ? nullptr : it;
}

void checkElement(XmlSource const& source, pugi::xml_node element)
{
    ElementRule const* const rule = elementRule(element.name());
    if (!rule)
        throw ConfigError(source.shownPath(), source.line(element), L"unknown element " + tag(element.name()));
    checkAttributes(source, element, *rule);
    for (pugi::xml_node const child : element.children())
        checkChild(source, child, *rule);
}

pugi::xml_node checkedRoot(XmlSource const& source, std::wstring_view name)
{
    pugi::xml_node root;
    for (pugi::xml_node const child : source.document().children()) {
        if (child.type() != pugi::node_element)
            continue;
        if (root)
            throw ConfigError(source.shownPath(), source.line(child),
                              L"a second document element " + tag(child.name()));
        root = child;
    }
    if (root.name() != name)
        throw ConfigError(source.shownPath(), source.line(root),
                          L"the document element is " + tag(root.name()) + L", expected " + tag(name));
    return root;
}

} // namespace vorntest
