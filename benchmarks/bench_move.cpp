// Opens a drawing as document, moves everything in it and takes that back:
//   bench_move DRAWING
// Prints the time of each step, what of it the processor worked, and the most memory in use after it.
#include "benchmarks/drawing_main.h"
#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/sds_cmd.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <stdexcept>

#include <sys/resource.h>

namespace {

double peakMegabytes()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void step(char const* name, std::function<bool()> const& action)
{
    auto const start = std::chrono::steady_clock::now();
    std::clock_t const startOfWork = std::clock();
    if (!action())
        throw std::runtime_error(std::string(name) + ": " + ca::app()->commandLine().lastPrompt().toUtf8());
    std::chrono::duration<double> const time = std::chrono::steady_clock::now() - start;
    double const work = static_cast<double>(std::clock() - startOfWork) / CLOCKS_PER_SEC;
    std::printf("%-8s %.3f s, work %.3f s, at most %.0f MB\n", name, time.count(), work, peakMegabytes());
}

void measure(OdString const& path)
{
    step("open", [&path] { return ca::app()->openFile(path.c_str()); });
    step("select", [] { return sds_command(RTSTR, L"_MOVE", RTSTR, L"_ALL", RTSTR, L"", 0) == RTNORM; });
    step("move", [] { return sds_command(RTSTR, L"0,0", RTSTR, L"5,2", 0) == RTNORM; });
    step("U", [] { return sds_command(RTSTR, L"_U", 0) == RTNORM; });
    step("REDO", [] { return sds_command(RTSTR, L"_REDO", 0) == RTNORM; });
    step("close", [] {
        ca::curDoc()->close();
        return true;
    });
}

} // namespace

int main(int argc, char** argv)
{
    return measureDrawing(argc, argv, "bench_move", &measure);
}
