#include "host/db/od_db_database.h"
#include "host/sds/sds_names.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class SdsNamesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SdsNamesTest);
    CPPUNIT_TEST(namesOfSelectionSets);
    CPPUNIT_TEST(namesOfEntities);
    CPPUNIT_TEST(namesOutliveDrawings);
    CPPUNIT_TEST(buildingSets);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database;
    OdDbObjectId m_layers;
    OdDbObjectId m_blocks;

public:
    void setUp() override
    {
        m_database = new OdDbDatabase;
        m_layers = m_database->getLayerTableId();
        m_blocks = m_database->getBlockTableId();
    }

    void namesOfSelectionSets()
    {
        OdDbSelectionSetPtr set = OdDbSelectionSet::create();
        OdDbSelectionSetPtr const other = OdDbSelectionSet::create();
        SdsName const name = ca::nameOf(set.get());
        SdsName const otherName = ca::nameOf(other.get());
        CPPUNIT_ASSERT(!name.isNull() && !(name == otherName));
        CPPUNIT_ASSERT(ca::nameOf(set.get()) == name);
        CPPUNIT_ASSERT(ca::selectionSetOf(name.words).get() == set.get());

        OdDbSelectionSet* const plain = set.get();
        set.release();
        CPPUNIT_ASSERT_EQUAL(1, plain->numRefs()); // the name keeps it
        set = plain;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssfree(name.words));
        CPPUNIT_ASSERT_EQUAL(1, plain->numRefs());
        CPPUNIT_ASSERT(ca::selectionSetOf(name.words).isNull());
        CPPUNIT_ASSERT_EQUAL(-5001, sds_ssfree(name.words));

        SdsName const again = ca::nameOf(set.get());
        CPPUNIT_ASSERT(!(again == name) && !(again == otherName));
        sds_ssfree(again.words);
        sds_ssfree(otherName.words);
    }

    void namesOfEntities()
    {
        SdsName const name = ca::nameOf(m_layers);
        CPPUNIT_ASSERT(name.words[0] != 0);
        CPPUNIT_ASSERT_EQUAL(std::int64_t(0), name.words[1]);
        CPPUNIT_ASSERT(ca::nameOf(m_layers) == name && !(ca::nameOf(m_blocks) == name));
        CPPUNIT_ASSERT(ca::objectIdOf(name.words) == m_layers);
        CPPUNIT_ASSERT(ca::nameOf(OdDbObjectId()).isNull());
        CPPUNIT_ASSERT(ca::objectIdOf(SdsName().words).isNull());

        OdDbSelectionSetPtr const set = OdDbSelectionSet::create();
        SdsName const setName = ca::nameOf(set.get());
        CPPUNIT_ASSERT(ca::objectIdOf(setName.words).isNull());
        CPPUNIT_ASSERT(ca::selectionSetOf(name.words).isNull());
        sds_ssfree(setName.words);
    }

    void namesOutliveDrawings()
    {
        SdsName const name = ca::nameOf(m_layers);
        std::int64_t const serial = m_database->serial();
        m_database = new OdDbDatabase; // the handles are the same
        CPPUNIT_ASSERT(ca::objectIdOf(name.words).isNull());
        CPPUNIT_ASSERT(OdDbDatabase::ofSerial(serial) == nullptr && m_database->serial() > serial);
        SdsName const present = ca::nameOf(m_database->getLayerTableId());
        std::int64_t const word = present.words[0];
        for (std::int64_t const forged : {std::int64_t(12345), word + 1, word - 1, -word, INT64_MIN, INT64_MAX})
            CPPUNIT_ASSERT(ca::objectIdOf(SdsName{{forged, 0}}.words).isNull());
    }

    void buildingSets()
    {
        SdsName const layers = ca::nameOf(m_layers);
        SdsName const blocks = ca::nameOf(m_blocks);
        SdsName set;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssadd(nullptr, nullptr, set.words));
        std::int64_t length = -1;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_sslength(set.words, &length));
        CPPUNIT_ASSERT_EQUAL(std::int64_t(0), length);

        SdsName const before = set;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssadd(layers.words, set.words, set.words));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssadd(blocks.words, set.words, set.words));
        CPPUNIT_ASSERT(set == before);
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssmemb(blocks.words, set.words));

        SdsName second;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssname(set.words, 1, second.words));
        CPPUNIT_ASSERT(second == blocks);
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_ssdel(layers.words, set.words));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssmemb(layers.words, set.words));
        sds_sslength(set.words, &length);
        CPPUNIT_ASSERT_EQUAL(std::int64_t(1), length);
        sds_ssfree(set.words);
    }

    void refusals()
    {
        OdDbDatabasePtr const otherDrawing = new OdDbDatabase;
        SdsName const layers = ca::nameOf(m_layers);
        SdsName const stranger = ca::nameOf(otherDrawing->getLayerTableId());
        SdsName set;
        sds_ssadd(layers.words, nullptr, set.words);
        SdsName result{{7, 7}};
        std::int64_t length = 0;
        SdsName const unknown{{1 << 30, 1}};

        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssadd(stranger.words, set.words, result.words));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssadd(layers.words, unknown.words, result.words));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssadd(set.words, set.words, result.words)); // a set is no entity
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssname(set.words, 1, result.words));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssname(set.words, -1, result.words));
        CPPUNIT_ASSERT(result == (SdsName{{7, 7}}));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_ssdel(stranger.words, set.words));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_sslength(unknown.words, &length));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_sslength(nullptr, &length));
        sds_ssfree(set.words);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(SdsNamesTest);

} // namespace
