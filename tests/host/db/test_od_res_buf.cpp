#include "host/db/od_res_buf.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

#include <bit>
#include <functional>
#include <limits>

namespace {

class TestOdResBuf : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestOdResBuf);
    CPPUNIT_TEST(codeFixesTheKind);
    CPPUNIT_TEST(otherCodesTakeEveryKind);
    CPPUNIT_TEST(equality);
    CPPUNIT_TEST(nestedChainsAreComparedToTheirEnds);
    CPPUNIT_TEST(longChains);
    CPPUNIT_TEST(heldNodesOutliveTheirChain);
    CPPUNIT_TEST_SUITE_END();

    void codeFixesTheKind()
    {
        std::pair<std::function<void(OdResBuf const&)>, std::vector<int>> const kinds[] = {
            {[](OdResBuf const& node) { node.getDouble(); }, {40, 50, 140, 1040, 5001, 5004}},
            {[](OdResBuf const& node) { node.getPoint3d(); }, {10, 210, 1011, 5002, 5009}},
            {[](OdResBuf const& node) { node.getResBuf(); }, {5023}},
            {[](OdResBuf const& node) { node.getString(); }, {0, 1, 100, 1000, 1003, 5005}},
            {[](OdResBuf const& node) { node.getHandle(); }, {5, 330, 360, 1005, 5006, -1}},
            {[](OdResBuf const& node) { node.getInt16(); }, {70, 290, 1070, 5003}},
            {[](OdResBuf const& node) { node.getInt32(); }, {90, 1071, 5010}},
            {[](OdResBuf const& node) { node.getInt64(); }, {160}},
            {[](OdResBuf const& node) { node.getBinary(); }, {310, 1004}},
        };
        for (auto const& [ignored, codes] : kinds)
            for (int const code : codes)
                for (auto const& [get, codesOfGetter] : kinds) {
                    OdResBufPtr const node = OdResBuf::newRb(code);
                    OdResult const expected = &codesOfGetter == &codes ? eOk : eInvalidInput;
                    CPPUNIT_ASSERT_EQUAL_MESSAGE(std::to_string(code), expected, odResultOf([&] { get(*node); }));
                }
        OdResBufPtr const node = OdResBuf::newRb(40, 1.5);
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { node->setPoint3d({1, 2, 3}); }));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([] { OdResBuf::newRb(10, OdString(L"text")); }));
        CPPUNIT_ASSERT_EQUAL(1.5, node->getDouble());
        node->setRestype(41);
        CPPUNIT_ASSERT_EQUAL(1.5, node->getDouble());
        node->setRestype(70);
        CPPUNIT_ASSERT_EQUAL(0, int(node->getInt16()));
    }

    void otherCodesTakeEveryKind()
    {
        OdResBufPtr const node = OdResBuf::newRb(5016);
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { node->getInt16(); }));
        node->setInt64(std::int64_t(1) << 40);
        CPPUNIT_ASSERT_EQUAL(std::int64_t(1) << 40, node->getInt64());
        node->setBinary(std::string("a\0b", 3));
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), node->getBinary().size());
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { node->getInt64(); }));
    }

    void equality()
    {
        auto const real = [](int code, double value) { return OdResBuf::newRb(code, value); };
        double const nan = std::numeric_limits<double>::quiet_NaN();
        double const otherNan = std::bit_cast<double>(std::bit_cast<std::uint64_t>(nan) ^ 1);
        CPPUNIT_ASSERT(*real(40, 1) == *real(40, 1) && !(*real(40, 1) == *real(41, 1)));
        CPPUNIT_ASSERT(!(*real(40, 1) == *real(40, 1 + 1e-15)));
        CPPUNIT_ASSERT(*real(40, 0.0) == *real(40, -0.0));
        CPPUNIT_ASSERT(*real(40, nan) == *real(40, nan) && !(*real(40, nan) == *real(40, otherNan)));
        auto const point = [](double z) { return OdResBuf::newRb(10, OdGePoint3d(1, 2, z)); };
        CPPUNIT_ASSERT(*point(0.0) == *point(-0.0) && *point(nan) == *point(nan));
        CPPUNIT_ASSERT(!(*point(3) == *point(3 + 1e-12)));
        CPPUNIT_ASSERT(*OdResBuf::newRb(1, OdString(L"a")) == *OdResBuf::newRb(1, OdString(L"a")));
        CPPUNIT_ASSERT(!(*OdResBuf::newRb(1, OdString(L"a")) == *OdResBuf::newRb(1, OdString(L"A"))));

        OdResBufPtr const shortOne = OdResBuf::newRb(5016), longOne = OdResBuf::newRb(5016);
        shortOne->setInt16(1);
        longOne->setInt32(1);
        CPPUNIT_ASSERT_MESSAGE("kinds differ", !(*shortOne == *longOne));

        OdResBufPtr const followed = real(40, 1);
        followed->setNext(real(40, 2));
        CPPUNIT_ASSERT_MESSAGE("what follows does not count", *followed == *real(40, 1));
    }

    static OdResBufPtr nesting(OdResBufPtr const& chain)
    {
        OdResBufPtr node = OdResBuf::newRb(OdResBuf::kNestedChain);
        node->setResBuf(chain);
        return node;
    }

    void nestedChainsAreComparedToTheirEnds()
    {
        auto const chain = [](double last) {
            OdResBufPtr first = OdResBuf::newRb(1, OdString(L"first"));
            first->setNext(OdResBuf::newRb(40, last));
            return first;
        };
        CPPUNIT_ASSERT(*nesting(chain(2)) == *nesting(chain(2)));
        CPPUNIT_ASSERT(!(*nesting(chain(2)) == *nesting(chain(3))));
        CPPUNIT_ASSERT(!(*nesting(chain(2)) == *nesting(OdResBuf::newRb(1, OdString(L"first")))));
        CPPUNIT_ASSERT(!(*nesting(chain(2)) == *nesting(nullptr)) && *nesting(nullptr) == *nesting(nullptr));
        CPPUNIT_ASSERT(*nesting(nesting(chain(2))) == *nesting(nesting(chain(2))));
        OdResBufPtr const node = nesting(nullptr);
        CPPUNIT_ASSERT_EQUAL(eSelfReference, odResultOf([&] { node->setResBuf(node); }));
        CPPUNIT_ASSERT_EQUAL(eSelfReference, odResultOf([&] { node->setNext(node); }));
    }

    /// Long enough to use up the stack, were nodes freed or compared by recursion.
    static OdResBufPtr longChain(double last)
    {
        OdResBufPtr first = OdResBuf::newRb(40, last);
        for (int i = 0; i < 500'000; ++i) {
            OdResBufPtr const node = OdResBuf::newRb(40, 1.0);
            node->setNext(first);
            first = node;
        }
        return first;
    }

    void longChains()
    {
        CPPUNIT_ASSERT(*nesting(longChain(2)) == *nesting(longChain(2)));
        CPPUNIT_ASSERT(!(*nesting(longChain(2)) == *nesting(longChain(3))));
    }

    void heldNodesOutliveTheirChain()
    {
        OdResBufPtr first = OdResBuf::newRb(40, 1.0);
        OdResBufPtr const second = first->setNext(OdResBuf::newRb(40, 2.0));
        second->setNext(OdResBuf::newRb(40, 3.0));
        first.release();
        CPPUNIT_ASSERT_EQUAL(1, second->numRefs());
        CPPUNIT_ASSERT_EQUAL(3.0, second->next()->getDouble());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestOdResBuf);

} // namespace
