// Polylines and meshes whose vertices are entities of their own: what is seen of them and what they become.
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_face.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_poly_face_mesh.h"
#include "host/db/entities/od_db_polygon_mesh.h"
#include "host/db/entities/tdx_polyline_iterator.h"

#include <random>

namespace {

OdGeVector3d const kTilted(0.36, 0.48, 0.8);

/// A half circle on top of a square, or straight segments alone.
OdDb2dPolylinePtr flatPolyline(double bulge = 1, double width = 0)
{
    OdDb2dPolylinePtr polyline(new OdDb2dPolyline);
    polyline->setElevation(3);
    polyline->setClosed(true);
    polyline->appendVertex(new OdDb2dVertex({0, 0, 0}, 0, width, width));
    polyline->appendVertex(new OdDb2dVertex({4, 0, 0}, 0, width, width / 2));
    polyline->appendVertex(new OdDb2dVertex({4, 4, 0}, bulge, width, width));
    polyline->appendVertex(new OdDb2dVertex({0, 4, 0}, 0, width, width));
    return polyline;
}

OdDb3dPolylinePtr spatialPolyline()
{
    OdDb3dPolylinePtr polyline(new OdDb3dPolyline);
    for (OdGePoint3d const& point : {OdGePoint3d(0, 0, 0), {3, 0, 1}, {3, 4, 2}, {-1, 4, 5}})
        polyline->appendVertex(new OdDb3dPolylineVertex(point));
    return polyline;
}

/// Three rows of four vertices, bent.
OdDbPolygonMeshPtr gridMesh(int vertices = 12)
{
    OdDbPolygonMeshPtr mesh(new OdDbPolygonMesh);
    mesh->setMSize(3);
    mesh->setNSize(4);
    for (int i = 0; i < vertices; ++i)
        mesh->appendVertex(new OdDbPolygonMeshVertex({double(i % 4), double(i / 4), double(i % 3)}));
    return mesh;
}

/// A unit square with a triangle on it, a line and a point.
OdDbPolyFaceMeshPtr faceMesh()
{
    OdDbPolyFaceMeshPtr mesh(new OdDbPolyFaceMesh);
    for (OdGePoint3d const& point : {OdGePoint3d(0, 0, 0), {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}})
        mesh->appendVertex(new OdDbPolyFaceMeshVertex(point));
    mesh->appendFaceRecord(new OdDbFaceRecord(1, 2, 3, 4));
    OdDbFaceRecordPtr const triangle(new OdDbFaceRecord(1, 2, 5));
    triangle->makeEdgeInvisibleAt(2);
    mesh->appendFaceRecord(triangle);
    mesh->appendFaceRecord(new OdDbFaceRecord(3, 5, 0));
    mesh->appendFaceRecord(new OdDbFaceRecord(0, 0, 4));
    return mesh;
}

void assertBox(OdGePoint3d const& low, OdGePoint3d const& high, OdDbEntity const& entity)
{
    OdGeExtents3d const box = entity.extents();
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, box.minPoint().distanceTo(low), 1e-9);
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, box.maxPoint().distanceTo(high), 1e-9);
}

double lengthOf(OdDbCurve const& curve)
{
    double length = 0;
    CPPUNIT_ASSERT(curve.getLength(length) == eOk);
    return length;
}

class VerticesShapeTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(VerticesShapeTest);
    CPPUNIT_TEST(outlines);
    CPPUNIT_TEST(widthsAndThickness);
    CPPUNIT_TEST(meshOutlines);
    CPPUNIT_TEST(transformationsMoveTheOutline);
    CPPUNIT_TEST(translationsKeepBits);
    CPPUNIT_TEST(transformationsThatAreRefused);
    CPPUNIT_TEST(curves);
    CPPUNIT_TEST(reversing);
    CPPUNIT_TEST(splitting);
    CPPUNIT_TEST(explodingPolylines);
    CPPUNIT_TEST(explodingMeshes);
    CPPUNIT_TEST(stretching);
    CPPUNIT_TEST(splines);
    CPPUNIT_TEST(curveFitting);
    CPPUNIT_TEST_SUITE_END();

    void outlines()
    {
        auto const polyline = flatPolyline();
        assertBox({0, 0, 3}, {4, 6, 3}, *polyline);
        polyline->setNormal({0, 0, -1});
        assertBox({-4, 0, -3}, {0, 6, -3}, *polyline);
        polyline->setNormal({0, 1, 0}); // X axis of its plane is -X, Y axis is Z
        assertBox({-4, 3, 0}, {0, 3, 6}, *polyline);

        auto const spatial = spatialPolyline();
        assertBox({-1, 0, 0}, {3, 4, 5}, *spatial);
        CPPUNIT_ASSERT_EQUAL(3, SampledOutline(*spatial).segments);
        spatial->setClosed(true);
        CPPUNIT_ASSERT_EQUAL(4, SampledOutline(*spatial).segments);
        OdDb3dPolylinePtr const alone(new OdDb3dPolyline);
        CPPUNIT_ASSERT(!alone->extents().isValidExtents());
        alone->appendVertex(new OdDb3dPolylineVertex({1, 2, 3}));
        assertBox({1, 2, 3}, {1, 2, 3}, *alone);
    }

    void widthsAndThickness()
    {
        // The half circle has the same width on its whole way, of one segment it shrinks.
        auto const wide = flatPolyline(1, 1);
        SampledOutline const pieces(*wide);
        CPPUNIT_ASSERT_EQUAL(3, pieces.polygons);
        CPPUNIT_ASSERT_EQUAL(3, pieces.arcs);
        assertBox({-0.5, -0.5, 3}, {4.5, 6.5, 3}, *wide);
        wide->setThickness(-2);
        assertBox({-0.5, -0.5, 1}, {4.5, 6.5, 3}, *wide);

        OdDb2dPolylinePtr const narrowing(new OdDb2dPolyline);
        narrowing->appendVertex(new OdDb2dVertex({2, 0, 0}, 1, 2, 0));
        narrowing->appendVertex(new OdDb2dVertex({-2, 0, 0}));
        CPPUNIT_ASSERT_EQUAL(2, SampledOutline(*narrowing).splines);
        // Halfway it is 1 wide, and its border beyond the top falls on.
        OdGeExtents3d const box = narrowing->extents();
        CPPUNIT_ASSERT_DOUBLES_EQUAL(3.0, box.maxPoint().x, 1e-9);
        CPPUNIT_ASSERT(box.maxPoint().y > 2.5 && box.maxPoint().y < 2.55);
    }

    void meshOutlines()
    {
        // 3 rows of 3 edges, 4 columns of 2.
        CPPUNIT_ASSERT_EQUAL(17, SampledOutline(*gridMesh()).segments);
        auto const closed = gridMesh();
        closed->makeMClosed();
        closed->makeNClosed();
        CPPUNIT_ASSERT_EQUAL(24, SampledOutline(*closed).segments);
        CPPUNIT_ASSERT_EQUAL(10, SampledOutline(*gridMesh(8)).segments);
        auto const lying = gridMesh(2);
        readTags(*lying, {"71 32767", "72 32767"});
        CPPUNIT_ASSERT_EQUAL(1, SampledOutline(*lying).segments);
        readTags(*lying, {"71 0", "72 0"});
        assertBox({0, 0, 0}, {1, 0, 1}, *lying);

        auto const smooth = gridMesh();
        for (auto it = smooth->vertexIterator(); !it.done(); it.step())
            OdDbPolygonMeshVertexPtr(it.entity())->setVertexType(OdDb::k3dControlVertex);
        smooth->setPolyMeshType(OdDb::kCubicSurfaceMesh);
        CPPUNIT_ASSERT_EQUAL(17, SampledOutline(*smooth).segments); // as long as there is no surface
        smooth->setMSurfaceDensity(2);
        smooth->setNSurfaceDensity(2);
        for (double const x : {10, 11, 12, 13}) {
            OdDbPolygonMeshVertexPtr const vertex(new OdDbPolygonMeshVertex({x, 0, 0}));
            vertex->setVertexType(OdDb::k3dFitVertex);
            smooth->appendVertex(vertex);
        }
        CPPUNIT_ASSERT_EQUAL(4, SampledOutline(*smooth).segments);
        CPPUNIT_ASSERT_EQUAL(10.0, smooth->extents().minPoint().x);

        SampledOutline const faces(*faceMesh());
        CPPUNIT_ASSERT_EQUAL(2, faces.polygons);
        CPPUNIT_ASSERT_EQUAL(1, faces.segments);
        assertBox({0, 0, 0}, {1, 1, 1}, *faceMesh());
        auto const hostile = faceMesh();
        hostile->appendFaceRecord(new OdDbFaceRecord(32767, 32766, 1));
        assertBox({0, 0, 0}, {1, 1, 1}, *hostile);
    }

    static std::vector<OdDbEntityPtr> samples()
    {
        auto const tilted = flatPolyline(0.5, 0.25);
        tilted->setNormal(kTilted);
        tilted->setThickness(1.5);
        auto const straight = flatPolyline(0);
        return {flatPolyline(), tilted, straight, spatialPolyline(), gridMesh(), faceMesh()};
    }

    void transformationsMoveTheOutline()
    {
        std::mt19937_64 random(7);
        std::uniform_real_distribution<double> value(-2, 2);
        for (int round = 0; round < 10; ++round) {
            OdGeVector3d const axis(value(random), value(random), value(random));
            OdGeMatrix3d const similar = OdGeMatrix3d::translation({value(random), value(random), value(random)}) *
                                         OdGeMatrix3d::rotation(value(random), axis, {1, 2, 3}) *
                                         OdGeMatrix3d::scaling(std::abs(value(random)) + 0.1);
            OdGeMatrix3d const mirrored =
                similar * OdGeMatrix3d::mirroringAtPlane({1, 2, 0}, {axis.y, axis.z, axis.x});
            OdGeMatrix3d general;
            for (int row = 0; row < 3; ++row)
                for (int col = 0; col < 4; ++col)
                    general.entry[row][col] = value(random);
            for (OdGeMatrix3d const& matrix : {similar, mirrored, general})
                for (OdDbEntityPtr const& entity : samples()) {
                    SampledOutline const expected(*entity, matrix);
                    if (entity->transformBy(matrix) != eOk) {
                        CPPUNIT_ASSERT(!matrix.isUniScaledOrtho() && odCast<OdDb2dPolyline>(entity.get()));
                        continue;
                    }
                    SampledOutline const moved(*entity);
                    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, moved.exactDistanceTo(expected), 1e-9);
                    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, moved.roughDistanceTo(expected), 0.2);
                }
        }
    }

    void translationsKeepBits()
    {
        auto const polyline = flatPolyline(0.3, 0.1);
        polyline->setNormal(kTilted);
        OdDb2dVertexPtr const first(polyline->vertexIterator().entity());
        first->setTangent(0.123);
        std::vector<std::string> const before = writtenTags(*first);
        std::vector<std::string> const whole = writtenTags(*polyline);
        CPPUNIT_ASSERT(polyline->transformBy(OdGeMatrix3d::translation({0.1, 0.2, 0.3})) == eOk);
        std::vector<std::string> const after = writtenTags(*first);
        for (std::size_t i = 7; i < before.size(); ++i)
            CPPUNIT_ASSERT_EQUAL(before[i], after[i]);
        for (std::size_t i = 7; i < whole.size(); ++i)
            CPPUNIT_ASSERT_EQUAL(whole[i], writtenTags(*polyline)[i]);
        CPPUNIT_ASSERT_EQUAL(polyline->elevation(), first->position().z);
    }

    void transformationsThatAreRefused()
    {
        OdGeMatrix3d wider;
        wider.entry[0][0] = 2;
        for (auto const& polyline : {flatPolyline(1), flatPolyline(0, 0.5)}) {
            SampledOutline const before(*polyline);
            CPPUNIT_ASSERT(polyline->transformBy(wider) == eDegenerateGeometry);
            CPPUNIT_ASSERT_EQUAL(0.0, SampledOutline(*polyline).exactDistanceTo(before));
        }
        auto const straight = flatPolyline(0);
        CPPUNIT_ASSERT(straight->transformBy(wider) == eOk);
        assertBox({0, 0, 3}, {8, 4, 3}, *straight);
        wider.entry[0][0] = 0;
        CPPUNIT_ASSERT(straight->transformBy(wider) == eDegenerateGeometry);
    }

    void curves()
    {
        CPPUNIT_ASSERT_DOUBLES_EQUAL(12 + 2 * OdaPI, lengthOf(*flatPolyline()), 1e-9);
        double area = 0;
        CPPUNIT_ASSERT(flatPolyline()->getArea(area) == eOk);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(16 + 2 * OdaPI, area, 1e-9);
        OdGePoint3d point;
        CPPUNIT_ASSERT(flatPolyline()->getPointAtParam(2.5, point) == eOk);
        CPPUNIT_ASSERT(point == OdGePoint3d(2, 6, 3));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(std::sqrt(10) + std::sqrt(17) + 5, lengthOf(*spatialPolyline()), 1e-9);
        OdDb2dPolyline none;
        CPPUNIT_ASSERT(!none.getOdGeCurve() && !OdDb3dPolyline().getOdGeCurve());
        CPPUNIT_ASSERT(none.getLength(area) == eDegenerateGeometry);
    }

    void reversing()
    {
        for (bool const isClosed : {true, false}) {
            auto const polyline = flatPolyline(0.5, 0.25);
            polyline->setClosed(isClosed);
            SampledOutline const before(*polyline);
            OdGePoint3d start, end;
            polyline->getPointAtParam(0.25, start);
            CPPUNIT_ASSERT(polyline->reverseCurve() == eOk);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, SampledOutline(*polyline).exactDistanceTo(before), 1e-12);
            CPPUNIT_ASSERT(polyline->getPointAtParam(2.75, end) == eOk);
            CPPUNIT_ASSERT(start == end);
            polyline->reverseCurve();
            CPPUNIT_ASSERT_EQUAL(joined(writtenTags(*flatPolyline(0.5, 0.25)->vertexIterator().entity())),
                                 joined(writtenTags(*polyline->vertexIterator().entity())));
        }
        auto const spatial = spatialPolyline();
        spatial->reverseCurve();
        OdGePoint3d start;
        CPPUNIT_ASSERT(spatial->getStartPoint(start) == eOk);
        CPPUNIT_ASSERT(start == OdGePoint3d(-1, 4, 5));
    }

    void splitting()
    {
        auto const polyline = flatPolyline(1, 0.5);
        std::vector<OdDbEntityPtr> pieces;
        double const params[] = {0.5, 2.5};
        CPPUNIT_ASSERT(polyline->getSplitCurves(params, pieces) == eOk);
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, pieces.size());
        double sum = 0;
        for (OdDbEntityPtr const& piece : pieces) {
            OdDb2dPolylinePtr const part(piece);
            CPPUNIT_ASSERT(!part->isClosed());
            sum += lengthOf(*part);
        }
        CPPUNIT_ASSERT_DOUBLES_EQUAL(lengthOf(*polyline), sum, 1e-9);
        OdDb2dPolylinePtr const last(pieces[1]); // over the start
        OdGePoint3d end;
        CPPUNIT_ASSERT(last->getEndPoint(end) == eOk);
        CPPUNIT_ASSERT(end == OdGePoint3d(2, 0, 3));
        CPPUNIT_ASSERT_EQUAL(0.5, OdDb2dVertexPtr(last->vertexIterator().entity())->startWidth());

        pieces.clear();
        double const cut[] = {1.5};
        CPPUNIT_ASSERT(spatialPolyline()->getSplitCurves(cut, pieces) == eOk);
        CPPUNIT_ASSERT_EQUAL(std::size_t{2}, pieces.size());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(std::sqrt(17) / 2 + 5, lengthOf(*OdDb3dPolylinePtr(pieces[1])), 1e-9);
        CPPUNIT_ASSERT_EQUAL(3u, pieces[1]->numParts());
    }

    void explodingPolylines()
    {
        auto const polyline = flatPolyline(-1);
        polyline->setNormal(kTilted);
        polyline->setThickness(2);
        polyline->setColor(OdCmColor(3));
        std::vector<OdDbEntityPtr> pieces;
        CPPUNIT_ASSERT(polyline->explode(pieces) == eOk);
        CPPUNIT_ASSERT_EQUAL(std::size_t{4}, pieces.size());
        OdDbArcPtr const arc(pieces[2]);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(2.0, arc->radius(), 1e-12);
        CPPUNIT_ASSERT_EQUAL(2.0, arc->thickness());
        OdGeExtents3d box;
        for (OdDbEntityPtr const& piece : pieces) {
            box.addExt(piece->extents());
            CPPUNIT_ASSERT_EQUAL(3, static_cast<int>(piece->color().colorIndex()));
        }
        CPPUNIT_ASSERT(box.minPoint() == polyline->extents().minPoint());
        CPPUNIT_ASSERT(box.maxPoint() == polyline->extents().maxPoint());

        pieces.clear();
        auto const spatial = spatialPolyline();
        spatial->setClosed(true);
        CPPUNIT_ASSERT(spatial->explode(pieces) == eOk);
        CPPUNIT_ASSERT_EQUAL(std::size_t{4}, pieces.size());
        CPPUNIT_ASSERT(OdDbLinePtr(pieces[3])->startPoint() == OdGePoint3d(-1, 4, 5));
        CPPUNIT_ASSERT(OdDbLinePtr(pieces[3])->endPoint() == OdGePoint3d(0, 0, 0));
        CPPUNIT_ASSERT(OdDb3dPolyline().explode(pieces) == eDegenerateGeometry);
    }

    void explodingMeshes()
    {
        std::vector<OdDbEntityPtr> pieces;
        CPPUNIT_ASSERT(gridMesh()->explode(pieces) == eOk);
        CPPUNIT_ASSERT_EQUAL(std::size_t{6}, pieces.size());
        CPPUNIT_ASSERT(OdDbFacePtr(pieces[5])->getVertexAt(2) == OdGePoint3d(3, 2, 2));
        auto const closed = gridMesh(8);
        closed->makeNClosed();
        pieces.clear();
        CPPUNIT_ASSERT(closed->explode(pieces) == eOk);
        CPPUNIT_ASSERT_EQUAL(std::size_t{4}, pieces.size());

        pieces.clear();
        CPPUNIT_ASSERT(faceMesh()->explode(pieces) == eOk);
        CPPUNIT_ASSERT_EQUAL(std::size_t{4}, pieces.size());
        OdDbFacePtr const triangle(pieces[1]);
        CPPUNIT_ASSERT(triangle->getVertexAt(3) == OdGePoint3d(0, 0, 1));
        CPPUNIT_ASSERT(triangle->isEdgeVisibleAt(0) && !triangle->isEdgeVisibleAt(3));
        CPPUNIT_ASSERT(OdDbLinePtr(pieces[2])->endPoint() == OdGePoint3d(0, 0, 1));
        CPPUNIT_ASSERT(OdDbPointPtr(pieces[3])->position() == OdGePoint3d(0, 1, 0));
        CPPUNIT_ASSERT(OdDbPolyFaceMesh().explode(pieces) == eDegenerateGeometry);
    }

    void stretching()
    {
        auto const polyline = flatPolyline(0);
        polyline->setNormal({0, -1, 0}); // axes X and Z
        std::vector<OdGePoint3d> points;
        polyline->getStretchPoints(points);
        CPPUNIT_ASSERT(points.at(2) == OdGePoint3d(4, -3, 4));
        int const one[] = {2}, all[] = {0, 1, 2, 3}, wrong[] = {0, 4};
        CPPUNIT_ASSERT(polyline->moveStretchPointsAt(one, {1, 5, 2}) == eOk);
        assertBox({0, -3, 0}, {5, -3, 6}, *polyline);
        CPPUNIT_ASSERT(polyline->moveStretchPointsAt(all, {0, 1, 0}) == eOk);
        assertBox({0, -2, 0}, {5, -2, 6}, *polyline);
        CPPUNIT_ASSERT(polyline->moveStretchPointsAt(wrong, {1, 1, 1}) == eInvalidIndex);
        assertBox({0, -2, 0}, {5, -2, 6}, *polyline);

        auto const mesh = faceMesh();
        points.clear();
        mesh->getStretchPoints(points);
        CPPUNIT_ASSERT_EQUAL(std::size_t{5}, points.size());
        int const top[] = {4};
        CPPUNIT_ASSERT(mesh->moveStretchPointsAt(top, {0, 0, 1}) == eOk);
        assertBox({0, 0, 0}, {1, 1, 2}, *mesh);
    }

    void splines()
    {
        auto const polyline = flatPolyline();
        polyline->setClosed(false);
        CPPUNIT_ASSERT(polyline->splineFit(OdDb::k2dQuadSplinePoly, 8) == eOk);
        CPPUNIT_ASSERT_EQUAL(OdDb::k2dQuadSplinePoly, polyline->polyType());
        CPPUNIT_ASSERT_EQUAL(4u + 25u, polyline->numParts());
        OdGePoint3d end, middle;
        polyline->getEndPoint(end);
        CPPUNIT_ASSERT(end == OdGePoint3d(0, 4, 3));
        // Knots 0 0 0 1/2 1 1 1: the middle lies halfway between the second and the third point of the frame.
        CPPUNIT_ASSERT(polyline->getPointAtParam(12, middle) == eOk);
        CPPUNIT_ASSERT(middle == OdGePoint3d(4, 2, 3));
        CPPUNIT_ASSERT(polyline->splineFit(OdDb::k2dCubicSplinePoly, 4) == eOk); // anew, from the same frame
        CPPUNIT_ASSERT_EQUAL(4u + 13u, polyline->numParts());
        CPPUNIT_ASSERT(polyline->straighten() == eOk);
        CPPUNIT_ASSERT_EQUAL(4u, polyline->numParts());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(12.0, lengthOf(*polyline), 1e-12);
        CPPUNIT_ASSERT(polyline->splineFit(OdDb::k2dFitCurvePoly, 4) == eInvalidInput);
        CPPUNIT_ASSERT(polyline->splineFit(OdDb::k2dCubicSplinePoly, 0) == eInvalidInput);

        auto const spatial = spatialPolyline();
        spatial->setClosed(true);
        CPPUNIT_ASSERT(spatial->splineFit(OdDb::k3dCubicSplinePoly, 5) == eOk);
        CPPUNIT_ASSERT_EQUAL(4u + 20u, spatial->numParts());
        spatial->straighten();
        assertBox({-1, 0, 0}, {3, 4, 5}, *spatial);
    }

    void curveFitting()
    {
        // Points of a circle: the arcs are parts of it.
        OdDb2dPolylinePtr const polyline(new OdDb2dPolyline);
        for (int const angle : {0, 60, 100, 210, 300})
            polyline->appendVertex(
                new OdDb2dVertex({5 * std::cos(angle * OdaPI / 180), 5 * std::sin(angle * OdaPI / 180), 0}));
        for (bool const isClosed : {false, true}) {
            polyline->setClosed(isClosed);
            CPPUNIT_ASSERT(polyline->curveFit() == eOk);
            CPPUNIT_ASSERT_EQUAL(isClosed ? 10u : 9u, polyline->numParts());
            CPPUNIT_ASSERT_DOUBLES_EQUAL(5 * OdaPI * (isClosed ? 2 : 300. / 180), lengthOf(*polyline), 1e-9);
        }
        polyline->straighten();
        CPPUNIT_ASSERT_EQUAL(5u, polyline->numParts());

        // A given direction is kept, and all joints are smooth.
        polyline->setClosed(false);
        OdDb2dVertexPtr(polyline->vertexIterator().entity())->setTangent(0.5);
        polyline->curveFit();
        OdGeVector3d before, after;
        polyline->getFirstDeriv(0, after);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.5, after.convert2d().angle(), 1e-9);
        for (int joint = 1; joint < 8; ++joint) {
            polyline->getFirstDeriv(joint - 1e-9, before);
            polyline->getFirstDeriv(joint, after);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, (before.normal() - after.normal()).length(), 1e-6);
        }
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(VerticesShapeTest);

} // namespace
