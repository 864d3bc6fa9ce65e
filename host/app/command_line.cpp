#include "host/app/command_line.h"

#include <algorithm>

namespace ca {

void CommandLine::prompt(OdString const& text)
{
    finishPrompt();
    m_openPrompt = text;
    m_lastPrompt = text;
}

void CommandLine::echo(OdString const& answer)
{
    OdString const answered = m_openPrompt + answer;
    if (m_isEchoing)
        m_openPrompt = answered;
    finishPrompt();
    m_lastPrompt = answered;
}

void CommandLine::message(OdString const& text)
{
    finishPrompt();
    std::size_t start = 0;
    while (start <= text.getLength()) {
        std::size_t const end = std::min(text.find(L'\n', start), text.getLength());
        if (end > start)
            addLine(text.mid(start, end - start));
        start = end + 1;
    }
}

void CommandLine::error(OdString const& text)
{
    if (!m_errorTaker)
        return message(text);
    finishPrompt();
    if (!text.isEmpty())
        m_lastPrompt = text;
    m_errorTaker(m_lastPrompt);
}

void CommandLine::finishPrompt()
{
    if (!m_openPrompt.isEmpty())
        addLine(std::exchange(m_openPrompt, OdString()));
}

void CommandLine::addLine(OdString const& line)
{
    m_lastPrompt = line;
    m_lines.push_back(line);
    if (m_lines.size() > kKeptLines)
        m_lines.pop_front();
    if (m_listener)
        m_listener(line);
}

} // namespace ca
