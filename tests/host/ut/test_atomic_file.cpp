#include "host/ut/ut_atomic_file.h"

#include "tests/host/ut/atomic_file_sample.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cstdlib>
#include <functional>

#include <unistd.h>

namespace {

/// The code and description of the error that `action` must throw.
std::pair<OdResult, std::string> errorOf(std::function<void()> const& action)
{
    try {
        action();
    } catch (OdError const& error) {
        return {error.code(), error.what()};
    }
    CPPUNIT_FAIL("no error");
    return {};
}

/// A system that gives files to nobody, or not to other groups.
class RefusedOwnership : public ut::FileSystem
{
public:
    int fchown(int, uid_t, gid_t) override
    {
        errno = EPERM;
        return -1;
    }
};

/// Nothing is protected from the superuser; tests run by it go on as somebody else.
class OrdinaryUser
{
public:
    OrdinaryUser() : m_previous(::geteuid())
    {
        constexpr uid_t nobody = 65534;
        if (m_previous == 0)
            CPPUNIT_ASSERT_EQUAL(0, ::seteuid(nobody));
    }
    ~OrdinaryUser()
    {
        if (::seteuid(m_previous) != 0)
            std::abort();
    }
    OrdinaryUser(OrdinaryUser const&) = delete;
    OrdinaryUser& operator=(OrdinaryUser const&) = delete;

private:
    uid_t m_previous;
};

class AtomicFileTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(AtomicFileTest);
    CPPUNIT_TEST(writesNewFile);
    CPPUNIT_TEST(withoutCommitNothingHappens);
    CPPUNIT_TEST(keepsPermissionsOwnerAndLink);
    CPPUNIT_TEST(refusedGroupGetsNoMoreThanOthers);
    CPPUNIT_TEST(followsChainsOfLinks);
    CPPUNIT_TEST(refusesWhatIsNoFile);
    CPPUNIT_TEST(refusesWhatIsProtected);
    CPPUNIT_TEST(usableOnce);
    CPPUNIT_TEST(longNames);
    CPPUNIT_TEST_SUITE_END();

    void writesNewFile()
    {
        TempFolder const folder;
        mode_t const mask = ::umask(027);
        writeInPieces(folder / "new.dxf");
        ::umask(mask);
        CPPUNIT_ASSERT(folder.read("new.dxf") == s_newContent);
        CPPUNIT_ASSERT_EQUAL(0640U, modeOf(folder, "new.dxf"));
        CPPUNIT_ASSERT(Names{"new.dxf"} == folder.names());
        {
            ut::AtomicFile(folder / "empty").commit();
        }
        CPPUNIT_ASSERT_EQUAL(std::string(), folder.read("empty"));
    }

    void withoutCommitNothingHappens()
    {
        TempFolder const folder;
        OdString const path = folder.write("old.dxf", "old");
        {
            ut::AtomicFile file(path);
            file.write(s_newContent);
            CPPUNIT_ASSERT_EQUAL(std::string("old"), folder.read("old.dxf"));
            CPPUNIT_ASSERT_EQUAL(std::size_t{2}, folder.names().size());
        }
        CPPUNIT_ASSERT_EQUAL(std::string("old"), folder.read("old.dxf"));
        CPPUNIT_ASSERT(Names{"old.dxf"} == folder.names());
    }

    void keepsPermissionsOwnerAndLink()
    {
        TempFolder const folder;
        folder.write("real.dxf", "old");
        std::filesystem::path const real = folder.path() / "real.dxf";
        std::filesystem::create_symlink(real, folder.path() / "link.dxf");
        if (::geteuid() == 0)
            CPPUNIT_ASSERT_EQUAL(0, ::chown(real.c_str(), 1234, 4321));
        std::filesystem::permissions(real, std::filesystem::perms(0664));
        struct stat before = {};
        ::stat(real.c_str(), &before);
        mode_t const mask = ::umask(077);
        writeInPieces(folder / "link.dxf");
        ::umask(mask);
        struct stat after = {};
        ::stat(real.c_str(), &after);
        CPPUNIT_ASSERT(folder.read("real.dxf") == s_newContent);
        CPPUNIT_ASSERT_EQUAL(before.st_mode, after.st_mode);
        CPPUNIT_ASSERT_EQUAL(before.st_uid, after.st_uid);
        CPPUNIT_ASSERT_EQUAL(before.st_gid, after.st_gid);
        CPPUNIT_ASSERT(std::filesystem::is_symlink(folder.path() / "link.dxf"));
    }

    void refusedGroupGetsNoMoreThanOthers()
    {
        TempFolder const folder;
        RefusedOwnership refused;
        ut::ScopedReplacement<ut::FileSystem> const replacement(refused);
        struct Row
        {
            unsigned before, after;
        };
        for (Row const& row : {Row{0664, 0644}, Row{0660, 0600}, Row{0606, 0606}, Row{06755, 0755}}) {
            OdString const path = folder.write("file", "old");
            std::filesystem::permissions(folder.path() / "file", std::filesystem::perms(row.before));
            writeInPieces(path);
            CPPUNIT_ASSERT_EQUAL(row.after, modeOf(folder, "file"));
        }
    }

    void followsChainsOfLinks()
    {
        TempFolder const folder;
        std::filesystem::create_directory(folder.path() / "sub");
        std::filesystem::create_symlink("sub/second", folder.path() / "first");
        std::filesystem::create_symlink("../target", folder.path() / "sub/second");
        writeInPieces(folder / "first"); // the target does not exist yet
        CPPUNIT_ASSERT(folder.read("target") == s_newContent);
        CPPUNIT_ASSERT((Names{"first", "sub", "target"}) == folder.names());
        CPPUNIT_ASSERT(std::filesystem::is_symlink(folder.path() / "sub/second"));

        std::filesystem::create_symlink("loop", folder.path() / "loop");
        auto const [code, text] = errorOf([&] { ut::AtomicFile const file(folder / "loop"); });
        CPPUNIT_ASSERT_EQUAL(eFileAccess, code);
        CPPUNIT_ASSERT_EQUAL("cannot write " + (folder / "loop").toUtf8() + ": Too many levels of symbolic links",
                             text);
    }

    void refusesWhatIsNoFile()
    {
        TempFolder const folder;
        folder.write("file", "x");
        struct Row
        {
            OdString path;
            char const* reason;
        };
        Row const rows[] = {
            {folder / ".", "Is a directory"},           {folder / "missing/file", "No such file or directory"},
            {folder / "file/below", "Not a directory"}, {folder / "new/", "No such file or directory"},
            {L"/dev/null", "Not a regular file"},       {L"", "No such file or directory"},
        };
        for (Row const& row : rows) {
            auto const [code, text] = errorOf([&] { ut::AtomicFile const file(row.path); });
            CPPUNIT_ASSERT_EQUAL(eFileAccess, code);
            CPPUNIT_ASSERT_EQUAL("cannot write " + row.path.toUtf8() + ": " + row.reason, text);
        }
        CPPUNIT_ASSERT(Names{"file"} == folder.names());
    }

    void refusesWhatIsProtected()
    {
        TempFolder const folder;
        OdString const path = folder.write("file", "old");
        auto const protect = [&](unsigned fileMode, unsigned folderMode) {
            std::filesystem::permissions(folder.path() / "file", std::filesystem::perms(fileMode));
            std::filesystem::permissions(folder.path(), std::filesystem::perms(folderMode));
        };
        auto const expectRefused = [&] {
            OrdinaryUser const user;
            auto const [code, text] = errorOf([&] { ut::AtomicFile const file(path); });
            CPPUNIT_ASSERT_EQUAL(eFileAccess, code);
            CPPUNIT_ASSERT_EQUAL("cannot write " + path.toUtf8() + ": Permission denied", text);
        };
        protect(0444, 0777);
        expectRefused(); // although the folder would let it be replaced
        protect(0666, 0555);
        expectRefused();
        protect(0666, 0777);
        CPPUNIT_ASSERT_EQUAL(std::string("old"), folder.read("file"));
        CPPUNIT_ASSERT(Names{"file"} == folder.names());
    }

    void usableOnce()
    {
        TempFolder const folder;
        ut::AtomicFile file(folder / "file");
        file.write("once");
        file.commit();
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, errorOf([&] { file.write("twice"); }).first);
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, errorOf([&] { file.commit(); }).first);
        CPPUNIT_ASSERT_EQUAL(std::string("once"), folder.read("file"));
    }

    void longNames()
    {
        TempFolder const folder;
        std::string const longest(255, 'n');
        writeInPieces(folder / longest);
        CPPUNIT_ASSERT(Names{longest} == folder.names());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(AtomicFileTest);

} // namespace
