// What is put around scripted calls: object snaps aside, quiet input, the view state.
#include "host/app/ca_doc.h"
#include "host/app/ca_input_loop_context_options.h"
#include "host/app/ca_osnap_store.h"
#include "host/app/ca_view_state.h"
#include "host/app/sds_cmd.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

std::string value(wchar_t const* variable)
{
    return ca::SysVar::find(variable)->text().toUtf8();
}

void set(wchar_t const* variable, int number)
{
    CPPUNIT_ASSERT(ca::SysVar::find(variable)->set(number));
}

std::string snaps()
{
    return value(L"OSMODE") + ' ' + value(L"3DOSMODE") + ' ' + value(L"AUTOSNAP") + ' ' + value(L"OSNAPCOORD");
}

class TestScriptedCalls : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestScriptedCalls);
    CPPUNIT_TEST(snapsCanBeOffUntilRestored);
    CPPUNIT_TEST(snapsAreRestoredOnce);
    CPPUNIT_TEST(snapsOutliveTheDocument);
    CPPUNIT_TEST(answersAreNotEchoed);
    CPPUNIT_TEST(errorsAreReturned);
    CPPUNIT_TEST(scopesNest);
    CPPUNIT_TEST(viewStateIsInstalled);
    CPPUNIT_TEST_SUITE_END();

public:
    void setUp() override
    {
        DrawScriptTest::setUp();
        set(L"OSMODE", 5);
        set(L"3DOSMODE", 3);
        set(L"AUTOSNAP", 7);
        set(L"OSNAPCOORD", 1);
    }

    void snapsCanBeOffUntilRestored()
    {
        ca::OsnapStore store;
        store.store(nullptr, 1);
        CPPUNIT_ASSERT_EQUAL(std::string("0 0 7 1"), snaps());
        set(L"AUTOSNAP", 1);
        set(L"OSNAPCOORD", 2);
        store.store(); // the first settings stay remembered
        store.restore();
        CPPUNIT_ASSERT_EQUAL(std::string("5 3 7 1"), snaps());
        store.store(ca::curDoc(), 0);
        CPPUNIT_ASSERT_EQUAL(std::string("5 3 7 1"), snaps());
        set(L"OSMODE", 1);
        store.restore();
        CPPUNIT_ASSERT_EQUAL(std::string("5 3 7 1"), snaps());
    }

    void snapsAreRestoredOnce()
    {
        ca::OsnapStore store;
        store.restore();
        CPPUNIT_ASSERT_EQUAL(std::string("5 3 7 1"), snaps());
        store.store();
        store.restore();
        set(L"OSMODE", 1);
        store.restore();
        CPPUNIT_ASSERT_EQUAL(std::string("1 3 7 1"), snaps());
    }

    void snapsOutliveTheDocument()
    {
        ca::OsnapStore store;
        store.store();
        ca::curDoc()->close();
        store.restore();
        CPPUNIT_ASSERT_EQUAL(std::string("5 3 7 1"), snaps());
    }

    static std::string switches() { return value(L"FILEDIA") + value(L"CMDDIA") + value(L"CMDECHO"); }

    void answersAreNotEchoed()
    {
        set(L"CMDDIA", 0);
        {
            ca::InputLoopContextOptions const options;
            CPPUNIT_ASSERT_EQUAL(std::string("000"), switches());
            CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"LINE|3,4"));
            CPPUNIT_ASSERT(feed(L"5,6") == RTNORM && sds_cmd(nullptr) == RTNORM);
            CPPUNIT_ASSERT(hasLine(L"Specify first point: ") && !hasLine(L"Specify first point: 3,4"));
            CPPUNIT_ASSERT_EQUAL(std::string("Specify next point or [Undo]: *Cancel*"), lastPrompt().toUtf8());
            CPPUNIT_ASSERT(options.error().isEmpty());
        }
        CPPUNIT_ASSERT_EQUAL(std::string("101"), switches());
        feed(L"LINE|7,8||");
        CPPUNIT_ASSERT(hasLine(L"Specify first point: 7,8"));
    }

    void errorsAreReturned()
    {
        OdString const refusal = L"Point or option keyword required.";
        std::size_t const linesBefore = ca::app()->commandLine().lines().size();
        ca::InputLoopContextOptions const options;
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"LINE|0,0|1,0|nowhere"));
        CPPUNIT_ASSERT(options.error() == refusal && lastPrompt() == refusal);
        auto const& lines = ca::app()->commandLine().lines();
        CPPUNIT_ASSERT(std::find(lines.begin() + static_cast<std::ptrdiff_t>(linesBefore), lines.end(), refusal) ==
                       lines.end());
        // What the application says itself is an error too, although it stays on the command line.
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), feed(L"OPEN|/nowhere/at all.dxf"));
        CPPUNIT_ASSERT(options.error() == lastPrompt() && options.error() != refusal && hasLine(lastPrompt()));
    }

    void scopesNest()
    {
        ca::InputLoopContextOptions const outer;
        {
            ca::InputLoopContextOptions const inner;
            feed(L"NONSENSE");
            CPPUNIT_ASSERT_EQUAL(std::string("Unknown command \"NONSENSE\"."), inner.error().toUtf8());
        }
        CPPUNIT_ASSERT(outer.error().isEmpty());
        CPPUNIT_ASSERT_EQUAL(std::string("000"), switches());
        feed(L"RUBBISH");
        CPPUNIT_ASSERT_EQUAL(std::string("Unknown command \"RUBBISH\"."), outer.error().toUtf8());
        CPPUNIT_ASSERT(!hasLine(L"Unknown command \"RUBBISH\"."));
    }

    void viewStateIsInstalled()
    {
        struct State : ca::ViewState
        {
            void reset(OdDbObjectId entity) override { m_entity = entity; }
            OdDbObjectId m_entity;
        };
        State state;
        state.m_entity = db().getModelSpaceId();
        CPPUNIT_ASSERT(!ca::app()->currentViewState());
        ca::app()->setCurrentViewState(&state);
        ca::app()->currentViewState()->reset({});
        ca::app()->setCurrentViewState(nullptr);
        CPPUNIT_ASSERT(state.m_entity.isNull());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestScriptedCalls);

} // namespace
