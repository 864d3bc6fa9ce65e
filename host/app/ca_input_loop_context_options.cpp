#include "host/app/ca_input_loop_context_options.h"

#include "host/app/ca_app.h"

#include <utility>

namespace ca {

InputLoopContextOptions::InputLoopContextOptions()
    : m_commandLine(app()->commandLine()),
      m_wasEchoing(m_commandLine.isEchoing()),
      m_previousTaker(m_commandLine.setErrorTaker([this](OdString const& error) { m_error = error; }))
{
    m_commandLine.setEchoing(false);
    for (std::size_t i = 0; i < kSwitches.size(); ++i) {
        SysVar const& variable = *SysVar::find(kSwitches[i]);
        m_switches[i] = variable.value();
        variable.set(0);
    }
}

InputLoopContextOptions::~InputLoopContextOptions()
{
    for (std::size_t i = 0; i < kSwitches.size(); ++i)
        SysVar::find(kSwitches[i])->set(m_switches[i]);
    m_commandLine.setEchoing(m_wasEchoing);
    m_commandLine.setErrorTaker(std::move(m_previousTaker));
}

} // namespace ca
