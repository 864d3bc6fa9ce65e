#pragma once

#include <map>
#include <string>
#include <string_view>

namespace vorntest {

/// One element of the tests configuration: a text value and named parameters, with the line where it stands.
class ConfigNode
{
public:
    ConfigNode() = default;
    ConfigNode(std::wstring value, int line) : m_value(std::move(value)), m_line(line) {}

    /// The element's text: the path of a mask, the name of a suite.
    std::wstring const& value() const { return m_value; }
    /// The parameter's text, or null when it is absent.
    wchar_t const* parameter(std::wstring_view name) const;
    /// The parameter as a number; `absent` when it is absent or its whole text is not a number in range.
    int asInt(std::wstring_view name, int absent = 0) const;
    double asDouble(std::wstring_view name, double absent = 0.0) const;
    /// 1-based line of the element in the configuration file; 0 when it comes from no file.
    int line() const { return m_line; }

    /// Sets a parameter; an earlier value is replaced.
    void setParameter(std::wstring name, std::wstring value);

private:
    std::wstring m_value;
    std::map<std::wstring, std::wstring, std::less<>> m_parameters;
    int m_line = 0;
};

} // namespace vorntest
