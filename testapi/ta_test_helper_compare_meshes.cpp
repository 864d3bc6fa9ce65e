// Comparison of polylines with vertices of their own, and of meshes.
#include "testapi/ta_comparison_rows.h"

namespace ta {

namespace {

// clang-format off
constexpr Row<OdDb2dVertex> s_2dVertexRows[] = {
    {{nullptr, L"Incorrect position value", __LINE__},
     [](OdDb2dVertex const* pp1, OdDb2dVertex const* pp2, Check const& check, Comparison& comparison) {
         OdGePoint3d const position1 = pp1->position(), position2 = pp2->position();
         return comparison.near(OdGePoint2d(position1.x, position1.y), OdGePoint2d(position2.x, position2.y),
                                comparison.options().eps, check);
     }},
    EXACT(vertexType), NEAR(startWidth), NEAR(endWidth), NEAR(bulge),
};

constexpr Row<OdDb2dPolyline> s_2dPolylineRows[] = {
    NEAR(normal), EXACT(polyType), EXACT(isClosed), EXACT(isLinetypeGenerationOn), NEAR(thickness),
    NEAR(elevation), NEAR(defaultStartWidth), NEAR(defaultEndWidth),
};

constexpr Row<OdDb3dPolylineVertex> s_3dVertexRows[] = {NEAR(position), EXACT(vertexType)};

constexpr Row<OdDb3dPolyline> s_3dPolylineRows[] = {EXACT(isClosed), EXACT(polyType)};

constexpr Row<OdDbPolyFaceMesh> s_polyFaceMeshRows[] = {NEAR(numVertices), NEAR(numFaces)};

constexpr Row<OdDbPolyFaceMeshVertex> s_polyFaceVertexRows[] = {NEAR(position)};

// The second row once compared the N size; drawings were accepted with it as it is.
constexpr Row<OdDbPolygonMesh> s_polygonMeshRows[] = {
    EXACT(mSize), EXACT(mSize), EXACT(isMClosed), EXACT(isNClosed), EXACT(mSurfaceDensity),
    EXACT(nSurfaceDensity), EXACT(polyMeshType),
};

constexpr Row<OdDbPolygonMeshVertex> s_polygonMeshVertexRows[] = {NEAR(position)};
// clang-format on

void compareVertices(OdDbEntity const* pp1, OdDbEntity const* pp2, Comparison& comparison)
{
    OdDbPartIterator iterator1 = pp1->partIterator(), iterator2 = pp2->partIterator();
    OdDbPartIterator *const it1 = &iterator1, *const it2 = &iterator2;
    for (int number = 1; !it1->done(); it1->step(), it2->step(), ++number) {
        if (!comparison.holds(!it2->done(), TA_CODE_CHECK(L"Incorrect number of vertices", !it2->done())))
            return;
        Comparison::Part const part(comparison, L"vertex", number);
        comparison.entities(it1->peek(), it2->peek());
    }
    comparison.holds(it2->done(), TA_CODE_CHECK(L"Incorrect number of vertices", it2->done()));
}

bool compareFaces(OdDbFaceRecord const* pp1, OdDbFaceRecord const* pp2, Comparison& comparison)
{
    for (int i = 0; i < OdDbFaceRecord::kCorners; ++i) {
        OdString const message = odFormat(L"vertexes #%d are different", i);
        bool const agree =
            comparison.exact(pp1->getVertexAt(i), pp2->getVertexAt(i),
                             TA_CODE_CHECK(message.c_str(), pp1->getVertexAt(i) == pp2->getVertexAt(i))) &&
            comparison.exact(pp1->isEdgeVisibleAt(i), pp2->isEdgeVisibleAt(i),
                             TA_CODE_CHECK(message.c_str(), pp1->isEdgeVisibleAt(i) == pp2->isEdgeVisibleAt(i)));
        if (!agree)
            return false;
    }
    return true;
}

Check notCoincident(int line)
{
    return {"false", L"poly mesh entities are not coincidence", line};
}

void comparePolyFaceParts(OdDbEntity const& part1, OdDbEntity const& part2, Comparison& comparison)
{
    auto const *const vertex1 = odCast<OdDbPolyFaceMeshVertex>(&part1), *const vertex2 =
                                                                            odCast<OdDbPolyFaceMeshVertex>(&part2);
    auto const *const face1 = odCast<OdDbFaceRecord>(&part1), *const face2 = odCast<OdDbFaceRecord>(&part2);
    if (vertex1 && vertex2)
        checkRows(s_polyFaceVertexRows, vertex1, vertex2, comparison);
    else if (face1 && face2)
        compareFaces(face1, face2, comparison);
    else
        comparison.holds(false, notCoincident(__LINE__));
}

void comparePolygonMeshParts(OdDbEntity const& part1, OdDbEntity const& part2, Comparison& comparison)
{
    auto const *const vertex1 = odCast<OdDbPolygonMeshVertex>(&part1), *const vertex2 =
                                                                           odCast<OdDbPolygonMeshVertex>(&part2);
    if (comparison.holds(vertex1 && vertex2, notCoincident(__LINE__)))
        checkRows(s_polygonMeshVertexRows, vertex1, vertex2, comparison);
}

/// Pairs the parts of two meshes in their order; their numbers must agree.
template <class CompareParts>
void compareMeshParts(OdDbEntity const* pp1, OdDbEntity const* pp2, wchar_t const* otherNumber,
                      Comparison& comparison, CompareParts const& compareParts)
{
    OdDbPartIterator iterator1 = pp1->partIterator(), iterator2 = pp2->partIterator();
    OdDbPartIterator *const it1 = &iterator1, *const it2 = &iterator2;
    for (int number = 1; !it1->done() && !it2->done(); it1->step(), it2->step(), ++number) {
        Comparison::Part const part(comparison, L"part", number);
        compareParts(it1->peek(), it2->peek(), comparison);
    }
    comparison.holds(it1->done() == it2->done(), TA_CODE_CHECK(otherNumber, it1->done() == it2->done()));
}

} // namespace

void compareProperties(OdDb2dVertex const* pp1, OdDb2dVertex const* pp2, Comparison& comparison)
{
    checkRows(s_2dVertexRows, pp1, pp2, comparison);
}

void compareProperties(OdDb2dPolyline const* pp1, OdDb2dPolyline const* pp2, Comparison& comparison)
{
    checkRows(s_2dPolylineRows, pp1, pp2, comparison);
    compareVertices(pp1, pp2, comparison);
}

void compareProperties(OdDb3dPolylineVertex const* pp1, OdDb3dPolylineVertex const* pp2, Comparison& comparison)
{
    checkRows(s_3dVertexRows, pp1, pp2, comparison);
}

void compareProperties(OdDb3dPolyline const* pp1, OdDb3dPolyline const* pp2, Comparison& comparison)
{
    checkRows(s_3dPolylineRows, pp1, pp2, comparison);
    compareVertices(pp1, pp2, comparison);
}

void compareProperties(OdDbPolyFaceMesh const* pp1, OdDbPolyFaceMesh const* pp2, Comparison& comparison)
{
    checkRows(s_polyFaceMeshRows, pp1, pp2, comparison);
    compareMeshParts(pp1, pp2, L"number of entities are different", comparison, &comparePolyFaceParts);
}

void compareProperties(OdDbPolygonMesh const* pp1, OdDbPolygonMesh const* pp2, Comparison& comparison)
{
    checkRows(s_polygonMeshRows, pp1, pp2, comparison);
    compareMeshParts(pp1, pp2, L"numbers of subentities are different", comparison, &comparePolygonMeshParts);
}

} // namespace ta
