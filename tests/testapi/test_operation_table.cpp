#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

#include <memory>

namespace {

using Operation = ta::TestCmdArg::Operation;
using OperationFunc = ta::TestCmdArg::OperationFunc;

void doNothing(ta::TestCmdArg&, pugi::xml_node) {}

std::unique_ptr<Operation> newOperation()
{
    return std::make_unique<OperationFunc>(L"tableTest", doNothing);
}

class OperationTableTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(OperationTableTest);
    CPPUNIT_TEST(operationsOfTheEngine);
    CPPUNIT_TEST(shadowing);
    CPPUNIT_TEST(destroyingInAnyOrder);
    CPPUNIT_TEST(executing);
    CPPUNIT_TEST_SUITE_END();

    void operationsOfTheEngine()
    {
        struct Row
        {
            wchar_t const* name;
            unsigned flags;
        };
        Row const rows[] = {
            {L"command", 0},
            {L"openDoc", 0},
            {L"activateDoc", 0},
            {L"closeDoc", 0},
            {L"saveResultFile", 0},
            {L"copyFile", 1},
            {L"removeFile", 1},
            {L"lastPromptContains", 1},
            {L"assert_erased", 0},
            {L"assert_not_erased", 0},
            {L"assert_blocks_exist", 0},
            {L"assert_blocks_dont_exist", 0},
            {L"assert_inserts_of_block", 0},
            {L"assertReference", 0},
        };
        for (Row const& row : rows) {
            Operation const* const operation = Operation::find(row.name);
            CPPUNIT_ASSERT(operation && dynamic_cast<OperationFunc const*>(operation));
            CPPUNIT_ASSERT(operation->name() == row.name);
            CPPUNIT_ASSERT_EQUAL(row.flags, operation->flags());
        }
        for (wchar_t const* const unknown : {L"OpenDoc", L"openDoc ", L""})
            CPPUNIT_ASSERT(!Operation::find(unknown));
    }

    void shadowing()
    {
        auto const earlier = newOperation();
        CPPUNIT_ASSERT(Operation::find(L"tableTest") == earlier.get());
        {
            auto const later = newOperation();
            CPPUNIT_ASSERT(Operation::find(L"tableTest") == later.get());
        }
        CPPUNIT_ASSERT(Operation::find(L"tableTest") == earlier.get());
    }

    void destroyingInAnyOrder()
    {
        auto first = newOperation();
        auto second = newOperation();
        auto const third = newOperation();
        second.reset();
        CPPUNIT_ASSERT(Operation::find(L"tableTest") == third.get());
        first.reset();
        CPPUNIT_ASSERT(Operation::find(L"tableTest") == third.get());
        auto fourth = newOperation();
        fourth.reset();
        CPPUNIT_ASSERT(Operation::find(L"tableTest") == third.get());
    }

    void executing()
    {
        pugi::xml_document document;
        pugi::xml_node const node = document.append_child(L"other");
        ta::TestCmdArg test(L"name", L"unused.xml");
        CPPUNIT_ASSERT_EQUAL(std::string("assertion failed|Expression: node.name() == name()"),
                             failureOf([&] { newOperation()->execute(test, node); }));
        CPPUNIT_ASSERT(!Operation::find(L"tableTest"));

        OperationFunc const empty(L"other", nullptr);
        CPPUNIT_ASSERT_THROW(empty.execute(test, node), std::bad_function_call);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(OperationTableTest);

} // namespace
