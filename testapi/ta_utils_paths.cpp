// Folders and files of tests.
#include "testapi/ta_assert.h"
#include "testapi/ta_draw_utils.h"
#include "testapi/ta_utils.h"

#include "vorntest/vorn_test_bench.h"

#include <filesystem>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_utils";

bool isInSearchPath(OdString const& searchPath, OdString const& folder)
{
    return (L";" + searchPath + L";").find((L";" + folder + L";").str()) != OdString::npos;
}

/// What the folder holds, but no folders.
std::vector<std::filesystem::path> filesOf(std::filesystem::path const& folder, std::error_code& error)
{
    std::vector<std::filesystem::path> files;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        if (entry->symlink_status().type() != std::filesystem::file_type::directory)
            files.push_back(entry->path());
    return files;
}

void checkRemoved(std::error_code const& error, std::filesystem::path const& path)
{
    OdString const name = OdString::fromUtf8(path.native());
    OdString const reason = OdString::fromUtf8(error.message());
    TA_CHECK(!error, L"clearDir: failed to clear %ls: %ls", name.c_str(), reason.c_str());
}

} // namespace

OdString getTestFilesPath(bool addToSearchPath, vorntest::VornTestBench const* bench)
{
    vorntest::VornTestBench const* const used = bench ? bench : vorntest::VornTestBench::current();
    OdString path = used ? OdString(used->parameter(BASE_PATH)) : OdString();
    ut::correctSlashes(path);
    if (!addToSearchPath || path.isEmpty())
        return path;
    OdString const searchPath = oa::SysVars::getSRCHPATH();
    if (!isInSearchPath(searchPath, path))
        oa::SysVars::setSRCHPATH(searchPath + L";" + path);
    return path;
}

OdString fileNameExpEnv(OdString const& name)
{
    return ut::expandEnvironmentStrings(name);
}

void clearDir(OdString const& dir)
{
    std::filesystem::path const folder(dir.toUtf8());
    if (std::error_code ignored; !std::filesystem::exists(folder, ignored) && !ignored)
        return;
    std::error_code error;
    // Collected first: what a folder lists while it changes is not defined.
    std::vector<std::filesystem::path> const files = filesOf(folder, error);
    checkRemoved(error, folder);
    for (std::filesystem::path const& file : files) {
        std::filesystem::remove(file, error);
        checkRemoved(error, file);
    }
}

void executeCommandsFromFile(OdString const& file)
{
    ut::TextFile script;
    TA_CHECK(script.open(file), L"Cannot open script file \"%ls\".", file.c_str());
    executeCommands(script.text());
}

} // namespace ta
