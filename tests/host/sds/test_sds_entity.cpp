// Entities made, read and changed through lists of groups, as programs write such lists.
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_mtext.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/od_db_raw_object.h"
#include "host/sds/sds_entity_maker.h"
#include "tests/host/sds/entity_lists.h"
#include "tests/support/limited_run.h"

namespace {

class SdsEntityTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SdsEntityTest);
    CPPUNIT_TEST(minimalListsMakeEntities);
    CPPUNIT_TEST(groupsComeInAnyOrder);
    CPPUNIT_TEST(onlyTheLayerIsCurrent);
    CPPUNIT_TEST(missingLayersAndApplicationsAreAdded);
    CPPUNIT_TEST(badListsMakeNothing);
    CPPUNIT_TEST(sequences);
    CPPUNIT_TEST(brokenSequences);
    CPPUNIT_TEST(blocks);
    CPPUNIT_TEST(keptClasses);
    CPPUNIT_TEST(listsOfEntities);
    CPPUNIT_TEST(extendedData);
    CPPUNIT_TEST(changedGroups);
    CPPUNIT_TEST(changedVertices);
    CPPUNIT_TEST(changedPiecesOfText);
    CPPUNIT_TEST(changedDirectionsOfText);
    CPPUNIT_TEST(manyVerticesAreChangedFast);
    CPPUNIT_TEST(refusedChanges);
    CPPUNIT_TEST(changesAreUndone);
    CPPUNIT_TEST(erasing);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database;
    std::optional<ca::SdsEntityMaker> m_maker;

    bool make(std::string const& lines) { return m_maker->make(entityList(*m_database, lines).get()); }
    template <class T>
    OdSmartPtr<T> made(std::string const& lines)
    {
        CPPUNIT_ASSERT_MESSAGE(lines, make(lines));
        OdDbEntityPtr const entity = lastEntity(*m_database);
        CPPUNIT_ASSERT_MESSAGE(lines, entity->isA() == T::desc());
        return entity;
    }
    int modify(OdDbEntity const& entity, std::string const& lines)
    {
        return sds_entmod(
            entityList(*m_database, "-1 " + entity.getDbHandle().ascii().toUtf8() + "\n" + lines).get());
    }
    std::string got(OdDbEntity const& entity, sds_resbuf const* applications = nullptr)
    {
        SdsName const name = ca::nameOf(entity.objectId());
        return shownGroups(ca::RbListPtr(sds_entgetx(name.words, applications)).get());
    }

public:
    void setUp() override
    {
        m_database = new OdDbDatabase;
        m_maker.emplace(*m_database);
    }

    void minimalListsMakeEntities()
    {
        auto const line = made<OdDbLine>("0 LINE\n10 1 2\n11 3 4 5");
        CPPUNIT_ASSERT(line->startPoint() == OdGePoint3d(1, 2, 0) && line->endPoint() == OdGePoint3d(3, 4, 5));
        CPPUNIT_ASSERT(line->layerId() == m_database->getLayerZeroId());
        CPPUNIT_ASSERT(line->ownerId() == m_database->getModelSpaceId());
        CPPUNIT_ASSERT_EQUAL(2.5, made<OdDbCircle>("0 circle\n10 1 2 0\n40 2.5")->radius());
        // Points of three coordinates, as programs have them at hand.
        auto const polyline = made<OdDbPolyline>(
            "0 LWPOLYLINE\n100 AcDbEntity\n100 AcDbPolyline\n70 0\n90 2\n10 1 2 7\n10 3 4 7\n42 1.0");
        CPPUNIT_ASSERT_EQUAL(2u, polyline->numVerts());
        CPPUNIT_ASSERT(polyline->getPointAt(1) == OdGePoint2d(3, 4));
        CPPUNIT_ASSERT(polyline->extras() == nullptr);
        auto const text = made<OdDbText>("0 TEXT\n10 0 0 0\n40 0.5\n1 Total\n50 1.5707963267948966");
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 2, text->rotation(), 1e-15);
        auto const paragraph = made<OdDbMText>("0 MTEXT\n100 AcDbEntity\n100 AcDbMText\n10 0 0 0\n1 Note");
        CPPUNIT_ASSERT(paragraph->contents() == L"Note" && paragraph->textHeight() > 0);
    }

    void groupsComeInAnyOrder()
    {
        auto const text =
            made<OdDbText>("0 TEXT\n5 FFFF\n330 0\n100 AcDbEntity\n410 Model\n40 0.5\n100 AcDbText\n10 1 2 0\n"
                           "8 0\n62 3\n73 2\n11 5 5 0\n1 Total\n72 1");
        CPPUNIT_ASSERT_EQUAL(3, int(text->color().colorIndex()));
        CPPUNIT_ASSERT(text->verticalMode() == OdDbTextVerticalMode::kMiddle);
        CPPUNIT_ASSERT(text->extras() == nullptr && text->getDbHandle() != OdDbHandle(0xFFFF));
    }

    /// Else entities that lists describe would come out differently from drawing to drawing.
    void onlyTheLayerIsCurrent()
    {
        m_database->setCECOLOR(OdCmColor(1));
        m_database->setHeaderReal("CELTSCALE", 40, 2.5);
        made<OdDbLine>("0 LINE\n8 Walls\n10 0 0 0\n11 1 0 0");
        m_database->setCurrent(OdDbTableKind::kLayer, m_database->table(OdDbTableKind::kLayer).getAt(L"Walls"));
        auto const line = made<OdDbLine>("0 LINE\n10 0 0 0\n11 1 0 0");
        CPPUNIT_ASSERT(line->layerId() == m_database->getCLAYER());
        CPPUNIT_ASSERT_EQUAL(256, int(line->color().colorIndex()));
        CPPUNIT_ASSERT_EQUAL(1.0, line->linetypeScale());
    }

    void missingLayersAndApplicationsAreAdded()
    {
        std::string const list = "0 LINE\n8 Walls\n10 0 0 0\n11 1 0 0\n";
        CPPUNIT_ASSERT(!make(list + "6 Missing"));
        CPPUNIT_ASSERT(!make(list + "1001 A|B\n1070 1"));
        CPPUNIT_ASSERT(m_database->table(OdDbTableKind::kLayer).getAt(L"Walls").isNull());
        auto const line = made<OdDbLine>(list + "-3\n1001 CENSUS\n1070 7");
        CPPUNIT_ASSERT(line->layerId() == m_database->table(OdDbTableKind::kLayer).getAt(L"WALLS"));
        CPPUNIT_ASSERT(m_database->table(OdDbTableKind::kRegApp).has(L"census"));
    }

    void badListsMakeNothing()
    {
        OdDbHandle const seed = m_database->handseed();
        for (char const* const lines : {"10 0 0 0",
                                        "0 LINE",
                                        "0 LINE\n10 0 0 0",
                                        "0 CIRCLE\n10 0 0 0",
                                        "0 CIRCLE\n10 0 0 0\n40 -1",
                                        "0 CIRCLE\n10 0 0 0\n40 0",
                                        "0 LWPOLYLINE\n70 0",
                                        "0 TEXT\n10 0 0\n1 A\n40 0",
                                        "0 GADGET\n10 0 0 0",
                                        "0 LAYER\n2 New",
                                        "0 VERTEX\n10 0 0",
                                        "0 SEQEND",
                                        "0 ENDBLK",
                                        "0 INSERT\n2 None\n10 0 0 0",
                                        "0 LINE\n8 A|B\n10 0 0 0\n11 1 0 0",
                                        "0 LINE\n10 0 0 0\n11 1 0 0\n80 1",
                                        "0 LINE\n10 0 0 0\n11 1 0 0\n1070 1",
                                        "0 LINE\n10 0 0 0\n11 1 0 0\n1001 ACAD\n1070 1\n62 1",
                                        "0 LINE\n10 0 0 0\n11 1 0 0\n-3",
                                        "0 LINE\n102 {ACAD_REACTORS\n10 0 0 0\n11 1 0 0",
                                        "0 LINE\n0 LINE\n10 0 0 0\n11 1 0 0",
                                        "0 LINE\n10 0 0 0\n11 1 0 0\n1005 XYZ",
                                        "0 LINE\n10 0 0 0\n20 5.0\n11 1 0 0",
                                        "0 LIGHT\n100 AcDbEntity\n100 AcDbLight\n50 1e308",
                                        "0 INSERT\n2 *Model_Space\n10 0 0 0"})
            CPPUNIT_ASSERT_MESSAGE(lines, !make(lines));
        ca::RbListPtr const circle = entityList(*m_database, "0 CIRCLE\n10 0 0 0\n40 1");
        circle->rbnext->rbnext->resval.rreal = std::numeric_limits<double>::quiet_NaN();
        CPPUNIT_ASSERT(!m_maker->make(circle.get()));
        circle->rbnext->rbnext->rbnext = circle->rbnext; // without end
        CPPUNIT_ASSERT(!m_maker->make(circle.get()));
        circle->rbnext->rbnext->rbnext = nullptr;
        CPPUNIT_ASSERT(seed == m_database->handseed());
    }

    void sequences()
    {
        CPPUNIT_ASSERT(make("0 POLYLINE\n66 1\n8 Walls\n10 0 0 0"));
        CPPUNIT_ASSERT(make("0 VERTEX\n10 0 0 0\n42 1.0") && make("0 VERTEX\n10 4 0\n8 Doors"));
        CPPUNIT_ASSERT(m_database->getModelSpaceId().open<OdDbBlockTableRecord>()->entities().empty());
        CPPUNIT_ASSERT(make("0 SEQEND"));
        OdDbEntityPtr const polyline = lastEntity(*m_database);
        CPPUNIT_ASSERT_EQUAL(2u, polyline->numParts());
        auto const layerOf = [&](std::size_t part) {
            return OdDbObjectId(polyline->subentities()[part]).open<OdDbEntity>()->layerId();
        };
        OdDbSymbolTable const& layers = m_database->table(OdDbTableKind::kLayer);
        CPPUNIT_ASSERT(polyline->layerId() == layers.getAt(L"Walls") && layerOf(0) == layers.getAt(L"Walls"));
        CPPUNIT_ASSERT(layerOf(1) == layers.getAt(L"Doors"));

        CPPUNIT_ASSERT(make("0 BLOCK\n2 Door\n10 0 0 0\n70 2") && make("0 POINT\n10 1 0 0") && make("0 ENDBLK"));
        CPPUNIT_ASSERT(make("0 INSERT\n66 1\n2 door\n10 5 5 0"));
        CPPUNIT_ASSERT(make("0 ATTRIB\n10 5 5 0\n40 1.0\n1 left\n2 HAND") && make("0 SEQEND"));
        auto const reference = OdDbBlockReferencePtr(lastEntity(*m_database));
        CPPUNIT_ASSERT_EQUAL(1u, reference->numParts());
        CPPUNIT_ASSERT(make("0 INSERT\n2 Door\n10 5 5 0")); // without attributes nothing follows
        CPPUNIT_ASSERT(make("0 POINT\n10 1 0 0"));
    }

    void brokenSequences()
    {
        CPPUNIT_ASSERT(make("0 POLYLINE"));
        CPPUNIT_ASSERT(!make("0 LINE\n10 0 0 0\n11 1 0 0") && !make("0 ATTRIB\n10 5 5 0\n40 1.0\n1 a\n2 B"));
        CPPUNIT_ASSERT(!make("0 SEQEND")); // no vertices
        CPPUNIT_ASSERT(!make("0 VERTEX\n10 0 0 0"));
        CPPUNIT_ASSERT(make("0 POLYLINE") && make("0 VERTEX\n10 0 0 0"));
        m_maker->cancel();
        CPPUNIT_ASSERT(!make("0 SEQEND"));
        CPPUNIT_ASSERT(m_database->getModelSpaceId().open<OdDbBlockTableRecord>()->entities().empty());
    }

    void blocks()
    {
        auto const block = [this](wchar_t const* name) {
            return m_database->table(OdDbTableKind::kBlock).getAt(name).open<OdDbBlockTableRecord>();
        };
        CPPUNIT_ASSERT(!make("0 BLOCK\n10 0 0 0") && !make("0 BLOCK\n2 *Model_Space\n10 0 0 0"));
        CPPUNIT_ASSERT(!make("0 BLOCK\n2 Other\n70 4\n1 other.dxf"));
        CPPUNIT_ASSERT(make("0 BLOCK\n2 Door\n10 1 2 0\n70 0") && make("0 LINE\n10 0 0 0\n11 1 0 0"));
        CPPUNIT_ASSERT(!make("0 BLOCK\n2 Inner\n10 0 0 0"));
        CPPUNIT_ASSERT(!make("0 INSERT\n2 Door\n10 0 0 0")); // not there yet
        CPPUNIT_ASSERT(make("0 ENDBLK"));
        CPPUNIT_ASSERT(block(L"Door")->origin() == OdGePoint3d(1, 2, 0));
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), block(L"Door")->entities().size());
        CPPUNIT_ASSERT(m_database->getModelSpaceId().open<OdDbBlockTableRecord>()->entities().empty());
        // Defined anew, but never out of itself.
        CPPUNIT_ASSERT(make("0 BLOCK\n2 Door\n70 0") && make("0 INSERT\n2 Door\n10 0 0 0") && !make("0 ENDBLK"));
        CPPUNIT_ASSERT(make("0 BLOCK\n2 DOOR\n70 0") && make("0 POINT\n10 3 0 0") && make("0 ENDBLK"));
        CPPUNIT_ASSERT(block(L"Door")->newIterator().entity()->dxfName() == "POINT");
        CPPUNIT_ASSERT(block(L"Door")->origin() == OdGePoint3d());
        CPPUNIT_ASSERT(make("0 BLOCK\n2 *U\n70 1") && make("0 ENDBLK"));
        auto const anonymous = m_database->table(OdDbTableKind::kBlock).records().back();
        CPPUNIT_ASSERT(static_cast<OdDbBlockTableRecord&>(*anonymous->object).getName().left(2) == L"*U");
    }

    void keptClasses()
    {
        auto const hatch = made<OdDbRawEntity>(
            "0 HATCH\n100 AcDbEntity\n8 0\n100 AcDbHatch\n10 0 0 0\n210 0 0 1\n2 SOLID\n70 1\n91 1\n92 1\n93 1\n"
            "72 1\n10 0 0\n11 1 0\n97 0\n98 1\n10 5 5");
        OdDbTagList tags;
        odDbWriteRecord(*hatch, tags);
        auto const count = [&tags](int code) {
            return std::count_if(tags.begin(), tags.end(), [=](OdDbTag const& tag) { return tag.code == code; });
        };
        // The point of the plane has a height, edges and seeds lie in the plane.
        CPPUNIT_ASSERT_EQUAL(std::ptrdiff_t(3), count(10));
        CPPUNIT_ASSERT_EQUAL(std::ptrdiff_t(1), count(30));
        CPPUNIT_ASSERT_EQUAL(std::ptrdiff_t(0), count(31));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*hatch, "62 3\n2 ANSI31"));
        std::string const list = got(*hatch);
        CPPUNIT_ASSERT(list.starts_with("-1 #\n0 HATCH\n"));
        odDbWriteRecord(*hatch, tags);
        CPPUNIT_ASSERT_EQUAL(std::ptrdiff_t(2), count(30));
        SdsName const name = ca::nameOf(hatch->objectId());
        CPPUNIT_ASSERT(m_maker->make(ca::RbListPtr(sds_entget(name.words)).get()));
        CPPUNIT_ASSERT_EQUAL(list, got(*lastEntity(*m_database)));
        CPPUNIT_ASSERT(list.find("8 0\n62 3\n100 AcDbHatch\n") != std::string::npos);
        CPPUNIT_ASSERT(list.find("\n2 ANSI31\n70 1\n") != std::string::npos);
    }

    void listsOfEntities()
    {
        CPPUNIT_ASSERT(make("0 ARC\n8 Walls\n62 1\n10 1 2 3\n40 4.5\n50 0\n51 1.5707963267948966"));
        CPPUNIT_ASSERT_EQUAL(std::string("-1 #\n0 ARC\n5 #\n330 #\n100 AcDbEntity\n8 Walls\n62 1\n100 AcDbCircle\n"
                                         "10 1 2 3\n40 4.5\n100 AcDbArc\n50 0\n51 1.5708\n"),
                             got(*lastEntity(*m_database)));
        OdDbTagList tags;
        odDbWriteRecord(*lastEntity(*m_database), tags);
        CPPUNIT_ASSERT(std::any_of(tags.begin(), tags.end(),
                                   [](OdDbTag const& tag) { return tag.code == 51 && tag.real == 90; }));
        SdsName const layer = ca::nameOf(m_database->getLayerZeroId());
        CPPUNIT_ASSERT(!sds_entget(layer.words) && !sds_entget(nullptr));
        ca::RbAllocFailure const shortMemory(4);
        SdsName const name = ca::nameOf(lastEntity(*m_database)->objectId());
        CPPUNIT_ASSERT(!sds_entget(name.words));
    }

    void extendedData()
    {
        CPPUNIT_ASSERT(make("0 POINT\n10 0 0\n1001 CENSUS\n1070 7\n1010 1 2 3\n1001 Other\n1000 text"));
        OdDbEntityPtr const entity = lastEntity(*m_database);
        CPPUNIT_ASSERT(got(*entity).find("1001") == std::string::npos);
        auto const withData = [&](wchar_t const* application) {
            std::string const list = got(*entity, ca::RbListPtr(ca::allocRb(application)).get());
            return list.substr(std::min(list.size(), list.find("-3")));
        };
        CPPUNIT_ASSERT_EQUAL(std::string("-3 \n1001 CENSUS\n1070 7\n1010 1 2 3\n"), withData(L"census"));
        CPPUNIT_ASSERT_EQUAL(std::string(), withData(L"None"));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*entity, "-3\n1001 CENSUS\n1070 8\n1001 Third\n1000 x"));
        CPPUNIT_ASSERT_EQUAL(std::string("-3 \n1001 CENSUS\n1070 8\n1001 Other\n1000 text\n1001 Third\n1000 x\n"),
                             withData(L"*"));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*entity, "-3\n1001 THIRD\n1000 y\n1001 other"));
        CPPUNIT_ASSERT_EQUAL(std::string("-3 \n1001 CENSUS\n1070 8\n1001 THIRD\n1000 y\n"), withData(L"*"));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*entity, "1001 Third\n1000 x"));
        CPPUNIT_ASSERT_EQUAL(std::string("-3 \n1001 CENSUS\n1070 8\n1001 Third\n1000 x\n"), withData(L"*"));
    }

    void changedGroups()
    {
        auto const circle = made<OdDbCircle>("0 CIRCLE\n10 1 2 3\n40 2.5");
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*circle, "0 CIRCLE\n40 7.5"));
        CPPUNIT_ASSERT_EQUAL(7.5, circle->radius());
        CPPUNIT_ASSERT(circle->center() == OdGePoint3d(1, 2, 3));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*circle, "100 AcDbEntity\n62 4\n8 New\n100 AcDbCircle\n39 1.5"));
        CPPUNIT_ASSERT_EQUAL(4, int(circle->color().colorIndex()));
        CPPUNIT_ASSERT_EQUAL(1.5, circle->thickness());
        CPPUNIT_ASSERT(circle->layerId() == m_database->table(OdDbTableKind::kLayer).getAt(L"New"));
        CPPUNIT_ASSERT(circle->extras() == nullptr);
    }

    void changedVertices()
    {
        auto const polyline =
            made<OdDbPolyline>("0 LWPOLYLINE\n70 0\n10 0 0\n42 1\n10 4 0\n42 0.5\n10 4 3\n42 0.1");
        auto const shape = [&polyline] {
            std::string text;
            for (unsigned i = 0; i < polyline->numVerts(); ++i)
                text += std::to_string(static_cast<int>(polyline->getPointAt(i).x)) +
                        (polyline->getBulgeAt(i) != 0 ? "b " : " ");
            return text;
        };
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*polyline, "10 1 0\n10 5 0\n10 6 0"));
        CPPUNIT_ASSERT_EQUAL(std::string("1b 5b 6b "), shape());
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*polyline, "70 1\n10 7 0\n10 8 0\n42 1"));
        CPPUNIT_ASSERT_EQUAL(std::string("7 8b "), shape());
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), modify(*polyline, "42 1\n42 1\n42 1"));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), modify(*polyline, "40 1"));
        CPPUNIT_ASSERT_EQUAL(std::string("7 8b "), shape());
    }

    void changedPiecesOfText()
    {
        auto const text = made<OdDbMText>("0 MTEXT\n10 0 0 0\n3 one \n3 two \n1 three");
        CPPUNIT_ASSERT(text->contents() == L"one two three");
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*text, "1 new"));
        CPPUNIT_ASSERT(text->contents() == L"new");
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*text, "3 a\n1 b"));
        CPPUNIT_ASSERT(text->contents() == L"ab");
    }

    /// Of angle and direction of a text the last one counts.
    void changedDirectionsOfText()
    {
        auto const text = made<OdDbMText>("0 MTEXT\n10 0 0 0\n1 text\n50 0.5");
        auto const turnedBy = [&](std::string const& lines) {
            CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*text, lines));
            return std::round(text->rotation() * 1e9) / 1e9;
        };
        CPPUNIT_ASSERT_EQUAL(1.570796327, turnedBy("11 0 1 0"));
        CPPUNIT_ASSERT_EQUAL(0.25, turnedBy("50 0.25"));
        CPPUNIT_ASSERT_EQUAL(1.570796327, turnedBy("50 0.25\n11 0 1 0"));
        CPPUNIT_ASSERT_EQUAL(0.75, turnedBy("11 0 1 0\n50 0.75"));
    }

    void manyVerticesAreChangedFast()
    {
        std::string lines = "0 LWPOLYLINE\n70 0";
        for (int i = 0; i < 20000; ++i)
            lines += "\n10 " + std::to_string(i) + " 0";
        auto const polyline = made<OdDbPolyline>(lines);
        ca::RbListPtr const list(sds_entget(ca::nameOf(polyline->objectId()).words));
        RunWatch const watch;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entmod(list.get()));
        CPPUNIT_ASSERT(watch.seconds() < 1); // each looked up among all: several seconds
    }

    void refusedChanges()
    {
        CPPUNIT_ASSERT(make("0 BLOCK\n2 Door\n70 0") && make("0 BLOCK\n2 x") == false);
        CPPUNIT_ASSERT(make("0 POINT\n10 0 0 0") && make("0 ENDBLK"));
        auto const reference = made<OdDbBlockReference>("0 INSERT\n2 Door\n10 0 0 0");
        auto const circle = made<OdDbCircle>("0 CIRCLE\n10 1 2 3\n40 2.5");
        std::string const before = got(*circle) + got(*reference);
        std::uint64_t const changes = m_database->changeCount();
        for (char const* const lines : {"0 LINE\n10 0 0 0", "40 -1", "40 0", "6 Missing", "210 0 0 0"})
            CPPUNIT_ASSERT_EQUAL_MESSAGE(lines, int(RTERROR), modify(*circle, lines));
        for (char const* const lines : {"2 None", "2 ", "2 *Paper_Space", "41 0", "70 5"})
            CPPUNIT_ASSERT_EQUAL_MESSAGE(lines, int(RTERROR), modify(*reference, lines));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_entmod(entityList(*m_database, "40 5").get()));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_entmod(nullptr));
        CPPUNIT_ASSERT_EQUAL(before, got(*circle) + got(*reference));
        CPPUNIT_ASSERT_EQUAL(changes, m_database->changeCount());
    }

    void changesAreUndone()
    {
        auto const circle = made<OdDbCircle>("0 CIRCLE\n10 1 2 3\n40 2.5\n1001 ACAD\n1070 1");
        ca::RbListPtr const all(ca::allocRb(L"*"));
        std::string const before = got(*circle, all.get());
        OdDbHandle const seed = m_database->handseed();
        m_database->startUndoRecord();
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), modify(*circle, "40 9\n8 New\n1001 ACAD\n1070 2"));
        CPPUNIT_ASSERT(make("0 POLYLINE") && make("0 VERTEX\n10 0 0") && make("0 VERTEX\n10 1 0") &&
                       make("0 SEQEND"));
        CPPUNIT_ASSERT(make("0 BLOCK\n2 Door\n70 0") && make("0 POINT\n10 0 0 0") && make("0 ENDBLK"));
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(before, got(*circle, all.get()));
        CPPUNIT_ASSERT(!m_database->table(OdDbTableKind::kLayer).has(L"New"));
        CPPUNIT_ASSERT(!m_database->table(OdDbTableKind::kBlock).has(L"Door"));
        CPPUNIT_ASSERT(lastEntity(*m_database)->objectId() == circle->objectId());
        CPPUNIT_ASSERT(seed == m_database->handseed());
    }

    void erasing()
    {
        CPPUNIT_ASSERT(make("0 POLYLINE") && make("0 VERTEX\n10 0 0") && make("0 VERTEX\n10 1 0") &&
                       make("0 SEQEND"));
        OdDbEntityPtr const polyline = lastEntity(*m_database);
        SdsName const name = ca::nameOf(polyline->objectId());
        SdsName const vertex = ca::nameOf(OdDbObjectId(polyline->subentities().front()));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_entdel(vertex.words));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entdel(name.words));
        CPPUNIT_ASSERT(polyline->isErased() && !sds_entget(name.words) && !sds_entget(vertex.words));
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), modify(*polyline, "62 1"));
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entdel(name.words));
        CPPUNIT_ASSERT(!polyline->isErased() && polyline->numParts() == 2);
        CPPUNIT_ASSERT_EQUAL(int(RTERROR), sds_entdel(ca::nameOf(m_database->getLayerZeroId()).words));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SdsEntityTest);

} // namespace
