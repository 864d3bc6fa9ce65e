// The handler runs on a damaged process: it allocates nothing and only writes what stands ready.
#include "apps/vornbench/crash_notice.h"

#include "apps/vornbench/running_test.h"

#include <csignal>
#include <cstring>

#include <unistd.h>

namespace {

struct CrashSignal
{
    int number;
    char const* name;
};

constexpr CrashSignal crashSignals[] = {
    {SIGSEGV, "segmentation fault"}, {SIGBUS, "bus error"}, {SIGFPE, "arithmetic error"},
    {SIGILL, "illegal instruction"}, {SIGABRT, "abort"},
};

alignas(16) char s_handlerStack[64 * 1024];

void writeText(char const* text)
{
    [[maybe_unused]] ssize_t const written = write(STDERR_FILENO, text, std::strlen(text));
}

extern "C" void reportCrash(int number)
{
    char const* const test = RunningTest::name();
    writeText("\nvornbench: ");
    for (CrashSignal const& signal : crashSignals)
        if (signal.number == number)
            writeText(signal.name);
    writeText(test ? " in test " : " outside of a test");
    writeText(test ? test : "");
    writeText("\n");
    std::signal(number, SIG_DFL);
    raise(number);
}

// Address sanitizer reports crashes itself, and better.
#ifdef __SANITIZE_ADDRESS__
constexpr bool handlesCrashes = false;
#else
constexpr bool handlesCrashes = true;
#endif

} // namespace

CrashNotice::CrashNotice()
{
    if (!handlesCrashes)
        return;
    stack_t stack = {};
    stack.ss_sp = s_handlerStack;
    stack.ss_size = sizeof s_handlerStack;
    sigaltstack(&stack, nullptr);
    for (CrashSignal const& signal : crashSignals) {
        struct sigaction action = {};
        action.sa_handler = reportCrash;
        action.sa_flags = SA_ONSTACK | static_cast<int>(SA_RESETHAND);
        sigemptyset(&action.sa_mask);
        sigaction(signal.number, &action, nullptr);
    }
}

CrashNotice::~CrashNotice()
{
    if (!handlesCrashes)
        return;
    for (CrashSignal const& signal : crashSignals)
        std::signal(signal.number, SIG_DFL);
    stack_t stack = {};
    stack.ss_flags = SS_DISABLE;
    sigaltstack(&stack, nullptr);
}
