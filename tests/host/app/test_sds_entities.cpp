// Entities of the current drawing through the C programming interface: making them and walking over them.
#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/sds_entities.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_entity.h"
#include "host/sds/ca_resbuf.h"
#include "host/sds/sds_names.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class TestSdsEntities : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestSdsEntities);
    CPPUNIT_TEST(makesIntoActiveSpace);
    CPPUNIT_TEST(sequencesBelongToTheirDrawing);
    CPPUNIT_TEST(walksOverEverything);
    CPPUNIT_TEST(withoutDrawing);
    CPPUNIT_TEST_SUITE_END();

    /// The type in front, since code 0 ends the pairs of sds_buildlist.
    static int make(wchar_t const* type, sds_resbuf* rest = nullptr)
    {
        ca::RbListPtr const list(ca::allocRb(type));
        list->restype = 0;
        list->rbnext = rest;
        return sds_entmake(list.get());
    }
    static sds_resbuf* at(double x)
    {
        double const point[] = {x, 0, 0};
        return sds_buildlist(10, point, 0);
    }
    static std::string typeOf(SdsName const& name)
    {
        return std::string(ca::objectIdOf(name.words).open<OdDbEntity>()->dxfName());
    }

public:
    void makesIntoActiveSpace()
    {
        SdsName last;
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_entlast(last.words));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POINT", at(1)));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entlast(last.words));
        CPPUNIT_ASSERT(drawn() == L"POINT 1,0");
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), make(L"CIRCLE", at(1)));
        db().setTILEMODE(false);
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POINT", at(2)));
        SdsName onSheet;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entlast(onSheet.words));
        CPPUNIT_ASSERT(ca::objectIdOf(onSheet.words).open<OdDbEntity>()->ownerId() == db().getPaperSpaceId());
        CPPUNIT_ASSERT(!(last == onSheet));
    }

    void sequencesBelongToTheirDrawing()
    {
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POLYLINE"));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"VERTEX", at(1)));
        CPPUNIT_ASSERT(ca::app()->openFile());
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), make(L"SEQEND"));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POINT", at(1)));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POLYLINE"));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), make(L"POINT", at(1)));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entmake(nullptr));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POINT", at(1)));
    }

    void walksOverEverything()
    {
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POINT", at(1)));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POLYLINE"));
        for (int i = 0; i < 3; ++i)
            CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"VERTEX", at(i)));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"SEQEND"));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"RAY", sds_buildlist(10, s_origin, 11, s_up, 0)));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), make(L"POINT", at(9)));
        SdsName name;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entlast(name.words));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entdel(name.words));

        std::string types;
        int status = sds_entnext(nullptr, name.words);
        for (; status == RTNORM; status = sds_entnext(name.words, name.words))
            types += typeOf(name) + ' ';
        CPPUNIT_ASSERT_EQUAL(std::string("POINT POLYLINE VERTEX VERTEX VERTEX SEQEND RAY "), types);
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), status);
        // From the middle again, and from one that is erased.
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entnext(nullptr, name.words));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entdel(name.words));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entnext(name.words, name.words));
        CPPUNIT_ASSERT_EQUAL(std::string("POLYLINE"), typeOf(name));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_entnext(ca::nameOf(db().getLayerZeroId()).words, name.words));
    }

    void withoutDrawing()
    {
        ca::curDoc()->close();
        SdsName name;
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), make(L"POINT", at(1)));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_entlast(name.words));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_entnext(nullptr, name.words));
    }

private:
    static constexpr double s_origin[] = {0, 0, 0};
    static constexpr double s_up[] = {0, 1, 0};
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestSdsEntities);

} // namespace
