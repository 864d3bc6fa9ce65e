#pragma once

#include <any>
#include <typeindex>
#include <unordered_map>

namespace ca {

/// What commands remember from one run to the next beside system variables: one value for each type, which begins
/// as its default.
class CommandMemory
{
public:
    template <class T>
    T& get()
    {
        std::any& value = m_values[std::type_index(typeid(T))];
        if (!value.has_value())
            value.emplace<T>();
        return *std::any_cast<T>(&value);
    }

private:
    std::unordered_map<std::type_index, std::any> m_values;
};

} // namespace ca
