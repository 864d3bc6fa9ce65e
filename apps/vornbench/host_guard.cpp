#include "apps/vornbench/host_guard.h"

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"

#include <algorithm>

namespace {

constexpr std::size_t keptLines = 10;

std::string nameOf(ca::CaDoc const& document)
{
    return (document.fileName().isEmpty() ? document.title() : document.fileName()).toUtf8();
}

std::string textOf(ca::SysVarDifference const& difference)
{
    std::string const owner = difference.document.isEmpty() ? "" : " of " + difference.document.toUtf8();
    return "system variable " + difference.name.toUtf8() + owner + " changed from '" + difference.before.toUtf8() +
           "' to '" + difference.after.toUtf8() + "'";
}

ca::CaDoc* documentWith(std::uint64_t serial)
{
    ca::CaApp const& app = *ca::app();
    for (int i = 0; i < app.getDocumentsCount(); ++i)
        if (ca::CaDoc* const document = app.getDocument(i); document && document->serial() == serial)
            return document;
    return nullptr;
}

} // namespace

HostGuard::HostGuard()
{
    rememberState();
    ca::app()->commandLine().setListener([this](OdString const& line) {
        if (m_lines.size() == keptLines)
            m_lines.pop_front();
        m_lines.push_back(line.toUtf8());
    });
}

HostGuard::~HostGuard()
{
    ca::app()->commandLine().setListener({});
}

void HostGuard::rememberState()
{
    ca::CaApp const& app = *ca::app();
    m_documents.clear();
    for (int i = 0; i < app.getDocumentsCount(); ++i)
        if (ca::CaDoc const* const document = app.getDocument(i))
            m_documents.push_back({document->serial(), nameOf(*document)});
    m_currentSerial = app.currentDocument() ? app.currentDocument()->serial() : 0;
    m_variables.take();
}

void HostGuard::testEnds(TestOutcome& outcome)
{
    if (!outcome.hasPassed())
        outcome.commandLine.assign(m_lines.begin(), m_lines.end());
}

std::vector<std::string> HostGuard::restore()
{
    std::vector<std::string> leftovers;
    cancelCommand(leftovers);
    closeNewDocuments(leftovers);
    forgetClosedDocuments(leftovers);
    activateDocument(leftovers);
    restoreVariables(leftovers);
    return leftovers;
}

void HostGuard::cancelCommand(std::vector<std::string>& leftovers)
{
    ca::CommandProcessor& processor = ca::app()->commandProcessor();
    if (processor.isIdle())
        return;
    leftovers.push_back("the pending command " + processor.activeNames().toUtf8());
    processor.cancelAll();
}

bool HostGuard::isKnown(ca::CaDoc const& document) const
{
    return std::ranges::find(m_documents, document.serial(), &OpenDocument::serial) != m_documents.end();
}

void HostGuard::closeNewDocuments(std::vector<std::string>& leftovers)
{
    ca::CaApp& app = *ca::app();
    for (int i = app.getDocumentsCount(); i-- > 0;) {
        ca::CaDoc* const document = app.getDocument(i);
        if (!document || isKnown(*document))
            continue;
        leftovers.push_back("the open document " + nameOf(*document));
        try {
            document->close();
        } catch (std::exception const& error) {
            leftovers.back() += ", which cannot be closed: " + std::string(error.what());
        }
    }
}

void HostGuard::forgetClosedDocuments(std::vector<std::string>& leftovers)
{
    std::erase_if(m_documents, [&](OpenDocument const& known) {
        if (documentWith(known.serial))
            return false;
        leftovers.push_back("the document " + known.name + " closed");
        return true;
    });
}

void HostGuard::activateDocument(std::vector<std::string>& leftovers)
{
    ca::CaApp& app = *ca::app();
    std::uint64_t const current = app.currentDocument() ? app.currentDocument()->serial() : 0;
    if (current == m_currentSerial)
        return;
    if (ca::CaDoc* const document = documentWith(m_currentSerial)) {
        leftovers.push_back("another document than " + nameOf(*document) + " current");
        app.activate(document);
    } else {
        m_currentSerial = current; // that it is closed has been said
    }
}

void HostGuard::restoreVariables(std::vector<std::string>& leftovers)
{
    for (ca::SysVarDifference const& difference : m_variables.differences())
        leftovers.push_back(textOf(difference));
    std::vector<ca::SysVarDifference> const refused = m_variables.restore();
    for (ca::SysVarDifference const& difference : refused)
        leftovers.push_back(textOf(difference) + ", which cannot be taken back");
    if (!refused.empty())
        m_variables.take(); // the next tests are not to blame
}
