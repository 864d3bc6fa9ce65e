#include "testapi/ta_expected_element.h"

#include <algorithm>
#include <utility>

namespace ta {

ExpectedElement::ExpectedElement(std::wstring called, std::wstring_view layout) : m_called(std::move(called))
{
    std::size_t const bar = layout.find(L'|');
    if (bar != layout.npos)
        m_child = std::make_shared<ExpectedElement>(m_called, layout.substr(bar + 1));
    std::wstring_view rest = layout.substr(0, bar);
    for (;;) {
        rest.remove_prefix(std::min(rest.find_first_not_of(L' '), rest.size()));
        std::wstring_view name = rest.substr(0, rest.find(L' '));
        if (name.empty())
            return;
        rest.remove_prefix(name.size());
        if (name.ends_with(L':')) {
            m_name = name.substr(0, name.size() - 1);
            continue;
        }
        bool const isOptional = name.ends_with(L'?');
        if (isOptional)
            name.remove_suffix(1);
        else
            m_required.emplace_back(name);
        m_attributes.push_back(name);
    }
}

} // namespace ta
