#include "host/ut/ut_atomic_file.h"

#include "tests/host/ut/atomic_file_sample.h"
#include "tests/support/counted_faults.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>

namespace {

/// Takes as few bytes at once as a system may.
class ShortWrites : public ut::FileSystem
{
public:
    ssize_t write(int file, void const* bytes, std::size_t size) override
    {
        return FileSystem::write(file, bytes, std::min<std::size_t>(size, 1000));
    }
};

/// Notes what becomes durable, and when.
class RecordedOrder : public ut::FileSystem
{
public:
    int fsync(int file) override
    {
        struct stat status = {};
        FileSystem::fstat(file, status);
        m_order += S_ISDIR(status.st_mode) ? "sync folder," : "sync file,";
        return FileSystem::fsync(file);
    }
    int rename(char const* from, char const* to) override
    {
        m_order += "rename,";
        return FileSystem::rename(from, to);
    }
    std::string const& order() const { return m_order; }

private:
    std::string m_order;
};

class AtomicFileFaultsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(AtomicFileFaultsTest);
    CPPUNIT_TEST(everyFaultLeavesOldOrNewContent);
    CPPUNIT_TEST(everyFaultLeavesNoNewFile);
    CPPUNIT_TEST(interruptedAndShortWritesGoOn);
    CPPUNIT_TEST(durableBeforeVisible);
    CPPUNIT_TEST_SUITE_END();

    void everyFaultLeavesOldOrNewContent()
    {
        TempFolder const folder;
        folder.write("real.dxf", "old");
        std::filesystem::create_symlink("real.dxf", folder.path() / "link.dxf");
        std::filesystem::permissions(folder.path() / "real.dxf", std::filesystem::perms(0640));
        std::string message;
        int newContents = 0;
        int const faults = withEachFault(
            [&] {
                message.clear();
                try {
                    writeInPieces(folder / "link.dxf");
                } catch (OdError const& error) {
                    message = error.what();
                }
            },
            [&](int failing) {
                std::string const call = "call " + std::to_string(failing);
                std::string const expected =
                    "cannot write " + (folder / "link.dxf").toUtf8() + ": No space left on device";
                // The last close of all is that of the folder, when everything is done.
                if (!message.empty())
                    CPPUNIT_ASSERT_EQUAL_MESSAGE(call, expected, message);
                std::string const content = folder.read("real.dxf");
                CPPUNIT_ASSERT_MESSAGE(call, content == "old" || content == s_newContent);
                CPPUNIT_ASSERT_MESSAGE(call, !message.empty() || content == s_newContent);
                newContents += content == s_newContent;
                CPPUNIT_ASSERT_MESSAGE(call, (Names{"link.dxf", "real.dxf"}) == folder.names());
                CPPUNIT_ASSERT_MESSAGE(call, std::filesystem::is_symlink(folder.path() / "link.dxf"));
                CPPUNIT_ASSERT_EQUAL_MESSAGE(call, 0640U, modeOf(folder, "real.dxf"));
                folder.write("real.dxf", "old");
            });
        CPPUNIT_ASSERT_MESSAGE(std::to_string(faults), faults >= 14);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("only the folder's sync and close come after the renaming", 2, newContents);
        CPPUNIT_ASSERT(folder.read("real.dxf") == s_newContent);
    }

    void everyFaultLeavesNoNewFile()
    {
        TempFolder const folder;
        withEachFault(
            [&] {
                try {
                    writeInPieces(folder / "new.dxf");
                } catch (OdError const&) {
                }
            },
            [&](int failing) {
                Names const names = folder.names();
                bool const isWhole = names == Names{"new.dxf"} && folder.read("new.dxf") == s_newContent;
                CPPUNIT_ASSERT_MESSAGE("call " + std::to_string(failing), names.empty() || isWhole);
                std::filesystem::remove(folder.path() / "new.dxf");
            },
            EIO);
    }

    void interruptedAndShortWritesGoOn()
    {
        TempFolder const folder;
        ShortWrites shortWrites;
        {
            ut::ScopedReplacement<ut::FileSystem> const replacement(shortWrites);
            writeInPieces(folder / "short.dxf");
        }
        CPPUNIT_ASSERT(folder.read("short.dxf") == s_newContent);

        class Interrupted : public CountedFaults
        {
        public:
            using CountedFaults::CountedFaults;
            ssize_t readlink(char const* path, char* buffer, std::size_t size) override
            {
                return FileSystem::readlink(path, buffer, size); // never interrupted
            }
            int stat(char const* path, struct stat& status) override { return FileSystem::stat(path, status); }
            int rename(char const* from, char const* to) override { return FileSystem::rename(from, to); }
        };
        for (int failing = 1; failing <= 6; ++failing) {
            Interrupted interrupted(failing, EINTR);
            ut::ScopedReplacement<ut::FileSystem> const replacement(interrupted);
            writeInPieces(folder / "interrupted.dxf");
            CPPUNIT_ASSERT(interrupted.hasFailed());
            CPPUNIT_ASSERT(folder.read("interrupted.dxf") == s_newContent);
            std::filesystem::remove(folder.path() / "interrupted.dxf");
        }
    }

    void durableBeforeVisible()
    {
        TempFolder const folder;
        RecordedOrder recorded;
        ut::ScopedReplacement<ut::FileSystem> const replacement(recorded);
        writeInPieces(folder / "new.dxf");
        CPPUNIT_ASSERT_EQUAL(std::string("sync file,rename,sync folder,"), recorded.order());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(AtomicFileFaultsTest);

} // namespace
