#include "vorntest/config_node.h"

#include "host/ut/ut_number.h"

namespace vorntest {

wchar_t const* ConfigNode::parameter(std::wstring_view name) const
{
    auto const it = m_parameters.find(name);
    return it == m_parameters.end() ? nullptr : it->second.c_str();
}

int ConfigNode::asInt(std::wstring_view name, int absent) const
{
    wchar_t const* const text = parameter(name);
    int number = absent;
    return text && ut::parseInt(std::wstring_view(text), number) ? number : absent;
}

double ConfigNode::asDouble(std::wstring_view name, double absent) const
{
    wchar_t const* const text = parameter(name);
    double number = absent;
    return text && ut::parseReal(std::wstring_view(text), number) ? number : absent;
}

void ConfigNode::setParameter(std::wstring name, std::wstring value)
{
    m_parameters.insert_or_assign(std::move(name), std::move(value));
}

} // namespace vorntest
