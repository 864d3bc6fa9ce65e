#include "tests/testapi/compare_cases.h"

template <>
OdDb2dVertexPtr madeForComparison(OdDbDatabase&)
{
    return OdDb2dVertexPtr(new OdDb2dVertex({1, 2, 0}, 0.5, 0.1, 0.2));
}

template <>
OdDb3dPolylineVertexPtr madeForComparison(OdDbDatabase&)
{
    return OdDb3dPolylineVertexPtr(new OdDb3dPolylineVertex({1, 2, 3}));
}

template <>
OdDb2dPolylinePtr madeForComparison(OdDbDatabase&)
{
    OdDb2dPolylinePtr polyline(new OdDb2dPolyline);
    polyline->setDefaultStartWidth(1);
    polyline->setDefaultEndWidth(1);
    polyline->appendVertex(OdDb2dVertexPtr(new OdDb2dVertex({0, 0, 0}, 0.5, 0.1, 0.2)).get());
    polyline->appendVertex(OdDb2dVertexPtr(new OdDb2dVertex({5, 0, 0}, 0, 0.3, 0.4)).get());
    polyline->appendVertex(OdDb2dVertexPtr(new OdDb2dVertex({5, 5, 0}, 0, 0.5, 0.6)).get());
    return polyline;
}

template <>
OdDb3dPolylinePtr madeForComparison(OdDbDatabase&)
{
    OdDb3dPolylinePtr polyline(new OdDb3dPolyline);
    for (OdGePoint3d const& point : {OdGePoint3d(0, 0, 0), OdGePoint3d(5, 0, 1), OdGePoint3d(5, 5, 2)})
        polyline->appendVertex(OdDb3dPolylineVertexPtr(new OdDb3dPolylineVertex(point)).get());
    return polyline;
}

template <>
OdDbPolygonMeshPtr madeForComparison(OdDbDatabase&)
{
    OdDbPolygonMeshPtr mesh(new OdDbPolygonMesh);
    mesh->setMSize(2);
    mesh->setNSize(3);
    for (int i = 0; i < 6; ++i)
        mesh->appendVertex(
            OdDbPolygonMeshVertexPtr(new OdDbPolygonMeshVertex({i / 3 * 1.0, i % 3 * 1.0, 0})).get());
    return mesh;
}

template <>
OdDbPolyFaceMeshPtr madeForComparison(OdDbDatabase&)
{
    OdDbPolyFaceMeshPtr mesh(new OdDbPolyFaceMesh);
    for (OdGePoint3d const& point :
         {OdGePoint3d(0, 0, 0), OdGePoint3d(5, 0, 0), OdGePoint3d(5, 5, 0), OdGePoint3d(0, 5, 0)})
        mesh->appendVertex(OdDbPolyFaceMeshVertexPtr(new OdDbPolyFaceMeshVertex(point)).get());
    mesh->appendFaceRecord(OdDbFaceRecordPtr(new OdDbFaceRecord(1, 2, 3, 0)).get());
    mesh->appendFaceRecord(OdDbFaceRecordPtr(new OdDbFaceRecord(1, 3, 4, 0)).get());
    return mesh;
}

namespace {

constexpr int s_secondFace = 5; // among the parts of the polyface mesh above

void addPolylineCases(std::vector<CompareCase>& cases)
{
    CompareCasesOf<OdDb2dVertex>{cases}
        .near("position",
              [](OdDb2dVertex& e, double d) {
                  e.setPosition({1, 2 + d, 0});
              })
        .exact("vertexType", [](OdDb2dVertex& e) { e.setVertexType(OdDb::k2dCurveFitVertex); })
        .near("startWidth", [](OdDb2dVertex& e, double d) { e.setStartWidth(0.1 + d); })
        .near("endWidth", [](OdDb2dVertex& e, double d) { e.setEndWidth(0.2 + d); })
        .near("bulge", [](OdDb2dVertex& e, double d) { e.setBulge(0.5 + d); });
    CompareCasesOf<OdDb2dPolyline>{cases}
        .near("normal",
              [](OdDb2dPolyline& e, double d) {
                  e.setNormal({d, 0, 1});
              })
        .exact("polyType", [](OdDb2dPolyline& e) { e.setPolyType(OdDb::k2dFitCurvePoly); })
        .exact("isClosed", [](OdDb2dPolyline& e) { e.setClosed(true); })
        .exact("isLinetypeGenerationOn", [](OdDb2dPolyline& e) { e.setLinetypeGeneration(true); })
        .near("thickness", [](OdDb2dPolyline& e, double d) { e.setThickness(d); })
        .near("elevation", [](OdDb2dPolyline& e, double d) { e.setElevation(d); })
        .near("defaultStartWidth", [](OdDb2dPolyline& e, double d) { e.setDefaultStartWidth(1 + d); })
        .near("defaultEndWidth", [](OdDb2dPolyline& e, double d) { e.setDefaultEndWidth(1 + d); })
        .near("position",
              [](OdDb2dPolyline& e, double d) {
                  partOf<OdDb2dVertex>(e, 2)->setPosition({5 + d, 5, 0});
              })
        .near("bulge", [](OdDb2dPolyline& e, double d) { partOf<OdDb2dVertex>(e, 0)->setBulge(0.5 + d); })
        .exact(L"Incorrect number of vertices", "it2->done()",
               [](OdDb2dPolyline& e) { partOf<OdDb2dVertex>(e, 2)->erase(); })
        .exact(L"Incorrect number of vertices", "!it2->done()", [](OdDb2dPolyline& e) {
            e.appendVertex(OdDb2dVertexPtr(new OdDb2dVertex({9, 9, 0})).get());
        });
    CompareCasesOf<OdDb3dPolylineVertex>{cases}
        .near("position",
              [](OdDb3dPolylineVertex& e, double d) {
                  e.setPosition({1, 2, 3 + d});
              })
        .exact("vertexType", [](OdDb3dPolylineVertex& e) { e.setVertexType(OdDb::k3dFitVertex); });
    CompareCasesOf<OdDb3dPolyline>{cases}
        .exact("isClosed", [](OdDb3dPolyline& e) { e.setClosed(true); })
        .exact("polyType", [](OdDb3dPolyline& e) { e.setPolyType(OdDb::k3dQuadSplinePoly); })
        .near("position",
              [](OdDb3dPolyline& e, double d) {
                  partOf<OdDb3dPolylineVertex>(e, 2)->setPosition({5, 5, 2 + d});
              })
        .exact(L"Incorrect number of vertices", "it2->done()",
               [](OdDb3dPolyline& e) { partOf<OdDb3dPolylineVertex>(e, 2)->erase(); })
        .exact(L"Incorrect number of vertices", "!it2->done()", [](OdDb3dPolyline& e) {
            e.appendVertex(OdDb3dPolylineVertexPtr(new OdDb3dPolylineVertex({9, 9, 9})).get());
        });
}

void addMeshCases(std::vector<CompareCase>& cases)
{
    CompareCasesOf<OdDbPolygonMesh>{cases}
        .exact("mSize", [](OdDbPolygonMesh& e) { e.setMSize(3); })
        .inCompany() // it is compared twice
        .exact("isMClosed", [](OdDbPolygonMesh& e) { e.makeMClosed(); })
        .exact("isNClosed", [](OdDbPolygonMesh& e) { e.makeNClosed(); })
        .exact("mSurfaceDensity", [](OdDbPolygonMesh& e) { e.setMSurfaceDensity(7); })
        .exact("nSurfaceDensity", [](OdDbPolygonMesh& e) { e.setNSurfaceDensity(7); })
        .exact("polyMeshType", [](OdDbPolygonMesh& e) { e.setPolyMeshType(OdDb::kCubicSurfaceMesh); })
        .near("position",
              [](OdDbPolygonMesh& e, double d) {
                  partOf<OdDbPolygonMeshVertex>(e, 5)->setPosition({1, 2, d});
              })
        .exact(L"numbers of subentities are different", "it1->done() == it2->done()", [](OdDbPolygonMesh& e) {
            e.appendVertex(OdDbPolygonMeshVertexPtr(new OdDbPolygonMeshVertex({9, 9, 9})).get());
        });
    CompareCasesOf<OdDbPolyFaceMesh>{cases}
        .near("position",
              [](OdDbPolyFaceMesh& e, double d) {
                  partOf<OdDbPolyFaceMeshVertex>(e, 3)->setPosition({d, 5, 0});
              })
        .exact(L"vertexes #1 are different", "pp1->getVertexAt(i) == pp2->getVertexAt(i)",
               [](OdDbPolyFaceMesh& e) { partOf<OdDbFaceRecord>(e, s_secondFace)->setVertexAt(1, 2); })
        .exact(L"vertexes #2 are different", "pp1->isEdgeVisibleAt(i) == pp2->isEdgeVisibleAt(i)",
               [](OdDbPolyFaceMesh& e) { partOf<OdDbFaceRecord>(e, s_secondFace)->makeEdgeInvisibleAt(2); });
    // Numbers are compared with a tolerance; a number of parts more brings other differences along.
    CompareCasesOf<OdDbPolyFaceMesh> counts{cases};
    counts.add(L"Incorrect numVertices value", {}, CompareCase::kExact, [](OdDbPolyFaceMesh& e, double) {
        e.appendVertex(OdDbPolyFaceMeshVertexPtr(new OdDbPolyFaceMeshVertex({9, 9, 9})).get());
    });
    counts.inCompany();
    counts.add(L"Incorrect numFaces value", {}, CompareCase::kExact, [](OdDbPolyFaceMesh& e, double) {
        e.appendFaceRecord(OdDbFaceRecordPtr(new OdDbFaceRecord(1, 2, 4, 0)).get());
    });
    counts.inCompany();
}

} // namespace

void addVertexCases(std::vector<CompareCase>& cases)
{
    addPolylineCases(cases);
    addMeshCases(cases);
}
