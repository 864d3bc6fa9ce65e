#include "testapi/ta_draw_utils.h"
#include "testapi/ta_test_helper.h"
#include "tests/support/od_result_of.h"
#include "tests/support/scoped_environment.h"
#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

OdDbDatabase& addLayerAndMakeItCurrent(OdDbDatabase& database)
{
    database.setCurrent(OdDbTableKind::kLayer, ta::createLayer(database));
    return database;
}

/// A change that cannot be taken back.
template <class Error>
struct FailingStep : OdDbUndoStep
{
    void revert(OdDbDatabase&) override { throw Error(eInvalidIndex); }
};
struct OtherError
{
    explicit OtherError(OdResult) {}
};

struct RefusesClosing : ca::DocumentListener
{
    RefusesClosing() { ca::app()->addListener(this); }
    ~RefusesClosing() override { ca::app()->removeListener(this); }
    void documentClosing(ca::CaDoc const*) override { throw OdError(eNotApplicable); }
};

struct RecordingViewState : ca::ViewState
{
    RecordingViewState() { ca::app()->setCurrentViewState(this); }
    ~RecordingViewState() override { ca::app()->setCurrentViewState(nullptr); }
    void reset(OdDbObjectId entity) override { resets += entity.isNull() ? 1 : 100; }

    int resets = 0;
};

/// Works in another document than the one it is bound to.
struct RedirectedFixture : ta::TestHelperEx
{
    explicit RedirectedFixture(ca::CaDoc& target) : document(target) {}
    ca::CaDoc& doc() const override { return document; }
    OdDbDatabase& db() const override { return *document.database(); }

    ca::CaDoc& document;
};

void assertNear(OdGeVector3d const& expected, OdGeVector3d const& actual)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL(expected.x, actual.x, 1e-8);
    CPPUNIT_ASSERT_DOUBLES_EQUAL(expected.y, actual.y, 1e-8);
    CPPUNIT_ASSERT_DOUBLES_EQUAL(expected.z, actual.z, 1e-8);
}

class TestHelperTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestHelperTest);
    CPPUNIT_TEST(takesEverythingBack);
    CPPUNIT_TEST(leavesUndoRecordingOff);
    CPPUNIT_TEST(takesBackOnlyWhatItArmed);
    CPPUNIT_TEST(undoThatFails);
    CPPUNIT_TEST(options);
    CPPUNIT_TEST(resetsTheViewState);
    CPPUNIT_TEST(defaultUcs);
    CPPUNIT_TEST(otherUcs);
    CPPUNIT_TEST(withoutDocument);
    CPPUNIT_TEST(opensFiles);
    CPPUNIT_TEST(closesWhatItOpened);
    CPPUNIT_TEST(closeThatFails);
    CPPUNIT_TEST(closeDoc);
    CPPUNIT_TEST(documentsClosedByTheTest);
    CPPUNIT_TEST(worksInTheRedirectedDocument);
    CPPUNIT_TEST(saves);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;
    ca::CaDoc* m_user = nullptr; // the document that the user works in

public:
    void setUp() override
    {
        closeAll();
        ca::app()->openFile();
        m_user = ca::curDoc();
        ta::executeCommands(L"LINE 0,0 1,0 \nCIRCLE 0,0 2");
    }
    void tearDown() override { closeAll(); }

private:
    static void closeAll()
    {
        sds_cmd(nullptr);
        while (ca::CaDoc* const document = ca::app()->getDocument(0))
            document->close();
    }
    static OdString entities(ca::CaDoc const& document)
    {
        OdString names;
        auto const space = document.database()->getModelSpaceId().open<OdDbBlockTableRecord>();
        for (auto it = space->newIterator(); !it.done(); it.step())
            names += it.objectId().openObject()->isA()->name() + L" ";
        return names;
    }
    static std::string bytesOf(ca::CaDoc const& document) { return dxf::writeBytes(*document.database()); }

    void takesEverythingBack()
    {
        struct Row
        {
            char const* what;
            void (*change)(ta::TestHelperEx&);
        };
        Row const rows[] = {
            {"nothing", [](ta::TestHelperEx&) {}},
            {"several commands", [](ta::TestHelperEx&) { ta::executeCommands(L"LINE 5,5 6,6 \nERASE ALL \n"); }},
            {"a command that waits", [](ta::TestHelperEx&) { ta::executeCommands(L"LINE 5,5 6,6"); }},
            {"no command", [](ta::TestHelperEx& f) { addLayerAndMakeItCurrent(f.db()).setTILEMODE(false); }},
            {"a coordinate system",
             [](ta::TestHelperEx& f) {
                 f.setDefaultUCS({1, 2, 3}, 4, 5, 6);
             }},
            {"records",
             [](ta::TestHelperEx& f) {
                 ta::createMaterial(f.db());
                 ta::createDimStyle(f.db());
                 ta::createTextStyle(f.db());
             }},
            {"U and UNDO",
             [](ta::TestHelperEx&) {
                 ta::executeCommands(L"POINT 1,1\nU\nU");
                 CPPUNIT_ASSERT(!failureOf([] { ta::executeCommands(L"UNDO Mark"); }).empty());
             }},
        };
        OdDbDatabase& database = *m_user->database();
        std::string const before = bytesOf(*m_user);
        for (Row const& row : rows) {
            OdDbHandle const seed = database.handseed();
            ta::TestHelperEx fixture;
            fixture.setUpDefault(false);
            row.change(fixture);
            fixture.tearDownDefault();
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.what, before, bytesOf(*m_user));
            CPPUNIT_ASSERT_MESSAGE(row.what, seed == database.handseed());
            CPPUNIT_ASSERT_MESSAGE(row.what, !m_user->isModified() && m_user->isUndoRecordingEnabled());
            CPPUNIT_ASSERT_MESSAGE(row.what, database.undoLog().isEnabled() && !ca::app()->isUndoInProgress());
            CPPUNIT_ASSERT_MESSAGE(row.what, ca::CommandProcessor::get().isIdle());
            ta::executeCommands(L"REDO");
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.what, before, bytesOf(*m_user));
            fixture.tearDownDefault(); // a second time there is nothing to take back
            CPPUNIT_ASSERT_EQUAL_MESSAGE(row.what, before, bytesOf(*m_user));
        }
        ta::executeCommands(L"U"); // the user goes on where he was
        CPPUNIT_ASSERT_EQUAL(std::string("OdDbLine "), entities(*m_user).toUtf8());
    }

    void leavesUndoRecordingOff()
    {
        m_user->enableUndoRecording(false);
        ta::TestHelperEx fixture;
        fixture.setUpDefault(false);
        CPPUNIT_ASSERT(m_user->database()->undoLog().isRecording());
        ta::executeCommands(L"POINT 1,1");
        fixture.tearDownDefault();
        CPPUNIT_ASSERT_EQUAL(std::string("OdDbLine OdDbCircle "), entities(*m_user).toUtf8());
        CPPUNIT_ASSERT(!m_user->isUndoRecordingEnabled() && !m_user->database()->undoLog().isEnabled());
    }

    void takesBackOnlyWhatItArmed()
    {
        ta::TestHelperEx fixture;
        fixture.setUpDoc();
        fixture.tearDownImp();
        CPPUNIT_ASSERT_EQUAL(std::string("OdDbLine OdDbCircle "), entities(*m_user).toUtf8());

        fixture.setUpImp();
        ta::executeCommands(L"POINT 1,1");
        ca::app()->openFile(); // the drawing in which the test ends is not the one in which it began
        fixture.setUpDoc();
        fixture.setUpImp(); // and its author forgot the tear-down
        ta::executeCommands(L"POINT 2,2");
        CPPUNIT_ASSERT_EQUAL(std::string("OdDbLine OdDbCircle "), entities(*m_user).toUtf8());
        fixture.tearDownImp();
        CPPUNIT_ASSERT(entities(*ca::curDoc()).isEmpty());
        CPPUNIT_ASSERT(m_user->isUndoRecordingEnabled() && ca::curDoc()->isUndoRecordingEnabled());
    }

    void undoThatFails()
    {
        oa::SysVars::setOSMODE(5);
        auto const failWith = [&](auto step) {
            ta::TestHelperEx fixture;
            fixture.setUpDefault(false);
            m_user->database()->undoLog().add(std::move(step));
            std::string const failure = failureOf([&] { fixture.tearDownDefault(); });
            CPPUNIT_ASSERT(m_user->isUndoRecordingEnabled() && m_user->database()->undoLog().isEnabled());
            CPPUNIT_ASSERT(!ca::app()->isUndoInProgress() && !m_user->database()->undoLog().hasRedo());
            CPPUNIT_ASSERT_EQUAL(5, int(oa::SysVars::getOSMODE()));
            fixture.tearDownDefault();
            return failure;
        };
        CPPUNIT_ASSERT_EQUAL("forced failure|OdError_" + OdError(eInvalidIndex).description().toUtf8(),
                             failWith(std::make_unique<FailingStep<OdError>>()));
        CPPUNIT_ASSERT_THROW(failWith(std::make_unique<FailingStep<OtherError>>()), OtherError);
        CPPUNIT_ASSERT(m_user->isUndoRecordingEnabled() && !ca::app()->isUndoInProgress());
        CPPUNIT_ASSERT_EQUAL(5, int(oa::SysVars::getOSMODE()));
        oa::SysVars::setOSMODE(37);
    }

    void options()
    {
        using Fixture = ta::TestHelperEx;
        m_user->database()->setTILEMODE(false);
        for (unsigned const options : {0U, 1U, 2U, 4U, 7U}) {
            Fixture fixture(options);
            fixture.setUpDefault(false);
            CPPUNIT_ASSERT_EQUAL((options & Fixture::kModelSpace) != 0, fixture.db().getTILEMODE());
            CPPUNIT_ASSERT_EQUAL((options & Fixture::kDefaultUCS) == 0,
                                 fixture.ucsToWorld() == OdGeMatrix3d::kIdentity);
            oa::SysVars::setOSMODE(9);
            fixture.tearDownDefault();
            CPPUNIT_ASSERT(!m_user->database()->getTILEMODE());
            CPPUNIT_ASSERT_EQUAL(options & Fixture::kStoreOsnaps ? 37 : 9, int(oa::SysVars::getOSMODE()));
            oa::SysVars::setOSMODE(37);
        }
    }

    void resetsTheViewState()
    {
        RecordingViewState const viewState;
        ta::TestHelperEx fixture;
        fixture.setUpDefault(false);
        CPPUNIT_ASSERT_EQUAL(0, viewState.resets);
        fixture.tearDownDefault();
        CPPUNIT_ASSERT_EQUAL(1, viewState.resets);
        fixture.setUpDefault(true);
        fixture.tearDownDefault();
        CPPUNIT_ASSERT_EQUAL(1, viewState.resets);
    }

    void defaultUcs()
    {
        ta::TestHelperEx fixture;
        fixture.setUpDefault(true);
        OdGeMatrix3d const& matrix = fixture.ucsToWorld();
        assertNear({0.813797681, 0.543838142, -0.204874129}, matrix.column(0));
        assertNear({-0.469846310, 0.823172945, 0.318795777}, matrix.column(1));
        assertNear({0.342020143, -0.163175911, 0.925416578}, matrix.column(2));
        assertNear({7, 8, 9}, matrix.translation());
        assertNear({0.342020143, -0.163175911, 0.925416578}, fixture.ucsNormal());
        CPPUNIT_ASSERT(fixture.worldToUcs() * matrix == OdGeMatrix3d::kIdentity);

        fixture.setUCSORG({1, 2, 3});
        assertNear({1, 2, 3}, fixture.ucsToWorld().translation());
        assertNear({0.813797681, 0.543838142, -0.204874129}, fixture.ucsToWorld().column(0));
        fixture.setDefaultUCS(); // the matrices wait for resetMatrix()
        assertNear({1, 2, 3}, fixture.ucsToWorld().translation());
        fixture.resetMatrix();
        assertNear({7, 8, 9}, fixture.ucsToWorld().translation());
        fixture.tearDownDefault();
    }

    void otherUcs()
    {
        ta::TestHelperEx fixture(0);
        fixture.setUpDefault(true);
        fixture.setDefaultUCS({1, 2, 3}, 90, 1e-11, 90); // the second turn is about what was the negative Y axis
        assertNear({0, 0, 1}, fixture.ucsToWorld().column(0));
        assertNear({-1, 0, 0}, fixture.ucsToWorld().column(1));
        assertNear({0, -1, 0}, fixture.ucsNormal());
        assertNear({0, 0, 0}, (fixture.worldToUcs() * OdGePoint3d(1, 2, 3)).asVector());
        fixture.tearDownDefault();
    }

    void withoutDocument()
    {
        closeAll();
        ta::TestHelperEx fixture;
        for (auto const& setUp : {std::function<void()>([&] { fixture.setUpDoc(); }),
                                  std::function<void()>([&] { fixture.setUpDefault(false); })}) {
            try {
                setUp();
                CPPUNIT_FAIL("set up without a document");
            } catch (char const* text) {
                CPPUNIT_ASSERT_EQUAL(std::string("No current document"), std::string(text));
            }
        }
        CPPUNIT_ASSERT_EQUAL(eNoDocument, odResultOf([&] { fixture.doc(); }));
        CPPUNIT_ASSERT_EQUAL(eNoDocument, odResultOf([&] { fixture.db(); }));
        CPPUNIT_ASSERT_EQUAL(eNoDocument, odResultOf([&] { fixture.resetMatrix(); }));
        fixture.closeDoc();
        fixture.tearDownDefault();
    }

    void opensFiles()
    {
        m_user->saveAs(m_folder / "a.dxf", 60);
        m_user->close();
        m_folder.write("bad.dxf", "no drawing");
        ScopedEnvironment const variable("VORN_DRAWINGS", m_folder.path().c_str());
        ta::TestHelperEx fixture;
        for (wchar_t const* const name : {L"$VORN_DRAWINGS\\a.dxf", L"%VORN_DRAWINGS%/a.dxf"}) {
            fixture.setUpDwgDoc(name);
            CPPUNIT_ASSERT(m_folder / "a.dxf" == fixture.doc().fileName());
            CPPUNIT_ASSERT(&fixture.doc() == ca::curDoc() && &fixture.db() == ca::curDb());
            CPPUNIT_ASSERT(fixture.doc().isUndoRecordingEnabled());
            fixture.tearDownDwgDoc();
            CPPUNIT_ASSERT_EQUAL(0, ca::app()->getDocumentsCount());
        }
        for (char const* const name : {"missing.dxf", "bad.dxf", ""}) {
            OdString const path = m_folder / name;
            std::string const failure = failureOf([&] { fixture.setUpDwgDoc(path); });
            CPPUNIT_ASSERT_EQUAL("assertion failed|Expression: false|failed to open the drawing: " + path.toUtf8(),
                                 failure);
            fixture.tearDownDefault();
        }
        fixture.setUpDwgDoc(L"");
        CPPUNIT_ASSERT(fixture.doc().fileName().isEmpty());
        fixture.tearDownDwgDoc();
        CPPUNIT_ASSERT_EQUAL(0, ca::app()->getDocumentsCount());
    }

    void closesWhatItOpened()
    {
        m_user->setDbModified(3);
        for (bool const isOtherCurrent : {false, true}) {
            ta::TestHelperEx fixture;
            fixture.setUpDefault(true);
            ta::executeCommands(L"POINT 1,1\nLINE 2,2"); // unsaved changes, and a command that waits
            CPPUNIT_ASSERT(fixture.doc().isModified());
            if (isOtherCurrent)
                odapDocManager()->activate(m_user, false);
            fixture.tearDownDefault();
            CPPUNIT_ASSERT_EQUAL(1, ca::app()->getDocumentsCount());
            CPPUNIT_ASSERT(ca::curDoc() == m_user && &fixture.doc() == m_user && &fixture.db() == ca::curDb());
            CPPUNIT_ASSERT_EQUAL(std::uint64_t(3), m_user->modifications());
            fixture.tearDownDefault();
            CPPUNIT_ASSERT_EQUAL(std::string("OdDbLine OdDbCircle "), entities(*m_user).toUtf8());
        }
    }

    void closeThatFails()
    {
        ta::TestHelperEx fixture;
        fixture.setUpDefault(true);
        std::string const title = fixture.doc().title().toUtf8();
        {
            RefusesClosing const refuses;
            CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: RTNORM == sds_cmd(cmd)"),
                                 failureOf([&] { fixture.closeDoc(); }));
            CPPUNIT_ASSERT(&fixture.doc() == ca::curDoc() && ca::curDoc() != m_user);
            CPPUNIT_ASSERT_EQUAL(
                "assertion failed|Expression: !ca::app()->hasDocument(opened)|failed to close the drawing: " +
                    title,
                failureOf([&] { fixture.tearDownDefault(); }));
        }
        CPPUNIT_ASSERT_EQUAL(37, int(oa::SysVars::getOSMODE()));
        CPPUNIT_ASSERT_EQUAL(2, ca::app()->getDocumentsCount());
    }

    void closeDoc()
    {
        ta::TestHelperEx fixture;
        for (char const* const changes : {"", "POINT 1,1"}) {
            fixture.setUpDefault(true);
            fixture.doc().setModified(false);
            ta::executeCommands(OdString::fromUtf8(changes));
            odapDocManager()->activate(m_user, false);
            fixture.closeDoc();
            CPPUNIT_ASSERT_EQUAL(1, ca::app()->getDocumentsCount());
            CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
            CPPUNIT_ASSERT_EQUAL(eNoDocument, odResultOf([&] { fixture.doc(); }));
            fixture.closeDoc();
            fixture.tearDownDefault();
            CPPUNIT_ASSERT_EQUAL(1, ca::app()->getDocumentsCount());
        }
    }

    void documentsClosedByTheTest()
    {
        for (bool const isNew : {true, false}) {
            ta::TestHelperEx fixture;
            fixture.setUpDefault(isNew);
            ca::curDoc()->close();
            CPPUNIT_ASSERT_EQUAL(eNoDocument, odResultOf([&] { fixture.db(); }));
            fixture.closeDoc();
            fixture.tearDownDefault();
            CPPUNIT_ASSERT_EQUAL(isNew ? 1 : 0, ca::app()->getDocumentsCount());
        }
    }

    void worksInTheRedirectedDocument()
    {
        ca::app()->openFile();
        ca::CaDoc& current = *ca::curDoc();
        std::string const before = bytesOf(*m_user);
        RedirectedFixture fixture(*m_user);
        fixture.setUpDefault(false);
        CPPUNIT_ASSERT(current.isUndoRecordingEnabled() && !m_user->isUndoRecordingEnabled());
        CPPUNIT_ASSERT(OdGeMatrix3d::kIdentity == oa::ucsToWorld(current.database()));
        assertNear({7, 8, 9}, oa::ucsToWorld(m_user->database()).translation());
        addLayerAndMakeItCurrent(fixture.db());
        fixture.tearDownDefault();
        CPPUNIT_ASSERT_EQUAL(before, bytesOf(*m_user));
        CPPUNIT_ASSERT(m_user->isUndoRecordingEnabled() && !m_user->isModified());
        fixture.closeDoc();
        CPPUNIT_ASSERT(!ca::app()->hasDocument(m_user) && ca::app()->hasDocument(&current));
    }

    void saves()
    {
        ScopedEnvironment const variable("VORN_DRAWINGS", m_folder.path().c_str());
        ta::TestHelperEx fixture;
        fixture.setUpDefault(true);
        fixture.saveFile(L"$VORN_DRAWINGS\\b.any");
        CPPUNIT_ASSERT_EQUAL(bytesOf(fixture.doc()), m_folder.read("b.any"));
        CPPUNIT_ASSERT(fixture.doc().fileName().isEmpty() && fixture.doc().isModified());
        OdString const path = m_folder / "no/folder.dxf";
        std::string const failure = failureOf([&] { fixture.saveFile(path.c_str()); });
        CPPUNIT_ASSERT_EQUAL(
            std::string("forced failure|failed to save the drawing: cannot write @/no/folder.dxf: "
                        "No such file or directory"),
            withoutFolder(failure, m_folder.path().string()));
        fixture.tearDownDefault();
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestHelperTest);

} // namespace
