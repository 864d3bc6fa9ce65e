// NEW, OPEN, SAVE, SAVEAS and CLOSE: their questions and failures. What saving and opening do: test_documents.cpp.
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/sds/sds.h"
#include "host/ut/ut_file_system.h"
#include "tests/host/app/draw_script.h"
#include "tests/support/temp_folder.h"

#include <cppunit/extensions/HelperMacros.h>

#include <fcntl.h>

namespace {

/// A folder in which nothing can be written.
class ReadOnlyFolder : public ut::FileSystem
{
public:
    explicit ReadOnlyFolder(OdString const& folder) : m_folder(folder.toUtf8()) {}
    int open(char const* path, int flags, mode_t mode) override
    {
        bool const writes = (flags & (O_WRONLY | O_RDWR | O_CREAT)) != 0;
        if (writes && std::string_view(path).starts_with(m_folder)) {
            errno = EACCES;
            return -1;
        }
        return FileSystem::open(path, flags, mode);
    }

private:
    std::string m_folder;
};

class TestFileCommands : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestFileCommands);
    CPPUNIT_TEST(newDrawings);
    CPPUNIT_TEST(opens);
    CPPUNIT_TEST(openFailures);
    CPPUNIT_TEST(savesUnderANewName);
    CPPUNIT_TEST(saveUnderAnotherNameWritesACopy);
    CPPUNIT_TEST(asksBeforeItReplacesAFile);
    CPPUNIT_TEST(fileOfAnotherDocumentIsNotReplaced);
    CPPUNIT_TEST(failedSavingLeavesFileAndName);
    CPPUNIT_TEST(closeOfAnUnmodifiedDrawingAsksNothing);
    CPPUNIT_TEST(closeAsksToSave);
    CPPUNIT_TEST(closeThatCannotSaveKeepsTheDrawing);
    CPPUNIT_TEST_SUITE_END();

public:
    void newDrawings()
    {
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"POINT|1,1|NEW|.|CIRCLE|0,0|2"));
        CPPUNIT_ASSERT_EQUAL(2, ca::app()->getDocumentsCount());
        CPPUNIT_ASSERT_EQUAL(std::string("CIRCLE 0,0 r2"), drawn().toUtf8());
        run(L"SAVEAS|" + file("template.dxf"));
        run(L"NEW|" + file("template.dxf"));
        CPPUNIT_ASSERT_EQUAL(std::string("CIRCLE 0,0 r2"), drawn().toUtf8());
        CPPUNIT_ASSERT(ca::curDoc()->fileName().isEmpty());
    }

    void opens()
    {
        run(L"POINT|1,1|SAVEAS|" + file("a.dwg") + L"|CLOSE");
        CPPUNIT_ASSERT(!ca::curDoc());
        run(L"OPEN|" + file("a.dwg"));
        CPPUNIT_ASSERT_EQUAL(file("a.dwg").toUtf8(), ca::curDoc()->fileName().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 1,1"), drawn().toUtf8());
        CPPUNIT_ASSERT(!ca::curDoc()->isModified());
    }

    void openFailures()
    {
        ca::CaDoc* const before = ca::curDoc();
        m_folder.write("text.dxf", "no drawing\n");
        for (char const* const name : {"missing.dxf", "text.dxf"}) {
            CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"OPEN|" + file(name) + L"|POINT|9,9"));
            CPPUNIT_ASSERT_MESSAGE(lastPrompt().toUtf8(), lastPrompt().find(file(name).str()) != OdString::npos);
            CPPUNIT_ASSERT(ca::curDoc() == before && ca::app()->getDocumentsCount() == 1);
        }
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"NEW|" + file("missing.dxf")));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"OPEN|"));
        CPPUNIT_ASSERT_EQUAL(std::string("A file name is required."), lastPrompt().toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
    }

    void savesUnderANewName()
    {
        run(L"POINT|1,1|SAVEAS|" + file("a.dwg"));
        CPPUNIT_ASSERT(!ca::curDoc()->isModified());
        CPPUNIT_ASSERT_EQUAL(file("a.dwg").toUtf8(), ca::curDoc()->fileName().toUtf8());
        std::string const first = m_folder.read("a.dwg");
        run(L"POINT|2,2|SAVEAS|"); // Enter takes the present name and does not ask again
        CPPUNIT_ASSERT(m_folder.read("a.dwg") != first);
        run(L"SAVEAS|" + file("sub/../b.dwg"));
        CPPUNIT_ASSERT_EQUAL(file("b.dwg").toUtf8(), ca::curDoc()->fileName().toUtf8());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"NEW|"));
        CPPUNIT_ASSERT_EQUAL_MESSAGE("an unnamed drawing has no name to take", int(RTERROR), feed(L"SAVE|"));
        run(L"SAVE|" + file("c.dwg"));
        CPPUNIT_ASSERT_EQUAL(file("c.dwg").toUtf8(), ca::curDoc()->fileName().toUtf8());
    }

    void saveUnderAnotherNameWritesACopy()
    {
        run(L"SAVEAS|" + file("a.dwg"));
        std::string const before = m_folder.read("a.dwg");
        run(L"POINT|1,1|SAVE|" + file("copy.dwg"));
        CPPUNIT_ASSERT_EQUAL(file("a.dwg").toUtf8(), ca::curDoc()->fileName().toUtf8());
        CPPUNIT_ASSERT_MESSAGE("its own file does not have the change", ca::curDoc()->isModified());
        CPPUNIT_ASSERT(m_folder.read("a.dwg") == before && m_folder.read("copy.dwg") != before);
        run(L"SAVE|");
        CPPUNIT_ASSERT(!ca::curDoc()->isModified());
        CPPUNIT_ASSERT(m_folder.read("a.dwg") == m_folder.read("copy.dwg"));
    }

    void asksBeforeItReplacesAFile()
    {
        m_folder.write("old.dwg", "old");
        run(L"SAVEAS|" + file("old.dwg"));
        CPPUNIT_ASSERT_EQUAL(std::string("A file of this name exists. Replace it? [Yes/No] <No>: "),
                             lastPrompt().toUtf8());
        run(L"");
        CPPUNIT_ASSERT_EQUAL(std::string("old"), m_folder.read("old.dwg"));
        CPPUNIT_ASSERT(ca::curDoc()->fileName().isEmpty());
        run(L"SAVE|" + file("old.dwg") + L"|Y");
        CPPUNIT_ASSERT(m_folder.read("old.dwg") != "old");
        CPPUNIT_ASSERT_EQUAL(file("old.dwg").toUtf8(), ca::curDoc()->fileName().toUtf8());
    }

    void fileOfAnotherDocumentIsNotReplaced()
    {
        run(L"SAVEAS|" + file("other.dwg") + L"|NEW||POINT|1,1");
        run(L"SAVEAS|" + file("mine.dwg"));
        std::string const other = m_folder.read("other.dwg");
        for (wchar_t const* const command : {L"SAVE|", L"SAVEAS|"}) {
            CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(command + file("other.dwg") + L"|Y"));
            CPPUNIT_ASSERT(lastPrompt().find(L"open as another document") != OdString::npos);
            CPPUNIT_ASSERT_EQUAL(other, m_folder.read("other.dwg"));
        }
        CPPUNIT_ASSERT_EQUAL(file("mine.dwg").toUtf8(), ca::curDoc()->fileName().toUtf8());
    }

    void failedSavingLeavesFileAndName()
    {
        run(L"SAVEAS|" + file("a.dwg") + L"|POINT|1,1");
        std::string const before = m_folder.read("a.dwg");
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"SAVEAS|" + file("missing/b.dwg") + L"|POINT|9,9"));
        {
            ReadOnlyFolder readOnly(file(""));
            ut::ScopedReplacement<ut::FileSystem> const replacement(readOnly);
            CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"SAVE|"));
            CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"SAVE|" + file("copy.dwg")));
            CPPUNIT_ASSERT(lastPrompt().find(L"copy.dwg") != OdString::npos);
        }
        CPPUNIT_ASSERT_EQUAL(before, m_folder.read("a.dwg"));
        CPPUNIT_ASSERT(m_folder.names() == std::set<std::string>{"a.dwg"});
        CPPUNIT_ASSERT_EQUAL(file("a.dwg").toUtf8(), ca::curDoc()->fileName().toUtf8());
        CPPUNIT_ASSERT(ca::curDoc()->isModified());
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 1,1"), drawn().toUtf8());
    }

    void closeOfAnUnmodifiedDrawingAsksNothing()
    {
        ca::CaDoc* const first = ca::curDoc();
        run(L"NEW||SAVEAS|" + file("a.dwg") + L"|CLOSE|POINT|1,1");
        CPPUNIT_ASSERT(ca::curDoc() == first);
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 1,1"), drawn().toUtf8());
    }

    void closeAsksToSave()
    {
        run(L"SAVEAS|" + file("a.dwg") + L"|POINT|1,1|CLOSE");
        CPPUNIT_ASSERT_EQUAL(std::string("Save changes to a.dwg? [Yes/No] <Yes>: "), lastPrompt().toUtf8());
        run(L"");
        CPPUNIT_ASSERT(!ca::curDoc());
        run(L"OPEN|" + file("a.dwg"));
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 1,1"), drawn().toUtf8());
        run(L"POINT|2,2|CLOSE|N|OPEN|" + file("a.dwg"));
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 1,1"), drawn().toUtf8());
        run(L"NEW||POINT|3,3|CLOSE|Y|" + file("new.dwg") + L"|OPEN|" + file("new.dwg"));
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 3,3"), drawn().toUtf8());
    }

    void closeThatCannotSaveKeepsTheDrawing()
    {
        m_folder.write("old.dwg", "old");
        run(L"POINT|1,1|CLOSE|Y|" + file("old.dwg") + L"|N");
        CPPUNIT_ASSERT_MESSAGE("the user would not replace the file", ca::curDoc());
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"CLOSE|Y|" + file("missing/b.dwg")));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"CLOSE|Y|"));
        CPPUNIT_ASSERT_EQUAL(std::string("POINT 1,1"), drawn().toUtf8());
        CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
    }

private:
    OdString file(std::string const& name) const { return m_folder / name; }
    static void run(OdString const& script)
    {
        int const result = feed(script);
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM), result);
    }

    TempFolder m_folder;
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestFileCommands);

} // namespace
