#include "host/db/od_dxf_code.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class DxfCodeTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(DxfCodeTest);
    CPPUNIT_TEST(numbersOfTheComparedKinds);
    CPPUNIT_TEST(handlesAndReferences);
    CPPUNIT_TEST(bordersOfRanges);
    CPPUNIT_TEST_SUITE_END();

    void numbersOfTheComparedKinds()
    {
        CPPUNIT_ASSERT_EQUAL(7, int(OdDxfCode::_getType(40)));
        CPPUNIT_ASSERT_EQUAL(7, int(OdDxfCode::_getType(1040)));
        CPPUNIT_ASSERT_EQUAL(8, int(OdDxfCode::_getType(50)));
        CPPUNIT_ASSERT_EQUAL(8, int(OdDxfCode::_getType(58)));
        CPPUNIT_ASSERT_EQUAL(9, int(OdDxfCode::_getType(11)));
        CPPUNIT_ASSERT_EQUAL(9, int(OdDxfCode::_getType(1011)));
        for (int const code : {-4, -1, 0, 5, 70, 90, 160, 290, 310, 330, 340, 350, 360, 999, 1004}) {
            int const type = OdDxfCode::_getType(code);
            CPPUNIT_ASSERT_MESSAGE("code " + std::to_string(code), type > 0 && (type < 7 || type > 9));
        }
    }

    void handlesAndReferences()
    {
        CPPUNIT_ASSERT_EQUAL(OdDxfCode::kSoftPointer, OdDxfCode::_getType(330));
        CPPUNIT_ASSERT_EQUAL(OdDxfCode::kHardPointer, OdDxfCode::_getType(349));
        CPPUNIT_ASSERT_EQUAL(OdDxfCode::kSoftOwner, OdDxfCode::_getType(350));
        CPPUNIT_ASSERT_EQUAL(OdDxfCode::kHardOwner, OdDxfCode::_getType(369));
        CPPUNIT_ASSERT_EQUAL(OdDxfCode::kHardPointer, OdDxfCode::_getType(390));
        for (int const code : {5, 105, 320, 1005}) {
            CPPUNIT_ASSERT(OdDxfCode::isHandleText(OdDxfCode::_getType(code)));
            CPPUNIT_ASSERT(!OdDxfCode::isReference(OdDxfCode::_getType(code)));
        }
        CPPUNIT_ASSERT(OdDxfCode::isReference(OdDxfCode::_getType(330)));
        CPPUNIT_ASSERT(OdDxfCode::isHandleText(OdDxfCode::_getType(481)));
        CPPUNIT_ASSERT(!OdDxfCode::isHandleText(OdDxfCode::_getType(6)));
    }

    void bordersOfRanges()
    {
        CPPUNIT_ASSERT_EQUAL(OdDxfCode::kInt32, OdDxfCode::_getType(1071));
        for (int const code : {-2147483647, -6, -5, -3, 80, 106, 150, 180, 482, 998, 1072, 2147483647})
            CPPUNIT_ASSERT_EQUAL_MESSAGE("code " + std::to_string(code), OdDxfCode::kUnknown,
                                         OdDxfCode::_getType(code));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(DxfCodeTest);

} // namespace
