// Splines: control and fit data, what a file may hold, transformations, and what an audit makes of bad data.
#include "tests/host/db/test_entities_support.h"
#include "tests/support/od_result_of.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_spline.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

#include <random>

namespace {

OdGePoint3dArray const kBend{{0, 0, 1}, {1, 2, 1}, {3, 2, 1}, {4, 0, 1}};
OdGeKnotVector const kBezierKnots({0, 0, 0, 0, 1, 1, 1, 1});

OdDbSplinePtr bend(OdGeDoubleArray const& weights = {})
{
    OdDbSplinePtr spline(new OdDbSpline);
    spline->setNurbsData(3, !weights.empty(), false, false, kBend, kBezierKnots, weights);
    return spline;
}

OdDbSplinePtr fitted(bool isClosed = false)
{
    OdDbSplinePtr spline(new OdDbSpline);
    spline->setFitData({{0, 0, 0}, {2, 1, 0}, {4, -1, 3}, {5, 0, 0}}, {1, 0, 0}, {0, 1, 0}, 3, 0, isClosed);
    return spline;
}

/// Degree 2 in a plane, its first two control points repeated as its last ones.
OdDbSplinePtr ring()
{
    std::vector<OdGePoint3d> const points{{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}};
    return OdDbSplinePtr(new OdDbSpline(OdGeNurbCurve3d::ofControlPoints(2, points, true)));
}

class SplineTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SplineTest);
    CPPUNIT_TEST(files);
    CPPUNIT_TEST(damagedFiles);
    CPPUNIT_TEST(olderFilesWithoutMarkers);
    CPPUNIT_TEST(nurbsData);
    CPPUNIT_TEST(refusedData);
    CPPUNIT_TEST(fitData);
    CPPUNIT_TEST(fitPointsAloneMakeACurve);
    CPPUNIT_TEST(controlPoints);
    CPPUNIT_TEST(planes);
    CPPUNIT_TEST(reversing);
    CPPUNIT_TEST(transformationsMoveTheOutline);
    CPPUNIT_TEST(stretching);
    CPPUNIT_TEST(audits);
    CPPUNIT_TEST(undoAndCopies);
    CPPUNIT_TEST_SUITE_END();

    void files()
    {
        auto const spline = roundTrip<OdDbSpline>(
            {"100 AcDbSpline", "210 0.0", "220 0.0", "230 1.0",  "70 1068",  "71 2",   "72 6",
             "73 3",           "74 2",    "42 0.25", "43 0.125", "44 0.001", "12 1.0", "22 0.0",
             "32 0.0",         "13 0.0",  "23 1.0",  "33 0.0",   "40 0.0",   "40 0.0", "40 0.0",
             "40 1.0",         "40 1.0",  "40 1.0",  "41 1.0",   "41 0.5",   "41 1.0", "10 0.0",
             "20 0.0",         "30 0.0",  "10 1.0",  "20 1.0",   "30 0.0",   "10 2.0", "20 0.0",
             "30 0.0",         "11 0.0",  "21 0.0",  "31 0.0",   "11 2.0",   "21 0.0", "31 0.0"});
        CPPUNIT_ASSERT(spline->hasFitData() && spline->isRational() && spline->isPlanar());
        CPPUNIT_ASSERT(!spline->isClosed() && !spline->isPeriodic());
        CPPUNIT_ASSERT_EQUAL(2, spline->degree());
        CPPUNIT_ASSERT_EQUAL(6, spline->numKnots());
        CPPUNIT_ASSERT_EQUAL(0.001, spline->fitTolerance());
        CPPUNIT_ASSERT_EQUAL(0.5, spline->weightAt(1));
        OdGeVector3d start, end;
        CPPUNIT_ASSERT_EQUAL(eOk, spline->getFitTangents(start, end));
        CPPUNIT_ASSERT(start == OdGeVector3d(1, 0, 0) && end == OdGeVector3d(0, 1, 0));
        // Half way: (p0 + 2 * 0.5 * p1 + p2) / (1 + 2 * 0.5 + 1).
        CPPUNIT_ASSERT(spline->getOdGeCurve()->evalPoint(0.5).isEqualTo({1, 1.0 / 3, 0}));
    }

    void damagedFiles()
    {
        // Counts that lie, a knot too few, a weight too many: kept, but no curve.
        OdDbSplinePtr const spline(new OdDbSpline);
        readTags(*spline,
                 {"100 AcDbSpline", "70 4", "71 1", "72 2000000000", "73 -5", "74 9", "40 0.0", "40 0.0", "40 1.0",
                  "41 1.0", "41 1.0", "41 1.0", "10 0.0", "20 0.0", "30 0.0", "10 3.0", "20 4.0"});
        CPPUNIT_ASSERT(!spline->getOdGeCurve());
        std::string const written = joined(writtenTags(*spline));
        CPPUNIT_ASSERT(written.find("72 3\n73 2\n74 0\n") != std::string::npos);
        CPPUNIT_ASSERT(written.find("40 0.0\n40 0.0\n40 1.0\n41 1.0\n41 1.0\n41 1.0\n10 0.0\n") !=
                       std::string::npos);
        CPPUNIT_ASSERT_EQUAL(1, SampledOutline(*spline).segments); // the control polygon
        double parameter = 0;
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, spline->getEndParam(parameter));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, spline->reverseCurve());
        CPPUNIT_ASSERT_EQUAL(eOk, spline->transformBy(OdGeMatrix3d::translation({1, 1, 1})));
        CPPUNIT_ASSERT(spline->extents().maxPoint() == OdGePoint3d(4, 5, 1));

        // A coordinate of no point stays a tag of its own.
        OdDbSplinePtr const headless(new OdDbSpline);
        readTags(*headless, {"100 AcDbSpline", "70 0", "71 3", "20 4.0", "31 5.0"});
        CPPUNIT_ASSERT_EQUAL(0, headless->numControlPoints() + headless->numFitPoints());
        CPPUNIT_ASSERT(headless->extras() != nullptr);
        CPPUNIT_ASSERT(!headless->extents().isValidExtents());

        // A spline that calls itself periodic without being so is taken as it runs.
        OdDbSplinePtr const untrue(new OdDbSpline);
        readTags(*untrue, {"100 AcDbSpline", "70 11", "71 1", "40 0.0", "40 0.0", "40 1.0", "40 1.0", "10 0.0",
                           "20 0.0", "30 0.0", "10 1.0", "20 0.0", "30 0.0"});
        CPPUNIT_ASSERT(untrue->isPeriodic() && !untrue->isClosed());
        CPPUNIT_ASSERT_EQUAL(1, SampledOutline(*untrue).splines);
    }

    void olderFilesWithoutMarkers()
    {
        OdDbSplinePtr const spline(new OdDbSpline);
        readTags(*spline, {"8 0", "70 8", "71 1", "72 4", "73 2", "40 0.0", "40 0.0", "40 2.0", "40 2.0", "10 1.0",
                           "20 0.0", "30 0.0", "10 5.0", "20 0.0", "30 0.0"});
        double length = 0;
        CPPUNIT_ASSERT_EQUAL(eOk, spline->getLength(length));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(4, length, 1e-12);
    }

    void nurbsData()
    {
        OdGeDoubleArray const weights{1, 2, 0.5, 1};
        auto const spline = bend(weights);
        int degree = 0;
        bool rational = false, closed = true, periodic = true;
        OdGePoint3dArray points;
        OdGeKnotVector knots;
        OdGeDoubleArray read;
        double tolerance = 0;
        spline->getNurbsData(degree, rational, closed, periodic, points, knots, read, tolerance);
        CPPUNIT_ASSERT(degree == 3 && rational && !closed && !periodic && tolerance == 1e-7);
        CPPUNIT_ASSERT(std::equal(points.begin(), points.end(), kBend.begin(), kBend.end()));
        CPPUNIT_ASSERT(std::equal(read.begin(), read.end(), weights.begin(), weights.end()));
        CPPUNIT_ASSERT(knots == kBezierKnots);
        OdDbSplinePtr const second(new OdDbSpline);
        second->setNurbsData(degree, rational, closed, periodic, points, knots, read, tolerance);
        CPPUNIT_ASSERT_EQUAL(joined(writtenTags(*spline)), joined(writtenTags(*second)));

        bend()->getNurbsData(degree, rational, closed, periodic, points, knots, read, tolerance);
        CPPUNIT_ASSERT(!rational && read.empty());
        second->setNurbsData(3, true, true, false, kBend, kBezierKnots, {}, 0.5); // weights left out are 1
        second->getNurbsData(degree, rational, closed, periodic, points, knots, read, tolerance);
        CPPUNIT_ASSERT(rational && closed && tolerance == 0.5);
        CPPUNIT_ASSERT_EQUAL(std::size_t(4), read.size());
        CPPUNIT_ASSERT(!second->isClosed()); // it ends elsewhere, whatever it was called

        // Periodic by name: closed, but with the knots and points of an open curve.
        OdGePoint3dArray const drop{{0, 0, 0}, {1, 2, 0}, {-1, 2, 0}, {0, 0, 0}};
        second->setNurbsData(3, false, true, true, drop, kBezierKnots, {});
        CPPUNIT_ASSERT(second->isPeriodic() && second->isClosed());
        second->getNurbsData(degree, rational, closed, periodic, points, knots, read, tolerance);
        CPPUNIT_ASSERT(periodic);
        CPPUNIT_ASSERT_EQUAL(eOk, second->reverseCurve());
        CPPUNIT_ASSERT(second->isPeriodic());
    }

    void refusedData()
    {
        auto const spline = fitted();
        std::string const before = joined(writtenTags(*spline));
        auto const setKnots = [&](std::vector<double> knots, double tolerance = 1e-7) {
            return odResultOf([&] {
                spline->setNurbsData(3, false, false, false, kBend, OdGeKnotVector(std::move(knots)), {},
                                     tolerance);
            });
        };
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, setKnots({0, 0, 0, 0, 1, 1, 1}));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, setKnots({0, 0, 0, 1, 0, 1, 1, 1}));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, setKnots({1, 1, 1, 1, 1, 1, 1, 1}));
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, setKnots(kBezierKnots.asVector(), -1));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] {
                                 spline->setNurbsData(3, true, false, false, kBend, kBezierKnots, {1, 1, -1, 1});
                             }));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] {
                                 spline->setNurbsData(3, false, false, true, kBend, kBezierKnots, {});
                             }));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, odResultOf([&] { spline->setFitData({{1, 1, 1}, {1, 1, 1}}); }));
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, odResultOf([&] { spline->setFitData(kBend, {}, {}, 2); }));
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, odResultOf([&] { spline->setFitData(kBend, {}, {}, 3, -1); }));
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, odResultOf([&] { spline->setControlPointAt(-1, {}); }));
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, odResultOf([&] { spline->weightAt(1000); }));
        CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*spline)));
    }

    void fitData()
    {
        auto const spline = fitted();
        CPPUNIT_ASSERT_EQUAL(4, spline->numFitPoints());
        OdGePoint3d point;
        for (int i = 0; i < 4; ++i) {
            CPPUNIT_ASSERT_EQUAL(eOk, spline->getFitPointAt(i, point));
            CPPUNIT_ASSERT(spline->getOdGeCurve()->isOn(point, nullptr, 1e-9));
        }
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, spline->getFitPointAt(4, point));
        auto const curve = spline->getOdGeCurve();
        CPPUNIT_ASSERT(curve->derivative(curve->getInterval().lower).isCodirectionalTo({1, 0, 0}, 1e-9));
        CPPUNIT_ASSERT(curve->derivative(curve->getInterval().upper).isCodirectionalTo({0, 1, 0}, 1e-9));
        CPPUNIT_ASSERT(fitted(true)->isClosed());

        OdDbSplinePtr const higher(new OdDbSpline);
        higher->setFitData(kBend, {}, {}, 5, 0.25);
        CPPUNIT_ASSERT_EQUAL(5, higher->degree());
        CPPUNIT_ASSERT_EQUAL(0.25, higher->fitTolerance());

        SampledOutline const before(*spline);
        spline->purgeFitData();
        CPPUNIT_ASSERT(!spline->hasFitData());
        CPPUNIT_ASSERT_EQUAL(0.0, spline->fitTolerance());
        OdGeVector3d start, end;
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, spline->getFitTangents(start, end));
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, spline->getFitPointAt(0, point));
        CPPUNIT_ASSERT_EQUAL(0.0, before.exactDistanceTo(SampledOutline(*spline)));
    }

    void fitPointsAloneMakeACurve()
    {
        OdDbSplinePtr const spline(new OdDbSpline);
        readTags(*spline, {"100 AcDbSpline", "70 0", "71 3", "74 3", "11 0.0", "21 0.0", "31 0.0", "11 2.0",
                           "21 1.0", "31 0.0", "11 4.0", "21 0.0", "31 0.0"});
        OdGePoint3d end;
        CPPUNIT_ASSERT_EQUAL(eOk, spline->getEndPoint(end));
        CPPUNIT_ASSERT(end == OdGePoint3d(4, 0, 0));
        CPPUNIT_ASSERT_EQUAL(1, SampledOutline(*spline).splines);
        CPPUNIT_ASSERT_EQUAL(0, spline->numControlPoints());
        spline->purgeFitData(); // leaves the curve
        CPPUNIT_ASSERT(spline->numControlPoints() >= 4);
        CPPUNIT_ASSERT_EQUAL(eOk, spline->getEndPoint(end));

        OdDbSplinePtr const place(new OdDbSpline);
        readTags(*place, {"100 AcDbSpline", "70 1", "71 3", "11 7.0", "21 8.0", "31 9.0"});
        CPPUNIT_ASSERT(!place->getOdGeCurve());
        CPPUNIT_ASSERT(place->extents().minPoint() == OdGePoint3d(7, 8, 9));
    }

    void controlPoints()
    {
        auto const spline = fitted();
        OdGePoint3d const moved = spline->getControlPointAt(1) + OdGeVector3d(0, 0, 4);
        spline->setControlPointAt(1, moved);
        CPPUNIT_ASSERT(spline->getControlPointAt(1) == moved);
        CPPUNIT_ASSERT(!spline->hasFitData());

        auto const loop = ring();
        CPPUNIT_ASSERT_EQUAL(6, loop->numControlPoints());
        for (int const index : {0, 5, 3}) { // with a repeat behind it, before it, without one
            loop->setControlPointAt(index, {double(index), 9, 0});
            CPPUNIT_ASSERT(loop->isClosed());
        }
        CPPUNIT_ASSERT(loop->getControlPointAt(4) == OdGePoint3d(0, 9, 0));
        CPPUNIT_ASSERT(loop->getControlPointAt(1) == OdGePoint3d(5, 9, 0));
    }

    void planes()
    {
        auto const flat = bend();
        CPPUNIT_ASSERT(flat->isPlanar() && flat->planeNormal() == OdGeVector3d(0, 0, 1));
        flat->transformBy(OdGeMatrix3d::rotation(OdaPI2, {1, 0, 0}));
        CPPUNIT_ASSERT(flat->planeNormal() == OdGeVector3d(0, -1, 0));
        flat->setControlPointAt(2, flat->getControlPointAt(2) + OdGeVector3d(0, 0, 3));
        CPPUNIT_ASSERT(flat->isPlanar()); // moved within the plane
        flat->setControlPointAt(2, flat->getControlPointAt(2) + OdGeVector3d(0, 1, 0));
        CPPUNIT_ASSERT(!flat->isPlanar());

        CPPUNIT_ASSERT(!fitted()->isPlanar());
        OdDbSplinePtr const straight(new OdDbSpline);
        straight->setFitData({{0, 0, 0}, {1, 1, 1}, {3, 3, 3}});
        CPPUNIT_ASSERT(straight->isPlanar());
        CPPUNIT_ASSERT(straight->planeNormal().isPerpendicularTo({1, 1, 1}));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry,
                             bend()->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1))));
    }

    void reversing()
    {
        for (auto const& spline : {bend({1, 2, 3, 4}), fitted(), ring()}) {
            SampledOutline const before(*spline);
            OdGePoint3d const start = spline->getOdGeCurve()->evalPoint(-1e9);
            OdGePoint3d const end = spline->getOdGeCurve()->evalPoint(1e9);
            OdGeVector3d startTangent, endTangent, newStart, newEnd;
            spline->getFitTangents(startTangent, endTangent);
            CPPUNIT_ASSERT_EQUAL(eOk, spline->reverseCurve());
            CPPUNIT_ASSERT(spline->getOdGeCurve()->evalPoint(-1e9).isEqualTo(end));
            CPPUNIT_ASSERT(spline->getOdGeCurve()->evalPoint(1e9).isEqualTo(start));
            spline->getFitTangents(newStart, newEnd);
            CPPUNIT_ASSERT(newStart == -endTangent && newEnd == -startTangent);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0, before.roughDistanceTo(SampledOutline(*spline)), 0.2);
            spline->reverseCurve();
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0, before.roughDistanceTo(SampledOutline(*spline)), 1e-9);
        }
    }

    void transformationsMoveTheOutline()
    {
        std::mt19937 generator(20);
        std::uniform_real_distribution<double> entry(-2, 2);
        for (int round = 0; round < 50; ++round) {
            OdGeMatrix3d matrix;
            for (auto& row : std::span(matrix.entry).first(3))
                for (double& value : row)
                    value = entry(generator);
            for (auto const& spline : {bend(), bend({1, 5, 0.2, 1}), fitted(), fitted(true), ring()}) {
                SampledOutline const expected(*spline, matrix);
                CPPUNIT_ASSERT_EQUAL(eOk, spline->transformBy(matrix));
                SampledOutline const actual(*spline);
                CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.exactDistanceTo(actual), 1e-9);
                CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.roughDistanceTo(actual), 1e-9);
                if (spline->isPlanar())
                    CPPUNIT_ASSERT(std::abs(spline->planeNormal().dotProduct(
                                       spline->getControlPointAt(1) - spline->getControlPointAt(0))) < 1e-9);
            }
        }
        auto const spline = fitted();
        std::string const fitPoint = writtenTags(*spline).back();
        spline->transformBy(OdGeMatrix3d::translation({0, 0, 1}));
        spline->transformBy(OdGeMatrix3d::translation({0, 0, -1}));
        CPPUNIT_ASSERT_EQUAL(fitPoint, writtenTags(*spline).back());
        OdGeMatrix3d beyond = OdGeMatrix3d::scaling(1e308);
        std::string const before = joined(writtenTags(*spline));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, spline->transformBy(beyond));
        CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*spline)));
    }

    void stretching()
    {
        auto const spline = fitted();
        std::vector<OdGePoint3d> points;
        spline->getStretchPoints(points);
        CPPUNIT_ASSERT_EQUAL(std::size_t(4), points.size());
        int const second[] = {1};
        CPPUNIT_ASSERT_EQUAL(eOk, spline->moveStretchPointsAt(second, {0, 5, 0}));
        CPPUNIT_ASSERT(spline->hasFitData());
        CPPUNIT_ASSERT(spline->getOdGeCurve()->isOn({2, 6, 0}, nullptr, 1e-9));
        int const wrong[] = {1, 4};
        CPPUNIT_ASSERT_EQUAL(eInvalidIndex, spline->moveStretchPointsAt(wrong, {1, 0, 0}));

        // All fit points together move the curve as it is, also one that was computed otherwise.
        int const all[] = {0, 1, 2, 3};
        SampledOutline const expected(*spline, OdGeMatrix3d::translation({1, 2, 3}));
        CPPUNIT_ASSERT_EQUAL(eOk, spline->moveStretchPointsAt(all, {1, 2, 3}));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0, expected.roughDistanceTo(SampledOutline(*spline)), 1e-12);

        auto const loop = ring();
        points.clear();
        loop->getStretchPoints(points);
        CPPUNIT_ASSERT_EQUAL(std::size_t(4), points.size());
        int const first[] = {0};
        CPPUNIT_ASSERT_EQUAL(eOk, loop->moveStretchPointsAt(first, {-3, -3, 0}));
        CPPUNIT_ASSERT(loop->isClosed() && loop->getControlPointAt(4) == OdGePoint3d(-3, -3, 0));
    }

    /// What an audit tells of a spline with these tags (null for nothing) and, after it mended, whether there is a
    /// curve.
    void checkAudit(std::initializer_list<std::string_view> tags, wchar_t const* found, bool isErased = false)
    {
        OdDbDatabasePtr const db(new OdDbDatabase);
        OdDbSplinePtr spline(new OdDbSpline);
        readTags(*spline, tags, db->getLayerZeroId());
        auto const space = db->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        space->appendOdDbEntity(spline);
        OdDbAuditInfo info(true);
        spline->audit(info);
        CPPUNIT_ASSERT_EQUAL(std::size_t(found ? 1 : 0), info.findings().size());
        if (!found)
            return;
        CPPUNIT_ASSERT_EQUAL(OdString(found).toUtf8(), info.findings()[0].shown().toUtf8());
        CPPUNIT_ASSERT_EQUAL(isErased, spline->isErased());
        if (isErased)
            return;
        CPPUNIT_ASSERT(spline->getOdGeCurve());
        OdDbAuditInfo again;
        spline->audit(again);
        CPPUNIT_ASSERT_EQUAL(std::size_t(0), again.errorsFound());
    }

    void audits()
    {
        checkAudit({"8 0", "100 AcDbSpline", "71 2", "40 0.0", "40 1.0", "10 0.0", "10 1.0", "10 2.0"},
                   L"SPLINE: there are 2 knots for 3 control points of degree 2; 6 are needed; made anew from its "
                   L"control points");
        checkAudit({"8 0", "100 AcDbSpline", "71 1", "40 0.0", "40 2.0", "40 1.0", "40 3.0", "10 0.0", "10 1.0",
                    "11 0.0", "11 9.0"},
                   L"SPLINE: the knots are not ascending numbers; made anew from its fit points");
        checkAudit({"8 0", "100 AcDbSpline", "71 99", "10 0.0", "10 1.0"},
                   L"SPLINE: the degree 99 is not between 1 and 25; made anew from its control points");
        checkAudit({"8 0", "100 AcDbSpline", "71 1", "70 4", "41 1.0", "41 -1.0", "40 0.0", "40 0.0", "40 1.0",
                    "40 1.0", "10 0.0", "10 1.0"},
                   L"SPLINE: a weight is not positive; made anew from its control points");
        checkAudit(
            {"8 0", "100 AcDbSpline", "71 1", "70 2", "40 0.0", "40 0.0", "40 1.0", "40 1.0", "10 0.0", "10 1.0"},
            L"SPLINE: the first 1 control points of a periodic curve do not repeat as its last ones; no "
            L"longer called periodic");
        // Closed, and not reported, though its knots are not periodic.
        checkAudit({"8 0", "100 AcDbSpline", "71 1", "70 3", "40 0.0", "40 0.0", "40 1.0", "40 2.0", "40 2.0",
                    "10 0.0", "10 1.0", "10 0.0"},
                   nullptr);
        checkAudit({"8 0", "100 AcDbSpline", "10 0.0"}, L"SPLINE: its points make no curve; erased", true);
    }

    void undoAndCopies()
    {
        OdDbDatabasePtr const db(new OdDbDatabase);
        auto const space = db->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        auto const spline = fitted();
        space->appendOdDbEntity(spline);
        std::string const before = joined(writtenTags(*spline));
        CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*OdDbSplinePtr(spline->clone()))));
        db->startUndoRecord();
        spline->setControlPointAt(1, {100, 0, 0});
        spline->reverseCurve();
        std::string const after = joined(writtenTags(*spline));
        db->undo();
        CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*spline)));
        db->redo();
        CPPUNIT_ASSERT_EQUAL(after, joined(writtenTags(*spline)));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SplineTest);

} // namespace
