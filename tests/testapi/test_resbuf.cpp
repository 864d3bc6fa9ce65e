#include "testapi/ta_resbuf.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

/// The shorts of a list, as "1 2 3".
std::string valuesOf(sds_resbuf const* list)
{
    std::string text;
    for (; list; list = list->rbnext)
        text += (text.empty() ? "" : " ") + std::to_string(list->resval.rint);
    return text;
}

// What is lost or freed twice shows in the build with the address sanitizer.
class ResBufTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(ResBufTest);
    CPPUNIT_TEST(nodesOfEachKind);
    CPPUNIT_TEST(shortMemoryAppendsNothing);
    CPPUNIT_TEST(insertsBefore);
    CPPUNIT_TEST(refusesWhatIsInTheList);
    CPPUNIT_TEST(cuts);
    CPPUNIT_TEST(extracts);
    CPPUNIT_TEST(appendsLists);
    CPPUNIT_TEST_SUITE_END();

    ta::ResBuf m_list;
    sds_resbuf* m_nodes[3] = {};

    static sds_resbuf* newNode(short value) { return ta::ResBuf(value).head(); }

public:
    void setUp() override
    {
        for (short i = 0; i < 3; ++i)
            m_nodes[i] = m_list.append(static_cast<short>(i + 1));
    }
    void tearDown() override { m_list.destroy(); }

    void nodesOfEachKind()
    {
        double const coordinates[] = {1, 2, 3};
        long const name[] = {7, 8};
        ta::ResBuf list(short(-3));
        list.append(1L << 40);
        list.append(0.5);
        list.append(L"text");
        list.append(coordinates);
        list.append(OdGePoint3d(4, 5, 6));
        list.append(short(RTPICKS), name);

        short const types[] = {5003, 5010, 5001, 5005, 5009, 5009, 5007};
        sds_resbuf const* nodes[std::size(types)] = {};
        sds_resbuf const* node = list.head();
        for (std::size_t i = 0; i < std::size(types); ++i, node = node->rbnext) {
            CPPUNIT_ASSERT_EQUAL(types[i], node->restype);
            nodes[i] = node;
        }
        CPPUNIT_ASSERT(!node);
        CPPUNIT_ASSERT_EQUAL(short(-3), nodes[0]->resval.rint);
        CPPUNIT_ASSERT_EQUAL(std::int64_t(1) << 40, nodes[1]->resval.rlong);
        CPPUNIT_ASSERT_EQUAL(0.5, nodes[2]->resval.rreal);
        CPPUNIT_ASSERT(std::wstring(L"text") == nodes[3]->resval.rstring);
        CPPUNIT_ASSERT_EQUAL(3.0, nodes[4]->resval.rpoint[2]);
        CPPUNIT_ASSERT_EQUAL(6.0, nodes[5]->resval.rpoint[2]);
        CPPUNIT_ASSERT_EQUAL(std::int64_t(8), nodes[6]->resval.rlname[1]);
        list.destroy();
        CPPUNIT_ASSERT(list.isEmpty());

        ta::ResBuf singles[] = {ta::ResBuf(1L), ta::ResBuf(0.5), ta::ResBuf(L""), ta::ResBuf(coordinates),
                                ta::ResBuf(OdGePoint3d())};
        short const singleTypes[] = {5010, 5001, 5005, 5009, 5009};
        for (std::size_t i = 0; i < std::size(singles); ++i) {
            CPPUNIT_ASSERT_EQUAL(singleTypes[i], singles[i].head()->restype);
            singles[i].destroy();
        }
    }

    void shortMemoryAppendsNothing()
    {
        {
            ca::RbAllocFailure const failure(1);
            CPPUNIT_ASSERT(!m_list.append(L"text"));
        }
        {
            ca::RbAllocFailure const failure(1);
            CPPUNIT_ASSERT(!m_list.append(OdGePoint3d()));
        }
        CPPUNIT_ASSERT_EQUAL(std::string("1 2 3"), valuesOf(m_list.head()));
    }

    void insertsBefore()
    {
        CPPUNIT_ASSERT(m_list.insertBefore(newNode(10), m_nodes[0]));
        CPPUNIT_ASSERT(m_list.insertBefore(newNode(20), m_nodes[2]));
        CPPUNIT_ASSERT(m_list.insertBefore(newNode(30), nullptr));
        CPPUNIT_ASSERT_EQUAL(std::string("10 1 2 20 3 30"), valuesOf(m_list.head()));

        ta::ResBuf empty;
        ca::RbListPtr stranger(newNode(5));
        CPPUNIT_ASSERT(!empty.insertBefore(stranger.get(), m_nodes[0]));
        CPPUNIT_ASSERT(empty.insertBefore(stranger.get(), nullptr));
        CPPUNIT_ASSERT_EQUAL(std::string("5"), valuesOf(empty.head()));

        // Of a chain only its first node goes into the list.
        ca::RbListPtr const second(newNode(7));
        sds_resbuf* const first = newNode(6);
        first->rbnext = second.get();
        CPPUNIT_ASSERT(m_list.insertBefore(first, m_nodes[1]));
        CPPUNIT_ASSERT_EQUAL(std::string("10 1 6 2 20 3 30"), valuesOf(m_list.head()));
    }

    void refusesWhatIsInTheList()
    {
        ca::RbListPtr const chain(newNode(9));
        for (sds_resbuf* const node : m_nodes) {
            CPPUNIT_ASSERT(!m_list.insertBefore(node, m_nodes[0]));
            chain->rbnext = node; // the chain ends in the list
            CPPUNIT_ASSERT(!m_list.insertBefore(chain.get(), nullptr));
        }
        chain->rbnext = nullptr;
        ca::RbListPtr const stranger(newNode(8));
        CPPUNIT_ASSERT(!m_list.insertBefore(chain.get(), stranger.get()));
        CPPUNIT_ASSERT(!m_list.insertBefore(nullptr, m_nodes[0]));
        CPPUNIT_ASSERT_EQUAL(std::string("1 2 3"), valuesOf(m_list.head()));
    }

    void cuts()
    {
        ca::RbListPtr const stranger(newNode(8));
        CPPUNIT_ASSERT(!m_list.cutAt(stranger.get()) && !m_list.cutAt(nullptr) && !ta::ResBuf().cutAt(nullptr));
        CPPUNIT_ASSERT(m_list.cutAt(m_nodes[2]));
        CPPUNIT_ASSERT_EQUAL(std::string("1 2 3"), valuesOf(m_list.head()));
        CPPUNIT_ASSERT(m_list.cutAt(m_nodes[1]));
        CPPUNIT_ASSERT_EQUAL(std::string("1 2"), valuesOf(m_list.head()));
        CPPUNIT_ASSERT(m_list.cutAt(m_nodes[0]));
        CPPUNIT_ASSERT_EQUAL(std::string("1"), valuesOf(m_list.head()));
    }

    void extracts()
    {
        ca::RbListPtr const stranger(newNode(8));
        CPPUNIT_ASSERT(!m_list.extract(stranger.get()) && !m_list.extract(nullptr));
        ca::RbListPtr const middle(m_list.extract(m_nodes[1]));
        CPPUNIT_ASSERT(middle.get() == m_nodes[1] && !middle->rbnext);
        CPPUNIT_ASSERT_EQUAL(std::string("1 3"), valuesOf(m_list.head()));
        ca::RbListPtr const first(m_list.extract(m_nodes[0]));
        ca::RbListPtr const last(m_list.extract(m_nodes[2]));
        CPPUNIT_ASSERT(first && last && m_list.isEmpty());
    }

    void appendsLists()
    {
        sds_resbuf* head = nullptr;
        CPPUNIT_ASSERT_EQUAL(-5001, ta::rbAppend(head, nullptr));
        CPPUNIT_ASSERT(!head);
        CPPUNIT_ASSERT_EQUAL(5100, ta::rbAppend(head, newNode(1)));
        CPPUNIT_ASSERT_EQUAL(5100, ta::rbAppend(head, nullptr));
        sds_resbuf* tail = newNode(2);
        tail->rbnext = newNode(3);
        CPPUNIT_ASSERT_EQUAL(5100, ta::rbAppend(head, tail));
        CPPUNIT_ASSERT_EQUAL(std::string("1 2 3"), valuesOf(head));
        ca::freeRbList(head);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(ResBufTest);

} // namespace
