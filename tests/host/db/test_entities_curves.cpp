// Entities that are curves: what they tell of themselves as curves, and the entities that come of cutting, turning
// round and offsetting them.
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_ellipse.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_ray.h"
#include "host/db/entities/od_db_xline.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

namespace {

OdGeVector3d const kTilted(0.36, 0.48, 0.8);
OdGeVector3d const kZ(0, 0, 1);

OdDbPolylinePtr bulgedPolyline(bool isClosed, OdGeVector3d const& normal = kZ)
{
    OdDbPolylinePtr const polyline(new OdDbPolyline);
    polyline->setNormal(normal);
    polyline->setElevation(2);
    polyline->addVertexAt(0, {0, 0}, 1, 0.2, 0.6);
    polyline->addVertexAt(1, {4, 0}, 0, 0.6, 0.6);
    polyline->addVertexAt(2, {4, 3}, -0.5, 0, 1);
    polyline->setClosed(isClosed);
    polyline->setPlinegen(true);
    return polyline;
}

struct Case
{
    char const* name;
    OdDbCurvePtr entity;
    double length; ///< negative: endless
    double area;
    bool isClosed;
    bool isReversible;
};

std::vector<Case> curves()
{
    double const halfTurn = OdaPI * 2;                      // radius 2, on the chord of 4
    double const flatArc = 2.5 * 1.25 * 4 * std::atan(0.5); // bulge 1/2 on the chord of 5
    double const flatCap = 3.125 * 3.125 / 2 * (4 * std::atan(0.5) - std::sin(4 * std::atan(0.5)));
    auto const at = [](OdDbCurve* curve) { return OdDbCurvePtr(curve); };
    return {
        {"line", at(new OdDbLine({1, 2, 3}, {4, 6, 3})), 5, 0, false, true},
        {"circle", at(new OdDbCircle({1, 2, 3}, 2, kTilted)), 4 * OdaPI, 4 * OdaPI, true, false},
        {"arc", at(new OdDbArc({1, 2, 3}, 2, 1.5 * OdaPI, OdaPI / 2, kTilted)), 2 * OdaPI, 2 * OdaPI, false,
         false},
        {"full arc", at(new OdDbArc({1, 2, 3}, 2, 1, 1)), 4 * OdaPI, 4 * OdaPI, true, false},
        {"round ellipse", at(new OdDbEllipse({1, 2, 3}, kTilted, {4, -3, 0}, 1)), 10 * OdaPI, 25 * OdaPI, true,
         true},
        {"half an ellipse", at(new OdDbEllipse({1, 2, 3}, kZ, {4, 0, 0}, 0.5, 7, 7 + OdaPI)), 9.688448220547675,
         4 * OdaPI, false, true},
        {"open polyline", bulgedPolyline(false, kTilted), halfTurn + 3, 2 * OdaPI + 6, false, true},
        {"closed polyline", bulgedPolyline(true), halfTurn + 3 + flatArc, 2 * OdaPI + 6 - flatCap, true, true},
        {"ray", at(new OdDbRay({1, 2, 3}, {0, 3, 4})), -1, 0, false, false},
        {"construction line", at(new OdDbXline({1, 2, 3}, {0, 3, 4})), -1, 0, false, true},
    };
}

/// Parameters within the curve from end to end.
std::vector<double> paramsOf(OdDbCurve const& entity)
{
    OdGeInterval const range = entity.getOdGeCurve()->getInterval();
    double const from = range.isBoundedBelow() ? range.lower : -5;
    double const to = range.isBoundedAbove() ? range.upper : 5;
    std::vector<double> params;
    for (double const part : {0.0, 0.1, 0.35, 0.5, 0.8, 1.0})
        params.push_back(from + (to - from) * part);
    return params;
}

double lengthOf(OdDbEntity const& entity)
{
    double length = 0;
    CPPUNIT_ASSERT_EQUAL(eOk, dynamic_cast<OdDbCurve const&>(entity).getLength(length));
    return length;
}

OdGePoint3d pointAt(OdDbCurve const& entity, double param)
{
    OdGePoint3d point;
    CPPUNIT_ASSERT_EQUAL(eOk, entity.getPointAtParam(param, point));
    return point;
}

void assertNear(std::string const& what, OdGePoint3d const& expected, OdGePoint3d const& actual)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(what, 0.0, expected.distanceTo(actual), 1e-9);
}

class CurveEntitiesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CurveEntitiesTest);
    CPPUNIT_TEST(lengthsAndAreas);
    CPPUNIT_TEST(ends);
    CPPUNIT_TEST(parametersDistancesAndPointsAgree);
    CPPUNIT_TEST(closestPoints);
    CPPUNIT_TEST(whatIsOutsideIsRefused);
    CPPUNIT_TEST(anglesATurnMoreAreTheSame);
    CPPUNIT_TEST(splitting);
    CPPUNIT_TEST(splittingRefused);
    CPPUNIT_TEST(splittingEndlessOnes);
    CPPUNIT_TEST(aSplitPolylineKeepsItsWidths);
    CPPUNIT_TEST(reversing);
    CPPUNIT_TEST(offsetting);
    CPPUNIT_TEST(entitiesOfCurves);
    CPPUNIT_TEST(damagedOnesHaveNoCurve);
    CPPUNIT_TEST_SUITE_END();

    void lengthsAndAreas()
    {
        for (Case const& each : curves()) {
            double length = 0;
            double area = 0;
            bool const isEndless = each.length < 0;
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, isEndless ? eNotApplicable : eOk,
                                         each.entity->getLength(length));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, isEndless ? eNotApplicable : eOk, each.entity->getArea(area));
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(each.name, std::max(each.length, 0.0), length, 1e-9);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(each.name, each.area, area, 1e-9);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, each.isClosed, each.entity->isClosed());
        }
    }

    void ends()
    {
        OdDbArc const arc({1, 2, 3}, 2, 1.5 * OdaPI, OdaPI / 2);
        OdGePoint3d point;
        CPPUNIT_ASSERT_EQUAL(eOk, arc.getStartPoint(point));
        assertNear("start of an arc", {1, 0, 3}, point);
        CPPUNIT_ASSERT_EQUAL(eOk, arc.getEndPoint(point));
        assertNear("end of an arc", {1, 4, 3}, point);
        double param = 0;
        CPPUNIT_ASSERT_EQUAL(eOk, arc.getEndParam(param));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2.5 * OdaPI, param, 1e-15);

        OdDbRay const ray({1, 2, 3}, {0, 0, 1});
        CPPUNIT_ASSERT_EQUAL(eOk, ray.getStartPoint(point));
        CPPUNIT_ASSERT(point == OdGePoint3d(1, 2, 3));
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, ray.getEndPoint(point));
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, ray.getEndParam(param));
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, OdDbXline().getStartParam(param));
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, OdDbXline().getDistAtParam(1, param));
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, OdDbXline().getParamAtDist(1, param));
    }

    void parametersDistancesAndPointsAgree()
    {
        for (Case const& each : curves()) {
            for (double const param : paramsOf(*each.entity)) {
                OdGePoint3d const point = pointAt(*each.entity, param);
                double found = 0;
                CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eOk, each.entity->getParamAtPoint(point, found));
                assertNear(each.name, point, pointAt(*each.entity, found));
                CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eInvalidInput,
                                             each.entity->getParamAtPoint(point + OdGeVector3d(1, 1, 7), found));
                double distance = 0;
                if (each.entity->getDistAtParam(param, distance) == eNotApplicable)
                    continue;
                CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eOk, each.entity->getParamAtDist(distance, found));
                CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(each.name, param, found, 1e-9);
                OdGePoint3d there;
                CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eOk, each.entity->getPointAtDist(distance, there));
                assertNear(each.name, point, there);
            }
        }
        OdGeVector3d direction;
        CPPUNIT_ASSERT_EQUAL(eOk, OdDbLine({1, 2, 3}, {4, 6, 3}).getFirstDeriv(0.5, direction));
        CPPUNIT_ASSERT(direction == OdGeVector3d(3, 4, 0));
    }

    void closestPoints()
    {
        OdGePoint3d closest;
        OdDbLine const line({0, 0, 0}, {2, 0, 0});
        CPPUNIT_ASSERT_EQUAL(eOk, line.getClosestPointTo({5, 1, 0}, closest));
        assertNear("line", {2, 0, 0}, closest);
        CPPUNIT_ASSERT_EQUAL(eOk, line.getClosestPointTo({5, 1, 0}, closest, true));
        assertNear("extended line", {5, 0, 0}, closest);
        OdDbArc const arc({0, 0, 0}, 1, 0, OdaPI / 2);
        CPPUNIT_ASSERT_EQUAL(eOk, arc.getClosestPointTo({-5, 0, 0}, closest, true));
        assertNear("extended arc", {-1, 0, 0}, closest);
        OdDbRay const ray({0, 0, 0}, {1, 0, 0});
        CPPUNIT_ASSERT_EQUAL(eOk, ray.getClosestPointTo({-5, 1, 0}, closest));
        assertNear("ray", {0, 0, 0}, closest);
        CPPUNIT_ASSERT_EQUAL(eOk, ray.getClosestPointTo({-5, 1, 0}, closest, true));
        assertNear("extended ray", {-5, 0, 0}, closest);
    }

    void whatIsOutsideIsRefused()
    {
        double const nothing = std::numeric_limits<double>::quiet_NaN();
        OdDbLine const line({0, 0, 0}, {2, 0, 0});
        OdGePoint3d point(7, 7, 7);
        double number = 7;
        for (double const param : {-0.1, 1.1, nothing}) {
            CPPUNIT_ASSERT_EQUAL(eOutOfRange, line.getPointAtParam(param, point));
            CPPUNIT_ASSERT_EQUAL(eOutOfRange, line.getDistAtParam(param, number));
        }
        for (double const distance : {-0.1, 2.1, nothing})
            CPPUNIT_ASSERT_EQUAL(eOutOfRange, line.getParamAtDist(distance, number));
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, OdDbRay().getParamAtDist(HUGE_VAL, number));
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, OdDbArc({0, 0, 0}, 1, 0, 1).getPointAtParam(2, point));
        CPPUNIT_ASSERT(point == OdGePoint3d(7, 7, 7) && number == 7);
    }

    void anglesATurnMoreAreTheSame()
    {
        OdDbArc const arc({0, 0, 0}, 1, 1.5 * OdaPI, OdaPI / 2);
        assertNear("end angle", {0, 1, 0}, pointAt(arc, OdaPI / 2));
        OdDbEllipse const ellipse({0, 0, 0}, kZ, {2, 0, 0}, 0.5, 3, 1);
        double end = 0;
        CPPUNIT_ASSERT_EQUAL(eOk, ellipse.getEndParam(end));
        CPPUNIT_ASSERT_EQUAL(1.0, end);
        assertNear("end parameter", {2 * std::cos(1.0), std::sin(1.0), 0}, pointAt(ellipse, end));
        double distance = 0;
        CPPUNIT_ASSERT_EQUAL(eOk, ellipse.getDistAtParam(end, distance));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(lengthOf(ellipse), distance, 1e-12);
    }

    void splitting()
    {
        for (Case const& each : curves()) {
            if (each.length < 0)
                continue;
            std::vector<double> params = paramsOf(*each.entity);
            params.pop_back();
            params.erase(params.begin());
            std::vector<OdDbEntityPtr> pieces;
            each.entity->setColor(OdCmColor(3));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eOk, each.entity->getSplitCurves(params, pieces));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, each.isClosed ? 4u : 5u, static_cast<unsigned>(pieces.size()));
            double sum = 0;
            for (std::size_t i = 0; i < pieces.size(); ++i) {
                auto const& piece = dynamic_cast<OdDbCurve const&>(*pieces[i]);
                CPPUNIT_ASSERT_MESSAGE(each.name, !piece.isClosed() && piece.color() == OdCmColor(3));
                sum += lengthOf(piece);
                OdGePoint3d start;
                CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eOk, piece.getStartPoint(start));
                OdGeInterval const range = each.entity->getOdGeCurve()->getInterval();
                double const from = each.isClosed ? params[i] : i == 0 ? range.lower : params[i - 1];
                assertNear(each.name, pointAt(*each.entity, from), start);
            }
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(each.name, each.length, sum, 1e-9);
        }
    }

    void splittingRefused()
    {
        OdDbLine const line({0, 0, 0}, {2, 0, 0});
        std::vector<OdDbEntityPtr> pieces;
        auto const split = [&](OdDbCurve const& curve, std::vector<double> const& params) {
            return curve.getSplitCurves(params, pieces);
        };
        CPPUNIT_ASSERT_EQUAL(eOutOfRange, split(line, {0.5, 1.5}));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, split(line, {0.5, 0.25}));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, split(line, {0.5, 0.5}));
        CPPUNIT_ASSERT_EQUAL(eInvalidInput, split(OdDbCircle(), {}));
        CPPUNIT_ASSERT(pieces.empty());
        CPPUNIT_ASSERT_EQUAL(eOk, split(line, {0.0, 0.5, 1.0})); // the ends are cut already
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), pieces.size());
        pieces.clear();
        CPPUNIT_ASSERT_EQUAL(eOk, split(OdDbCircle(), {0.0, 2.0}));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), pieces.size());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2.0, lengthOf(*pieces[0]), 1e-12);
    }

    void splittingEndlessOnes()
    {
        std::vector<OdDbEntityPtr> pieces;
        CPPUNIT_ASSERT_EQUAL(eOk, OdDbXline({0, 0, 0}, {1, 0, 0}).getSplitCurves(std::vector{1.0, 3.0}, pieces));
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), pieces.size());
        CPPUNIT_ASSERT(odCast<OdDbRay>(pieces[0].get())->unitDir() == OdGeVector3d(-1, 0, 0));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2.0, lengthOf(*pieces[1]), 1e-12);
        CPPUNIT_ASSERT(odCast<OdDbRay>(pieces[2].get())->basePoint() == OdGePoint3d(3, 0, 0));
        pieces.clear();
        CPPUNIT_ASSERT_EQUAL(eOk, OdDbRay({0, 0, 0}, {1, 0, 0}).getSplitCurves(std::vector{2.0}, pieces));
        CPPUNIT_ASSERT(pieces[0]->isA() == OdDbLine::desc() && pieces[1]->isA() == OdDbRay::desc());
    }

    void aSplitPolylineKeepsItsWidths()
    {
        OdDbPolylinePtr const whole = bulgedPolyline(true, kTilted);
        whole->setThickness(1.5);
        std::vector<OdDbEntityPtr> pieces;
        CPPUNIT_ASSERT_EQUAL(eOk, whole->getSplitCurves(std::vector{0.5, 2.25}, pieces));
        auto const& first = *odCast<OdDbPolyline>(pieces[0].get());
        CPPUNIT_ASSERT_EQUAL(4u, first.numVerts());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.4, first.getStartWidthAt(0), 1e-15);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.6, first.getEndWidthAt(0), 1e-15);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.25, first.getEndWidthAt(2), 1e-15);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(std::tan(OdaPI / 8), first.getBulgeAt(0), 1e-12); // half of a half turn
        CPPUNIT_ASSERT(first.hasPlinegen() && first.thickness() == 1.5 && first.elevation() == 2);
        auto const& second = *odCast<OdDbPolyline>(pieces[1].get());
        CPPUNIT_ASSERT(second.getPointAt(1) == OdGePoint2d(0, 0)); // over the start
        CPPUNIT_ASSERT(second.getPointAt(2) == first.getPointAt(0));

        OdDbPolylinePtr const even = bulgedPolyline(false);
        even->setConstantWidth(0.3);
        pieces.clear();
        CPPUNIT_ASSERT_EQUAL(eOk, even->getSplitCurves(std::vector{1.5}, pieces));
        CPPUNIT_ASSERT_EQUAL(0.3, odCast<OdDbPolyline>(pieces[1].get())->getConstantWidth());
    }

    void reversing()
    {
        for (Case const& each : curves()) {
            OdDbCurvePtr const turned(each.entity->clone());
            std::string const before = joined(writtenTags(*turned));
            if (!each.isReversible) {
                CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eNotApplicable, turned->reverseCurve());
                CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, before, joined(writtenTags(*turned)));
                continue;
            }
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eOk, turned->reverseCurve());
            auto const original = each.entity->getOdGeCurve();
            original->reverseParam();
            // Parameters of a closed polyline count from another vertex then.
            bool const startMoves = odCast<OdDbPolyline>(each.entity.get()) && each.entity->isClosed();
            for (double const param : startMoves ? std::vector<double>() : paramsOf(*each.entity)) {
                OdGeInterval const range = original->getInterval();
                double const there =
                    range.isBounded() ? range.lower + (param - paramsOf(*each.entity).front()) : param;
                OdGeInterval const now = turned->getOdGeCurve()->getInterval();
                double const here = range.isBounded() ? now.lower + (there - range.lower) : param;
                assertNear(each.name, original->evalPoint(there), pointAt(*turned, here));
            }
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(
                each.name, 0.0, SampledOutline(*each.entity).exactDistanceTo(SampledOutline(*turned)), 1e-9);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(each.name, eOk, turned->reverseCurve());
            assertNear(each.name, pointAt(*each.entity, paramsOf(*each.entity)[1]),
                       turned->getOdGeCurve()->evalPoint(turned->getOdGeCurve()->closestParam(
                           pointAt(*each.entity, paramsOf(*each.entity)[1]))));
        }
        OdDbPolylinePtr const polyline = bulgedPolyline(false);
        std::string const before = joined(writtenTags(*polyline));
        polyline->reverseCurve();
        CPPUNIT_ASSERT_EQUAL(-1.0, polyline->getBulgeAt(1));
        CPPUNIT_ASSERT_EQUAL(0.2, polyline->getEndWidthAt(1));
        polyline->reverseCurve();
        CPPUNIT_ASSERT_EQUAL(before, joined(writtenTags(*polyline)));
    }

    void offsetting()
    {
        std::vector<OdDbEntityPtr> made;
        OdDbCircle const circle({1, 2, 3}, 2, kTilted);
        CPPUNIT_ASSERT_EQUAL(eOk, circle.getOffsetCurves(1, made));
        CPPUNIT_ASSERT_EQUAL(3.0, odCast<OdDbCircle>(made.at(0).get())->radius());
        made.clear();
        CPPUNIT_ASSERT_EQUAL(eOk, circle.getOffsetCurves(-2.5, made));
        CPPUNIT_ASSERT(made.empty());
        CPPUNIT_ASSERT_EQUAL(eOk, OdDbLine({0, 0, 0}, {2, 0, 0}).getOffsetCurves(1, made));
        CPPUNIT_ASSERT(odCast<OdDbLine>(made.at(0).get())->startPoint() == OdGePoint3d(0, -1, 0));

        made.clear(); // a rising line goes aside level
        CPPUNIT_ASSERT_EQUAL(eOk, OdDbLine({0, 0, 0}, {2, 0, 2}).getOffsetCurves(-1, made));
        CPPUNIT_ASSERT(odCast<OdDbLine>(made.at(0).get())->endPoint() == OdGePoint3d(2, 1, 2));
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, OdDbLine({0, 0, 0}, {0, 0, 2}).getOffsetCurves(1, made));

        OdDbPolylinePtr const square(new OdDbPolyline);
        for (OdGePoint2d const& corner :
             {OdGePoint2d(0, 0), OdGePoint2d(4, 0), OdGePoint2d(4, 4), OdGePoint2d(0, 4)})
            square->addVertexAt(square->numVerts(), corner);
        square->setClosed(true);
        square->setConstantWidth(0.5);
        square->setElevation(3);
        made.clear();
        CPPUNIT_ASSERT_EQUAL(eOk, square->getOffsetCurves(-1, made));
        auto const& inner = *odCast<OdDbPolyline>(made.at(0).get());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(8.0, lengthOf(inner), 1e-9);
        CPPUNIT_ASSERT(inner.isClosed() && inner.getConstantWidth() == 0.5 && inner.elevation() == 3);
    }

    void entitiesOfCurves()
    {
        for (Case const& each : curves()) {
            auto const curve = each.entity->getOdGeCurve();
            OdDbEntityPtr const made = odDbEntityOf(*curve, each.entity->planeNormal());
            OdDbEntityPtr flat(each.entity->clone());
            if (auto* const polyline = odCast<OdDbPolyline>(flat.get()))
                polyline->setConstantWidth(0);
            CPPUNIT_ASSERT_DOUBLES_EQUAL_MESSAGE(
                each.name, 0.0, SampledOutline(*flat).exactDistanceTo(SampledOutline(*made)), 1e-9);
            bool const isCircleNow = std::string(each.name) == "full arc";
            CPPUNIT_ASSERT_MESSAGE(each.name, isCircleNow || made->isA() == each.entity->isA());
        }
        // A bent chain in a plane that looks the other way.
        OdGeSegmentChain3d const chain({{0, 0}, {2, 0}}, {1}, false, {0, 0, -1});
        OdDbEntityPtr const made = odDbEntityOf(chain, kZ, 3);
        CPPUNIT_ASSERT_EQUAL(-1.0, odCast<OdDbPolyline>(made.get())->getBulgeAt(0));
        CPPUNIT_ASSERT_EQUAL(3.0, odCast<OdDbPolyline>(made.get())->thickness());
        // An arc that runs clockwise looks the other way, and so does its thickness.
        OdDbEntityPtr const arc = odDbEntityOf(*chain.segmentAt(0), kZ, 3);
        CPPUNIT_ASSERT(odCast<OdDbArc>(arc.get())->normal() == -kZ);
        CPPUNIT_ASSERT_EQUAL(-3.0, odCast<OdDbArc>(arc.get())->thickness());
    }

    void damagedOnesHaveNoCurve()
    {
        OdDbPolyline empty;
        OdDbEllipse flat;
        readTags(flat, {"100 AcDbEllipse", "11 0.0", "21 0.0", "31 2.0"});
        OdDbRay aimless;
        readTags(aimless, {"100 AcDbRay", "10 1.0", "20 1.0", "30 1.0", "11 0.0", "21 0.0", "31 0.0"});
        OdDbArc endless;
        readTags(endless, {"100 AcDbCircle", "40 1.0", "100 AcDbArc", "50 1e300.", "51 10.0"});
        for (OdDbCurve const* const each :
             {static_cast<OdDbCurve*>(&empty), static_cast<OdDbCurve*>(&flat), static_cast<OdDbCurve*>(&aimless),
              static_cast<OdDbCurve*>(&endless)}) {
            CPPUNIT_ASSERT(!each->getOdGeCurve());
            OdGePoint3d point;
            double length = 0;
            std::vector<OdDbEntityPtr> pieces;
            CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, each->getStartPoint(point));
            CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, each->getLength(length));
            CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, each->getSplitCurves(std::vector{0.5}, pieces));
            CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, each->getOffsetCurves(1, pieces));
            SampledOutline const outline(*each);
        }
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, empty.reverseCurve());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(CurveEntitiesTest);

} // namespace
