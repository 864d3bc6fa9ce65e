#include "host/ut/ut_file_name.h"

#include "tests/support/scoped_environment.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

#include <sys/stat.h>

namespace {

using ut::FileName;

std::string normalized(wchar_t const* text, unsigned flags, wchar_t const* folder = L"/base")
{
    FileName name(text);
    CPPUNIT_ASSERT(name.normalize(flags, folder));
    return name.getFullPath().toUtf8();
}

class FileNameTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(FileNameTest);
    CPPUNIT_TEST(partsOfNames);
    CPPUNIT_TEST(setExtension);
    CPPUNIT_TEST(normalizeTakesAllSteps);
    CPPUNIT_TEST(normalizeTakesOnlyTheStepsAsked);
    CPPUNIT_TEST(normalizeIsIdempotent);
    CPPUNIT_TEST(normalizeAgainstCurrentFolder);
    CPPUNIT_TEST(homeWithoutVariable);
    CPPUNIT_TEST(absoluteNames);
    CPPUNIT_TEST(fileExistsForFilesOnly);
    CPPUNIT_TEST(mkdirMakesParents);
    CPPUNIT_TEST(mkdirLeavesNothingOnFailure);
    CPPUNIT_TEST(tempDir);
    CPPUNIT_TEST_SUITE_END();

    void partsOfNames()
    {
        struct Row
        {
            wchar_t const* text;
            char const *folder, *folderWithSeparator, *fullName, *name, *extension;
        };
        // clang-format off
        Row const rows[] = {
            {L"/data/line.dwg",      "/data", "/data/", "line.dwg",   "line",    "dwg"},
            {L"dir\\sub\\part.dxf",  "dir/sub", "dir/sub/", "part.dxf", "part",  "dxf"},
            {L"/line",               "/",     "/",      "line",       "line",    ""},
            {L"line.tar.gz",         "",      "",       "line.tar.gz", "line.tar", "gz"},
            {L"dir.d/name",          "dir.d", "dir.d/", "name",       "name",    ""},
            {L"dir//name.x",         "dir",   "dir//",  "name.x",     "name",    "x"},
            {L"dir/",                "dir",   "dir/",   "",           "",        ""},
            {L".profile",            "",      "",       ".profile",   ".profile", ""},
            {L"a/.profile.old",      "a",     "a/",     ".profile.old", ".profile", "old"},
            {L"a/..",                "a",     "a/",     "..",         "..",      ""},
            {L"name.",               "",      "",       "name.",      "name",    ""},
            {L"",                    "",      "",       "",           "",        ""},
        };
        // clang-format on
        for (Row const& row : rows) {
            FileName const name(row.text);
            std::string const text = name.getFullPath().toUtf8();
            CPPUNIT_ASSERT_EQUAL_MESSAGE(text, std::string(row.folder), name.getPath(1).toUtf8());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(text, std::string(row.folderWithSeparator), name.getPath(3).toUtf8());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(text, std::string(row.fullName), name.getFullName().toUtf8());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(text, std::string(row.name), name.getName().toUtf8());
            CPPUNIT_ASSERT_EQUAL_MESSAGE(text, std::string(row.extension), name.getExt().toUtf8());
        }
    }

    void setExtension()
    {
        struct Row
        {
            wchar_t const *text, *extension;
            char const* expected;
        };
        Row const rows[] = {
            {L"/a/line.dwg", L"png", "/a/line.png"},
            {L"/a.b/line", L".png", "/a.b/line.png"},
            {L"/a.b/line.dwg", L"", "/a.b/line"},
            {L".profile", L"bak", ".profile.bak"},
            {L"name.", L"x", "name.x"},
        };
        for (Row const& row : rows) {
            FileName name(row.text);
            name.setExt(row.extension);
            CPPUNIT_ASSERT_EQUAL(std::string(row.expected), name.getFullPath().toUtf8());
        }
    }

    void normalizeTakesAllSteps()
    {
        ScopedEnvironment const home("HOME", "/home/user/");
        ScopedEnvironment const drawings("VORN_TEST_DIR", "/srv\\drawings");
        ScopedEnvironment const relative("VORN_TEST_SUB", "x/y");
        ScopedEnvironment const tilde("VORN_TEST_TILDE", "~/t");
        ScopedEnvironment const unset("VORN_TEST_UNSET", nullptr);
        struct Row
        {
            wchar_t const* text;
            char const* expected;
        };
        // clang-format off
        Row const rows[] = {
            {L"part.dwg",                    "/base/part.dwg"},
            {L"../ref/part.dwg",             "/ref/part.dwg"},
            {L"../../../part.dwg",           "/part.dwg"},
            {L".\\sub\\part.dwg",            "/base/sub/part.dwg"},
            {L"/abs/./a//b/../part.dwg",     "/abs/a/part.dwg"},
            {L"//server/share",              "/server/share"},
            {L"/a/..",                       "/"},
            {L"/a/b/",                       "/a/b/"},
            {L"/a/b/../",                    "/a/"},
            {L"...",                         "/base/..."},
            {L"a..b/.c",                     "/base/a..b/.c"},
            {L"~",                           "/home/user"},
            {L"~/part.dwg",                  "/home/user/part.dwg"},
            {L"~user/part.dwg",              "/base/~user/part.dwg"},
            {L"a/~/b",                       "/base/a/~/b"},
            {L"$VORN_TEST_DIR/part.dwg",     "/srv/drawings/part.dwg"},
            {L"${VORN_TEST_SUB}/../z",       "/base/x/z"},
            {L"%VORN_TEST_SUB%\\z",          "/base/x/y/z"},
            {L"$VORN_TEST_TILDE/z",          "/home/user/t/z"},
            {L"$VORN_TEST_UNSET/z",          "/base/$VORN_TEST_UNSET/z"},
            {L"",                            "/base/"},
        };
        // clang-format on
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(std::string(row.expected), normalized(row.text, 247));
        CPPUNIT_ASSERT_EQUAL(std::string("/Teil-\xD0\x96.dwg"), normalized(L"Teil-\x0416.dwg", 247, L"/"));
        CPPUNIT_ASSERT_EQUAL(std::string("/b/a"), normalized(L"a", 247, L"\\b\\c\\.."));
    }

    void normalizeTakesOnlyTheStepsAsked()
    {
        ScopedEnvironment const home("HOME", "/home/user");
        ScopedEnvironment const drawings("VORN_TEST_DIR", "d");
        wchar_t const* const text = L"~/$VORN_TEST_DIR/../E";
        CPPUNIT_ASSERT_EQUAL(std::string("~/$VORN_TEST_DIR/../E"), normalized(text, 32 + 64 + 128));
        CPPUNIT_ASSERT_EQUAL(std::string("~/d/../E"), normalized(text, FileName::kVariables));
        CPPUNIT_ASSERT_EQUAL(std::string("~/E"), normalized(text, FileName::kDots));
        CPPUNIT_ASSERT_EQUAL(std::string("/home/user/$VORN_TEST_DIR/../E"), normalized(text, FileName::kTilde));
        CPPUNIT_ASSERT_EQUAL(std::string("~/$VORN_TEST_DIR/../E"), normalized(text, FileName::kCase));
        CPPUNIT_ASSERT_EQUAL(std::string("/base/~/$VORN_TEST_DIR/../E"), normalized(text, FileName::kAbsolute));
        // Without a folder before it a name keeps the ".." that lead out of it.
        CPPUNIT_ASSERT_EQUAL(std::string("../../b"), normalized(L"../a/../../b", FileName::kDots));
        CPPUNIT_ASSERT_EQUAL(std::string("."), normalized(L"a/..", FileName::kDots));
        CPPUNIT_ASSERT_EQUAL(std::string("./"), normalized(L"./", FileName::kDots));
        CPPUNIT_ASSERT_EQUAL(std::string(), normalized(L"", FileName::kDots));
    }

    void normalizeIsIdempotent()
    {
        for (wchar_t const* const text : {L"a/../b//c/", L"~/x", L"../..", L"", L"/", L"a/.", L"%", L"$"}) {
            FileName name(text);
            CPPUNIT_ASSERT(name.normalize(247, L"/base"));
            OdString const once = name.getFullPath();
            CPPUNIT_ASSERT(name.normalize(247, L"/other"));
            CPPUNIT_ASSERT_EQUAL(once.toUtf8(), name.getFullPath().toUtf8());
        }
    }

    void normalizeAgainstCurrentFolder()
    {
        TempFolder const folder;
        std::filesystem::path const gone = folder.path() / "gone";
        std::filesystem::path const previous = std::filesystem::current_path();
        std::filesystem::create_directory(gone);
        std::filesystem::current_path(gone);
        std::string const current = std::filesystem::current_path().string();
        std::string const plain = normalized(L"a", 247, L"");
        std::string const below = normalized(L"a", 247, L"sub/..\\sub2");
        std::filesystem::remove(gone);
        FileName lost(L"a");
        bool const isLost = !lost.normalize(247);
        FileName absolute(L"/x/../a");
        bool const isFound = absolute.normalize(247);
        std::filesystem::current_path(previous);

        CPPUNIT_ASSERT_EQUAL(current + "/a", plain);
        CPPUNIT_ASSERT_EQUAL(current + "/sub2/a", below);
        CPPUNIT_ASSERT(isLost);
        CPPUNIT_ASSERT_EQUAL(std::string("a"), lost.getFullPath().toUtf8());
        CPPUNIT_ASSERT(isFound);
        CPPUNIT_ASSERT_EQUAL(std::string("/a"), absolute.getFullPath().toUtf8());
    }

    void homeWithoutVariable()
    {
        ScopedEnvironment const home("HOME", nullptr);
        std::string const path = normalized(L"~/x", FileName::kTilde);
        CPPUNIT_ASSERT_MESSAGE(path, path.starts_with('/') && path.ends_with("/x"));
    }

    void absoluteNames()
    {
        for (wchar_t const* const text : {L"/a", L"\\a", L"~", L"~/a"})
            CPPUNIT_ASSERT(FileName(text).isAbsolute());
        for (wchar_t const* const text : {L"", L"a", L"./a", L"~user/a", L"a~"})
            CPPUNIT_ASSERT(!FileName(text).isAbsolute());
    }

    void fileExistsForFilesOnly()
    {
        TempFolder const folder;
        folder.write("real.dwg", "x");
        std::filesystem::create_symlink("real.dwg", folder.path() / "link.dwg");
        std::filesystem::create_symlink("nowhere", folder.path() / "dangling.dwg");
        CPPUNIT_ASSERT(FileName(folder / "real.dwg").fileExists());
        CPPUNIT_ASSERT(FileName(folder / "link.dwg").fileExists());
        CPPUNIT_ASSERT(!FileName(folder / "dangling.dwg").fileExists());
        CPPUNIT_ASSERT(!FileName(folder / "").fileExists());
        CPPUNIT_ASSERT(!FileName(folder / ".").fileExists());
        CPPUNIT_ASSERT(!FileName(folder / "real.dwg/x").fileExists());
        CPPUNIT_ASSERT(!FileName(L"").fileExists());
    }

    void mkdirMakesParents()
    {
        TempFolder const folder;
        mode_t const mask = ::umask(022);
        bool const made = FileName::mkdir((folder / "a") + L"\\b//c/", 0500) && FileName::mkdir(folder / "d");
        ::umask(mask);
        CPPUNIT_ASSERT(made);
        auto const mode = [&](char const* name) {
            return static_cast<unsigned>(std::filesystem::status(folder.path() / name).permissions());
        };
        CPPUNIT_ASSERT_EQUAL(0700U, mode("a"));
        CPPUNIT_ASSERT_EQUAL(0700U, mode("a/b"));
        CPPUNIT_ASSERT_EQUAL(0500U, mode("a/b/c"));
        CPPUNIT_ASSERT_EQUAL(0755U, mode("d"));
        CPPUNIT_ASSERT_MESSAGE("existing", FileName::mkdir(folder / "d"));
        CPPUNIT_ASSERT_MESSAGE("root", FileName::mkdir(L"/"));
    }

    void mkdirLeavesNothingOnFailure()
    {
        TempFolder const folder;
        folder.write("file", "x");
        CPPUNIT_ASSERT(!FileName::mkdir(folder / "file"));
        CPPUNIT_ASSERT(!FileName::mkdir(folder / "file/sub"));
        CPPUNIT_ASSERT(!FileName::mkdir(L""));
        CPPUNIT_ASSERT(!FileName::mkdir(folder / ("new/" + std::string(300, 'x'))));
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, folder.names().size());
    }

    void tempDir()
    {
        TempFolder const folder;
        std::string const path = folder.path().string();
        ScopedEnvironment const first("TMPDIR", "/nowhere/at/all");
        ScopedEnvironment const second("TMP", (path + "/").c_str());
        CPPUNIT_ASSERT_EQUAL(path, FileName::getTempDir().toUtf8());
        ScopedEnvironment const unset("TMP", nullptr);
        ScopedEnvironment const third("TEMP", nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("/tmp"), FileName::getTempDir().toUtf8());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(FileNameTest);

} // namespace
