#include "testapi/ta_test_helper.h"
#include "testapi/ta_test_helper_create.h"

namespace ta {

namespace {

void checkGiven(OdGePoint3d const* points)
{
    if (!points)
        throw OdError(eInvalidInput, L"There are no points");
}

template <class Quad>
OdDbObjectId createQuad(OdDbObjectId const& ownerId, OdGePoint3d const* points, NormalRule const& rule)
{
    return createEntity<Quad>(ownerId, rule, [&](Quad& quad) {
        checkGiven(points);
        for (int i = 0; i < 4; ++i)
            quad.setPointAt(i, points[i]);
    });
}

} // namespace

OdDbObjectId TestHelperEx::createPgMesh(OdDbObjectId const& ownerId, OdGePoint3d const* points, int mSize,
                                        int nSize, bool mClosed, bool nClosed)
{
    return createEntity<OdDbPolygonMesh>(ownerId, [&](OdDbPolygonMesh& mesh) {
        checkGiven(points);
        mesh.setMSize(mSize);
        mesh.setNSize(nSize);
        for (int i = 0; i < mSize * nSize; ++i)
            mesh.appendVertex(new OdDbPolygonMeshVertex(points[i]));
        if (mClosed)
            mesh.makeMClosed();
        if (nClosed)
            mesh.makeNClosed();
    });
}

OdDbObjectId TestHelperEx::createTrace(OdDbObjectId const& ownerId, OdGePoint3d const* points,
                                       OdGeVector3d const* normal)
{
    return createQuad<OdDbTrace>(ownerId, points, {normal, &ucsNormal()});
}

OdDbObjectId TestHelperEx::createSolid(OdDbObjectId const& ownerId, OdGePoint3d const* points,
                                       OdGeVector3d const* normal)
{
    return createQuad<OdDbSolid>(ownerId, points, {normal, &ucsNormal()});
}

OdDbObjectId TestHelperEx::createPoint(OdDbObjectId const& ownerId, OdGePoint3d const& position,
                                       OdGeVector3d const* normal)
{
    return createEntity<OdDbPoint>(ownerId, {normal, &ucsNormal()},
                                   [&](OdDbPoint& point) { point.setPosition(position); });
}

OdDbObjectId TestHelperEx::createText(OdDbObjectId const& ownerId, OdGePoint3d const& position,
                                      OdString const& text, OdGeVector3d const* normal)
{
    return createEntity<OdDbText>(ownerId, {normal, &ucsNormal()}, [&](OdDbText& entity) {
        entity.setPosition(position);
        entity.setTextString(text);
    });
}

OdDbObjectId TestHelperEx::createAttDef(OdDbObjectId const& ownerId, OdGePoint3d const& position,
                                        OdString const& text, OdString const& tag, OdString const& prompt,
                                        OdGeVector3d const* normal)
{
    auto const setProperties = [&](OdDbAttributeDefinition& definition) {
        definition.setPosition(position);
        definition.setTextString(text);
        definition.setTag(tag);
        definition.setPrompt(prompt);
        definition.setInvisible(false);
    };
    return createEntity<OdDbAttributeDefinition>(ownerId, {normal, &ucsNormal()}, setProperties);
}

} // namespace ta
