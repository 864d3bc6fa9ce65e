// What a test does to a drawing that was open before, and that others go on working in.
#include "named_suite.h"

#include "testapi/ta_draw_utils.h"
#include "testapi/ta_test_helper.h"
#include "testapi/ta_utils.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class FlangeTest : public CppUnit::TestFixture
{
public:
    static CppUnit::TestSuite* suite()
    {
        return namedSuite<FlangeTest>("Flange in C++",
                                      {{"ROTATE brings a hole to its neighbour", &FlangeTest::turned},
                                       {"What a test did is taken back", &FlangeTest::takenBack}});
    }

    void setUp() override
    {
        m_drawing.setUpDwgDoc(ta::getTestFilesPath(false) + L"/drawings/flange.dxf");
        m_test.setUpDefault(false);
    }
    void tearDown() override
    {
        m_test.tearDownDefault();
        m_drawing.tearDownDwgDoc();
    }

private:
    OdDbObjectId entityOf(unsigned handle) const { return m_drawing.db().getOdDbObjectId(OdDbHandle(handle)); }
    OdDbObjectId hole() const { return entityOf(0x10C); }
    OdDbObjectId neighbour() const { return entityOf(0x110); }

    static void turnHole() { ta::executeCommands(L"ROTATE Window 70,-10 90,10  0,0 45"); }

    void turned()
    {
        turnHole();
        ta::TestHelperEx::compareEntities(hole().open<OdDbEntity>(), neighbour().open<OdDbEntity>());
    }

    void takenBack()
    {
        OdDbEntityPtr before;
        m_test.getTransformedCopy(hole().open<OdDbEntity>(), OdGeMatrix3d::kIdentity, before);
        turnHole();
        ta::executeCommands(L"ERASE ALL ");
        CPPUNIT_ASSERT(hole().isErased());

        m_test.tearDownDefault();
        ta::TestHelperEx::compareEntities(hole().open<OdDbEntity>(), before);
        CPPUNIT_ASSERT(!m_drawing.doc().isModified());
    }

    ta::TestHelper m_drawing; ///< as somebody else opened it
    ta::TestHelperEx m_test{ta::TestHelper::kModelSpace | ta::TestHelper::kStoreOsnaps}; ///< in world coordinates
};

CPPUNIT_TEST_SUITE_REGISTRATION(FlangeTest);

} // namespace
