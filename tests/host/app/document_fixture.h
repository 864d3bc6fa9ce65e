#pragma once

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/sys_var_store.h"
#include "host/app/sys_vars.h"
#include "tests/support/temp_folder.h"

#include <cppunit/TestFixture.h>
#include <cppunit/extensions/HelperMacros.h>

/// An application without documents, before and after each test.
class DocumentFixture : public CppUnit::TestFixture
{
public:
    void setUp() override
    {
        closeAll();
        m_variables = m_app.variables();
    }
    void tearDown() override
    {
        closeAll();
        m_app.variables() = m_variables;
    }

protected:
    ca::CaDoc& newDocument()
    {
        CPPUNIT_ASSERT(m_app.openFile());
        return *m_app.currentDocument();
    }
    /// A new drawing saved under this name in the test's folder, still open.
    ca::CaDoc& savedDocument(std::string const& name)
    {
        ca::CaDoc& document = newDocument();
        CPPUNIT_ASSERT(document.saveAs(m_folder / name, 60));
        return document;
    }
    /// A drawing file that is not open.
    OdString drawingFile(std::string const& name)
    {
        savedDocument(name).close();
        return m_folder / name;
    }
    std::string lastMessage() const { return m_app.commandLine().lastPrompt().toUtf8(); }
    bool lastMessageHas(std::string const& text) const { return lastMessage().find(text) != std::string::npos; }

    ca::CaApp& m_app = *ca::app();
    TempFolder m_folder;

private:
    void closeAll()
    {
        while (ca::CaDoc* const document = m_app.getDocument(0))
            document->close();
    }

    ca::SysVarStore m_variables;
};
