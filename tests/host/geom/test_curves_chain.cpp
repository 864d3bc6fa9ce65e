#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"
#include "host/root/od_error.h"

#include <cppunit/extensions/HelperMacros.h>

// Chains of segments: values by hand and at the edges.
namespace {

// A square of side 2 whose right side is a half circle to the outside.
OdGeSegmentChain3d squareWithArc()
{
    return {{{0, 0}, {2, 0}, {2, 2}, {0, 2}}, {0, 1}, true};
}

class SegmentChainTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(SegmentChainTest);
    CPPUNIT_TEST(closedChainWithArc);
    CPPUNIT_TEST(segmentsAsCurves);
    CPPUNIT_TEST(cuttingAnArc);
    CPPUNIT_TEST(mirroringTurnsBulges);
    CPPUNIT_TEST(shapesThatArcsCannotTake);
    CPPUNIT_TEST(reversedClosedChainKeepsItsStart);
    CPPUNIT_TEST(fewPoints);
    CPPUNIT_TEST(equalPointsGiveNumbers);
    CPPUNIT_TEST(straightAndFlatChains);
    CPPUNIT_TEST(leastOfSeveralClosest);
    CPPUNIT_TEST(nearlyStraightArcs);
    CPPUNIT_TEST(badInput);
    CPPUNIT_TEST_SUITE_END();

    void closedChainWithArc()
    {
        OdGeSegmentChain3d const chain = squareWithArc();
        CPPUNIT_ASSERT_DOUBLES_EQUAL(6 + OdaPI, chain.length(), 1e-14);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(4 + OdaPI / 2, chain.signedArea({0, 0, 1}), 1e-14);
        CPPUNIT_ASSERT(chain.evalPoint(1.5) == OdGePoint3d(3, 1, 0));
        CPPUNIT_ASSERT(chain.evalPoint(4) == OdGePoint3d(0, 0, 0) && chain.evalPoint(9) == OdGePoint3d(0, 0, 0));
        CPPUNIT_ASSERT(chain.derivative(1) == OdGeVector3d(OdaPI, 0, 0)); // of the piece that begins there
        CPPUNIT_ASSERT(chain.extents().maxPoint() == OdGePoint3d(3, 2, 0));
        CPPUNIT_ASSERT(chain.isClosed() && chain.hasBulges() && !chain.isLinear());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.25, chain.paramAtLength(0, 2 + OdaPI / 4), 1e-14);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1.25, chain.closestParam({2 + 3 * std::sqrt(0.5), 1 - 3 * std::sqrt(0.5), 4}),
                                     1e-14);
        CPPUNIT_ASSERT(chain.breakParams() == std::vector<double>({1, 2, 3}));
    }

    void segmentsAsCurves()
    {
        OdGeSegmentChain3d const chain({{0, 0}, {2, 0}, {2, 2}}, {-1, 0.5}, false, {0, 0, -1}, 5);
        CPPUNIT_ASSERT(chain.vertexAt(1) == OdGePoint3d(-2, 0, -5));
        for (int i = 0; i < 2; ++i) {
            auto const segment = chain.segmentAt(i);
            CPPUNIT_ASSERT(segment->type() == OdGeCurve3d::EType::kCircArc);
            for (double const part : {0.0, 0.3, 1.0}) {
                OdGeInterval const range = segment->getInterval();
                CPPUNIT_ASSERT(segment->evalPoint(range.lower + part * range.length()) ==
                               chain.evalPoint(i + part));
            }
        }
        auto const clockwise = chain.segmentAt(0);
        CPPUNIT_ASSERT(static_cast<OdGeCircArc3d const&>(*clockwise).normal() == OdGeVector3d(0, 0, 1));
    }

    void cuttingAnArc()
    {
        auto const part = squareWithArc().trimmed(1.5, 4.5);
        auto const& chain = static_cast<OdGeSegmentChain3d const&>(*part);
        CPPUNIT_ASSERT(!chain.isClosedChain());
        CPPUNIT_ASSERT_EQUAL(5, chain.numVertices());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(std::tan(OdaPI / 8), chain.bulgeAt(0), 1e-15);
        CPPUNIT_ASSERT(chain.vertexAt(0) == OdGePoint3d(3, 1, 0) && chain.vertexAt(4) == OdGePoint3d(1, 0, 0));
        // An open chain ends where it ends.
        OdGeSegmentChain3d const open({{0, 0, 0}, {1, 0, 0}}, false);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1, open.trimmed(-3, 7)->length(), 1e-15);
    }

    void mirroringTurnsBulges()
    {
        OdGeSegmentChain3d chain = squareWithArc();
        chain.transformBy(OdGeMatrix3d::mirroringAtPlane({}, {1, 0, 0}));
        CPPUNIT_ASSERT(chain.normal() == OdGeVector3d(0, 0, 1));
        CPPUNIT_ASSERT_EQUAL(-1.0, chain.bulgeAt(1));
        CPPUNIT_ASSERT(chain.evalPoint(1.5) == OdGePoint3d(-3, 1, 0));
        chain.transformBy(OdGeMatrix3d::rotation(OdaPI, {0, 1, 0}));
        CPPUNIT_ASSERT(chain.normal() == OdGeVector3d(0, 0, -1));
        CPPUNIT_ASSERT_EQUAL(-1.0, chain.bulgeAt(1));
        CPPUNIT_ASSERT(chain.evalPoint(1.5) == OdGePoint3d(3, 1, 0));
    }

    void shapesThatArcsCannotTake()
    {
        OdGeSegmentChain3d chain = squareWithArc();
        CPPUNIT_ASSERT_THROW(chain.transformBy(OdGeMatrix3d::scaling({1, 2, 1})), OdError);
        CPPUNIT_ASSERT(chain.vertexAt(2) == OdGePoint3d(2, 2, 0));
        OdGeSegmentChain3d straight({{0, 0}, {2, 0}, {2, 2}}, {}, false);
        straight.transformBy(OdGeMatrix3d::scaling({1, 2, 1}));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(6, straight.length(), 1e-14);
        straight.transformBy(OdGeMatrix3d::scaling({1, 0, 1}));
        CPPUNIT_ASSERT(straight.isLinear() && !straight.plane());
    }

    void reversedClosedChainKeepsItsStart()
    {
        OdGeSegmentChain3d chain = squareWithArc();
        chain.reverseParam();
        CPPUNIT_ASSERT(chain.vertexAt(0) == OdGePoint3d(0, 0, 0) && chain.vertexAt(1) == OdGePoint3d(0, 2, 0));
        CPPUNIT_ASSERT_EQUAL(-1.0, chain.bulgeAt(2));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-4 - OdaPI / 2, chain.signedArea({0, 0, 1}), 1e-14);
    }

    void fewPoints()
    {
        for (OdGeSegmentChain3d chain : {OdGeSegmentChain3d(), OdGeSegmentChain3d({OdGePoint3d(1, 2, 3)}, true)}) {
            CPPUNIT_ASSERT_EQUAL(0.0, chain.length());
            CPPUNIT_ASSERT_EQUAL(0.0, chain.closestParam({9, 9, 9}));
            CPPUNIT_ASSERT_EQUAL(0.0, chain.paramAtLength(0, 1));
            CPPUNIT_ASSERT_EQUAL(0.0, chain.signedArea({0, 0, 1}));
            CPPUNIT_ASSERT(chain.isLinear() && !chain.isClosed() && !chain.plane());
            CPPUNIT_ASSERT_EQUAL(std::size_t(1), chain.samplePoints(0.1).size());
            CPPUNIT_ASSERT_THROW(chain.trimmed(0, 1), OdError);
            CPPUNIT_ASSERT_THROW(chain.segmentAt(0), OdError);
            chain.reverseParam();
            chain.transformBy(OdGeMatrix3d::scaling(2));
            CPPUNIT_ASSERT(chain.evalPoint(0) == (chain.numVertices() ? OdGePoint3d(2, 4, 6) : OdGePoint3d()));
        }
        OdGeSegmentChain3d const there({{0, 0, 0}, {1, 0, 0}}, true);
        CPPUNIT_ASSERT(there.numSegments() == 2 && there.length() == 2 && there.isClosed());
    }

    void equalPointsGiveNumbers()
    {
        OdGeSegmentChain3d const chain({{1, 1}, {1, 1}, {1, 1}}, {1, 0, -1e9}, true);
        CPPUNIT_ASSERT_EQUAL(0.0, chain.length());
        CPPUNIT_ASSERT_EQUAL(0.0, chain.signedArea({0, 0, 1}));
        for (double const t : {0.0, 0.5, 1.5, 2.5, 3.0}) {
            CPPUNIT_ASSERT(chain.evalPoint(t) == OdGePoint3d(1, 1, 0));
            CPPUNIT_ASSERT_EQUAL(0.0, chain.derivative(t).length());
        }
        CPPUNIT_ASSERT(chain.segmentAt(0)->type() == OdGeCurve3d::EType::kLineSeg);
        CPPUNIT_ASSERT(chain.extents().maxPoint() == OdGePoint3d(1, 1, 0));
        // Nearly a full circle over a short chord.
        OdGeSegmentChain3d const round({{0, 0}, {1, 0}}, {1e6}, false);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI * 5e5, round.length(), 10);
        CPPUNIT_ASSERT(round.evalPoint(0.5).isEqualTo({0.5, -5e5, 0}, 1e-6));
    }

    void straightAndFlatChains()
    {
        CPPUNIT_ASSERT(OdGeSegmentChain3d({{0, 0, 0}, {1, 1, 1}, {3, 3, 3}, {2, 2, 2}}, false).isLinear());
        CPPUNIT_ASSERT(!OdGeSegmentChain3d({{0, 0}, {1, 0}}, {0.1}, false).isLinear());
        CPPUNIT_ASSERT(!OdGeSegmentChain3d({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 1}}, true).plane());
        // Clockwise seen along Z: the normal for which it is counterclockwise.
        OdGeSegmentChain3d const space({{0, 0, 2}, {0, 1, 2}, {1, 1, 2}}, true);
        CPPUNIT_ASSERT(space.plane()->normal() == OdGeVector3d(0, 0, -1));
        OdGeSegmentChain3d const flat({{0, 0}, {0, 1}, {1, 1}}, {}, true);
        CPPUNIT_ASSERT(flat.plane()->normal() == OdGeVector3d(0, 0, 1));
        // An eight encloses as much on either side.
        CPPUNIT_ASSERT(OdGeSegmentChain3d({{0, 0, 0}, {1, 1, 0}, {1, 0, 0}, {0, 1, 0}}, true).plane());
    }

    void leastOfSeveralClosest()
    {
        OdGeSegmentChain3d const square({{0, 0}, {0.3, 0}, {0.3, 0.3}, {0, 0.3}}, {}, true);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.5, square.closestParam({0.15, 0.15, 0}), 1e-12);
        CPPUNIT_ASSERT_EQUAL(0.0, square.closestParam({-1, -1, 0}));
        CPPUNIT_ASSERT_EQUAL(1.0, square.closestParam({1, -1, 0}));
        OdGeSegmentChain3d const ring({{0, 0}, {2, 0}}, {1, 1}, true);
        CPPUNIT_ASSERT_EQUAL(0.0, ring.closestParam({1, 0, 5}));
    }

    void nearlyStraightArcs()
    {
        // The center is 2.5e12 away; height and area are those of a parabola.
        double const bulge = 1e-9;
        OdGeSegmentChain3d const chain({{0, 0}, {1e4, 0}}, {bulge}, false);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(-bulge * 5e3, chain.evalPoint(0.5).y, 1e-18);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(1e8 * bulge / 3, chain.signedArea({0, 0, 1}), 1e-12);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.25, chain.closestParam({2500, 7, 0}), 1e-9);
    }

    void badInput()
    {
        double const noNumber = std::numeric_limits<double>::quiet_NaN();
        CPPUNIT_ASSERT_THROW(OdGeSegmentChain3d({{0, 0}, {1, 0}}, {noNumber}, false), OdError);
        CPPUNIT_ASSERT_THROW(OdGeSegmentChain3d({{0, 0}, {1, 0}}, {}, false, {0, 0, 0}), OdError);
        CPPUNIT_ASSERT_THROW(squareWithArc().vertexAt(4), OdError);
        CPPUNIT_ASSERT_THROW(squareWithArc().bulgeAt(-1), OdError);
        CPPUNIT_ASSERT(squareWithArc().evalPoint(noNumber) == OdGePoint3d(0, 0, 0));
        // More bulges than points: the rest counts for nothing.
        CPPUNIT_ASSERT_EQUAL(std::size_t(2),
                             OdGeSegmentChain3d({{0, 0}, {1, 0}}, {0, 1, 2}, false).bulges().size());
    }
};

} // namespace

CPPUNIT_TEST_SUITE_REGISTRATION(SegmentChainTest);
