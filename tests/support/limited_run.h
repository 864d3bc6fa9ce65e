#pragma once

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Work in a process of its own, so that a crash, a hang or a flood of memory is a result like any other.

/// The process was built with a sanitizer, which takes time and memory of its own.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kIsSanitized = true;
#else
inline constexpr bool kIsSanitized = false;
#endif

struct RunOutcome
{
    std::string answer; ///< what the work returned
    std::string fault;  ///< why it did not end well: exception, signal, time limit; empty when it did
};

/// What the present process needed since the watch was made.
class RunWatch
{
public:
    /// Of the processor: other programs at work beside do not count.
    double seconds() const { return usedSeconds() - m_start; }
    /// Growth of the highest amount of memory that the process had at once, in megabytes.
    double megabytes() const { return static_cast<double>(peakKilobytes() - m_peak) / 1024; }

private:
    static rusage usage()
    {
        rusage result{};
        ::getrusage(RUSAGE_SELF, &result);
        return result;
    }
    static double inSeconds(timeval time)
    {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    }
    static double usedSeconds() { return inSeconds(usage().ru_utime) + inSeconds(usage().ru_stime); }
    static long peakKilobytes() { return usage().ru_maxrss; }

    double m_start = usedSeconds();
    long m_peak = peakKilobytes();
};

namespace limitedRunDetail {

constexpr int kWorkFailed = 3;

/// The child: does the work and sends its answer or its exception.
template <class Work>
[[noreturn]] void answerTo(int pipe, unsigned seconds, Work const& work)
{
    rlimit const noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::alarm(seconds);
    int status = 0;
    std::string answer;
    try {
        answer = work();
    } catch (std::exception const& error) {
        answer = error.what();
        status = kWorkFailed;
    }
    for (std::size_t sent = 0; sent < answer.size();) {
        ssize_t const count = ::write(pipe, answer.data() + sent, answer.size() - sent);
        if (count < 0)
            ::_exit(kWorkFailed + 1);
        sent += static_cast<std::size_t>(count);
    }
    ::_exit(status);
}

inline std::string allFrom(int pipe)
{
    std::string text;
    std::array<char, 4096> buffer;
    for (;;) {
        ssize_t const count = ::read(pipe, buffer.data(), buffer.size());
        if (count > 0)
            text.append(buffer.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return text;
    }
}

inline std::string faultOf(int status, std::string const& answer)
{
    if (WIFSIGNALED(status))
        return WTERMSIG(status) == SIGALRM ? "took too long"
                                           : "died of signal " + std::to_string(WTERMSIG(status));
    int const code = WEXITSTATUS(status);
    return code == 0 ? "" : code == kWorkFailed ? answer : "ended with exit code " + std::to_string(code);
}

} // namespace limitedRunDetail

/// Runs the work, a function that returns a string, in a copy of this process, which ends after these seconds at
/// the latest.
template <class Work>
RunOutcome runLimited(unsigned seconds, Work const& work)
{
    std::array<int, 2> ends;
    if (::pipe(ends.data()) != 0)
        throw std::runtime_error("cannot make a pipe");
    pid_t const child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot make a process");
    if (child == 0) {
        ::close(ends[0]);
        limitedRunDetail::answerTo(ends[1], seconds, work);
    }
    ::close(ends[1]);
    std::string answer = limitedRunDetail::allFrom(ends[0]);
    ::close(ends[0]);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    std::string fault = limitedRunDetail::faultOf(status, answer);
    return {std::move(answer), std::move(fault)};
}
