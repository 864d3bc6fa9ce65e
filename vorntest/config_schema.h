#pragma once

#include "vorntest/xml_source.h"

#include <span>
#include <string_view>

namespace vorntest {

/// What an element of the tests configuration may hold.
struct ElementRule
{
    std::wstring_view name;
    std::span<std::wstring_view const> attributes;
    std::span<std::wstring_view const> children;
    bool holdsText;
};

/// The rule of an element, or null when no element has that name.
ElementRule const* elementRule(std::wstring_view name);

/// Checks an element's attributes, children's names and text against its rule; throws ConfigError with the line
/// and the nearest known name.
void checkElement(XmlSource const& source, pugi::xml_node element);

/// The single element of the document; throws ConfigError when it is another one or not the only one.
pugi::xml_node checkedRoot(XmlSource const& source, std::wstring_view name);

} // namespace vorntest
