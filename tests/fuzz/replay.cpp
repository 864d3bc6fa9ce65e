// Runs drawings and LISP texts that the fuzzers found worth keeping through the same rounds: replay FOLDER_OF_TEXT
// FOLDER_OF_BINARY FOLDER_OF_LISP. Names each file before its round, so that a crash tells which one it was. The
// exit code is the number of faults.
#include "tests/fuzz/drawing_round.h"
#include "tests/fuzz/lisp_round.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

using Round = void (*)(std::string_view);

std::string contentOf(std::filesystem::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::filesystem::path> filesOf(char const* folder)
{
    std::vector<std::filesystem::path> files;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

/// Returns the number of faults.
int replay(char const* folder, Round round)
{
    int faults = 0;
    std::vector<std::filesystem::path> const files = filesOf(folder);
    if (files.empty())
        throw std::runtime_error(std::string("no file in ") + folder);
    for (std::filesystem::path const& path : files) {
        std::cout << path.string() << std::endl;
        try {
            round(contentOf(path));
        } catch (std::exception const& error) {
            std::cout << "  FAULT: " << error.what() << std::endl;
            ++faults;
        }
    }
    return faults;
}

} // namespace

int main(int argc, char* argv[])
{
    constexpr int kArguments = 4;
    constexpr int kMostFaults = 100;
    if (argc != kArguments) {
        std::cerr << "usage: " << argv[0] << " FOLDER_OF_TEXT FOLDER_OF_BINARY FOLDER_OF_LISP\n";
        return kMostFaults + 1;
    }
    try {
        int const faults = replay(argv[1], &drawingRound::run) + replay(argv[2], &drawingRound::runBinary) +
                           replay(argv[3], &lispRound::run);
        return std::min(faults, kMostFaults);
    } catch (std::exception const& error) {
        std::cerr << error.what() << '\n';
        return kMostFaults + 1;
    }
}
