#pragma once

#include <ostream>
#include <string>
#include <string_view>

enum class Paint
{
    Good,
    Bad,
    Note,
    Faint
};

/// Where the bench writes for people: a stream and what it can show.
class Terminal
{
public:
    /// Standard output; colours only when it is a terminal, `colorWanted` is set and NO_COLOR is not in the
    /// environment.
    static Terminal standardOutput(bool colorWanted);
    Terminal(std::ostream& out, bool isInteractive, bool hasColor, std::size_t width)
        : m_out(out), m_isInteractive(isInteractive), m_hasColor(hasColor), m_width(width)
    {
    }

    std::ostream& out() const { return m_out; }
    /// Whether a line can be overwritten.
    bool isInteractive() const { return m_isInteractive; }
    std::size_t width() const { return m_width; }
    std::string painted(Paint paint, std::string_view text) const;

private:
    std::ostream& m_out;
    bool m_isInteractive;
    bool m_hasColor;
    std::size_t m_width; ///< columns
};
