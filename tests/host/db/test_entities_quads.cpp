// Areas between four corners: solids, traces and faces.
#include "tests/host/db/test_entities_support.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_face.h"
#include "host/db/entities/od_db_solid.h"
#include "host/db/entities/od_db_trace.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

#include <random>

namespace {

OdGeVector3d const kTilted(0.36, 0.48, 0.8);

/// Corners as they are drawn: the third opposite the first.
OdDbSolidPtr solid(double thickness = 0)
{
    OdDbSolidPtr entity(new OdDbSolid({0, 0, 2}, {4, 0, 2}, {0, 3, 2}, {4, 3, 2}));
    entity->setThickness(thickness);
    return entity;
}

/// Keeps the polygons of an outline.
class PolygonSink : public SampledOutline
{
public:
    explicit PolygonSink(OdDbEntity const& entity) : SampledOutline(OdDbSolid()) { entity.outline(*this); }
    void polygon(std::span<OdGePoint3d const> corners) override
    {
        all.emplace_back(corners.begin(), corners.end());
    }
    std::vector<std::vector<OdGePoint3d>> all;
};

double areaOf(std::vector<OdGePoint3d> const& corners)
{
    OdGeVector3d sum;
    for (std::size_t i = 0; i < corners.size(); ++i)
        sum += corners[i].asVector().crossProduct(corners[(i + 1) % corners.size()].asVector());
    return sum.length() / 2;
}

class QuadTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(QuadTest);
    CPPUNIT_TEST(files);
    CPPUNIT_TEST(filesWithThreeCorners);
    CPPUNIT_TEST(corners);
    CPPUNIT_TEST(edgesOfFaces);
    CPPUNIT_TEST(outlines);
    CPPUNIT_TEST(degenerateOutlines);
    CPPUNIT_TEST(transformationsMoveTheOutline);
    CPPUNIT_TEST(refusedTransformations);
    CPPUNIT_TEST(stretching);
    CPPUNIT_TEST(audits);
    CPPUNIT_TEST_SUITE_END();

    void files()
    {
        auto const drawn = roundTrip<OdDbSolid>({"100 AcDbTrace", "10 1.0", "20 2.0", "30 3.0", "11 4.0", "21 5.0",
                                                 "31 3.0", "12 6.0", "22 7.0", "32 3.0", "13 8.0", "23 9.0",
                                                 "33 3.5", "39 -2.0", "210 0.0", "220 0.0", "230 -1.0"});
        CPPUNIT_ASSERT(drawn->getPointAt(3) == OdGePoint3d(-8, 9, -3.5));
        CPPUNIT_ASSERT_EQUAL(-2.0, drawn->thickness());
        CPPUNIT_ASSERT_EQUAL(3.0, drawn->elevation());
        roundTrip<OdDbTrace>({"100 AcDbTrace", "10 1.0", "20 2.0", "30 3.0", "11 4.0", "21 5.0", "31 6.0",
                              "12 7.0", "22 8.0", "32 9.0", "13 0.5", "23 0.0", "33 0.0"});
        auto const face =
            roundTrip<OdDbFace>({"100 AcDbFace", "10 1.0", "20 2.0", "30 3.0", "11 4.0", "21 5.0", "31 6.0",
                                 "12 7.0", "22 8.0", "32 9.0", "13 0.5", "23 0.0", "33 1.0", "70 -32765"});
        CPPUNIT_ASSERT(face->getVertexAt(2) == OdGePoint3d(7, 8, 9));
        CPPUNIT_ASSERT(!face->isEdgeVisibleAt(0) && !face->isEdgeVisibleAt(1) && face->isEdgeVisibleAt(2));
        CPPUNIT_ASSERT_EQUAL(std::string("TRACE"), std::string(OdDbTrace().dxfName()));
        CPPUNIT_ASSERT_EQUAL(std::string("3DFACE"), std::string(face->dxfName()));
    }

    void filesWithThreeCorners()
    {
        auto const triangle = roundTrip<OdDbFace>({"100 AcDbFace", "10 0.0", "20 0.0", "30 0.0", "11 4.0",
                                                   "21 0.0", "31 0.0", "12 0.0", "22 3.0", "32 0.0"});
        CPPUNIT_ASSERT(triangle->getVertexAt(3) == OdGePoint3d(0, 3, 0));
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), PolygonSink(*triangle).all.at(0).size());
        triangle->setVertexAt(3, {-1, 0, 0});
        CPPUNIT_ASSERT(triangle->getVertexAt(2) == OdGePoint3d(0, 3, 0));
        CPPUNIT_ASSERT_EQUAL(std::string("13 -1.0"), writtenTags(*triangle).at(12));

        OdDbSolid without; // no markers, as in the oldest files, and only one coordinate of the last corner
        readTags(without, {"8 0", "10 0.0", "20 0.0", "11 1.0", "21 0.0", "12 0.0", "22 1.0", "13 5.0"});
        CPPUNIT_ASSERT(without.getPointAt(3) == OdGePoint3d(5, 0, 0));
    }

    void corners()
    {
        auto const entity = solid();
        entity->setNormal(kTilted); // the corners stay
        CPPUNIT_ASSERT(entity->getPointAt(1) == OdGePoint3d(4, 0, 2));
        entity->setPointAt(1, {5, 6, 7});
        CPPUNIT_ASSERT(entity->getPointAt(1) == OdGePoint3d(5, 6, 7));
        CPPUNIT_ASSERT(entity->getPointAt(0) == OdGePoint3d(0, 0, 2));
        for (int const index : {-1, 4}) {
            CPPUNIT_ASSERT_THROW(entity->getPointAt(index), OdError);
            CPPUNIT_ASSERT_THROW(entity->setPointAt(index, {}), OdError);
        }
        CPPUNIT_ASSERT_THROW(entity->setNormal({}), OdError);
    }

    void edgesOfFaces()
    {
        OdDbFace face({0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0});
        face.makeEdgeInvisibleAt(3);
        face.makeEdgeInvisibleAt(1);
        face.makeEdgeVisibleAt(3);
        CPPUNIT_ASSERT(face.isEdgeVisibleAt(0) && !face.isEdgeVisibleAt(1) && face.isEdgeVisibleAt(3));
        CPPUNIT_ASSERT_EQUAL(std::string("70 2"), writtenTags(face).back());
        CPPUNIT_ASSERT_THROW(face.isEdgeVisibleAt(4), OdError);
        CPPUNIT_ASSERT_THROW(face.makeEdgeInvisibleAt(-1), OdError);
    }

    void outlines()
    {
        PolygonSink const plain(*solid());
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), plain.all.size());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(12, areaOf(plain.all[0]), 1e-12);

        // The corners in the order of a ring make a bow tie.
        PolygonSink const bow(OdDbSolid({0, 0, 0}, {4, 0, 0}, {4, 2, 0}, {0, 2, 0}));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), bow.all.size());
        for (auto const& triangle : bow.all) {
            CPPUNIT_ASSERT_EQUAL(std::size_t(3), triangle.size());
            CPPUNIT_ASSERT_DOUBLES_EQUAL(2, areaOf(triangle), 1e-12);
            CPPUNIT_ASSERT(triangle[0] == OdGePoint3d(2, 1, 0));
        }

        PolygonSink const bent(OdDbFace({0, 0, 0}, {1, 0, 0}, {1, 1, 1}, {0, 1, 0}));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), bent.all.size());
        PolygonSink const dented(OdDbFace({0, 0, 0}, {4, 0, 0}, {1, 1, 0}, {0, 4, 0}));
        CPPUNIT_ASSERT_EQUAL(std::size_t(1), dented.all.size());

        OdGeExtents3d const box = solid(-5)->extents();
        CPPUNIT_ASSERT(box.minPoint() == OdGePoint3d(0, 0, -3) && box.maxPoint() == OdGePoint3d(4, 3, 2));
    }

    void degenerateOutlines()
    {
        SampledOutline const line(OdDbFace({0, 0, 0}, {1, 0, 0}, {3, 0, 0}, {0, 0, 0}));
        CPPUNIT_ASSERT_EQUAL(0, line.polygons);
        CPPUNIT_ASSERT_EQUAL(2, line.segments);
        OdDbSolid const place({1, 2, 3}, {1, 2, 3}, {1, 2, 3}, {1, 2, 3});
        CPPUNIT_ASSERT(place.extents().maxPoint() == OdGePoint3d(1, 2, 3));
        OdDbSolid huge({0, 0, 0}, {1e300, 0, 0}, {0, 1e300, 0}, {1e300, 1e300, 0});
        CPPUNIT_ASSERT(huge.extents().maxPoint() == OdGePoint3d(1e300, 1e300, 0));
    }

    void transformationsMoveTheOutline()
    {
        std::mt19937 generator(21);
        std::uniform_real_distribution<double> number(-3, 3);
        auto const point = [&] { return OdGePoint3d(number(generator), number(generator), number(generator)); };
        for (int round = 0; round < 100; ++round) {
            OdGeMatrix3d matrix;
            for (auto& row : std::span(matrix.entry).first(3))
                for (double& value : row)
                    value = number(generator);
            OdDbSolidPtr const bow(new OdDbSolid({0, 0, 0}, {4, 0, 0}, {4, 2, 0}, {0, 2, 0}));
            OdDbSolidPtr const tilted(new OdDbSolid(point(), point(), point(), point()));
            tilted->setNormal(kTilted);
            for (OdDbEntityPtr const& entity : {OdDbEntityPtr(solid()), OdDbEntityPtr(bow), OdDbEntityPtr(tilted),
                                                OdDbEntityPtr(new OdDbFace(point(), point(), point(), point()))}) {
                SampledOutline const expected(*entity, matrix);
                CPPUNIT_ASSERT_EQUAL(eOk, entity->transformBy(matrix));
                CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.exactDistanceTo(SampledOutline(*entity)), 1e-9);
            }
            auto const thick = solid(1.5);
            thick->setNormal({0, 0, -1});
            OdGeMatrix3d const similar = OdGeMatrix3d::rotation(number(generator), point() - OdGePoint3d()) *
                                         OdGeMatrix3d::scaling(number(generator)) *
                                         OdGeMatrix3d::mirroringAtPlane(point(), point() - OdGePoint3d());
            SampledOutline const expected(*thick, similar);
            CPPUNIT_ASSERT_EQUAL(eOk, thick->transformBy(similar));
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.exactDistanceTo(SampledOutline(*thick)), 1e-9);
        }
    }

    void refusedTransformations()
    {
        auto const thick = solid(1);
        std::string const before = joined(writtenTags(*thick));
        OdGeMatrix3d shear;
        shear.entry[0][2] = 0.5;
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, thick->transformBy(shear));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, thick->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1))));
        CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*thick)));
        CPPUNIT_ASSERT_EQUAL(eOk, solid()->transformBy(shear)); // nothing stands up that would lean
    }

    void stretching()
    {
        auto const entity = solid();
        entity->setNormal(kTilted);
        int const right[] = {1, 3};
        CPPUNIT_ASSERT_EQUAL(eOk, entity->moveStretchPointsAt(right, {2, 1, 0}));
        CPPUNIT_ASSERT(entity->getPointAt(0) == OdGePoint3d(0, 0, 2));
        CPPUNIT_ASSERT(entity->getPointAt(1) == OdGePoint3d(6, 1, 2));
        CPPUNIT_ASSERT(entity->getPointAt(3) == OdGePoint3d(6, 4, 2));
        int const wrong[] = {0, 4};
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, entity->moveStretchPointsAt(wrong, {2, 0, 0}));
        CPPUNIT_ASSERT(entity->getPointAt(0) == OdGePoint3d(0, 0, 2));

        OdDbFace triangle;
        readTags(triangle, {"100 AcDbFace", "11 1.0", "22 0.0", "12 0.0", "22 1.0"});
        std::vector<OdGePoint3d> points;
        triangle.getStretchPoints(points);
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), points.size());
        int const third[] = {2};
        triangle.moveStretchPointsAt(third, {0, 1, 0});
        CPPUNIT_ASSERT(triangle.getVertexAt(3) == OdGePoint3d(0, 2, 0));
    }

    void audits()
    {
        OdDbDatabasePtr const db(new OdDbDatabase);
        auto const space = db->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        OdDbFacePtr const empty(new OdDbFace);
        space->appendOdDbEntity(empty);
        auto const good = solid();
        space->appendOdDbEntity(good);
        OdDbAuditInfo info(true);
        good->audit(info);
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), info.errorsFound());
        empty->audit(info);
        CPPUNIT_ASSERT(info.findings().at(0).shown() == L"3DFACE: all its corners are at one place; erased");
        CPPUNIT_ASSERT(empty->isErased());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(QuadTest);

} // namespace
