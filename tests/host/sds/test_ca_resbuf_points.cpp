#include "host/sds/ca_resbuf.h"

#include "tests/support/shown_list.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class ResbufPointsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(ResbufPointsTest);
    CPPUNIT_TEST(listsOfNumbersBecomePoints);
    CPPUNIT_TEST(otherListsStay);
    CPPUNIT_TEST_SUITE_END();

    template <class... Pairs>
    std::string replaced(Pairs... pairs)
    {
        ca::RbListPtr const list(ca::replaceListsByPoints(sds_buildlist(pairs..., 0)));
        return shownList(list.get());
    }

    void listsOfNumbersBecomePoints()
    {
        std::int64_t const two = 2;
        CPPUNIT_ASSERT_EQUAL(std::string("{1.5 2.0 -3.0}"),
                             replaced(RTLB, RTREAL, 1.5, RTLONG, two, RTSHORT, -3, RTLE));
        CPPUNIT_ASSERT_EQUAL(std::string("( {1.0 2.0 0.0} 7s {3.0 4.0 5.0} ) {6.0 7.0 0.0}"),
                             replaced(RTLB, RTLB, RTSHORT, 1, RTSHORT, 2, RTLE, RTSHORT, 7, RTLB, RTSHORT, 3,
                                      RTSHORT, 4, RTSHORT, 5, RTLE, RTLE, RTLB, RTSHORT, 6, RTSHORT, 7, RTLE));
    }

    void otherListsStay()
    {
        CPPUNIT_ASSERT(!ca::replaceListsByPoints(nullptr));
        CPPUNIT_ASSERT_EQUAL(std::string("( 1s )"), replaced(RTLB, RTSHORT, 1, RTLE));
        CPPUNIT_ASSERT_EQUAL(std::string("( 1s 2s 3s 4s )"),
                             replaced(RTLB, RTSHORT, 1, RTSHORT, 2, RTSHORT, 3, RTSHORT, 4, RTLE));
        CPPUNIT_ASSERT_EQUAL(std::string("( 1s . 2s )"), replaced(RTLB, RTSHORT, 1, RTDOTE, RTSHORT, 2, RTLE));
        CPPUNIT_ASSERT_EQUAL(std::string("( 1s 2s"), replaced(RTLB, RTSHORT, 1, RTSHORT, 2));
        CPPUNIT_ASSERT_EQUAL(std::string("( 1s {2.0 3.0 0.0} )"),
                             replaced(RTLB, RTSHORT, 1, RTLB, RTSHORT, 2, RTSHORT, 3, RTLE, RTLE));
        CPPUNIT_ASSERT_EQUAL(std::string("( 0.5 0.5 )"), replaced(RTLB, RTANG, 0.5, RTANG, 0.5, RTLE));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(ResbufPointsTest);

} // namespace
