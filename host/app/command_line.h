#pragma once

#include "host/root/od_string.h"

#include <deque>
#include <functional>
#include <utility>

namespace ca {

/// The command line as text: prompts with the answers given to them, and messages. Keeps the latest lines.
class CommandLine
{
public:
    /// Begins a line with a prompt; the answer is put behind it.
    void prompt(OdString const& text);
    /// The answer to the last prompt.
    void echo(OdString const& answer);
    /// While off, the lines hold prompts without answers; lastPrompt() has them still.
    void setEchoing(bool on) { m_isEchoing = on; }
    bool isEchoing() const { return m_isEchoing; }
    /// A message on a line of its own; it may hold several lines.
    void message(OdString const& text);
    /// Why input was refused: a message, or with somebody who takes errors, told to him and to lastPrompt() alone.
    /// An empty text means that the last message has said why.
    void error(OdString const& text);
    using ErrorTaker = std::function<void(OdString const&)>;
    /// Null for nobody. Returns who took errors before.
    ErrorTaker setErrorTaker(ErrorTaker taker) { return std::exchange(m_errorTaker, std::move(taker)); }

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
    ErrorTaker m_errorTaker;
    bool m_isEchoing = true;
};

} // namespace ca
