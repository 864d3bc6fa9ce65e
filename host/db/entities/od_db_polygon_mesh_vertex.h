#pragma once

#include "host/db/entities/od_db_vertices.h"

/// Vertex of a polygon mesh.
class OdDbPolygonMeshVertex : public OdDbSpaceVertex
{
    OD_DB_DECLARE_CLASS(OdDbPolygonMeshVertex)
public:
    explicit OdDbPolygonMeshVertex(OdGePoint3d const& position = {}) : OdDbSpaceVertex(kKindFlag, position) {}

private:
    static constexpr std::int16_t kKindFlag = 64;
};
using OdDbPolygonMeshVertexPtr = OdSmartPtr<OdDbPolygonMeshVertex>;
