#include "host/app/ca_app.h"

#include "host/app/ca_doc.h"
#include "host/app/ca_preferences.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/app/file_notes.h"
#include "host/app/sys_var_store.h"
#include "host/app/sys_vars.h"
#include "host/ut/ut_environment.h"
#include "host/ut/ut_file.h"
#include "host/ut/ut_file_name.h"

namespace ca {

namespace {

/// What stands at a path, links followed. Nothing equals nothing.
class FileIdentity
{
public:
    explicit FileIdentity(OdString const& path)
        : m_exists(ut::FileSystem::current().stat(path.toUtf8().c_str(), m_status) == 0)
    {
    }
    bool exists() const { return m_exists; }
    bool isSame(FileIdentity const& other) const
    {
        return m_exists && other.m_exists && m_status.st_dev == other.m_status.st_dev &&
               m_status.st_ino == other.m_status.st_ino;
    }

private:
    struct stat m_status = {};
    bool m_exists;
};

} // namespace

CaApp::CaApp()
    : m_commandLine(std::make_unique<CommandLine>()),
      m_variables(std::make_unique<SysVarStore>()),
      m_preferences(std::make_unique<AppPreferences>())
{
}

CaApp::~CaApp() = default;

CommandProcessor& CaApp::commandProcessor()
{
    if (!m_commandProcessor)
        m_commandProcessor = std::make_unique<CommandProcessor>();
    return *m_commandProcessor;
}

CaDoc* CaApp::getDocument(int index) const
{
    return index >= 0 && index < getDocumentsCount() ? m_documents[static_cast<std::size_t>(index)].get()
                                                     : nullptr;
}

CaDoc* CaApp::findByPointer(oa::ApDoc const* document) const
{
    auto const it = std::find_if(m_documents.begin(), m_documents.end(),
                                 [document](auto const& each) { return each.get() == document; });
    return it == m_documents.end() ? nullptr : it->get();
}

CaDoc* CaApp::findDocument(OdString const& path) const
{
    if (path.isEmpty())
        return nullptr;
    OdString const wanted = fullPath(path);
    for (auto const& document : m_documents)
        if (document->fileName() == wanted)
            return document.get();
    FileIdentity const identity(wanted);
    if (!identity.exists())
        return nullptr;
    for (auto const& document : m_documents)
        if (!document->fileName().isEmpty() && identity.isSame(FileIdentity(document->fileName())))
            return document.get();
    return nullptr;
}

OdString CaApp::fullPath(OdString const& path)
{
    ut::FileName name(path);
    name.normalize(ut::FileName::kTilde | ut::FileName::kAbsolute | ut::FileName::kDots);
    return name.getFullPath();
}

OdString CaApp::findFile(OdString const& name) const
{
    OdString inCurrentFolder = fullPath(name);
    if (ut::FileName(name).isAbsolute() || ut::fileExists(inCurrentFolder))
        return inCurrentFolder;
    for (OdString rest = oa::SysVars::getSRCHPATH(); !rest.isEmpty();) {
        OdString const folder = rest.spanExcluding(L";");
        rest.deleteChars(0, folder.getLength() + 1);
        ut::FileName candidate(name);
        if (!folder.isEmpty() &&
            candidate.normalize(ut::FileName::kAllButCase & ~unsigned(ut::FileName::kVariables),
                                ut::expandEnvironmentStrings(folder)) &&
            candidate.fileExists())
            return candidate.getFullPath();
    }
    return inCurrentFolder;
}

OdDbDatabasePtr CaApp::readFile(OdString const& path)
{
    dxf::ReadReport report;
    return readFile(findFile(path), report);
}

OdDbDatabasePtr CaApp::readFile(OdString const& file, dxf::ReadReport& report)
{
    try {
        OdDbDatabasePtr drawing = dxf::readFile(file, &report);
        showNotes(*m_commandLine, file, report);
        return drawing;
    } catch (std::exception const& error) {
        m_commandLine->message(OdString::fromUtf8(error.what()));
        return nullptr;
    }
}

bool CaApp::openFile(wchar_t const* path, bool readOnly, int asNew, bool makeCurrent)
{
    if (path && *path)
        return openPath(path, readOnly, asNew != 0, makeCurrent);
    makeCurrentIfWanted(addDocument(new OdDbDatabase, {}, readOnly), makeCurrent);
    return true;
}

bool CaApp::openPath(OdString const& path, bool readOnly, bool asNew, bool makeCurrent)
{
    OdString const file = findFile(path);
    if (CaDoc* const open = asNew ? nullptr : findDocument(file)) {
        if (makeCurrent)
            makeCurrentDocument(open);
        return true;
    }
    dxf::ReadReport report;
    OdDbDatabasePtr const drawing = readFile(file, report);
    if (drawing.isNull())
        return false;
    CaDoc& document = addDocument(drawing, asNew ? OdString() : file, readOnly && !asNew);
    document.setOpenReport(file, std::move(report));
    makeCurrentIfWanted(document, makeCurrent);
    return true;
}

CaDoc& CaApp::addDocument(OdDbDatabasePtr drawing, OdString const& fileName, bool readOnly)
{
    m_documents.push_back(std::make_unique<CaDoc>(*this, std::move(drawing), fileName, readOnly));
    CaDoc* const document = m_documents.back().get();
    m_recent.insert(m_recent.begin(), document);
    return *document;
}

void CaApp::makeCurrentIfWanted(CaDoc& document, bool isWanted)
{
    if (isWanted || !m_current)
        makeCurrentDocument(&document);
}

void CaApp::makeCurrentDocument(CaDoc* document)
{
    if (document == m_current)
        return;
    m_current = document;
    if (document) {
        std::erase(m_recent, document);
        m_recent.push_back(document);
    }
    notify([](DocumentListener& listener) { listener.currentDocumentChanged(); });
}

bool CaApp::activate(oa::ApDoc const* document)
{
    CaDoc* const found = findByPointer(document);
    if (found)
        makeCurrentDocument(found);
    return found != nullptr;
}

bool CaApp::activateAfterCommand(oa::ApDoc const* document)
{
    if (!m_commandProcessor || m_commandProcessor->isIdle())
        return activate(document);
    CaDoc* const found = findByPointer(document);
    if (found)
        m_activatedNext = found;
    return found != nullptr;
}

void CaApp::commandsEnded()
{
    if (CaDoc* const document = std::exchange(m_activatedNext, nullptr))
        makeCurrentDocument(document);
}

bool CaApp::closeDocument(oa::ApDoc const* document)
{
    CaDoc* const found = findByPointer(document);
    if (!found)
        return false;
    notify([found](DocumentListener& listener) { listener.documentClosing(found); });
    if (m_commandProcessor)
        m_commandProcessor->documentClosing(found);
    auto const it = std::find_if(m_documents.begin(), m_documents.end(),
                                 [found](auto const& each) { return each.get() == found; });
    if (it == m_documents.end())
        return true; // a listener closed it
    std::unique_ptr<CaDoc> const closing = std::move(*it);
    m_documents.erase(it);
    std::erase(m_recent, found);
    if (m_activatedNext == found)
        m_activatedNext = nullptr;
    if (m_current == found)
        makeCurrentDocument(m_recent.empty() ? nullptr : m_recent.back());
    return true;
}

template <class Notification>
void CaApp::notify(Notification notification)
{
    std::vector<DocumentListener*> const told = m_listeners;
    for (DocumentListener* const listener : told)
        if (std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end())
            notification(*listener);
}

void CaApp::addListener(DocumentListener* listener)
{
    m_listeners.push_back(listener);
}

void CaApp::removeListener(DocumentListener* listener)
{
    std::erase(m_listeners, listener);
}

CaApp* app()
{
    // Never destroyed: static objects of other libraries may ask for it at any time, up to the end of the process.
    static CaApp* const s_app = new CaApp;
    return s_app;
}

CaDoc* curDoc()
{
    return app()->currentDocument();
}

OdDbDatabase* curDb()
{
    CaDoc const* const document = curDoc();
    return document ? document->database() : nullptr;
}

void warningPrompt(OdString const& text)
{
    app()->commandLine().message(text);
}

AppPreferences& preferences()
{
    return app()->preferences();
}

} // namespace ca

namespace oa {

OaApp* app()
{
    return ca::app();
}

} // namespace oa
