#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace vorntest {

class TestsConfig;

/// The entries, files and folders alike, that a mask of the tests configuration matches, sorted. The mask is a
/// path whose name may hold wildcards; environment variables are expanded, a relative path counts from basePath.
/// An error, with what was found until then, when the folder cannot be read.
std::vector<std::filesystem::path> matchingEntries(std::wstring const& mask, TestsConfig const& config,
                                                   std::error_code& error);

} // namespace vorntest
