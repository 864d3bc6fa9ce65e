// Opens, walks over and saves one given drawing, for comparing with other programs on the same file:
//   bench_open_file DRAWING [REPETITIONS]
// Prints the median times and the most memory that was in use.
#include "benchmarks/drawing_walk.h"
#include "host/dxf/dxf_file.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include <sys/resource.h>

namespace {

double medianSeconds(int repetitions, std::function<void()> const& action)
{
    std::vector<double> seconds;
    for (int i = 0; i < repetitions; ++i) {
        auto const start = std::chrono::steady_clock::now();
        action();
        seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    std::sort(seconds.begin(), seconds.end());
    return seconds[seconds.size() / 2];
}

double peakMegabytes()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

void measure(OdString const& path, int repetitions)
{
    double sum = 0;
    OdDbDatabasePtr drawing;
    double const opening = medianSeconds(repetitions, [&] {
        drawing.release(); // one drawing in memory at a time
        drawing = dxf::readFile(path);
        sum = sumOfPlaces(*drawing);
    });
    double const peak = peakMegabytes();
    OdString const copy = path + L".saved";
    for (bool const isBinary : {false, true}) {
        double const saving = medianSeconds(repetitions, [&] {
            dxf::writeFile(*drawing, copy, {dxf::kCurrentRelease, isBinary});
        });
        std::printf("save as %s %.3f s\n", isBinary ? "binary" : "text  ", saving);
    }
    std::remove(copy.toUtf8().c_str());
    std::printf("open and walk  %.3f s, at most %.0f MB (sum %.6g)\n", opening, peak, sum);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench_open_file DRAWING [REPETITIONS]\n");
        return 2;
    }
    try {
        measure(OdString::fromUtf8(argv[1]), argc > 2 ? std::max(1, std::atoi(argv[2])) : 5);
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
