#include "host/db/entities/od_db_line.h"
#include "host/db/records/od_db_block_table_record.h"
#include "tests/host/app/document_fixture.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

class SavingTest : public DocumentFixture
{
    CPPUNIT_TEST_SUITE(SavingTest);
    CPPUNIT_TEST(savingNamesTheDocument);
    CPPUNIT_TEST(emptyPathMakesTheDocumentUnnamed);
    CPPUNIT_TEST(failedSaveLeavesEverything);
    CPPUNIT_TEST(readOnlyDrawingsKeepTheirFile);
    CPPUNIT_TEST(doesNotTakeTheFileOfAnotherDocument);
    CPPUNIT_TEST(countsModifications);
    CPPUNIT_TEST(undoFlagIsThatOfTheDrawing);
    CPPUNIT_TEST_SUITE_END();

    static void addLine(ca::CaDoc& document)
    {
        OdDbDatabase& db = *document.database();
        db.getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite)->appendOdDbEntity(new OdDbLine);
    }

public:
    void savingNamesTheDocument()
    {
        ca::CaDoc& document = savedDocument("a.dwg");
        addLine(document);
        CPPUNIT_ASSERT(document.isModified());
        CPPUNIT_ASSERT(document.saveAs(m_folder / "sub/../b.dwg", 60));
        CPPUNIT_ASSERT(document.fileName() == m_folder / "b.dwg" && !document.isModified());
        CPPUNIT_ASSERT(!m_app.findDocument(m_folder / "a.dwg"));
        CPPUNIT_ASSERT(m_app.findDocument(m_folder / "b.dwg") == &document);
        CPPUNIT_ASSERT(m_folder.read("a.dwg") != m_folder.read("b.dwg"));
    }

    void emptyPathMakesTheDocumentUnnamed()
    {
        ca::CaDoc& document = savedDocument("a.dwg");
        std::string const content = m_folder.read("a.dwg");
        addLine(document);
        CPPUNIT_ASSERT(document.saveAs({}, 60));
        CPPUNIT_ASSERT(document.fileName().isEmpty() && document.title().startsWith(L"Drawing"));
        CPPUNIT_ASSERT(!m_app.findDocument(m_folder / "a.dwg"));
        CPPUNIT_ASSERT(m_folder.read("a.dwg") == content);
        CPPUNIT_ASSERT(m_folder.names() == std::set<std::string>{"a.dwg"});
    }

    void failedSaveLeavesEverything()
    {
        ca::CaDoc& document = savedDocument("a.dwg");
        addLine(document);
        CPPUNIT_ASSERT(!document.saveAs(m_folder / "missing/b.dwg", 60));
        CPPUNIT_ASSERT(lastMessageHas("missing/b.dwg"));
        CPPUNIT_ASSERT(!document.saveAs(m_folder / "b.dwg", 59));
        fs::create_directory(m_folder.path() / "folder");
        CPPUNIT_ASSERT(!document.saveAs(m_folder / "folder", 60));
        CPPUNIT_ASSERT(document.fileName() == m_folder / "a.dwg" && document.isModified());
        CPPUNIT_ASSERT((m_folder.names() == std::set<std::string>{"a.dwg", "folder"}));
    }

    void readOnlyDrawingsKeepTheirFile()
    {
        OdString const file = drawingFile("a.dwg");
        fs::create_symlink("a.dwg", m_folder.path() / "link.dwg");
        CPPUNIT_ASSERT(m_app.openFile(file.c_str(), true));
        ca::CaDoc& document = *ca::curDoc();
        CPPUNIT_ASSERT(document.isReadOnly());
        CPPUNIT_ASSERT(!document.saveAs(file, 60));
        CPPUNIT_ASSERT(lastMessageHas("read-only"));
        CPPUNIT_ASSERT(!document.saveAs(m_folder / "link.dwg", 60));
        CPPUNIT_ASSERT(document.saveAs(m_folder / "b.dwg", 60));
        CPPUNIT_ASSERT(!document.isReadOnly() && document.saveAs(m_folder / "b.dwg", 60));
    }

    void doesNotTakeTheFileOfAnotherDocument()
    {
        savedDocument("a.dwg");
        ca::CaDoc& other = newDocument();
        CPPUNIT_ASSERT(!other.saveAs(m_folder / "a.dwg", 60));
        CPPUNIT_ASSERT(lastMessageHas("open as another document"));
        CPPUNIT_ASSERT(other.fileName().isEmpty());
    }

    void countsModifications()
    {
        ca::CaDoc& document = newDocument();
        CPPUNIT_ASSERT(!document.isModified());
        document.setModified(true);
        CPPUNIT_ASSERT_EQUAL(std::uint64_t(1), document.modifications());
        document.setDbModified(5);
        document.setModified(true);
        CPPUNIT_ASSERT_EQUAL(std::uint64_t(5), document.modifications());
        document.setDbModified(0);
        CPPUNIT_ASSERT(!document.isModified());
        addLine(document);
        CPPUNIT_ASSERT(document.isModified());
        document.setModified(false);
        CPPUNIT_ASSERT(!document.isModified());
    }

    void undoFlagIsThatOfTheDrawing()
    {
        ca::CaDoc& document = newDocument();
        OdDbUndoLog& log = document.database()->undoLog();
        CPPUNIT_ASSERT(document.isUndoRecordingEnabled() && log.isEnabled() && !log.hasUndo());
        document.enableUndoRecording(false);
        CPPUNIT_ASSERT(!log.isEnabled() && document.flags() == 0);
        document.enableUndoRecording(true);
        CPPUNIT_ASSERT(log.isEnabled() && document.flags() == oa::ApDoc::kRecordsUndo);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SavingTest);

} // namespace
