#include "vorntest/mask_files.h"

#include "host/root/od_string.h"
#include "host/ut/ut_file_name.h"
#include "host/ut/ut_text.h"
#include "vorntest/tests_config.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace vorntest {

std::vector<fs::path> matchingEntries(std::wstring const& mask, TestsConfig const& config, std::error_code& error)
{
    ut::FileName name(mask);
    name.normalize(ut::FileName::kAllButCase, config.root().parameter(L"basePath"));
    std::wstring const pattern = name.getFullName().str();
    std::vector<fs::path> entries;
    fs::directory_iterator it(name.getPath().toUtf8(), error);
    while (!error && it != fs::directory_iterator()) {
        if (ut::matchesWildcard(odUtf8ToWide(it->path().filename().string()), pattern))
            entries.push_back(it->path());
        it.increment(error);
    }
    std::ranges::sort(entries);
    return entries;
}

} // namespace vorntest
