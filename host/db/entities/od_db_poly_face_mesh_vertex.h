#pragma once

#include "host/db/entities/od_db_vertices.h"

/// Vertex of a polyface mesh; position in world coordinates.
class OdDbPolyFaceMeshVertex : public OdDbVertex
{
    OD_DB_DECLARE_CLASS(OdDbPolyFaceMeshVertex)
public:
    explicit OdDbPolyFaceMeshVertex(OdGePoint3d const& position = {}) : OdDbVertex(kKindFlags, position) {}

private:
    static constexpr std::int16_t kKindFlags = 128 + 64;
};
using OdDbPolyFaceMeshVertexPtr = OdSmartPtr<OdDbPolyFaceMeshVertex>;
