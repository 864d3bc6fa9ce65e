#pragma once

#include <cstdlib>
#include <optional>
#include <string>

/// Sets or unsets (null) an environment variable for as long as it lives.
class ScopedEnvironment
{
public:
    ScopedEnvironment(char const* name, char const* value) : m_name(name)
    {
        if (char const* const previous = std::getenv(name))
            m_previous = previous;
        assign(name, value);
    }
    ~ScopedEnvironment() { assign(m_name.c_str(), m_previous ? m_previous->c_str() : nullptr); }
    ScopedEnvironment(ScopedEnvironment const&) = delete;
    ScopedEnvironment& operator=(ScopedEnvironment const&) = delete;

private:
    static void assign(char const* name, char const* value)
    {
        if (value)
            ::setenv(name, value, 1);
        else
            ::unsetenv(name);
    }

    std::string m_name;
    std::optional<std::string> m_previous;
};
