// The life of a test's document: binding, arming undo, taking back, closing; and the coordinate system of the
// test.
#include "testapi/ta_test_helper.h"

#include "testapi/ta_assert.h"
#include "testapi/ta_draw_utils.h"
#include "testapi/ta_resbuf.h"
#include "testapi/ta_utils.h"

#include <utility>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_helper";

void openAsDocument(wchar_t const* path)
{
    // What is shown as the expression is the same for a file that is missing and one that cannot be read.
    bool const isOpened = (!path || ut::fileExists(path)) && ca::app()->openFile(path, false, 0, true);
    if (!isOpened)
        failCheck("false", odFormat(L"failed to open the drawing: %ls", path ? path : L""), {s_area, __LINE__});
}

void takeBack(OdDbDatabase& database)
{
    sds_cmd(nullptr);
    database.disableUndoRecording(true);
    oa::UndoInProgress const inProgress;
    database.undo();
}

/// Brings undo recording back to what it was, and forgets what the test did: nobody is to redo that. The document
/// may have been closed.
void disarm(ca::CaDoc* document, OdDbDatabase& database, bool wasEnabled)
{
    database.undoLog().forgetUndone();
    database.disableUndoRecording(!wasEnabled);
    if (ca::app()->hasDocument(document) && document->isUndoRecordingEnabled() != wasEnabled)
        document->enableUndoRecording(wasEnabled);
}

} // namespace

TestHelperMark::~TestHelperMark() = default;

TestHelper::TestHelper(unsigned options) : m_options(options) {}

TestHelper::~TestHelper() = default;

ca::CaDoc& TestHelper::doc() const
{
    if (!m_pDoc || !ca::app()->hasDocument(m_pDoc))
        throw OdError(eNoDocument);
    return *m_pDoc;
}

OdDbDatabase& TestHelper::db() const
{
    if (!m_pDoc || !ca::app()->hasDocument(m_pDoc))
        throw OdError(eNoDocument);
    return *m_pDb;
}

void TestHelper::setUpDoc()
{
    if (!ca::curDb())
        throw "No current document"; // a text, not an error: the framework reports it as an unknown exception
    m_pDb = ca::curDb();
    m_pDoc = ca::curDoc();
}

void TestHelper::setUpImp()
{
    tearDownImp(); // of a set-up that was not followed by a tear-down
    setUpDoc();
    ca::CaDoc& document = doc();
    OdDbDatabase& database = db();
    m_undoWasEnabled = document.isUndoRecordingEnabled();
    if (m_undoWasEnabled)
        document.enableUndoRecording(false);
    m_armedDoc = &document;
    m_armedDb = &database;
    database.disableUndoRecording(false);
    database.startUndoRecord();
}

void TestHelper::setUpDwgDoc(OdString const& fileName)
{
    if (fileName.isEmpty()) {
        openAsDocument(nullptr);
    } else {
        OdString path = fileNameExpEnv(fileName);
        openAsDocument(ut::correctSlashes(path).c_str());
    }
    setUpDoc();
    m_docOpenedHere = true;
}

void TestHelper::tearDownImp()
{
    if (m_armedDb.isNull())
        return;
    ca::CaDoc* const document = std::exchange(m_armedDoc, nullptr);
    OdDbDatabasePtr const database = std::exchange(m_armedDb, OdDbDatabasePtr());
    try {
        takeBack(*database);
    } catch (OdError const& error) {
        disarm(document, *database, m_undoWasEnabled);
        failForced(L"OdError_" + error.description(), {s_area, __LINE__});
    } catch (...) {
        disarm(document, *database, m_undoWasEnabled);
        throw;
    }
    disarm(document, *database, m_undoWasEnabled);
    if (ca::app()->hasDocument(document))
        document->setModified(false);
}

void TestHelper::tearDownDwgDoc()
{
    ca::CaDoc* const opened = std::exchange(m_docOpenedHere, false) ? m_pDoc : nullptr;
    if (!opened)
        return;
    if (ca::app()->hasDocument(opened)) {
        sds_cmd(nullptr);
        opened->setDbModified(0);
        odapDocManager()->activate(opened, false);
        sds_command(RTSTR, L"._CLOSE", RTNONE);
    }
    m_pDoc = ca::curDoc();
    m_pDb = ca::curDb();
    if (ca::app()->hasDocument(opened)) // only then has it a title
        failCheck("!ca::app()->hasDocument(opened)", L"failed to close the drawing: " + opened->title(),
                  {s_area, __LINE__});
}

void TestHelper::closeDoc()
{
    if (!m_pDoc || !ca::app()->hasDocument(m_pDoc))
        return;
    sds_cmd(nullptr);
    ca::CaDoc& document = doc();
    odapDocManager()->activate(&document, false);
    ca::RbListPtr const list(sds_buildlist(RTSTR, L"._close", RTNONE));
    if (document.isModified()) {
        sds_resbuf* command = list.get();
        rbAppend(command, sds_buildlist(RTSTR, L"_no", RTNONE));
    }
    sds_resbuf const* const cmd = list.get();
    TA_CHECK(RTNORM == sds_cmd(cmd));
    m_pDoc = nullptr;
    m_pDb = nullptr;
}

void TestHelper::setDefaultUCS()
{
    setUCS(doc(), 10.0, 20.0, 30.0);
    ta::setUCSORG(doc(), {7.0, 8.0, 9.0});
}

void TestHelper::setDefaultUCS(OdGePoint3d const& origin, double rotX, double rotY, double rotZ)
{
    setUCS(doc(), rotX, rotY, rotZ);
    setUCSORG(origin);
}

void TestHelper::setUCSORG(OdGePoint3d const& origin)
{
    ta::setUCSORG(doc(), origin);
    resetMatrix();
}

void TestHelper::resetMatrix()
{
    OdGePoint3d origin;
    OdGeVector3d xAxis;
    OdGeVector3d yAxis;
    oa::getUCS(&db(), origin, xAxis, yAxis, m_ucsNormal);
    m_ucsToWorld.setCoordSystem(origin, xAxis, yAxis, m_ucsNormal);
    m_worldToUcs = m_ucsToWorld.inverse();
}

void TestHelper::saveFile(wchar_t const* fileName)
{
    ta::saveFile(db(), fileName);
}

void TestHelperEx::setUpDefault(bool newDoc)
{
    if (newDoc)
        setUpNewDoc();
    else
        setUpImp();
    if ((m_options & kModelSpace) && !db().getTILEMODE())
        db().setTILEMODE(true);
    m_viewState = ca::app()->currentViewState();
    if (m_options & kStoreOsnaps)
        m_osnapStore.store(nullptr, 0);
    if (m_options & kDefaultUCS)
        setDefaultUCS();
    resetMatrix();
}

void TestHelperEx::tearDownDefault()
{
    try {
        if (m_docOpenedHere) {
            tearDownNewDoc();
        } else {
            tearDownImp();
            if (ca::ViewState* const viewState = ca::app()->currentViewState())
                viewState->reset(OdDbObjectId::kNull);
            if (ca::CaDoc* const current = ca::curDoc())
                current->flushGraphics();
        }
    } catch (...) {
        m_osnapStore.restore();
        throw;
    }
    m_osnapStore.restore();
}

} // namespace ta
