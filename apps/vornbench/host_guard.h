#pragma once

#include "apps/vornbench/test_surroundings.h"
#include "host/app/sys_var_snapshot.h"

#include <cstdint>
#include <deque>

namespace ca {
class CaDoc;
}

/// Keeps the application as it is now for each test of a run: no pending command, the open documents, the current
/// document, the system variables. Also keeps the last lines of the command line, which say why a test failed.
class HostGuard : public TestSurroundings
{
public:
    HostGuard();
    ~HostGuard() override;
    HostGuard(HostGuard const&) = delete;
    HostGuard& operator=(HostGuard const&) = delete;

    void testStarts() override { m_lines.clear(); }
    void testEnds(TestOutcome& outcome) override;
    std::vector<std::string> restore() override;

private:
    struct OpenDocument
    {
        std::uint64_t serial;
        std::string name;
    };

    void cancelCommand(std::vector<std::string>& leftovers);
    void closeNewDocuments(std::vector<std::string>& leftovers);
    void forgetClosedDocuments(std::vector<std::string>& leftovers);
    void activateDocument(std::vector<std::string>& leftovers);
    void restoreVariables(std::vector<std::string>& leftovers);
    void rememberState();
    bool isKnown(ca::CaDoc const& document) const;

    std::vector<OpenDocument> m_documents;
    std::uint64_t m_currentSerial = 0; ///< 0: none
    ca::SysVarSnapshot m_variables;
    std::deque<std::string> m_lines;
};
