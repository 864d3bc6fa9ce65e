#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ta {

/// What may stand in an element of a data or parameters file, for telling what reading it passes over or misses.
class ExpectedElement
{
public:
    /// `layout` has the names of the attributes, with "?" behind those that may be missing; behind a "|" follow in
    /// the same way the attributes of the elements in it, which may all have to have one name, with ":" behind it:
    /// "closed? | vertex: pt bulge?". It has to outlive this object.
    /// `called` is how people are told of an attribute: "parameter", "attribute of TestOdGeRay3d".
    ExpectedElement(std::wstring called, std::wstring_view layout);

    /// Empty where any name will do.
    std::wstring_view name() const { return m_name; }
    std::wstring const& called() const { return m_called; }
    std::vector<std::wstring_view> const& attributes() const { return m_attributes; }
    /// Those of the attributes that may not be missing.
    std::vector<std::wstring> const& required() const { return m_required; }
    /// What the elements in it look like; null where none are expected.
    ExpectedElement const* child() const { return m_child.get(); }

private:
    std::wstring m_called;
    std::wstring_view m_name;
    std::vector<std::wstring_view> m_attributes;
    std::vector<std::wstring> m_required;
    std::shared_ptr<ExpectedElement const> m_child;
};

} // namespace ta
