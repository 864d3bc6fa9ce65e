#include "host/db/od_db_database.h"
#include "host/db/od_db_selection_set.h"
#include "host/root/od_error.h"

#include <cppunit/extensions/HelperMacros.h>

#include <functional>

namespace {

OdResult codeOf(std::function<void()> const& call)
{
    try {
        call();
    } catch (OdError const& error) {
        return error.code();
    }
    return eOk;
}

class SelectionSetTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SelectionSetTest);
    CPPUNIT_TEST(keepsOrderAndTakesEachOnce);
    CPPUNIT_TEST(partsOfEntities);
    CPPUNIT_TEST(refusesNullAndOtherDrawings);
    CPPUNIT_TEST(takesOutAnywhere);
    CPPUNIT_TEST(emptiesLargeSetsOneByOne);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabase m_database{false};
    std::vector<OdDbStub> m_stubs;

    OdDbObjectId id(std::size_t index) { return OdDbObjectId(&m_stubs[index]); }
    OdDbSelectionSetPtr setOf(std::initializer_list<std::size_t> indices)
    {
        OdDbSelectionSetPtr set = OdDbSelectionSet::create(&m_database);
        for (std::size_t const index : indices)
            set->append(id(index));
        return set;
    }
    /// The members as letters: a for the first stub.
    std::string members(OdDbSelectionSetPtr const& set)
    {
        std::string text;
        for (OdDbObjectId const member : set->objectIds())
            text += static_cast<char>('a' + (member.stub() - m_stubs.data()));
        CPPUNIT_ASSERT_EQUAL(text.size(), set->numEntities());
        for (std::size_t i = 0; i < text.size(); ++i)
            CPPUNIT_ASSERT(set->at(i) == id(static_cast<std::size_t>(text[i] - 'a')));
        return text;
    }

    void makeStubs(std::size_t count)
    {
        m_stubs = std::vector<OdDbStub>(count);
        for (OdDbStub& stub : m_stubs)
            stub.database = &m_database;
    }

public:
    void setUp() override { makeStubs(8); }

    void keepsOrderAndTakesEachOnce()
    {
        OdDbSelectionSetPtr const set = setOf({2, 0, 2, 1});
        CPPUNIT_ASSERT_EQUAL(std::string("cab"), members(set));
        CPPUNIT_ASSERT(set->member(id(0)) && !set->member(id(3)));
        m_stubs[0].erased = true;
        CPPUNIT_ASSERT_EQUAL(std::string("cab"), members(set));
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, codeOf([&] { set->at(3); }));
        set->clear();
        CPPUNIT_ASSERT_EQUAL(std::string(), members(set));
    }

    void partsOfEntities()
    {
        OdDbFullSubentPath const face({id(0)}, {OdDb::kFaceSubentType, 3});
        OdDbFullSubentPath const edge({id(0)}, {OdDb::kEdgeSubentType, 3});
        OdDbFullSubentPath const nested({id(1), id(2)});
        OdDbSelectionSetPtr const set = OdDbSelectionSet::create(&m_database);
        for (OdDbFullSubentPath const& path : {face, nested, edge, face})
            set->append(path);
        CPPUNIT_ASSERT_EQUAL(std::string("ab"), members(set));
        OdDbSelectionSet::Iterator it = set->newIterator();
        CPPUNIT_ASSERT(it.parts() == std::vector({face, edge}));
        it.next();
        CPPUNIT_ASSERT(it.parts() == std::vector{nested});

        set->append(id(0));
        set->append(face);
        CPPUNIT_ASSERT(set->newIterator().parts().empty());
        CPPUNIT_ASSERT_EQUAL(std::string("ab"), members(set));
    }

    void refusesNullAndOtherDrawings()
    {
        OdDbDatabase other(false);
        OdDbStub strangerStub;
        strangerStub.database = &other;
        OdDbObjectId const stranger(&strangerStub);
        OdDbSelectionSetPtr const set = setOf({0});
        CPPUNIT_ASSERT_EQUAL(eNullObjectId, codeOf([&] { set->append(OdDbObjectId()); }));
        CPPUNIT_ASSERT_EQUAL(eNullObjectId, codeOf([&] { set->append(OdDbFullSubentPath()); }));
        CPPUNIT_ASSERT_EQUAL(eWrongDatabase, codeOf([&] { set->append(stranger); }));
        CPPUNIT_ASSERT_EQUAL(std::string("a"), members(set));

        OdDbSelectionSetPtr const free = OdDbSelectionSet::create();
        free->append(stranger);
        CPPUNIT_ASSERT(free->database() == &other);
        CPPUNIT_ASSERT_EQUAL(eWrongDatabase, codeOf([&] { free->append(id(0)); }));
    }

    void takesOutAnywhere()
    {
        OdDbSelectionSetPtr const set = setOf({0, 1, 2, 3, 4});
        CPPUNIT_ASSERT(set->remove(id(2)));
        CPPUNIT_ASSERT(!set->remove(id(2)));
        CPPUNIT_ASSERT_EQUAL(std::string("abde"), members(set));
        CPPUNIT_ASSERT(set->remove(id(0)));
        CPPUNIT_ASSERT(set->remove(id(4)));
        set->append(id(2));
        CPPUNIT_ASSERT_EQUAL(std::string("bdc"), members(set));
        for (std::size_t const index : {1u, 3u, 2u})
            CPPUNIT_ASSERT(set->remove(id(index)));
        set->append(id(5));
        CPPUNIT_ASSERT_EQUAL(std::string("f"), members(set));
    }

    // Taking the first one, again and again, is what programs do; the time-out of the tests notices a quadratic
    // one.
    void emptiesLargeSetsOneByOne()
    {
        makeStubs(1000000);
        OdDbSelectionSetPtr const set = OdDbSelectionSet::create(&m_database);
        for (std::size_t i = 0; i < m_stubs.size(); ++i)
            set->append(id(i));
        for (std::size_t i = 0; i < m_stubs.size(); ++i) {
            CPPUNIT_ASSERT(set->at(0) == id(i));
            set->remove(id(i));
        }
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), set->numEntities());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(SelectionSetTest);

} // namespace
