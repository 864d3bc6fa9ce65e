#include "vorntest/config_error.h"

#include "host/root/od_string.h"

namespace vorntest {

namespace {

std::string place(std::wstring const& file, int line)
{
    std::string text = odWideToUtf8(file);
    if (line > 0)
        text += ":" + std::to_string(line);
    return text;
}

} // namespace

ConfigError::ConfigError(std::wstring file, int line, std::wstring text)
    : std::runtime_error(place(file, line) + ": " + odWideToUtf8(text)),
      m_file(std::move(file)),
      m_line(line),
      m_text(std::move(text))
{
}

} // namespace vorntest
