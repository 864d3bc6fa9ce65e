// Polylines and meshes whose vertices are entities of their own: what files hold of them, and how the vertices
// come and go with the whole.
#include "tests/host/db/test_entities_support.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_poly_face_mesh.h"
#include "host/db/entities/od_db_polygon_mesh.h"
#include "host/db/entities/tdx_polyline_iterator.h"
#include "host/db/filer/od_db_class_registry.h"
#include "host/db/od_db_copy.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

namespace {

OdDbTagList tagsOf(std::initializer_list<std::string_view> tags)
{
    OdDbTagList list;
    for (std::string_view const tag : tags)
        list.put(testTag(tag));
    return list;
}

template <class Entity>
OdSmartPtr<Entity> roundTrip(std::initializer_list<std::string_view> tags)
{
    OdSmartPtr<Entity> entity(new Entity);
    readTags(*entity, tags);
    std::vector<std::string> expected{"100 AcDbEntity", "8 "};
    expected.insert(expected.end(), tags.begin(), tags.end());
    CPPUNIT_ASSERT_EQUAL(joined(expected), joined(writtenTags(*entity)));
    return entity;
}

OdDb3dPolylinePtr polylineThrough(std::initializer_list<OdGePoint3d> points)
{
    OdDb3dPolylinePtr polyline(new OdDb3dPolyline);
    for (OdGePoint3d const& point : points)
        polyline->appendVertex(new OdDb3dPolylineVertex(point));
    return polyline;
}

class VerticesTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(VerticesTest);
    CPPUNIT_TEST(classesByMarkersAndFlags);
    CPPUNIT_TEST(verticesByTheWhole);
    CPPUNIT_TEST(polyline2d);
    CPPUNIT_TEST(vertex2d);
    CPPUNIT_TEST(widthsOfVerticesWithoutOwn);
    CPPUNIT_TEST(polyline3d);
    CPPUNIT_TEST(polygonMesh);
    CPPUNIT_TEST(polyFaceMesh);
    CPPUNIT_TEST(faceRecord);
    CPPUNIT_TEST(settersRefuse);
    CPPUNIT_TEST(verticesMoveIntoTheDrawing);
    CPPUNIT_TEST(verticesAreCopied);
    CPPUNIT_TEST(verticesFollowProperties);
    CPPUNIT_TEST(undoTakesVerticesBack);
    CPPUNIT_TEST(visibleVertices);
    CPPUNIT_TEST(facesStandBehindVertices);
    CPPUNIT_TEST(audits);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_db;

public:
    void setUp() override { m_db = new OdDbDatabase; }
    void tearDown() override { m_db = nullptr; }

private:
    OdDbBlockTableRecordPtr modelSpace()
    {
        return m_db->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    }
    template <class Entity>
    OdSmartPtr<Entity> added(OdSmartPtr<Entity> const& entity)
    {
        entity->setDatabaseDefaults(*m_db);
        modelSpace()->appendOdDbEntity(entity);
        return entity;
    }

    void classesByMarkersAndFlags()
    {
        auto const chosen = [](std::initializer_list<std::string_view> tags) {
            return odDbClassRegistry::choose("POLYLINE", tagsOf(tags));
        };
        CPPUNIT_ASSERT(chosen({"8 0", "70 1"}) == OdDb2dPolyline::desc());
        CPPUNIT_ASSERT(chosen({}) == OdDb2dPolyline::desc());
        CPPUNIT_ASSERT(chosen({"70 9"}) == OdDb3dPolyline::desc());
        CPPUNIT_ASSERT(chosen({"70 48"}) == OdDbPolygonMesh::desc());
        CPPUNIT_ASSERT(chosen({"70 64"}) == OdDbPolyFaceMesh::desc());
        CPPUNIT_ASSERT(chosen({"70 88"}) == OdDbPolyFaceMesh::desc());
        // The marker counts, whatever the flags say.
        CPPUNIT_ASSERT(chosen({"100 AcDbEntity", "100 AcDb2dPolyline", "70 8"}) == OdDb2dPolyline::desc());
        CPPUNIT_ASSERT(chosen({"70 0", "100 AcDbPolyFaceMesh"}) == OdDbPolyFaceMesh::desc());
        CPPUNIT_ASSERT(chosen({"100 AcDbPolygonMesh"}) == OdDbPolygonMesh::desc());
        CPPUNIT_ASSERT(chosen({"100 AcDb3dPolyline", "70 16"}) == OdDb3dPolyline::desc());
    }

    void verticesByTheWhole()
    {
        auto const chosen = [](OdDbObject const* whole, std::initializer_list<std::string_view> tags) {
            return odDbClassRegistry::choose("VERTEX", tagsOf(tags), whole);
        };
        OdDb2dPolyline flat;
        OdDb3dPolyline spatial;
        OdDbPolygonMesh mesh;
        OdDbPolyFaceMesh faces;
        CPPUNIT_ASSERT(chosen(nullptr, {"100 AcDb2dVertex"}) == nullptr);
        CPPUNIT_ASSERT(chosen(&flat, {"100 AcDb3dPolylineVertex", "70 32"}) == OdDb2dVertex::desc());
        CPPUNIT_ASSERT(chosen(&spatial, {"70 0"}) == OdDb3dPolylineVertex::desc());
        CPPUNIT_ASSERT(chosen(&mesh, {"70 128"}) == OdDbPolygonMeshVertex::desc());
        CPPUNIT_ASSERT(chosen(&faces, {"70 192"}) == OdDbPolyFaceMeshVertex::desc());
        CPPUNIT_ASSERT(chosen(&faces, {"70 0"}) == OdDbPolyFaceMeshVertex::desc());
        CPPUNIT_ASSERT(chosen(&faces, {"70 128"}) == OdDbFaceRecord::desc());
        CPPUNIT_ASSERT(chosen(&faces, {"100 AcDbFaceRecord", "70 192"}) == OdDbFaceRecord::desc());
        CPPUNIT_ASSERT(chosen(&faces, {"100 AcDbPolyFaceMeshVertex", "70 128"}) == OdDbPolyFaceMeshVertex::desc());

        // A vertex under the marker of another kind is read all the same, and gets the one that it needs.
        OdDb2dVertex vertex;
        readTags(vertex, {"100 AcDbVertex", "100 AcDb3dPolylineVertex", "10 1.0", "20 2.0", "30 3.0", "42 0.5"});
        CPPUNIT_ASSERT(vertex.position() == OdGePoint3d(1, 2, 3));
        CPPUNIT_ASSERT_EQUAL(0.5, vertex.bulge());
        CPPUNIT_ASSERT_EQUAL(std::string("100 AcDb2dVertex"), writtenTags(vertex).at(3));
    }

    void polyline2d()
    {
        auto const spline =
            roundTrip<OdDb2dPolyline>({"100 AcDb2dPolyline", "66 1", "10 0.0", "20 0.0", "30 2.5", "39 1.5",
                                       "70 133", "40 0.25", "41 0.5", "75 5", "210 0.0", "220 0.6", "230 0.8"});
        CPPUNIT_ASSERT_EQUAL(OdDb::k2dQuadSplinePoly, spline->polyType());
        CPPUNIT_ASSERT(spline->isClosed() && spline->isLinetypeGenerationOn());
        CPPUNIT_ASSERT_EQUAL(2.5, spline->elevation());
        CPPUNIT_ASSERT_EQUAL(1.5, spline->thickness());
        CPPUNIT_ASSERT_EQUAL(0.25, spline->defaultStartWidth());
        CPPUNIT_ASSERT_EQUAL(0.5, spline->defaultEndWidth());

        OdDb2dPolyline old;
        readTags(old, {"8 0", "66 1", "10 0.0", "20 0.0", "30 7.0", "70 2"});
        CPPUNIT_ASSERT_EQUAL(OdDb::k2dFitCurvePoly, old.polyType());
        CPPUNIT_ASSERT_EQUAL(7.0, old.elevation());
        CPPUNIT_ASSERT(old.extras() == nullptr);

        OdDb2dPolyline made;
        made.setPolyType(OdDb::k2dCubicSplinePoly);
        made.setClosed(true);
        CPPUNIT_ASSERT_EQUAL(std::string("70 5"), writtenTags(made).at(7));
        CPPUNIT_ASSERT_EQUAL(std::string("75 6"), writtenTags(made).at(8));
        made.setPolyType(OdDb::k2dSimplePoly);
        CPPUNIT_ASSERT_EQUAL(std::string("70 1"), writtenTags(made).back());
    }

    void vertex2d()
    {
        auto const vertex =
            roundTrip<OdDb2dVertex>({"100 AcDbVertex", "100 AcDb2dVertex", "10 1.0", "20 2.0", "30 3.0", "40 0.5",
                                     "41 0.0", "42 -1.0", "70 3", "50 45.0", "91 7"});
        CPPUNIT_ASSERT_EQUAL(OdDb::k2dCurveFitVertex, vertex->vertexType());
        CPPUNIT_ASSERT_EQUAL(0.5, vertex->startWidth());
        CPPUNIT_ASSERT_EQUAL(-1.0, vertex->bulge());
        CPPUNIT_ASSERT(vertex->isTangentUsed());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 4, vertex->tangent(), 1e-15);
        CPPUNIT_ASSERT_EQUAL(7, vertex->vertexIdentifier());
        vertex->setVertexType(OdDb::k2dSplineCtlVertex);
        CPPUNIT_ASSERT_EQUAL(std::string("70 18"), writtenTags(*vertex).at(10));
        vertex->setVertexType(OdDb::k2dSplineFitVertex);
        CPPUNIT_ASSERT_EQUAL(OdDb::k2dSplineFitVertex, vertex->vertexType());
        CPPUNIT_ASSERT(vertex->transformBy({}) == eNotApplicable);
    }

    void widthsOfVerticesWithoutOwn()
    {
        OdDb2dPolylinePtr const polyline(new OdDb2dPolyline);
        polyline->setDefaultStartWidth(2);
        polyline->setElevation(4);
        polyline->appendVertex(new OdDb2dVertex({0, 0, 0}, 0, 1, 1));
        polyline->appendVertex(new OdDb2dVertex({5, 0, 0}));
        added(polyline);
        auto it = polyline->vertexIterator();
        CPPUNIT_ASSERT_EQUAL(1.0, OdDb2dVertexPtr(it.entity())->startWidth());
        CPPUNIT_ASSERT_EQUAL(4.0, OdDb2dVertexPtr(it.entity())->position().z);
        it.step();
        CPPUNIT_ASSERT_EQUAL(2.0, OdDb2dVertexPtr(it.entity())->startWidth());
        CPPUNIT_ASSERT_EQUAL(0.0, OdDb2dVertexPtr(it.entity())->endWidth());

        // As a file has it: the vertex says nothing.
        OdDb2dVertexPtr const read(new OdDb2dVertex);
        m_db->addOdDbObject(read, polyline->objectId());
        polyline->adoptPart(*read);
        CPPUNIT_ASSERT_EQUAL(2.0, read->startWidth());
        CPPUNIT_ASSERT_EQUAL(std::string("30 0.0"), writtenTags(*read).back());
        OdDb2dPolylinePtr const copy(polyline->clone());
        polyline->setDefaultStartWidth(3);
        CPPUNIT_ASSERT_EQUAL(3.0, read->startWidth());
        auto last = copy->vertexIterator();
        last.step();
        last.step();
        CPPUNIT_ASSERT_EQUAL(2.0, OdDb2dVertexPtr(last.entity())->startWidth());
    }

    void polyline3d()
    {
        auto const polyline = roundTrip<OdDb3dPolyline>(
            {"100 AcDb3dPolyline", "66 1", "10 0.0", "20 0.0", "30 0.0", "70 13", "75 6"});
        CPPUNIT_ASSERT(polyline->isClosed());
        CPPUNIT_ASSERT_EQUAL(OdDb::k3dCubicSplinePoly, polyline->polyType());
        polyline->setPolyType(OdDb::k3dSimplePoly);
        CPPUNIT_ASSERT_EQUAL(std::string("70 9"), writtenTags(*polyline).at(7));
        auto const vertex = roundTrip<OdDb3dPolylineVertex>(
            {"100 AcDbVertex", "100 AcDb3dPolylineVertex", "10 1.0", "20 2.0", "30 3.0", "70 48"});
        CPPUNIT_ASSERT_EQUAL(OdDb::k3dControlVertex, vertex->vertexType());
        vertex->setVertexType(OdDb::k3dFitVertex);
        CPPUNIT_ASSERT_EQUAL(std::string("70 40"), writtenTags(*vertex).back());
    }

    void polygonMesh()
    {
        auto const mesh = roundTrip<OdDbPolygonMesh>({"100 AcDbPolygonMesh", "66 1", "10 0.0", "20 0.0", "30 0.0",
                                                      "70 53", "71 3", "72 4", "73 6", "74 7", "75 8"});
        CPPUNIT_ASSERT_EQUAL(3, mesh->mSize());
        CPPUNIT_ASSERT_EQUAL(4, mesh->nSize());
        CPPUNIT_ASSERT(mesh->isMClosed() && mesh->isNClosed());
        CPPUNIT_ASSERT_EQUAL(6, mesh->mSurfaceDensity());
        CPPUNIT_ASSERT_EQUAL(7, mesh->nSurfaceDensity());
        CPPUNIT_ASSERT_EQUAL(OdDb::kBezierSurfaceMesh, mesh->polyMeshType());
        mesh->makeMOpen();
        CPPUNIT_ASSERT(!mesh->isMClosed() && mesh->isNClosed());

        OdDbPolygonMesh damaged;
        readTags(damaged, {"70 16", "71 -3", "72 40000", "75 7"});
        CPPUNIT_ASSERT_EQUAL(0, damaged.mSize());
        CPPUNIT_ASSERT_EQUAL(OdDb::kSimpleMesh, damaged.polyMeshType());
        CPPUNIT_ASSERT_EQUAL(std::string("71 -3"), writtenTags(damaged).at(8));
    }

    void polyFaceMesh()
    {
        auto const mesh = roundTrip<OdDbPolyFaceMesh>(
            {"100 AcDbPolyFaceMesh", "66 1", "10 0.0", "20 0.0", "30 0.0", "70 64", "71 0", "72 0"});
        readTags(*mesh, {"71 9", "72 9"});
        mesh->appendVertex(new OdDbPolyFaceMeshVertex({1, 2, 3}));
        CPPUNIT_ASSERT_EQUAL(1, mesh->numVertices());
        CPPUNIT_ASSERT_EQUAL(0, mesh->numFaces());
        CPPUNIT_ASSERT_EQUAL(std::string("71 1"), writtenTags(*mesh).at(8));
        CPPUNIT_ASSERT_THROW(mesh->adoptPart(*OdDb2dVertexPtr(new OdDb2dVertex)), OdError);
    }

    void faceRecord()
    {
        auto const face = roundTrip<OdDbFaceRecord>(
            {"100 AcDbFaceRecord", "10 0.0", "20 0.0", "30 0.0", "70 128", "71 1", "72 -2", "73 -32768", "74 0"});
        CPPUNIT_ASSERT_EQUAL(2, face->getVertexAt(1));
        CPPUNIT_ASSERT_EQUAL(32768, face->getVertexAt(2));
        CPPUNIT_ASSERT(face->isEdgeVisibleAt(0) && !face->isEdgeVisibleAt(1) && face->isEdgeVisibleAt(3));
        face->makeEdgeVisibleAt(1);
        face->makeEdgeInvisibleAt(3); // before its vertex is known
        face->setVertexAt(3, 5);
        face->setVertexAt(0, 0);
        CPPUNIT_ASSERT_EQUAL(std::string("74 -5"), writtenTags(*face).back());
        CPPUNIT_ASSERT_EQUAL(std::string("72 2"), writtenTags(*face).at(8));
        CPPUNIT_ASSERT_EQUAL(std::string("71 0"), writtenTags(*face).at(7)); // as the file had a first corner
        CPPUNIT_ASSERT_THROW(face->getVertexAt(4), OdError);
        CPPUNIT_ASSERT_THROW(face->makeEdgeVisibleAt(-1), OdError);
        CPPUNIT_ASSERT_THROW(face->setVertexAt(0, 32768), OdError);
    }

    void settersRefuse()
    {
        OdDb2dPolyline polyline;
        CPPUNIT_ASSERT_THROW(polyline.setDefaultStartWidth(-1), OdError);
        CPPUNIT_ASSERT_THROW(polyline.setNormal({0, 0, 0}), OdError);
        CPPUNIT_ASSERT_THROW(OdDb2dVertex().setEndWidth(-1), OdError);
        OdDbPolygonMesh mesh;
        CPPUNIT_ASSERT_THROW(mesh.setMSize(1), OdError);
        CPPUNIT_ASSERT_THROW(mesh.setNSurfaceDensity(40000), OdError);
        auto const closed = added(polylineThrough({{0, 0, 0}, {1, 1, 1}}));
        closed->downgradeOpen();
        CPPUNIT_ASSERT_THROW(closed->appendVertex(new OdDb3dPolylineVertex), OdError);
        CPPUNIT_ASSERT_EQUAL(2u, closed->numParts());
    }

    void verticesMoveIntoTheDrawing()
    {
        auto const loose = polylineThrough({{0, 0, 0}, {1, 1, 1}, {2, 0, 0}});
        CPPUNIT_ASSERT_EQUAL(3u, loose->numParts());
        CPPUNIT_ASSERT(loose->vertexIterator().objectId().isNull());
        loose->setColor(OdCmColor(3));
        auto const polyline = added(loose);
        polyline->appendVertex(new OdDb3dPolylineVertex({3, 3, 3}));
        CPPUNIT_ASSERT_EQUAL(std::size_t{4}, polyline->subentities().size());
        CPPUNIT_ASSERT(!polyline->sequenceEnd().isNull());
        auto const first = polyline->vertexIterator().entity();
        CPPUNIT_ASSERT(first->ownerId() == polyline->objectId());
        CPPUNIT_ASSERT(first->layerId() == polyline->layerId());
        CPPUNIT_ASSERT(added(OdDb2dPolylinePtr(new OdDb2dPolyline))->sequenceEnd().isValid());
    }

    void verticesAreCopied()
    {
        auto const polyline = added(polylineThrough({{0, 0, 0}, {1, 1, 1}, {2, 0, 0}}));
        auto const second = [&] {
            auto it = polyline->vertexIterator();
            it.step();
            return it;
        }();
        second.entity(OdDb::kForWrite)->erase();
        OdDb3dPolylinePtr const copy(odDbCopyEntity(*polyline, *modelSpace()));
        CPPUNIT_ASSERT_EQUAL(2u, copy->numParts());
        CPPUNIT_ASSERT_EQUAL(0.0, polyline->extents().maxPoint().y);
        copy->transformBy(OdGeMatrix3d::translation({0, 5, 0}));
        CPPUNIT_ASSERT_EQUAL(0.0, polyline->extents().maxPoint().y);
        CPPUNIT_ASSERT_EQUAL(5.0, copy->extents().maxPoint().y);
        second.entity(OdDb::kForWrite)->erase(false);
        CPPUNIT_ASSERT_EQUAL(1.0, polyline->extents().maxPoint().y);
        polyline->erase();
        CPPUNIT_ASSERT(polyline->subentities()[0]->erased && polyline->sequenceEnd().isNull());
        CPPUNIT_ASSERT(!copy->subentities()[0]->erased);
    }

    void verticesFollowProperties()
    {
        auto const polyline = added(polylineThrough({{0, 0, 0}, {1, 1, 1}}));
        polyline->setColor(OdCmColor(5));
        polyline->setLineWeight(25);
        for (auto it = polyline->vertexIterator(); !it.done(); it.step()) {
            CPPUNIT_ASSERT_EQUAL(5, static_cast<int>(it.peek().color().colorIndex()));
            CPPUNIT_ASSERT_EQUAL(25, it.peek().lineWeight());
        }
        OdDb3dPolylinePtr const loose(polyline->clone());
        loose->setColor(OdCmColor(6));
        CPPUNIT_ASSERT_EQUAL(6, static_cast<int>(loose->vertexIterator().peek().color().colorIndex()));
    }

    void undoTakesVerticesBack()
    {
        auto const polyline = added(polylineThrough({{0, 0, 0}, {1, 1, 1}}));
        auto const id = polyline->objectId();
        m_db->startUndoRecord();
        polyline->appendVertex(new OdDb3dPolylineVertex({9, 9, 9}));
        polyline->transformBy(OdGeMatrix3d::translation({1, 0, 0}));
        polyline->vertexIterator().entity(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT(polyline->extents().minPoint() == OdGePoint3d(2, 1, 1));
        m_db->undo();
        CPPUNIT_ASSERT_EQUAL(2u, polyline->numParts());
        CPPUNIT_ASSERT(polyline->extents().minPoint() == OdGePoint3d(0, 0, 0));
        CPPUNIT_ASSERT(polyline->extents().maxPoint() == OdGePoint3d(1, 1, 1));
        m_db->startUndoRecord();
        CPPUNIT_ASSERT(id.open<OdDb3dPolyline>(OdDb::kForWrite)->splineFit(OdDb::k3dQuadSplinePoly, 4) == eOk);
        CPPUNIT_ASSERT_EQUAL(7u, polyline->numParts());
        m_db->undo();
        CPPUNIT_ASSERT_EQUAL(2u, polyline->numParts());
        CPPUNIT_ASSERT_EQUAL(OdDb::k3dSimplePoly, polyline->polyType());
    }

    void visibleVertices()
    {
        auto const walked = [](auto const& polyline, bool isSimple) {
            std::string text;
            for (tdx::PolylineIterator it(polyline.get(), isSimple); !it.done(); it.next())
                text += std::to_string(static_cast<int>(it.vertexPoint().x)) + " ";
            return text;
        };
        auto const spline = polylineThrough({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}});
        int number = 0;
        for (auto it = spline->vertexIterator(); !it.done(); it.step())
            OdDb3dPolylineVertexPtr(it.entity(OdDb::kForWrite))
                ->setVertexType(number++ < 2 ? OdDb::k3dControlVertex : OdDb::k3dFitVertex);
        CPPUNIT_ASSERT_EQUAL(std::string("1 2 3 4 "), walked(spline, true));
        CPPUNIT_ASSERT_EQUAL(std::string("3 4 "), walked(spline, false));
        spline->setPolyType(OdDb::k3dCubicSplinePoly);
        CPPUNIT_ASSERT_EQUAL(3.0, spline->extents().minPoint().x);
        added(spline);
        spline->vertexIterator().entity(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT_EQUAL(std::string("2 3 4 "), walked(spline, true));

        OdDb2dPolylinePtr const flat(new OdDb2dPolyline);
        CPPUNIT_ASSERT_EQUAL(std::string(), walked(flat, true));
        flat->appendVertex(new OdDb2dVertex({7, 0, 0}));
        CPPUNIT_ASSERT_EQUAL(std::string("7 "), walked(flat, false));
        CPPUNIT_ASSERT(tdx::PolylineIterator<OdDb2dPolyline>(nullptr, true).done());
    }

    void facesStandBehindVertices()
    {
        OdDbPolyFaceMeshPtr const mesh(new OdDbPolyFaceMesh);
        auto const order = [&mesh] {
            std::string text;
            for (auto it = mesh->vertexIterator(); !it.done(); it.step())
                text += odCast<OdDbFaceRecord>(&it.peek()) ? 'f' : 'v';
            return text;
        };
        mesh->appendVertex(new OdDbPolyFaceMeshVertex({0, 0, 0}));
        mesh->appendFaceRecord(new OdDbFaceRecord(1, 2, 3));
        mesh->appendVertex(new OdDbPolyFaceMeshVertex({1, 0, 0}));
        CPPUNIT_ASSERT_EQUAL(std::string("vvf"), order());
        added(mesh);
        m_db->startUndoRecord();
        mesh->appendVertex(new OdDbPolyFaceMeshVertex({0, 1, 0}));
        CPPUNIT_ASSERT_EQUAL(std::string("vvvf"), order());
        m_db->undo();
        CPPUNIT_ASSERT_EQUAL(std::string("vvf"), order());
        CPPUNIT_ASSERT_EQUAL(2, mesh->numVertices());
        CPPUNIT_ASSERT_EQUAL(1, mesh->numFaces());
    }

    template <class Entity>
    std::string findings(OdSmartPtr<Entity> const& entity, bool fixes = false)
    {
        OdDbAuditInfo info(fixes);
        entity->audit(info);
        std::string text;
        for (auto const& finding : info.findings())
            text += finding.text.toUtf8() + "\n";
        return text;
    }

    void audits()
    {
        auto const has = [this](auto const& entity, char const* text) {
            std::string const found = findings(entity);
            CPPUNIT_ASSERT_MESSAGE(found, found.find(text) != std::string::npos);
        };
        OdDbPolyFaceMeshPtr const mesh(new OdDbPolyFaceMesh);
        mesh->appendVertex(new OdDbPolyFaceMeshVertex({0, 0, 0}));
        OdDbFaceRecordPtr const face(new OdDbFaceRecord(1, 7, 1));
        mesh->appendFaceRecord(face);
        added(mesh);
        readTags(*mesh, {"70 0", "71 5", "72 1"});
        has(mesh, "its flags do not say what kind of polyline it is");
        has(mesh, "its file said that it has 5 vertices and 1 faces; it has 1 and 1");
        has(mesh, "corner 2 is vertex 7 of 1");
        findings(mesh, true);
        CPPUNIT_ASSERT_EQUAL(std::string(), findings(mesh));
        CPPUNIT_ASSERT_EQUAL(0, face->getVertexAt(1));

        has(added(OdDb3dPolylinePtr(new OdDb3dPolyline)), "it has no vertices");
        has(added(OdDb2dPolylinePtr(new OdDb2dPolyline)), "it has no vertices");
        OdDbPolygonMeshPtr const grid(new OdDbPolygonMesh);
        grid->setMSize(2);
        grid->setNSize(3);
        grid->appendVertex(new OdDbPolygonMeshVertex);
        has(added(grid), "it has 1 vertices instead of 2 times 3");
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(VerticesTest);

} // namespace
