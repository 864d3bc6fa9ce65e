#include "vorntest/type_descriptor.h"

#include "host/root/od_string.h"
#include "vorntest/test_case_arg_base.h"

#include <algorithm>
#include <stdexcept>

namespace vorntest {

TypeDescriptor::TypeDescriptor(std::wstring name, TypeDescriptor const* parent, CreateFunction createEmpty,
                               AddPropertiesFunction addProperties)
    : m_name(std::move(name)), m_parent(parent), m_create(createEmpty)
{
    if (parent)
        m_properties = parent->m_properties;
    if (addProperties)
        addProperties(*this);
}

bool TypeDescriptor::isKindOf(TypeDescriptor const* other) const
{
    TypeDescriptor const* type = this;
    while (type && type != other)
        type = type->m_parent;
    return type != nullptr;
}

void TypeDescriptor::addProperty(Property added)
{
    if (property(added.name))
        throw std::logic_error(odWideToUtf8(m_name + L" has two properties " + added.name));
    m_properties.push_back(std::move(added));
}

TypeDescriptor::Property const* TypeDescriptor::property(std::wstring_view name) const
{
    auto const it = std::ranges::find(m_properties, name, &Property::name);
    return it == m_properties.end() ? nullptr : &*it;
}

std::unique_ptr<TestCaseArgBase> TypeDescriptor::create(std::wstring const& text) const
{
    if (!m_create || m_properties.empty())
        throw std::logic_error(odWideToUtf8(m_name + L" cannot be made of text"));
    std::unique_ptr<TestCaseArgBase> argument = m_create();
    m_properties.front().set(*argument, text);
    return argument;
}

} // namespace vorntest
