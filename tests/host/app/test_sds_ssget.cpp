// Selection sets of the C programming interface, by mode and filter.
#include "host/app/sds_ssget.h"
#include "host/db/od_db_database.h"
#include "host/sds/ca_resbuf.h"
#include "host/sds/sds_names.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestSdsSsget : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestSdsSsget);
    CPPUNIT_TEST(findsByMode);
    CPPUNIT_TEST(findsByListsOfPoints);
    CPPUNIT_TEST(findsByFilter);
    CPPUNIT_TEST(refusesAndChangesNothing);
    CPPUNIT_TEST_SUITE_END();

    static constexpr double s_low[] = {-1, -1, 0};
    static constexpr double s_high[] = {11, 1, 0};

    /// Number of entities found, or the status when it is an error.
    static std::int64_t found(wchar_t const* mode, void const* pt1 = nullptr, double const* pt2 = nullptr,
                              sds_resbuf* filter = nullptr)
    {
        ca::RbListPtr const owner(filter);
        sds_name set = {0, 0};
        int const status = sds_ssget(mode, pt1, pt2, filter, set);
        if (status != RTNORM)
            return status;
        std::int64_t length = 0;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_sslength(set, &length));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssfree(set));
        return length;
    }

public:
    void setUp() override
    {
        DrawScriptTest::setUp();
        feed(L"-LAYER|M|Walls||LINE|0,0|10,0||LINE|5,0|5,50||-LAYER|S|0||CIRCLE|100,100|25|POINT|7,0");
    }

    void findsByMode()
    {
        double const onCircle[] = {125, 100, 0};
        double const nowhere[] = {60, 60, 0};
        CPPUNIT_ASSERT_EQUAL(std::int64_t(4), found(L"X"));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(4), found(L"_a"));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(1), found(L"L"));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(2), found(L"W", s_low, s_high));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(3), found(L"_C", s_low, s_high));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(1), found(nullptr, onCircle));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(RTERROR), found(L"", nowhere));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(RTERROR), found(L"P"));
        feed(L"MOVE|W|-1,-1|11,1||0,0|0,0");
        CPPUNIT_ASSERT_EQUAL(std::int64_t(2), found(L"P"));
        feed(L"-LAYER|F|Walls|");
        CPPUNIT_ASSERT_EQUAL(std::int64_t(2), found(L"A"));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(4), found(L"X"));
    }

    void findsByListsOfPoints()
    {
        auto const list = [](std::initializer_list<OdGePoint3d> points) {
            ca::RbListPtr chain;
            for (auto it = std::rbegin(points); it != std::rend(points); ++it) {
                sds_resbuf* const node = ca::allocRb(*it);
                node->rbnext = chain.release();
                chain.reset(node);
            }
            return chain;
        };
        ca::RbListPtr const triangle = list({{-1, -1, 0}, {12, -1, 0}, {5.5, 1.5, 0}});
        CPPUNIT_ASSERT_EQUAL(std::int64_t(1),
                             found(L"WP", triangle.get())); // the point; the line's ends reach out
        CPPUNIT_ASSERT_EQUAL(std::int64_t(3), found(L"_cp", triangle.get()));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(2),
                             found(L"F", list({{4, 10, 0}, {7, 10, 0}, {100, 70, 0}, {100, 80, 0}}).get()));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(RTERROR), found(L"CP", list({{-1, -1, 0}, {12, -1, 0}}).get()));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(RTERROR), found(L"F", list({{-1, -1, 0}}).get()));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(RTERROR), found(L"F"));
        ca::RbListPtr const text(ca::allocRb(L"0,0"));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(RTERROR), found(L"F", text.get()));
    }

    void findsByFilter()
    {
        double const center[] = {100, 100, 0};
        CPPUNIT_ASSERT_EQUAL(std::int64_t(2), found(L"X", nullptr, nullptr, ofType(L"line")));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(2), found(L"X", nullptr, nullptr, filterOf(8, L"wa*")));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(1), found(L"X", nullptr, nullptr, sds_buildlist(40, 25.0, 0)));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(RTERROR), found(L"X", nullptr, nullptr, sds_buildlist(40, 25.1, 0)));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(1), found(L"X", nullptr, nullptr, sds_buildlist(10, center, 0)));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(RTERROR),
                             found(L"X", nullptr, nullptr, sds_buildlist(8, L"Walls", 40, 25.0, 0)));
    }

    void refusesAndChangesNothing()
    {
        sds_name set = {7, 8};
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssget(L"Q", nullptr, nullptr, nullptr, set));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssget(L"W", s_low, nullptr, nullptr, set));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssget(nullptr, nullptr, nullptr, nullptr, set));
        CPPUNIT_ASSERT(set[0] == 7 && set[1] == 8);
    }

private:
    /// Group code 0 ends the pairs of sds_buildlist, so the node is made by itself.
    static sds_resbuf* ofType(wchar_t const* name)
    {
        sds_resbuf* const node = ca::allocRb(name);
        node->restype = 0;
        return node;
    }
    static sds_resbuf* filterOf(short code, wchar_t const* text) { return sds_buildlist(code, text, 0); }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestSdsSsget);

} // namespace
