#include "host/sds/ca_resbuf.h"

#include <cppunit/extensions/HelperMacros.h>

#include <string>
#include <vector>

namespace {

ca::RbListPtr forwarded(int type, ...)
{
    std::va_list pairs;
    va_start(pairs, type);
    ca::RbListPtr list(sds_vbuildlist(type, pairs));
    va_end(pairs);
    return list;
}

std::vector<short> types(sds_resbuf const* list)
{
    std::vector<short> found;
    for (; list; list = list->rbnext)
        found.push_back(list->restype);
    return found;
}

class BuildListTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(BuildListTest);
    CPPUNIT_TEST(everyKindOfValue);
    CPPUNIT_TEST(listsEnd);
    CPPUNIT_TEST(whatCannotBeTakenGivesNull);
    CPPUNIT_TEST(everyFailedAllocationGivesNull);
    CPPUNIT_TEST_SUITE_END();

    void everyKindOfValue()
    {
        sds_point const point = {1, 2, 3};
        double const flat[] = {4, 5};
        sds_name const name = {77, 8};
        std::int64_t const wide = 0x123456789abLL;
        ca::RbListPtr const list(sds_buildlist(RTLB, RTSTR, L"_line", RTREAL, 2.5, RTANG, 0.5, RTSHORT, -7, RTLE,
                                               RTLONG, wide, RTINT64, -wide, RT3DPOINT, point, RTPOINT, flat,
                                               RTENAME, name, RTPICKS, name, RTDOTE, RTNIL, 70, 3, 10, point, 0));
        std::vector<short> const expected = {RTLB,      RTSTR,   RTREAL,  RTANG,   RTSHORT, RTLE,  RTLONG, RTINT64,
                                             RT3DPOINT, RTPOINT, RTENAME, RTPICKS, RTDOTE,  RTNIL, 70,     10};
        CPPUNIT_ASSERT(expected == types(list.get()));

        std::vector<sds_resbuf::Value const*> values;
        for (sds_resbuf const* node = list.get(); node; node = node->rbnext)
            values.push_back(&node->resval);
        CPPUNIT_ASSERT(std::wstring(L"_line") == values[1]->rstring);
        CPPUNIT_ASSERT_EQUAL(2.5, values[2]->rreal);
        CPPUNIT_ASSERT_EQUAL(0.5, values[3]->rreal);
        CPPUNIT_ASSERT_EQUAL(short(-7), values[4]->rint);
        CPPUNIT_ASSERT_EQUAL(wide, values[6]->rlong);
        CPPUNIT_ASSERT_EQUAL(-wide, values[7]->rlong);
        CPPUNIT_ASSERT_EQUAL(3.0, values[8]->rpoint[2]);
        CPPUNIT_ASSERT_EQUAL(5.0, values[9]->rpoint[1]);
        CPPUNIT_ASSERT_EQUAL(0.0, values[9]->rpoint[2]);
        CPPUNIT_ASSERT_EQUAL(std::int64_t(77), values[10]->rlname[0]);
        CPPUNIT_ASSERT_EQUAL(std::int64_t(8), values[11]->rlname[1]);
        CPPUNIT_ASSERT_EQUAL(short(3), values[14]->rint);
        CPPUNIT_ASSERT_EQUAL(2.0, values[15]->rpoint[1]);
    }

    void listsEnd()
    {
        CPPUNIT_ASSERT(!sds_buildlist(0));
        CPPUNIT_ASSERT(!sds_buildlist(RTNONE));
        ca::RbListPtr const list(sds_buildlist(RTSHORT, 1, RTNONE, RTSHORT, 2, 0));
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), types(list.get()).size());

        ca::RbListPtr const passedOn = forwarded(RTSTR, L"a", RTSHORT, 12, 0);
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), types(passedOn.get()).size());
        CPPUNIT_ASSERT_EQUAL(short(12), passedOn->rbnext->resval.rint);
    }

    void whatCannotBeTakenGivesNull()
    {
        CPPUNIT_ASSERT(!sds_buildlist(RTSTR, L"a", 4711, 1, 0));
        CPPUNIT_ASSERT(!sds_buildlist(70000, 1, 0)); // would be 4464 in 16 bits
        CPPUNIT_ASSERT(!sds_buildlist(RTBINARY, nullptr, 0));
        CPPUNIT_ASSERT(!sds_buildlist(RTSHORT, 32768, 0));
        CPPUNIT_ASSERT(!sds_buildlist(RT3DPOINT, static_cast<double const*>(nullptr), 0));
        CPPUNIT_ASSERT(!sds_buildlist(RTENAME, static_cast<std::int64_t const*>(nullptr), 0));
        ca::RbListPtr const empty(sds_buildlist(RTSTR, static_cast<wchar_t const*>(nullptr), 0));
        CPPUNIT_ASSERT(empty && empty->resval.rstring[0] == 0);
    }

    void everyFailedAllocationGivesNull()
    {
        // Two nodes and one text: three allocations.
        for (int nth = 1; nth <= 4; ++nth) {
            ca::RbAllocFailure const failure(nth);
            ca::RbListPtr const list(sds_buildlist(RTREAL, 1.0, RTSTR, L"text", 0));
            CPPUNIT_ASSERT_EQUAL(nth == 4, list != nullptr);
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(BuildListTest);

} // namespace
