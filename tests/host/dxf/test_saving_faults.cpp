// Saving whole drawings where something goes wrong: whatever happens, the file is the old or the new drawing.
#include "host/db/entities/od_db_line.h"
#include "host/db/records/od_db_block_table_record.h"
#include "tests/host/dxf/dxf_text.h"
#include "tests/support/counted_faults.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr char kName[] = "a.dxf";

/// A drawing with so many lines.
OdDbDatabasePtr drawing(int lines)
{
    OdDbDatabasePtr const database = new OdDbDatabase;
    auto const space = database->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    for (int i = 0; i < lines; ++i)
        space->appendOdDbEntity(new OdDbLine({i * 1.0, 0, 0}, {0, i / 3.0, 1}));
    return database;
}

/// Calls a function instead of a call of the system, once; the system's call follows where the function says so.
class OnWrite : public ut::FileSystem
{
public:
    explicit OnWrite(std::function<void()> action) : m_action(std::move(action)) {}
    ssize_t write(int file, void const* bytes, std::size_t size) override
    {
        if (std::function<void()> const action = std::exchange(m_action, nullptr))
            action();
        return FileSystem::write(file, bytes, size);
    }

private:
    std::function<void()> m_action;
};

/// Nothing can be created or replaced in any folder.
class ReadOnlyFolders : public ut::FileSystem
{
public:
    int open(char const* path, int flags, mode_t mode) override
    {
        return flags & O_CREAT ? refuse() : FileSystem::open(path, flags, mode);
    }
    int rename(char const*, char const*) override { return refuse(); }

private:
    static int refuse()
    {
        errno = EROFS;
        return -1;
    }
};

/// Files exist and cannot be written.
class ReadOnlyFiles : public ut::FileSystem
{
public:
    int access(char const* path, int mode) override
    {
        if (!(mode & W_OK))
            return FileSystem::access(path, mode);
        errno = EACCES;
        return -1;
    }
};

/// Saves two drawings in turn until it is killed.
class SavingChild
{
public:
    SavingChild(OdDbDatabase const& a, OdDbDatabase const& b, OdString const& path) : m_process(::fork())
    {
        if (m_process != 0)
            return;
        try {
            for (;;) {
                dxf::writeFile(a, path);
                dxf::writeFile(b, path);
            }
        } catch (...) {
            ::_exit(1);
        }
    }
    SavingChild(SavingChild const&) = delete;
    SavingChild& operator=(SavingChild const&) = delete;
    ~SavingChild() { kill(); }

    /// Returns whether it was this signal that ended the process.
    bool kill()
    {
        if (m_process <= 0)
            return false;
        ::kill(m_process, SIGKILL);
        int status = 0;
        bool const isEnded = ::waitpid(std::exchange(m_process, 0), &status, 0) > 0;
        return isEnded && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

private:
    pid_t m_process;
};

class SavingFaultsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SavingFaultsTest);
    CPPUNIT_TEST(everyFaultLeavesTheOldOrTheNewDrawing);
    CPPUNIT_TEST(everyFaultLeavesNoneOrTheNewDrawing);
    CPPUNIT_TEST(killedSavesLeaveAWholeDrawing);
    CPPUNIT_TEST(vanishedFolder);
    CPPUNIT_TEST(protectedFolderAndFile);
    CPPUNIT_TEST(linksAndPermissionsStay);
    CPPUNIT_TEST_SUITE_END();

    struct Case
    {
        char const* name;
        int lines;
        dxf::FileFormat format;
        int error;
        int fewestFaults; ///< open, write, flush, rename at least; large files are written in several pieces
    };
    static constexpr int kManyLines = 1500;
    static constexpr Case kCases[] = {
        {"text", 0, {}, ENOSPC, 4},
        {"binary", 0, {.isBinary = true}, EIO, 4},
        {"R12", 0, {.release = dxf::ERelease::kR12}, ESTALE, 4},
        {"large text", kManyLines, {}, EIO, 8},
        {"large binary of R2000", kManyLines, {dxf::ERelease::kR2000, true}, ENOSPC, 8},
    };

    /// Saves with each call of the system failing in turn; `check` gets what the folder should hold in the end.
    template <class Prepare, class Check>
    static void forEachCase(Prepare prepare, Check check)
    {
        for (Case const& each : kCases) {
            OdDbDatabasePtr const database = drawing(each.lines);
            std::string const wanted = dxf::writeBytes(*database, each.format);
            TempFolder const folder;
            prepare(folder);
            int const faults = withEachFault(
                [&] {
                    try {
                        dxf::writeFile(*database, folder / kName, each.format);
                    } catch (OdError const& error) {
                        CPPUNIT_ASSERT(error.description().find((folder / kName).str()) != OdString::npos);
                    }
                },
                [&](int number) {
                    check(std::string(each.name) + ", call " + std::to_string(number), folder, wanted);
                    prepare(folder);
                },
                each.error);
            CPPUNIT_ASSERT_MESSAGE(each.name, faults >= each.fewestFaults);
            CPPUNIT_ASSERT_MESSAGE(each.name, folder.read(kName) == wanted);
        }
    }

    void everyFaultLeavesTheOldOrTheNewDrawing()
    {
        std::string const old = dxf::writeBytes(*drawing(1));
        forEachCase([&old](TempFolder const& folder) { folder.write(kName, old); },
                    [&old](std::string const& where, TempFolder const& folder, std::string const& wanted) {
                        std::string const content = folder.read(kName);
                        CPPUNIT_ASSERT_MESSAGE(where, content == old || content == wanted);
                        CPPUNIT_ASSERT_EQUAL_MESSAGE(where, std::size_t{1}, folder.names().size());
                    });
    }

    void everyFaultLeavesNoneOrTheNewDrawing()
    {
        forEachCase([](TempFolder const& folder) { std::filesystem::remove(folder.path() / kName); },
                    [](std::string const& where, TempFolder const& folder, std::string const& wanted) {
                        std::set<std::string> const names = folder.names();
                        CPPUNIT_ASSERT_MESSAGE(where, names.empty() || names == std::set<std::string>{kName});
                        if (!names.empty())
                            CPPUNIT_ASSERT_MESSAGE(where, folder.read(kName) == wanted);
                    });
    }

    void killedSavesLeaveAWholeDrawing()
    {
        constexpr int kKills = 20;
        constexpr int kLongestMicroseconds = 30'000;
        OdDbDatabasePtr const a = drawing(100);
        OdDbDatabasePtr const b = drawing(kManyLines);
        std::string const ofA = dxf::writeBytes(*a);
        std::string const ofB = dxf::writeBytes(*b);
        TempFolder const folder;
        OdString const path = folder.write(kName, ofA);
        std::mt19937 random(1);
        for (int i = 0; i < kKills; ++i) {
            SavingChild child(*a, *b, path);
            std::this_thread::sleep_for(std::chrono::microseconds(random() % kLongestMicroseconds));
            CPPUNIT_ASSERT(child.kill());
            std::string const content = folder.read(kName);
            CPPUNIT_ASSERT_MESSAGE(std::to_string(i), content == ofA || content == ofB);
        }
        // What a kill left lying about is in nobody's way.
        for (OdDbDatabasePtr const& each : {b, a})
            dxf::writeFile(*each, path);
        CPPUNIT_ASSERT(folder.read(kName) == ofA);
    }

    void vanishedFolder()
    {
        OdDbDatabasePtr const database = drawing(kManyLines);
        TempFolder const outer;
        std::filesystem::path const folder = outer.path() / "drawings";
        OdString const path = outer / "drawings/a.dxf";
        CPPUNIT_ASSERT_EQUAL(eFileAccess, odResultOf([&] { dxf::writeFile(*database, path); }));
        std::filesystem::create_directory(folder);
        OnWrite system([&folder] { std::filesystem::remove_all(folder); });
        ut::ScopedReplacement<ut::FileSystem> const replacement(system);
        CPPUNIT_ASSERT_EQUAL(eFileWrite, odResultOf([&] { dxf::writeFile(*database, path); }));
        CPPUNIT_ASSERT(outer.names().empty());
    }

    /// The system lets root write everywhere: doubles stand in for it.
    void protectedFolderAndFile()
    {
        ReadOnlyFolders folders;
        ReadOnlyFiles files;
        OdDbDatabasePtr const database = drawing(1);
        TempFolder const folder;
        for (ut::FileSystem* const system : std::initializer_list<ut::FileSystem*>{&folders, &files}) {
            OdString const path = folder.write(kName, "old");
            ut::ScopedReplacement<ut::FileSystem> const replacement(*system);
            CPPUNIT_ASSERT_EQUAL(eFileAccess, odResultOf([&] { dxf::writeFile(*database, path); }));
            CPPUNIT_ASSERT_EQUAL(std::string("old"), folder.read(kName));
            CPPUNIT_ASSERT_EQUAL(std::size_t{1}, folder.names().size());
        }
    }

    void linksAndPermissionsStay()
    {
        namespace fs = std::filesystem;
        constexpr auto kMode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
        OdDbDatabasePtr const database = drawing(1);
        TempFolder const folder;
        folder.write(kName, "old");
        fs::permissions(folder.path() / kName, kMode);
        fs::create_symlink(kName, folder.path() / "link.dxf");
        dxf::writeFile(*database, folder / "link.dxf", {dxf::ERelease::kR2000, true});
        CPPUNIT_ASSERT(fs::read_symlink(folder.path() / "link.dxf") == kName);
        CPPUNIT_ASSERT(fs::status(folder.path() / kName).permissions() == kMode);
        CPPUNIT_ASSERT(folder.read(kName) == dxf::writeBytes(*database, {dxf::ERelease::kR2000, true}));
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, folder.names().size());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SavingFaultsTest);

} // namespace
