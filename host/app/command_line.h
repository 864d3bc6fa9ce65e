#pragma once

#include "host/root/od_string.h"

#include <deque>
#include <functional>

namespace ca {

/// The command line as text: prompts with the answers given to them, and messages. Keeps the latest lines.
class CommandLine
{
public:
    /// Begins a line with a prompt; the answer is put behind it.
    void prompt(OdString const& text);
    /// The answer to the last prompt.
    void echo(OdString const& answer);
    /// A message on a line of its own; it may hold several lines.
    void message(OdString const& text);

    /// The last line that is not empty: a prompt with its options and its answer, or a message. Empty at first.
    OdString const& lastPrompt() const { return m_lastPrompt; }
    std::deque<OdString> const& lines() const { return m_lines; }
    /// Called with every finished line, for programs that show or log them.
    void setListener(std::function<void(OdString const&)> listener) { m_listener = std::move(listener); }

private:
    void finishPrompt();
    void addLine(OdString const& line);

    static constexpr std::size_t kKeptLines = 400;
    std::deque<OdString> m_lines;
    OdString m_lastPrompt;
    OdString m_openPrompt; ///< prompt that waits for its answer
    std::function<void(OdString const&)> m_listener;
};

} // namespace ca
