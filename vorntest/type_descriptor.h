#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vorntest {

class TestCaseArgBase;

/// Run-time record of a class of test arguments, one for each class, compared by address: its name, its parent,
/// and the named properties through which the bench makes an argument of text in the tests configuration.
class TypeDescriptor
{
public:
    using CreateFunction = std::unique_ptr<TestCaseArgBase> (*)();
    using AddPropertiesFunction = void (*)(TypeDescriptor&);

    /// Something of an argument that is set from text.
    struct Property
    {
        std::wstring name;
        void (*set)(TestCaseArgBase& argument, std::wstring const& text);
    };

    /// `createEmpty` is null for a class without objects of its own. The properties of the parent come first, then
    /// those that `addProperties` adds, where given.
    TypeDescriptor(std::wstring name, TypeDescriptor const* parent, CreateFunction createEmpty,
                   AddPropertiesFunction addProperties);
    TypeDescriptor(TypeDescriptor const&) = delete;
    TypeDescriptor& operator=(TypeDescriptor const&) = delete;

    std::wstring const& name() const { return m_name; }
    /// Null for the root.
    TypeDescriptor const* parent() const { return m_parent; }
    /// This class or one of its parents is the other one.
    bool isKindOf(TypeDescriptor const* other) const;

    /// Throws std::logic_error when the class has a property of that name already.
    void addProperty(Property added);
    std::span<Property const> properties() const { return m_properties; }
    /// Null when the class has no property of that name.
    Property const* property(std::wstring_view name) const;

    /// A new argument whose first property, the one that files found by masks go to, is the text. Throws
    /// std::logic_error for a class without objects or properties.
    std::unique_ptr<TestCaseArgBase> create(std::wstring const& text) const;

private:
    std::wstring m_name;
    TypeDescriptor const* m_parent;
    CreateFunction m_create;
    std::vector<Property> m_properties;
};

} // namespace vorntest
