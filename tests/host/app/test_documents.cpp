#include "host/app/ca_doc_manager.h"
#include "host/app/command_processor.h"
#include "tests/host/app/document_fixture.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

class DocumentTest : public DocumentFixture
{
    CPPUNIT_TEST_SUITE(DocumentTest);
    CPPUNIT_TEST(documentsStandInOrderOfOpening);
    CPPUNIT_TEST(findsByFileAndNotBySpelling);
    CPPUNIT_TEST(openingAnOpenFileMakesItCurrent);
    CPPUNIT_TEST(failedOpenLeavesEverything);
    CPPUNIT_TEST(opensInTheBackgroundAndAsNew);
    CPPUNIT_TEST(looksForRelativeNamesInTheSearchPath);
    CPPUNIT_TEST(theMostRecentlyCurrentFollowsAClosedOne);
    CPPUNIT_TEST(readsADrawingWithoutMakingADocument);
    CPPUNIT_TEST(managerPutsOffASwitchWhileACommandRuns);
    CPPUNIT_TEST(listenersHearOfDocuments);
    CPPUNIT_TEST(aThrowingListenerKeepsTheDocumentOpen);
    CPPUNIT_TEST(listenersMayLeaveWhileTheyAreTold);
    CPPUNIT_TEST_SUITE_END();

public:
    void documentsStandInOrderOfOpening()
    {
        CPPUNIT_ASSERT(!ca::curDoc() && !ca::curDb());
        ca::CaDoc& first = newDocument();
        ca::CaDoc& second = newDocument();
        CPPUNIT_ASSERT_EQUAL(2, m_app.getDocumentsCount());
        CPPUNIT_ASSERT(m_app.getDocument(0) == &first && m_app.getDocument(1) == &second);
        CPPUNIT_ASSERT(!m_app.getDocument(2) && !m_app.getDocument(-1));
        CPPUNIT_ASSERT(ca::curDoc() == &second && ca::curDb() == second.database());
        CPPUNIT_ASSERT(first.title() != second.title());
        CPPUNIT_ASSERT(first.fileName().isEmpty() && first.title().startsWith(L"Drawing"));
        CPPUNIT_ASSERT(!m_app.findDocument({}));
        CPPUNIT_ASSERT(!m_app.findDocument(first.title()));
    }

    void findsByFileAndNotBySpelling()
    {
        ca::CaDoc& part = savedDocument("part.dwg");
        savedDocument("Part.dwg");
        fs::create_symlink("part.dwg", m_folder.path() / "link.dxf");
        fs::create_directory(m_folder.path() / "sub");
        for (char const* const spelling : {"part.dwg", "link.dxf", "sub/../part.dwg", ".//part.dwg"})
            CPPUNIT_ASSERT_MESSAGE(spelling, m_app.findDocument(m_folder / spelling) == &part);
        fs::path const relative = fs::relative(m_folder.path() / "part.dwg");
        CPPUNIT_ASSERT(m_app.findDocument(OdString::fromUtf8(relative.string())) == &part);
        CPPUNIT_ASSERT(!m_app.findDocument(m_folder / "other.dwg"));

        fs::remove(m_folder.path() / "part.dwg");
        CPPUNIT_ASSERT(m_app.findDocument(m_folder / "sub/../part.dwg") == &part);
        CPPUNIT_ASSERT(!m_app.findDocument(m_folder / "link.dxf"));
    }

    void openingAnOpenFileMakesItCurrent()
    {
        ca::CaDoc& part = savedDocument("part.dwg");
        ca::CaDoc& other = newDocument();
        CPPUNIT_ASSERT(m_app.openFile((m_folder / "part.dwg").c_str(), false, 0, false));
        CPPUNIT_ASSERT(ca::curDoc() == &other);
        CPPUNIT_ASSERT(m_app.openFile((m_folder / "part.dwg").c_str()));
        CPPUNIT_ASSERT(ca::curDoc() == &part);
        CPPUNIT_ASSERT_EQUAL(2, m_app.getDocumentsCount());
    }

    void failedOpenLeavesEverything()
    {
        ca::CaDoc& current = newDocument();
        CPPUNIT_ASSERT(!m_app.openFile((m_folder / "missing.dwg").c_str()));
        CPPUNIT_ASSERT(lastMessageHas("missing.dwg"));
        CPPUNIT_ASSERT(!m_app.openFile(m_folder.write("text.dwg", "no drawing\n").c_str()));
        CPPUNIT_ASSERT(lastMessageHas("text.dwg"));
        CPPUNIT_ASSERT(!m_app.openFile((m_folder / ".").c_str()));
        CPPUNIT_ASSERT(ca::curDoc() == &current);
        CPPUNIT_ASSERT_EQUAL(1, m_app.getDocumentsCount());
    }

    void opensInTheBackgroundAndAsNew()
    {
        OdString const file = drawingFile("part.dwg");
        CPPUNIT_ASSERT(m_app.openFile(file.c_str(), false, 0, false));
        ca::CaDoc* const part = m_app.getDocument(0);
        CPPUNIT_ASSERT_MESSAGE("the only document is current in any case", ca::curDoc() == part);
        CPPUNIT_ASSERT(part->fileName() == file && part->title() == L"part.dwg" && !part->isModified());

        CPPUNIT_ASSERT(m_app.openFile(file.c_str(), false, 1));
        CPPUNIT_ASSERT(ca::curDoc() != part && ca::curDoc()->fileName().isEmpty());
        CPPUNIT_ASSERT(m_app.openFile(nullptr, false, 0, false));
        CPPUNIT_ASSERT_EQUAL(3, m_app.getDocumentsCount());
        CPPUNIT_ASSERT(ca::curDoc() == m_app.getDocument(1));
    }

    void looksForRelativeNamesInTheSearchPath()
    {
        fs::create_directories(m_folder.path() / "library/blocks");
        OdString const file = drawingFile("library/blocks/valve.dwg");
        CPPUNIT_ASSERT(!m_app.openFile(L"blocks/valve.dwg"));
        CPPUNIT_ASSERT(oa::SysVars::setSRCHPATH(L"/nowhere;;" + (m_folder / "library")));
        CPPUNIT_ASSERT(m_app.openFile(L"blocks/valve.dwg"));
        CPPUNIT_ASSERT(ca::curDoc()->fileName() == file);
    }

    void theMostRecentlyCurrentFollowsAClosedOne()
    {
        ca::CaDoc& a = newDocument();
        ca::CaDoc& b = newDocument();
        ca::CaDoc& c = newDocument();
        CPPUNIT_ASSERT(m_app.activate(&a));
        b.close();
        CPPUNIT_ASSERT_MESSAGE("closing another one switches nothing", ca::curDoc() == &a);
        CPPUNIT_ASSERT(!m_app.activate(&b) && !m_app.closeDocument(&b) && !m_app.hasDocument(&b));
        ca::CaDoc& d = newDocument();
        CPPUNIT_ASSERT(odapDocManager()->close(&d));
        CPPUNIT_ASSERT(ca::curDoc() == &a);
        a.close();
        CPPUNIT_ASSERT(ca::curDoc() == &c);
        c.close();
        CPPUNIT_ASSERT(!ca::curDoc() && m_app.getDocumentsCount() == 0);
    }

    void readsADrawingWithoutMakingADocument()
    {
        OdString const file = drawingFile("part.dwg");
        OdDbDatabasePtr const drawing = m_app.readFile(file);
        CPPUNIT_ASSERT(!drawing.isNull());
        CPPUNIT_ASSERT_EQUAL(0, m_app.getDocumentsCount());
        CPPUNIT_ASSERT(m_app.readFile(m_folder / "missing.dwg").isNull());
        CPPUNIT_ASSERT(lastMessageHas("missing.dwg"));
    }

    void managerPutsOffASwitchWhileACommandRuns()
    {
        ca::CaDoc& a = newDocument();
        ca::CaDoc& b = newDocument();
        CPPUNIT_ASSERT(odapDocManager()->activate(&a, true));
        CPPUNIT_ASSERT_MESSAGE("no command runs", ca::curDoc() == &a);
        CPPUNIT_ASSERT(ca::CommandProcessor::get().feed({ca::Input::ofText(L"SETVAR")}));
        CPPUNIT_ASSERT(odapDocManager()->activate(&b, true));
        CPPUNIT_ASSERT(ca::curDoc() == &a);
        ca::CommandProcessor::get().cancelAll();
        CPPUNIT_ASSERT(ca::curDoc() == &b);
        CPPUNIT_ASSERT(odapDocManager()->activate(&a, false) && ca::curDoc() == &a);
    }

    /// Notes what it hears.
    struct Listener : ca::DocumentListener
    {
        explicit Listener(ca::CaApp& application) : app(application) { app.addListener(this); }
        ~Listener() override { app.removeListener(this); }
        void documentClosing(ca::CaDoc const* document) override
        {
            CPPUNIT_ASSERT(app.hasDocument(document));
            heard += document == app.currentDocument() ? "closing current;" : "closing;";
            if (isRefusing)
                throw OdError(eNotApplicable);
        }
        void currentDocumentChanged() override
        {
            heard += app.currentDocument() ? "changed;" : "none;";
            if (isLeaving)
                app.removeListener(this);
        }

        ca::CaApp& app;
        std::string heard;
        bool isRefusing = false;
        bool isLeaving = false;
    };

    void listenersHearOfDocuments()
    {
        Listener listener(m_app);
        ca::CaDoc& a = newDocument();
        ca::CaDoc& b = newDocument();
        m_app.activate(&b);
        a.close();
        b.close();
        CPPUNIT_ASSERT_EQUAL(std::string("changed;changed;closing;closing current;none;"), listener.heard);
    }

    void aThrowingListenerKeepsTheDocumentOpen()
    {
        ca::CaDoc& document = newDocument();
        Listener listener(m_app);
        listener.isRefusing = true;
        CPPUNIT_ASSERT_THROW(document.close(), OdError);
        CPPUNIT_ASSERT(ca::curDoc() == &document);
        listener.isRefusing = false;
        document.close();
        CPPUNIT_ASSERT(!ca::curDoc());
    }

    void listenersMayLeaveWhileTheyAreTold()
    {
        Listener first(m_app), second(m_app);
        first.isLeaving = true;
        newDocument();
        newDocument();
        CPPUNIT_ASSERT_EQUAL(std::string("changed;"), first.heard);
        CPPUNIT_ASSERT_EQUAL(std::string("changed;changed;"), second.heard);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(DocumentTest);

} // namespace
