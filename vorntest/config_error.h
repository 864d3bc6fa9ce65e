#pragma once

#include <stdexcept>
#include <string>

namespace vorntest {

/// A configuration or suite file that cannot be used. what() is "file:line: text" in UTF-8, the form that editors
/// jump to; the line is left out when it is 0 (the file as a whole).
class ConfigError : public std::runtime_error
{
public:
    ConfigError(std::wstring file, int line, std::wstring text);

    std::wstring const& file() const { return m_file; }
    int line() const { return m_line; }
    std::wstring const& text() const { return m_text; }

private:
    std::wstring m_file;
    int m_line;
    std::wstring m_text;
};

} // namespace vorntest
