// Ellipses, rays and construction lines: their fields, what they refuse, how damage is read and told.
#include "tests/host/db/test_entities_support.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_ellipse.h"
#include "host/db/entities/od_db_ray.h"
#include "host/db/entities/od_db_xline.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

#include <random>

namespace {

OdGeVector3d const kTilted(0.36, 0.48, 0.8);
OdGeVector3d const kZ(0, 0, 1);

template <class Call>
void assertError(OdResult code, Call const& call)
{
    try {
        call();
    } catch (OdError const& error) {
        CPPUNIT_ASSERT_EQUAL(code, error.code());
        return;
    }
    CPPUNIT_FAIL("no error");
}

void assertSame(OdGeVector3d const& expected, OdGeVector3d const& actual)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, (expected - actual).length(), 1e-9);
}

/// The ellipse of a file with these values, on the X axis with a major radius of 2.
OdDbEllipsePtr fileEllipse(std::string const& ratio, std::string const& start = "0.0",
                           std::string const& end = "6.283185307179586")
{
    OdDbEllipsePtr const ellipse(new OdDbEllipse);
    std::string const r = "40 " + ratio;
    std::string const s = "41 " + start;
    std::string const e = "42 " + end;
    readTags(*ellipse, {"100 AcDbEllipse", "11 2.0", "21 0.0", "31 0.0", r, s, e});
    return ellipse;
}

OdGeMatrix3d randomMatrix(std::mt19937_64& random)
{
    std::uniform_real_distribution<double> entry(-2, 2);
    OdGeMatrix3d matrix;
    for (int row = 0; row < 3; ++row)
        for (int col = 0; col < 4; ++col)
            matrix.entry[row][col] = entry(random);
    return matrix;
}

class EllipseRayTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(EllipseRayTest);
    CPPUNIT_TEST(fields);
    CPPUNIT_TEST(ellipseParts);
    CPPUNIT_TEST(ellipseRefusals);
    CPPUNIT_TEST(sweeps);
    CPPUNIT_TEST(anyMatrixMovesTheOutline);
    CPPUNIT_TEST(rotatingAndMirroringKeepTheParts);
    CPPUNIT_TEST(movingKeepsEveryOtherBit);
    CPPUNIT_TEST(collapsing);
    CPPUNIT_TEST(damagedEllipses);
    CPPUNIT_TEST(raysAndConstructionLines);
    CPPUNIT_TEST(auditingKeepsWhatIsSeen);
    CPPUNIT_TEST(undoAndCopies);
    CPPUNIT_TEST_SUITE_END();

    static void assertKept(OdDbEntity& entity, std::initializer_list<std::string_view> tags)
    {
        readTags(entity, tags);
        std::vector<std::string> expected{"100 AcDbEntity", "8 "};
        expected.insert(expected.end(), tags.begin(), tags.end());
        CPPUNIT_ASSERT_EQUAL(joined(expected), joined(writtenTags(entity)));
    }

    void fields()
    {
        OdDbEllipse ellipse;
        assertKept(ellipse, {"100 AcDbEllipse", "10 1.0", "20 2.0", "30 3.0", "11 4.0", "21 0.0", "31 3.0",
                             "210 0.6", "220 0.0", "230 -0.8", "40 0.25", "41 7.0", "42 1.5"});
        CPPUNIT_ASSERT(ellipse.center() == OdGePoint3d(1, 2, 3) && ellipse.majorAxis() == OdGeVector3d(4, 0, 3));
        CPPUNIT_ASSERT(ellipse.normal() == OdGeVector3d(0.6, 0, -0.8));
        CPPUNIT_ASSERT_EQUAL(0.25, ellipse.radiusRatio());
        double start = 0;
        double end = 0;
        CPPUNIT_ASSERT_EQUAL(eOk, ellipse.getStartParam(start));
        CPPUNIT_ASSERT_EQUAL(eOk, ellipse.getEndParam(end));
        CPPUNIT_ASSERT(start == 7.0 && end == 1.5);

        OdDbEllipse older; // without markers
        readTags(older, {"8 0", "10 1.0", "20 2.0", "30 3.0", "11 4.0", "21 0.0", "31 3.0", "40 0.75"});
        CPPUNIT_ASSERT(older.majorAxis() == OdGeVector3d(4, 0, 3) && older.radiusRatio() == 0.75);

        OdDbRay ray;
        assertKept(ray, {"100 AcDbRay", "10 1.0", "20 2.0", "30 3.0", "11 0.0", "21 0.6", "31 0.8"});
        CPPUNIT_ASSERT(ray.secondPoint() == OdGePoint3d(1, 2.6, 3.8));
        OdDbXline line;
        assertKept(line, {"100 AcDbXline", "10 1.0", "20 2.0", "30 3.0", "11 0.0", "21 0.0", "31 -5.0"});
        CPPUNIT_ASSERT(line.unitDir() == OdGeVector3d(0, 0, -1)); // and 5 stays in the file
    }

    void ellipseParts()
    {
        OdDbEllipse ellipse({1, 2, 3}, kZ * 2, {3, 4, 0}, 0.4, -1, 9);
        CPPUNIT_ASSERT(ellipse.normal() == kZ);
        assertSame({-1.6, 1.2, 0}, ellipse.minorAxis());
        ellipse.setMajorAxis({0, 2, 5});
        assertSame({0, 2, 0}, ellipse.majorAxis());
        ellipse.setNormal({0, 1, 1});
        assertSame({0, std::sqrt(2.0), -std::sqrt(2.0)}, ellipse.majorAxis());
        ellipse.setRadiusRatio(1);
        ellipse.setCenter({0, 0, 0});
        ellipse.setStartParam(20);
        ellipse.setEndParam(-20);
        double start = 0;
        double end = 0;
        ellipse.getStartParam(start);
        ellipse.getEndParam(end);
        CPPUNIT_ASSERT(start == 20 && end == -20 && ellipse.radiusRatio() == 1);

        OdGeExtents3d const box = OdDbEllipse({1, 1, 0}, kZ, {3, 4, 0}, 0.5).extents();
        double const width = std::hypot(3.0, 2.0);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1 - width, box.minPoint().x, 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1 + std::hypot(4.0, 1.5), box.maxPoint().y, 1e-12);
    }

    void ellipseRefusals()
    {
        double const nothing = std::numeric_limits<double>::quiet_NaN();
        OdDbEllipse ellipse({1, 2, 3}, kZ, {2, 0, 0}, 0.5);
        std::string const before = joined(writtenTags(ellipse));
        for (double const ratio : {0.0, -0.5, 1.0000001, nothing}) {
            assertError(eOutOfRange, [&] { ellipse.setRadiusRatio(ratio); });
            assertError(eOutOfRange, [&] { ellipse.set({0, 0, 0}, kZ, {1, 0, 0}, ratio); });
        }
        assertError(eOutOfRange, [&] { ellipse.setStartParam(nothing); });
        assertError(eOutOfRange, [&] { ellipse.set({0, 0, 0}, kZ, {1, 0, 0}, 1, 0, HUGE_VAL); });
        assertError(eDegenerateGeometry, [&] { ellipse.set({0, 0, 0}, {0, 0, 0}, {1, 0, 0}, 1); });
        assertError(eDegenerateGeometry, [&] { ellipse.setMajorAxis({0, 0, 0}); });
        assertError(eDegenerateGeometry, [&] { ellipse.setMajorAxis({0, 0, 3}); });
        assertError(eDegenerateGeometry, [&] { ellipse.setNormal({1, 0, 0}); });
        CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(ellipse)));
    }

    void sweeps()
    {
        struct Sweep
        {
            double start, end, expected;
        };
        for (Sweep const& each : {Sweep{0, Oda2PI, Oda2PI},
                                  {0, 6.283185308, Oda2PI},
                                  {0, 6.2831853, Oda2PI},
                                  {1, 1, Oda2PI},
                                  {3, 1, Oda2PI - 2},
                                  {0, 7, 7 - Oda2PI},
                                  {-1, 2, 3},
                                  {2, 2 + 2 * Oda2PI, Oda2PI},
                                  {0, 0.001, 0.001}}) {
            OdDbEllipse const ellipse({0, 0, 0}, kZ, {1, 0, 0}, 1, each.start, each.end);
            double length = 0;
            CPPUNIT_ASSERT_EQUAL(eOk, ellipse.getLength(length));
            CPPUNIT_ASSERT_DOUBLES_EQUAL(each.expected, length, 1e-7);
            CPPUNIT_ASSERT_EQUAL(each.expected == Oda2PI, ellipse.isClosed());
        }
    }

    void anyMatrixMovesTheOutline()
    {
        std::mt19937_64 random(20240611);
        for (int i = 0; i < 200; ++i) {
            OdGeMatrix3d const matrix = randomMatrix(random);
            for (OdDbEntityPtr const& each :
                 {OdDbEntityPtr(new OdDbEllipse({1, 2, 3}, kTilted, {4, -3, 0}, 0.3, 0.5, 4)),
                  OdDbEntityPtr(new OdDbEllipse({1, 2, 3}, kZ, {4, -3, 0}, 1)),
                  OdDbEntityPtr(new OdDbRay({1, 2, 3}, kTilted)),
                  OdDbEntityPtr(new OdDbXline({1, 2, 3}, {0, 1, 0}))}) {
                SampledOutline const expected(*each, matrix);
                CPPUNIT_ASSERT_EQUAL(eOk, each->transformBy(matrix));
                SampledOutline const actual(*each);
                CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, expected.exactDistanceTo(actual), 1e-8);
                if (auto const* const ellipse = odCast<OdDbEllipse>(each.get())) {
                    CPPUNIT_ASSERT(ellipse->radiusRatio() <= 1);
                    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, ellipse->normal().dotProduct(ellipse->majorAxis()), 1e-9);
                    // Places on it, however fast their parameter grows, lie on the other as well.
                    auto const curve = ellipse->getOdGeCurve();
                    for (OdGePoint3d const& place : expected.roughPlaces())
                        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, curve->distanceTo(place), 1e-8);
                }
            }
        }
    }

    void rotatingAndMirroringKeepTheParts()
    {
        OdDbEllipse ellipse({1, 2, 0}, kZ, {2, 0, 0}, 0.5, 0.25, 2);
        CPPUNIT_ASSERT_EQUAL(eOk, ellipse.transformBy(OdGeMatrix3d::rotation(OdaPI2, kZ)));
        double start = 0;
        double end = 0;
        ellipse.getStartParam(start);
        ellipse.getEndParam(end);
        assertSame({0, 2, 0}, ellipse.majorAxis());
        CPPUNIT_ASSERT(start == 0.25 && end == 2 && ellipse.radiusRatio() == 0.5);
        // In the mirror it runs from what was its end; the plane goes on to look up.
        CPPUNIT_ASSERT_EQUAL(eOk, ellipse.transformBy(OdGeMatrix3d::mirroringAtPlane({}, {1, 0, 0})));
        ellipse.getStartParam(start);
        ellipse.getEndParam(end);
        CPPUNIT_ASSERT(ellipse.normal() == kZ);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(Oda2PI - 2, start, 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(Oda2PI - 0.25, end, 1e-12);
        CPPUNIT_ASSERT_EQUAL(eOk, ellipse.transformBy(OdGeMatrix3d::scaling(OdGeScale3d(4, 1, 1))));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.5, ellipse.radiusRatio(), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(4.0, ellipse.majorAxis().length(), 1e-12);
    }

    void movingKeepsEveryOtherBit()
    {
        OdDbEllipse ellipse;
        OdDbRay ray;
        readTags(ellipse, {"100 AcDbEllipse", "10 0.0", "20 0.0", "30 0.0", "11 0.1", "21 0.3", "31 0.7",
                           "210 0.3", "220 -0.1", "230 0.1", "40 -0.1", "41 9.1", "42 -3.3"});
        readTags(ray, {"100 AcDbRay", "10 0.0", "20 0.0", "30 0.0", "11 0.1", "21 0.3", "31 0.7"});
        for (OdDbEntity* const each : {static_cast<OdDbEntity*>(&ellipse), static_cast<OdDbEntity*>(&ray)}) {
            std::string expected = joined(writtenTags(*each));
            expected.replace(expected.find("10 0.0\n20 0.0\n30 0.0"), 20, "10 1.0\n20 2.0\n30 3.0");
            CPPUNIT_ASSERT_EQUAL(eOk, each->transformBy(OdGeMatrix3d::translation({1, 2, 3})));
            CPPUNIT_ASSERT_EQUAL(expected, joined(writtenTags(*each)));
        }
    }

    void collapsing()
    {
        OdGeMatrix3d const flat = OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1));
        OdDbEllipse ellipse;
        OdDbXline line({1, 2, 3}, {0, 1, 0});
        for (OdDbEntity* const each : {static_cast<OdDbEntity*>(&ellipse), static_cast<OdDbEntity*>(&line)}) {
            std::string const before = joined(writtenTags(*each));
            CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, each->transformBy(flat));
            CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*each)));
        }
    }

    void damagedEllipses()
    {
        struct Damaged
        {
            char const* ratio;
            double shown;
        };
        for (Damaged const& each : {Damaged{"-0.5", 0.5}, {"0.0", OdDbEllipse::kLeastRatio}, {"3.0", 3.0}}) {
            OdDbEllipsePtr const ellipse = fileEllipse(each.ratio);
            CPPUNIT_ASSERT_EQUAL(std::string("40 ") + each.ratio, writtenTags(*ellipse).at(9));
            CPPUNIT_ASSERT_EQUAL(each.shown, ellipse->radiusRatio());
            CPPUNIT_ASSERT_DOUBLES_EQUAL(2 * each.shown, ellipse->extents().maxPoint().y, 1e-12);
            OdDbEntityPtr const turned(ellipse->clone());
            CPPUNIT_ASSERT_EQUAL(eOk, turned->transformBy(OdGeMatrix3d::rotation(1, kTilted)));
        }
        OdDbEllipse upright; // the major axis along the normal
        readTags(upright, {"100 AcDbEllipse", "11 0.0", "21 0.0", "31 2.0"});
        CPPUNIT_ASSERT_EQUAL(2.0, upright.extents().maxPoint().z);
        CPPUNIT_ASSERT(upright.minorAxis() == OdGeVector3d());
        CPPUNIT_ASSERT_EQUAL(eOk, upright.transformBy(OdGeMatrix3d::translation({1, 0, 0})));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, upright.transformBy(OdGeMatrix3d::scaling(2)));
        CPPUNIT_ASSERT(!fileEllipse("0.5", "1e300.", "0.0")->getOdGeCurve());
    }

    void raysAndConstructionLines()
    {
        OdDbRay ray({1, 2, 3}, {0, 3, 4});
        CPPUNIT_ASSERT(ray.unitDir() == OdGeVector3d(0, 0.6, 0.8));
        ray.setSecondPoint({1, 2, -9});
        CPPUNIT_ASSERT(ray.unitDir() == OdGeVector3d(0, 0, -1));
        assertError(eDegenerateGeometry, [&] { ray.setUnitDir({0, 0, 0}); });
        assertError(eDegenerateGeometry, [] { OdDbXline({1, 2, 3}, {0, 0, 0}); });
        CPPUNIT_ASSERT(!ray.extents().isValidExtents()); // no box holds it
        int const index = 0;
        CPPUNIT_ASSERT_EQUAL(eOk, ray.moveStretchPointsAt(std::span(&index, 1), {1, 0, 0}));
        CPPUNIT_ASSERT(ray.basePoint() == OdGePoint3d(2, 2, 3) && ray.unitDir() == OdGeVector3d(0, 0, -1));

        OdDbRay aimless;
        readTags(aimless, {"100 AcDbRay", "10 1.0", "20 1.0", "30 1.0", "11 0.0", "21 0.0", "31 0.0"});
        CPPUNIT_ASSERT(aimless.extents().maxPoint() == OdGePoint3d(1, 1, 1));
        CPPUNIT_ASSERT_EQUAL(eOk, aimless.transformBy(OdGeMatrix3d::scaling(2)));
        CPPUNIT_ASSERT(aimless.basePoint() == OdGePoint3d(2, 2, 2));
    }

    void auditingKeepsWhatIsSeen()
    {
        OdDbDatabasePtr const drawing = new OdDbDatabase;
        auto const mended = [&](OdDbEllipsePtr const& ellipse) {
            SampledOutline const before(*ellipse);
            drawing->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite)->appendOdDbEntity(ellipse);
            OdDbAuditInfo info(true);
            ellipse->audit(info);
            CPPUNIT_ASSERT_EQUAL(std::size_t(1), info.errorsFixed());
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, before.exactDistanceTo(SampledOutline(*ellipse)), 1e-9);
            OdDbAuditInfo again;
            ellipse->audit(again);
            CPPUNIT_ASSERT_EQUAL(std::size_t(0), again.errorsFound());
        };
        OdDbEllipsePtr const tall = fileEllipse("-2.0", "0.5", "1.5");
        mended(tall);
        CPPUNIT_ASSERT_EQUAL(0.5, tall->radiusRatio());
        mended(fileEllipse("0.0"));
        OdDbEllipsePtr const slanting(new OdDbEllipse);
        readTags(*slanting, {"100 AcDbEllipse", "11 1e-5.", "21 0.0", "31 1e-5."});
        mended(slanting);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-std::sqrt(0.5), slanting->normal().x, 1e-9);
    }

    void undoAndCopies()
    {
        OdDbDatabasePtr const drawing = new OdDbDatabase;
        auto const space = drawing->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        for (OdDbEntityPtr const& each :
             {OdDbEntityPtr(new OdDbEllipse({1, 2, 3}, kTilted, {4, -3, 0}, 0.3, 9, 4)),
              OdDbEntityPtr(new OdDbRay({1, 2, 3}, kTilted)), OdDbEntityPtr(new OdDbXline({1, 2, 3}, kTilted))}) {
            space->appendOdDbEntity(each);
            std::string const before = joined(writtenTags(*each));
            CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*OdDbEntityPtr(each->clone()))));
            drawing->startUndoRecord();
            CPPUNIT_ASSERT_EQUAL(eOk, each->transformBy(OdGeMatrix3d::scaling(3)));
            CPPUNIT_ASSERT(before != joined(writtenTags(*each)));
            drawing->undo();
            CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*each)));
        }
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(EllipseRayTest);

} // namespace
