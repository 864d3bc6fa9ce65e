#include "host/app/ca_doc.h"

#include "host/app/ca_app.h"
#include "host/app/command_line.h"
#include "host/app/file_notes.h"
#include "host/app/sys_var_store.h"
#include "host/db/od_db_selection_set.h"
#include "host/ut/ut_file_name.h"

#include <deque>

namespace ca {

namespace {

/// Memory of closed documents that waits before it is given back, the oldest in front.
struct Quarantine
{
    std::deque<void*> blocks;

    ~Quarantine()
    {
        for (void* const block : blocks)
            ::operator delete(block);
    }
    void take(void* block)
    {
        constexpr std::size_t kLongest = 256;
        blocks.push_back(block);
        if (blocks.size() <= kLongest)
            return;
        ::operator delete(blocks.front());
        blocks.pop_front();
    }
};

Quarantine& quarantine()
{
    static Quarantine s_quarantine;
    return s_quarantine;
}

} // namespace

void* CaDoc::operator new(std::size_t size)
{
    quarantine(); // made before the first document, so that it outlives the last
    return ::operator new(size);
}

void CaDoc::operator delete(void* memory)
{
    quarantine().take(memory);
}

CaDoc::CaDoc(CaApp& application, OdDbDatabasePtr drawing, OdString const& fileName, bool readOnly)
    : ApDoc(std::move(drawing)),
      m_application(application),
      m_serial(application.takeDocumentSerial()),
      m_isReadOnly(readOnly),
      m_savedCount(database()->changeCount()),
      m_variables(std::make_unique<SysVarStore>())
{
    setFileName(fileName);
}

CaDoc::~CaDoc() = default;

void CaDoc::setFileName(OdString const& fileName)
{
    m_fileName = fileName;
    if (fileName.isEmpty() && m_number == 0)
        m_number = m_application.takeDrawingNumber();
}

OdString CaDoc::title() const
{
    return m_fileName.isEmpty() ? odFormat(L"Drawing%d", m_number) : ut::FileName(m_fileName).getFullName();
}

bool CaDoc::saveAs(OdString const& path, int formatCode)
{
    try {
        OdString const fullPath = path.isEmpty() ? path : CaApp::fullPath(path);
        if (!fullPath.isEmpty())
            write(fullPath, formatCode);
        setFileName(fullPath);
        m_isReadOnly = false;
        return true;
    } catch (std::exception const& error) {
        m_application.commandLine().message(OdString::fromUtf8(error.what()));
        return false;
    }
}

void CaDoc::write(OdString const& fullPath, int formatCode)
{
    CaDoc const* const sameFile = m_application.findDocument(fullPath);
    if (sameFile == this && m_isReadOnly)
        throw OdError(eFileAccess,
                      odFormat(L"cannot write %ls: the drawing was opened read-only", fullPath.c_str()));
    if (sameFile && sameFile != this)
        throw OdError(eFileAccess,
                      odFormat(L"cannot write %ls: it is open as another document", fullPath.c_str()));
    writeCopy(fullPath, dxf::formatOfCode(formatCode));
    m_savedCount = database()->changeCount();
}

void CaDoc::writeCopy(OdString const& fullPath, dxf::FileFormat format) const
{
    dxf::SaveReport report;
    dxf::writeFile(*database(), fullPath, format, &report);
    showNotes(m_application.commandLine(), fullPath, report);
}

void CaDoc::setOpenReport(OdString const& path, dxf::ReadReport report)
{
    m_openedFrom = path;
    m_openReport = std::move(report);
}

void CaDoc::setDbModified(int modifications)
{
    m_savedCount = database()->changeCount() - static_cast<std::uint64_t>(std::max(modifications, 0));
}

void CaDoc::setModified(bool modified)
{
    if (modified != isModified())
        setDbModified(modified ? 1 : 0);
}

void CaDoc::close()
{
    m_application.closeDocument(this);
}

void CaDoc::setUndoControl(UndoControl const& control)
{
    m_undoControl = control;
    if (control.limit == EUndoLimit::kNone)
        database()->undoLog().clear();
    else if (control.limit == EUndoLimit::kOne)
        database()->undoLog().keepLastUnit();
}

bool CaDoc::beginUndoRecord(OdString const& command, bool ofViewOnly)
{
    if (!isUndoRecordingEnabled() || m_undoControl.limit == EUndoLimit::kNone)
        return false;
    database()->undoLog().start(command, ofViewOnly);
    return true;
}

void CaDoc::endUndoRecord()
{
    OdDbUndoLog& log = database()->undoLog();
    log.end();
    if (m_undoControl.combinesViews)
        log.combineViews();
    if (m_undoControl.limit == EUndoLimit::kOne)
        log.keepLastUnit();
}

OdSmartPtr<OdDbSelectionSet> CaDoc::previousSelection() const
{
    return m_previousSelection;
}

void CaDoc::setPreviousSelection(OdSmartPtr<OdDbSelectionSet> selection)
{
    m_previousSelection = std::move(selection);
}

} // namespace ca
