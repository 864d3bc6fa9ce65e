#pragma once

#include "host/app/sys_var.h"

#include <unordered_map>

namespace ca {

/// Values of the variables that somebody keeps; only those that were ever set take room.
class SysVarStore
{
public:
    using Values = std::unordered_map<SysVarRow const*, SysVarValue>;

    /// Null for a variable that was never set.
    SysVarValue const* find(SysVarRow const& row) const
    {
        auto const it = m_values.find(&row);
        return it == m_values.end() ? nullptr : &it->second;
    }
    void set(SysVarRow const& row, SysVarValue value) { m_values[&row] = std::move(value); }

    Values const& values() const { return m_values; }

private:
    Values m_values;
};

} // namespace ca
