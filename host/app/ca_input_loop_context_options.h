#pragma once

#include "host/app/command_line.h"
#include "host/app/sys_var.h"

#include <array>

namespace ca {

/// Put around a scripted call, for as long as it lives:
/// - file names are asked for on the command line (FILEDIA and CMDDIA are 0);
/// - answers are not echoed (CMDECHO is 0): the history of the command line shows prompts without them, while
///   LASTPROMPT has prompt and answer as always;
/// - why input was refused is told by error() instead of the history; LASTPROMPT has it as well.
/// Scopes nest and end in reverse order; each brings back what it found.
class InputLoopContextOptions
{
public:
    InputLoopContextOptions();
    ~InputLoopContextOptions();
    InputLoopContextOptions(InputLoopContextOptions const&) = delete;
    InputLoopContextOptions& operator=(InputLoopContextOptions const&) = delete;

    /// Why input was refused last within this scope; empty when none was.
    OdString const& error() const { return m_error; }

private:
    static constexpr std::array kSwitches = {L"FILEDIA", L"CMDDIA", L"CMDECHO"};

    CommandLine& m_commandLine;
    bool m_wasEchoing;
    CommandLine::ErrorTaker m_previousTaker;
    std::array<SysVarValue, kSwitches.size()> m_switches;
    OdString m_error;
};

} // namespace ca
