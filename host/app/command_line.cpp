#include "host/app/command_line.h"

#include <utility>

namespace ca {

void CommandLine::prompt(OdString const& text)
{
    finishPrompt();
    m_openPrompt = text;
    m_lastPrompt = text;
}

void CommandLine::echo(OdString const& answer)
{
    m_openPrompt += answer;
    m_lastPrompt = m_openPrompt;
    finishPrompt();
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
