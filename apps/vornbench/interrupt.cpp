#include "apps/vornbench/interrupt.h"

#include "apps/vornbench/running_test.h"

#include <cerrno>
#include <csignal>
#include <cstring>

#include <unistd.h>

namespace {

volatile std::sig_atomic_t s_isRequested = 0;

constexpr int interruptSignals[] = {SIGINT, SIGTERM};

void writeText(char const* text)
{
    [[maybe_unused]] ssize_t const written = write(STDERR_FILENO, text, std::strlen(text));
}

extern "C" void requestInterrupt(int)
{
    int const savedError = errno;
    s_isRequested = 1;
    char const* const test = RunningTest::name();
    writeText("\nvornbench: stopping after ");
    writeText(test ? test : "the current step");
    writeText("; interrupt again to stop at once\n");
    for (int const signal : interruptSignals)
        std::signal(signal, SIG_DFL);
    errno = savedError;
}

} // namespace

InterruptGuard::InterruptGuard()
{
    s_isRequested = 0;
    for (int const signal : interruptSignals) {
        struct sigaction action = {};
        action.sa_handler = requestInterrupt;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        sigaction(signal, &action, nullptr);
    }
}

InterruptGuard::~InterruptGuard()
{
    for (int const signal : interruptSignals)
        std::signal(signal, SIG_DFL);
}

bool InterruptGuard::isRequested()
{
    return s_isRequested != 0;
}
