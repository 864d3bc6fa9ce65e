#include "apps/vornbench/terminal.h"

#include <cstdlib>
#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr std::size_t defaultWidth = 80;

std::size_t columnsOf(int file)
{
    winsize size{};
    return ioctl(file, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : defaultWidth;
}

bool environmentAllowsColor()
{
    char const* const noColor = std::getenv("NO_COLOR");
    char const* const terminal = std::getenv("TERM");
    return !(noColor && *noColor) && !(terminal && std::string_view(terminal) == "dumb");
}

constexpr char const* escapeOf(Paint paint)
{
    switch (paint) {
    case Paint::Good: return "\x1b[32m";
    case Paint::Bad: return "\x1b[1;31m";
    case Paint::Note: return "\x1b[33m";
    case Paint::Faint: return "\x1b[2m";
    }
    return "";
}

} // namespace

Terminal Terminal::standardOutput(bool colorWanted)
{
    bool const isTerminal = isatty(STDOUT_FILENO) == 1;
    return Terminal(std::cout, isTerminal, isTerminal && colorWanted && environmentAllowsColor(),
                    isTerminal ? columnsOf(STDOUT_FILENO) : defaultWidth);
}

std::string Terminal::painted(Paint paint, std::string_view text) const
{
    if (!m_hasColor)
        return std::string(text);
    return escapeOf(paint) + std::string(text) + "\x1b[0m";
}
