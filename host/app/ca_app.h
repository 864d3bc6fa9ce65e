#pragma once

#include "host/app/oa_app.h"

#include <memory>
#include <vector>

namespace dxf {
struct ReadReport;
}

namespace ca {

class AppPreferences;
class CaDoc;
class CommandLine;
class CommandProcessor;
class SysVarStore;
class ViewState;

/// Told of what happens to documents. Listeners may add and remove listeners while they are told.
class DocumentListener
{
public:
    virtual ~DocumentListener() = default;
    /// The document is still open, and current if it was. An exception keeps it open.
    virtual void documentClosing(CaDoc const*) {}
    /// Another document is current now, or none.
    virtual void currentDocumentChanged() {}
};

/// The application: its documents, command line and variables. While documents are open, one of them is current.
/// Paths are taken as they are, without references to environment variables; relative ones count from the current
/// folder. Failures are said on the command line.
class CaApp : public oa::OaApp
{
public:
    CaApp();
    ~CaApp() override;

    /// @name Documents, in the order of opening
    /// @{
    int getDocumentsCount() const { return static_cast<int>(m_documents.size()); }
    /// Null for an index out of range.
    CaDoc* getDocument(int index) const;
    bool hasDocument(oa::ApDoc const* document) const { return findByPointer(document) != nullptr; }
    /// Null when none is open.
    CaDoc* currentDocument() const { return m_current; }
    /// The document whose file this is: the same existing file, links followed, else the same full path, case and
    /// all. Null when there is none; an unnamed drawing is never found.
    CaDoc* findDocument(OdString const& path) const;

    /// Opens a drawing as document. Without a path: a new drawing from the built-in template. A relative path is
    /// also looked for in the folders of SRCHPATH. With `asNew` the document is an unnamed copy of the file.
    /// A file that is open already is made current (if asked to) and counts as success. On failure everything
    /// stays as it was.
    bool openFile(wchar_t const* path = nullptr, bool readOnly = false, int asNew = 0, bool makeCurrent = true);
    /// Reads a drawing without making it a document; null on failure.
    OdDbDatabasePtr readFile(OdString const& path);

    /// False for a document that is not open.
    bool activate(oa::ApDoc const* document);
    /// Activates the document once no command runs any more, at once if none does. The last request counts.
    bool activateAfterCommand(oa::ApDoc const* document);
    /// The command processor says so when its last command has ended.
    void commandsEnded();
    /// Closes without saving and without asking; the most recently current of the others becomes current. False
    /// for a document that is not open. The document does not exist afterwards.
    bool closeDocument(oa::ApDoc const* document);
    /// @}

    void addListener(DocumentListener* listener);
    void removeListener(DocumentListener* listener);

    CommandLine& commandLine() { return *m_commandLine; }
    CommandProcessor& commandProcessor();
    /// Values of the variables that the application keeps.
    SysVarStore& variables() { return *m_variables; }
    AppPreferences& preferences() { return *m_preferences; }
    /// Of the active view, null without one. Whoever installs it takes it out before it goes.
    ViewState* currentViewState() const { return m_viewState; }
    void setCurrentViewState(ViewState* state) { m_viewState = state; }

    /// The full path of an existing file, relative names also looked for in the folders of SRCHPATH. What is not
    /// found gives the full path under the current folder.
    OdString findFile(OdString const& name) const;
    /// Absolute, with "~" replaced and "." and ".." resolved; links are not. As it is when the current folder is
    /// needed and cannot be found out.
    static OdString fullPath(OdString const& path);

    /// @name For documents
    /// @{
    int takeDrawingNumber() { return ++m_drawingNumber; } ///< for the title of an unnamed drawing
    std::uint64_t takeDocumentSerial() { return ++m_documentSerial; }
    /// @}

private:
    template <class Notification>
    void notify(Notification notification);
    OdDbDatabasePtr readFile(OdString const& file, dxf::ReadReport& report);
    CaDoc& addDocument(OdDbDatabasePtr drawing, OdString const& fileName, bool readOnly);
    void makeCurrentIfWanted(CaDoc& document, bool isWanted);
    CaDoc* findByPointer(oa::ApDoc const* document) const;
    bool openPath(OdString const& path, bool readOnly, bool asNew, bool makeCurrent);
    void makeCurrentDocument(CaDoc* document);

    std::unique_ptr<CommandLine> m_commandLine;
    std::unique_ptr<SysVarStore> m_variables;
    std::unique_ptr<AppPreferences> m_preferences;
    std::vector<std::unique_ptr<CaDoc>> m_documents;
    std::vector<CaDoc*> m_recent; // all documents, the most recently current one last
    CaDoc* m_current = nullptr;
    CaDoc* m_activatedNext = nullptr; // once no command runs
    std::vector<DocumentListener*> m_listeners;
    int m_drawingNumber = 0;
    std::uint64_t m_documentSerial = 0;
    ViewState* m_viewState = nullptr;
    std::unique_ptr<CommandProcessor> m_commandProcessor; // last: goes first, it listens to the documents
};

/// The application object, made on first use; never null.
CaApp* app();
/// The current document and its drawing, null when none is open.
CaDoc* curDoc();
OdDbDatabase* curDb();

/// Shows a warning on the command line; never waits for anybody.
void warningPrompt(OdString const& text);
/// The same formatted as by OdString::format.
template <class... Arguments>
void warningPromptf(wchar_t const* format, Arguments... arguments)
{
    warningPrompt(odFormat(format, arguments...));
}

} // namespace ca
