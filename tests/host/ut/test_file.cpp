#include "host/ut/ut_file.h"

#include "tests/support/counted_faults.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class FileTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(FileTest);
    CPPUNIT_TEST(copies);
    CPPUNIT_TEST(copyOntoItself);
    CPPUNIT_TEST(failedCopySaysWhyAndChangesNothing);
    CPPUNIT_TEST(everyFaultKeepsTheTarget);
    CPPUNIT_TEST(removes);
    CPPUNIT_TEST(readsFilesOfAllSizes);
    CPPUNIT_TEST(readsFilesWithoutSize);
    CPPUNIT_TEST(unreadableFiles);
    CPPUNIT_TEST(readFaultsAreReported);
    CPPUNIT_TEST_SUITE_END();

    void copies()
    {
        TempFolder const folder;
        std::string const content = std::string(200000, 'x') + '\0' + "end";
        OdString const source = folder.write("source", content);
        folder.write("existing", "old");
        CPPUNIT_ASSERT(ut::copyFile(source, folder / "new"));
        CPPUNIT_ASSERT(ut::copyFile(source, folder / "existing"));
        CPPUNIT_ASSERT(folder.read("new") == content);
        CPPUNIT_ASSERT(folder.read("existing") == content);
    }

    void copyOntoItself()
    {
        TempFolder const folder;
        OdString const path = folder.write("file", "content");
        std::filesystem::create_symlink("file", folder.path() / "link");
        auto const before = std::filesystem::last_write_time(folder.path() / "file");
        CPPUNIT_ASSERT(ut::copyFile(path, path));
        CPPUNIT_ASSERT(ut::copyFile(folder / "link", folder / "./file"));
        CPPUNIT_ASSERT_EQUAL(std::string("content"), folder.read("file"));
        CPPUNIT_ASSERT(before == std::filesystem::last_write_time(folder.path() / "file"));
        CPPUNIT_ASSERT(!ut::copyFile(folder / "missing", folder / "missing"));
    }

    void failedCopySaysWhyAndChangesNothing()
    {
        TempFolder const folder;
        OdString const source = folder.write("source", "new");
        OdString const target = folder.write("target", "old");
        OdString reason;
        CPPUNIT_ASSERT(!ut::copyFile(folder / "missing", target, &reason));
        CPPUNIT_ASSERT_EQUAL("cannot read " + (folder / "missing").toUtf8() + ": No such file or directory",
                             reason.toUtf8());
        CPPUNIT_ASSERT(!ut::copyFile(folder / ".", target, &reason));
        CPPUNIT_ASSERT_EQUAL("cannot read " + (folder / ".").toUtf8() + ": Is a directory", reason.toUtf8());
        CPPUNIT_ASSERT(!ut::copyFile(source, folder / "none/target", &reason));
        CPPUNIT_ASSERT_EQUAL("cannot write " + (folder / "none/target").toUtf8() + ": No such file or directory",
                             reason.toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("old"), folder.read("target"));
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, folder.names().size());
    }

    void everyFaultKeepsTheTarget()
    {
        TempFolder const folder;
        OdString const source = folder.write("source", "new");
        OdString const target = folder.write("target", "old");
        bool isCopied = false;
        withEachFault([&] { isCopied = ut::copyFile(source, target); },
                      [&](int failing) {
                          std::string const content = folder.read("target");
                          CPPUNIT_ASSERT_MESSAGE(std::to_string(failing), content == "new" || !isCopied);
                          CPPUNIT_ASSERT_MESSAGE(std::to_string(failing), content == "new" || content == "old");
                          CPPUNIT_ASSERT_EQUAL(std::size_t{2}, folder.names().size());
                          folder.write("target", "old");
                      });
        CPPUNIT_ASSERT(isCopied);
    }

    void removes()
    {
        TempFolder const folder;
        OdString const path = folder.write("file", "x");
        std::filesystem::create_symlink("file", folder.path() / "link");
        CPPUNIT_ASSERT(ut::removeFile(folder / "link"));
        CPPUNIT_ASSERT(ut::fileExists(path));
        CPPUNIT_ASSERT(ut::removeFile(path));
        CPPUNIT_ASSERT(!ut::fileExists(path));
        OdString reason;
        CPPUNIT_ASSERT(!ut::removeFile(path, &reason));
        CPPUNIT_ASSERT_EQUAL("cannot remove " + path.toUtf8() + ": No such file or directory", reason.toUtf8());
        std::filesystem::create_directory(folder.path() / "folder");
        CPPUNIT_ASSERT(!ut::removeFile(folder / "folder"));
        CPPUNIT_ASSERT(std::filesystem::exists(folder.path() / "folder"));
    }

    /// Around the sizes where reading changes its way.
    void readsFilesOfAllSizes()
    {
        TempFolder const folder;
        for (std::size_t const size : {0U, 1U, 4095U, 4096U, 65535U, 65536U, 300000U}) {
            std::string content(size, 'a');
            for (std::size_t i = 0; i < size; ++i)
                content[i] = static_cast<char>(i * 7 % 251);
            OdString const path = folder.write("file", content);
            std::string bytes = "overwritten";
            CPPUNIT_ASSERT(ut::readWholeFile(path, bytes));
            CPPUNIT_ASSERT_MESSAGE(std::to_string(size), bytes == content);
            CPPUNIT_ASSERT_MESSAGE(std::to_string(size), ut::MappedFile(path).bytes() == content);
        }
    }

    void readsFilesWithoutSize()
    {
        std::string bytes;
        CPPUNIT_ASSERT(ut::readWholeFile(L"/proc/self/status", bytes));
        CPPUNIT_ASSERT(bytes.find("VmPeak") != std::string::npos);
        CPPUNIT_ASSERT(ut::MappedFile(L"/proc/self/status").bytes().find("VmPeak") != std::string::npos);
    }

    void unreadableFiles()
    {
        TempFolder const folder;
        std::string bytes = "kept";
        OdString reason;
        CPPUNIT_ASSERT(!ut::readWholeFile(folder / "missing", bytes, &reason));
        CPPUNIT_ASSERT_EQUAL("cannot read " + (folder / "missing").toUtf8() + ": No such file or directory",
                             reason.toUtf8());
        CPPUNIT_ASSERT(!ut::readWholeFile(folder / ".", bytes, &reason));
        CPPUNIT_ASSERT_EQUAL(std::string("kept"), bytes);
        auto const codeOf = [](OdString const& path) {
            try {
                ut::MappedFile const file(path);
            } catch (OdError const& error) {
                return error.code();
            }
            return eOk;
        };
        CPPUNIT_ASSERT_EQUAL(eFileNotFound, codeOf(folder / "missing"));
        CPPUNIT_ASSERT_EQUAL(eFileAccess, codeOf(folder / "."));
    }

    void readFaultsAreReported()
    {
        TempFolder const folder;
        OdString const path = folder.write("file", "content");
        bool isRead = false;
        std::string bytes;
        int const faults = withEachFault([&] { isRead = ut::readWholeFile(path, bytes = "kept"); },
                                         [&](int failing) {
                                             bool const isWhole = isRead && bytes == "content";
                                             bool const isRefused = !isRead && bytes == "kept";
                                             CPPUNIT_ASSERT_MESSAGE(std::to_string(failing), isWhole || isRefused);
                                         },
                                         EIO);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("open, fstat, two reads, close", 5, faults);
        CPPUNIT_ASSERT(isRead);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(FileTest);

} // namespace
