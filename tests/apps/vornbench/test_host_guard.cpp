#include "apps/vornbench/host_guard.h"
#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/app/sds_cmd.h"
#include "host/app/sys_vars.h"
#include "host/sds/sds.h"

#include <cppunit/extensions/HelperMacros.h>

class TestHostGuard : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestHostGuard);
    CPPUNIT_TEST(quietWhenNothingIsLeft);
    CPPUNIT_TEST(cancelsThePendingCommand);
    CPPUNIT_TEST(bringsDocumentsBack);
    CPPUNIT_TEST(bringsVariablesBack);
    CPPUNIT_TEST(tellsOfAClosedDocumentOnce);
    CPPUNIT_TEST(failedTestsCarryTheCommandLine);
    CPPUNIT_TEST_SUITE_END();

    ca::CaDoc* m_document = nullptr;

    static std::string joined(std::vector<std::string> const& leftovers)
    {
        std::string text;
        for (std::string const& leftover : leftovers)
            text += (text.empty() ? "" : "; ") + leftover;
        return text;
    }

public:
    void setUp() override
    {
        CPPUNIT_ASSERT(ca::app()->openFile());
        m_document = ca::curDoc();
    }
    void tearDown() override
    {
        while (ca::app()->getDocumentsCount() > 0)
            ca::app()->closeDocument(ca::app()->getDocument(0));
    }

private:
    void quietWhenNothingIsLeft()
    {
        HostGuard guard;
        CPPUNIT_ASSERT_EQUAL(std::string(), joined(guard.restore()));
    }

    void cancelsThePendingCommand()
    {
        HostGuard guard;
        sds_command(RTSTR, L"LINE", 0);
        CPPUNIT_ASSERT(!ca::CommandProcessor::get().isIdle());
        CPPUNIT_ASSERT_EQUAL(std::string("the pending command LINE"), joined(guard.restore()));
        CPPUNIT_ASSERT(ca::CommandProcessor::get().isIdle());
    }

    void bringsDocumentsBack()
    {
        CPPUNIT_ASSERT(ca::app()->openFile());
        ca::CaDoc* const second = ca::curDoc();
        HostGuard guard;
        CPPUNIT_ASSERT(ca::app()->openFile());
        std::string const opened = ca::curDoc()->title().toUtf8();
        ca::app()->activate(m_document);
        CPPUNIT_ASSERT_EQUAL("the open document " + opened + "; another document than " +
                                 second->title().toUtf8() + " current",
                             joined(guard.restore()));
        CPPUNIT_ASSERT_EQUAL(2, ca::app()->getDocumentsCount());
        CPPUNIT_ASSERT(ca::curDoc() == second);
    }

    void bringsVariablesBack()
    {
        HostGuard guard;
        short const before = oa::SysVars::getOSMODE();
        CPPUNIT_ASSERT(oa::SysVars::setOSMODE(5));
        CPPUNIT_ASSERT(oa::SysVars::setSNAPANG(30.0));
        CPPUNIT_ASSERT_EQUAL("system variable OSMODE changed from '" + std::to_string(before) +
                                 "' to '5'; system variable SNAPANG of " + m_document->title().toUtf8() +
                                 " changed from '0' to '30'",
                             joined(guard.restore()));
        CPPUNIT_ASSERT_EQUAL(before, oa::SysVars::getOSMODE());
        CPPUNIT_ASSERT_EQUAL(0.0, oa::SysVars::getSNAPANG());
        CPPUNIT_ASSERT_EQUAL(std::string(), joined(guard.restore()));
    }

    void tellsOfAClosedDocumentOnce()
    {
        HostGuard guard;
        std::string const title = m_document->title().toUtf8();
        m_document->close();
        CPPUNIT_ASSERT_EQUAL("the document " + title + " closed", joined(guard.restore()));
        CPPUNIT_ASSERT_EQUAL(std::string(), joined(guard.restore()));
    }

    void failedTestsCarryTheCommandLine()
    {
        HostGuard guard;
        ca::app()->commandLine().message(L"of an earlier test");
        guard.testStarts();
        for (int i = 1; i <= 12; ++i)
            ca::app()->commandLine().message(odFormat(L"line %d", i));
        TestOutcome outcome;
        guard.testEnds(outcome);
        CPPUNIT_ASSERT(outcome.commandLine.empty());
        outcome.failures.emplace_back();
        guard.testEnds(outcome);
        CPPUNIT_ASSERT_EQUAL(std::size_t(10), outcome.commandLine.size());
        CPPUNIT_ASSERT_EQUAL(std::string("line 3"), outcome.commandLine.front());
        CPPUNIT_ASSERT_EQUAL(std::string("line 12"), outcome.commandLine.back());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestHostGuard);
