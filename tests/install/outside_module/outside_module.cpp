// A test module as somebody outside of the repository would write it: a fixture that uses the drawing database,
// and an operation of its own for command tests.
#include "testapi/ta_host.h"
#include "testapi/ta_test_cmd.h"

#include <cppunit/extensions/HelperMacros.h>
#include <cppunit/plugin/TestPlugIn.h>

namespace {

int countEntities(OdDbDatabase& db)
{
    OdDbBlockTableRecordPtr const space = db.getModelSpaceId().safeOpenObject();
    int count = 0;
    for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
        ++count;
    return count;
}

void countEntitiesOpFunc(ta::TestCmdArg& test, pugi::xml_node node)
{
    int const expected = node.attribute(L"expected").as_int(-1);
    int const actual = countEntities(*test.curDb());
    if (actual != expected)
        CPPUNIT_FAIL("model space holds " + std::to_string(actual) + " entities, expected " +
                     std::to_string(expected));
}

ta::TestCmdArg::OperationFunc const s_countEntitiesOperation(L"countEntities", countEntitiesOpFunc);

class OutsideModule : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(OutsideModule);
    CPPUNIT_TEST(keepsLine);
    CPPUNIT_TEST_SUITE_END();

    void keepsLine()
    {
        OdDbDatabasePtr const db(new OdDbDatabase);
        OdDbLinePtr line(new OdDbLine);
        line->setEndPoint(OdGePoint3d(3, 4, 0));
        OdDbBlockTableRecordPtr space = db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
        OdDbObjectId const id = space->appendOdDbEntity(line);
        line.release();

        OdDbLinePtr const stored = id.safeOpenObject();
        CPPUNIT_ASSERT(stored->endPoint() == OdGePoint3d(3, 4, 0));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(OutsideModule);

} // namespace

CPPUNIT_PLUGIN_IMPLEMENT();
