#include "host/sds/ca_resbuf.h"

#include <cppunit/extensions/HelperMacros.h>

#include <map>
#include <set>
#include <string>

// What is not freed, or freed twice, shows in the build with the address sanitizer.
namespace {

class ResbufTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(ResbufTest);
    CPPUNIT_TEST(newNodes);
    CPPUNIT_TEST(ownedValuesAreReplaced);
    CPPUNIT_TEST(longAndNestedListsAreFreed);
    CPPUNIT_TEST(freedNodesAreNewAgain);
    CPPUNIT_TEST(shortMemoryGivesNull);
    CPPUNIT_TEST(kindsOfAllCodes);
    CPPUNIT_TEST_SUITE_END();

    void newNodes()
    {
        ca::RbListPtr const real(ca::allocRb(RTREAL));
        CPPUNIT_ASSERT(real && !real->rbnext);
        CPPUNIT_ASSERT_EQUAL(short(5001), real->restype);
        for (double const coordinate : real->resval.rpoint)
            CPPUNIT_ASSERT_EQUAL(0.0, coordinate);

        wchar_t source[] = L"\u0416x";
        ca::RbListPtr const text(ca::allocRb(source));
        source[0] = L'?';
        CPPUNIT_ASSERT_EQUAL(short(5005), text->restype);
        CPPUNIT_ASSERT(std::wstring(L"\u0416x") == text->resval.rstring);
        ca::RbListPtr const none(ca::allocRb(static_cast<wchar_t const*>(nullptr)));
        CPPUNIT_ASSERT(none->resval.rstring && none->resval.rstring[0] == 0);

        ca::RbListPtr const point(ca::allocRb(OdGePoint3d(1, -2, 3.5)));
        CPPUNIT_ASSERT_EQUAL(short(5009), point->restype);
        CPPUNIT_ASSERT_EQUAL(-2.0, point->resval.rpoint[1]);
        CPPUNIT_ASSERT_EQUAL(3.5, point->resval.rpoint[2]);
    }

    void ownedValuesAreReplaced()
    {
        ca::RbListPtr const text(ca::allocRb(L"one"));
        // The node's own text may be the source.
        CPPUNIT_ASSERT(ca::setRbString(*text, text->resval.rstring + 1));
        CPPUNIT_ASSERT(std::wstring(L"ne") == text->resval.rstring);

        ca::RbListPtr const binary(ca::allocRb(short(310)));
        unsigned char const bytes[] = {0, 255, 7};
        CPPUNIT_ASSERT(ca::setRbBinary(*binary, bytes));
        CPPUNIT_ASSERT_EQUAL(3, binary->resval.rbinary.clen);
        CPPUNIT_ASSERT_EQUAL(7, int(binary->resval.rbinary.buf[2]));
        CPPUNIT_ASSERT(ca::setRbBinary(*binary, {}));
        CPPUNIT_ASSERT_EQUAL(0, binary->resval.rbinary.clen);
    }

    void freedNodesAreNewAgain()
    {
        ca::RbListPtr const kept(ca::allocRb(L"kept"));
        for (int round = 0; round < 3; ++round) {
            ca::RbListPtr list;
            std::set<sds_resbuf const*> nodes{kept.get()};
            for (int i = 0; i < 5000; ++i) {
                sds_resbuf* const node = ca::allocRb(OdGePoint3d(1, 2, 3));
                CPPUNIT_ASSERT(nodes.insert(node).second && !node->rbnext);
                node->rbnext = list.release();
                list.reset(node);
            }
            list.reset();
            ca::RbListPtr const fresh(ca::allocRb(RTREAL));
            for (double const coordinate : fresh->resval.rpoint)
                CPPUNIT_ASSERT_EQUAL(0.0, coordinate);
        }
        CPPUNIT_ASSERT(std::wstring(L"kept") == kept->resval.rstring);
    }

    void longAndNestedListsAreFreed()
    {
        // Deep enough for a recursive freer to exhaust the stack, along the list as well as downwards.
        sds_resbuf* list = nullptr;
        for (int i = 0; i < 300000; ++i) {
            sds_resbuf* const outer = ca::allocRb(RTRESBUF);
            outer->resval.rlist = ca::allocRb(L"text");
            outer->resval.rlist->rbnext = list;
            list = outer;
        }
        for (int i = 0; i < 300000; ++i) {
            sds_resbuf* const outer = ca::allocRb(RTRESBUF);
            outer->resval.rlist = list;
            outer->rbnext = ca::allocRb(L"after");
            list = outer;
        }
        ca::freeRbList(list);
        ca::freeRbList(ca::allocRb(RTRESBUF)); // nested list never set
        ca::freeRbList(nullptr);
    }

    void shortMemoryGivesNull()
    {
        {
            ca::RbAllocFailure const node(1);
            CPPUNIT_ASSERT(!ca::allocRb(RTREAL));
            ca::RbListPtr const next(ca::allocRb(RTREAL));
            CPPUNIT_ASSERT(next);
        }
        {
            ca::RbAllocFailure const text(2);
            CPPUNIT_ASSERT(!ca::allocRb(L"text"));
        }
        ca::RbListPtr const kept(ca::allocRb(L"kept"));
        {
            ca::RbAllocFailure const text(1);
            CPPUNIT_ASSERT(!ca::setRbString(*kept, L"new"));
            CPPUNIT_ASSERT(std::wstring(L"kept") == kept->resval.rstring);
        }
        ca::RbAllocFailure const late(2);
        ca::RbListPtr const first(ca::allocRb(RTREAL));
        CPPUNIT_ASSERT(first && !ca::allocRb(RTREAL));
    }

    void kindsOfAllCodes()
    {
        struct Range
        {
            int first, last;
            short kind;
        };
        Range const ranges[] = {
            {-4, -4, 5005},     {0, 9, 5005},       {100, 105, 5005},   {300, 309, 5005},   {320, 329, 5005},
            {410, 419, 5005},   {430, 439, 5005},   {470, 479, 5005},   {999, 1003, 5005},  {1005, 1009, 5005},
            {10, 18, 5009},     {110, 112, 5009},   {210, 219, 5009},   {1010, 1013, 5009}, {19, 59, 5001},
            {113, 149, 5001},   {220, 239, 5001},   {460, 469, 5001},   {1014, 1059, 5001}, {-2, -1, 5006},
            {330, 369, 5006},   {390, 399, 5006},   {480, 481, 5006},   {60, 79, 5003},     {170, 179, 5003},
            {270, 299, 5003},   {370, 389, 5003},   {400, 409, 5003},   {1060, 1070, 5003}, {90, 99, 5010},
            {420, 429, 5010},   {440, 459, 5010},   {1071, 1071, 5010}, {160, 169, 5031},   {310, 319, 5014},
            {1004, 1004, 5014}, {5001, 5001, 5001}, {5002, 5002, 5009}, {5003, 5003, 5003}, {5004, 5004, 5001},
            {5005, 5006, 0},    {5007, 5007, 5006}, {5008, 5008, 5001}, {5009, 5031, 0},
        };
        std::map<int, short> expected;
        for (Range const& range : ranges) {
            for (int code = range.first; code <= range.last; ++code)
                expected[code] = range.kind ? range.kind : static_cast<short>(code);
        }
        for (int code = -32768; code <= 32767; ++code) {
            auto const found = expected.find(code);
            short const kind = found == expected.end() ? short(0) : found->second;
            CPPUNIT_ASSERT_EQUAL_MESSAGE("code " + std::to_string(code), kind,
                                         ca::restypeToResvalType(static_cast<short>(code)));
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(ResbufTest);

} // namespace
