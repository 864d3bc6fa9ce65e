#pragma once

#include "host/db/entities/od_db_vertices.h"

/// Vertex of a 3D polyline.
class OdDb3dPolylineVertex : public OdDbSpaceVertex
{
    OD_DB_DECLARE_CLASS(OdDb3dPolylineVertex)
public:
    explicit OdDb3dPolylineVertex(OdGePoint3d const& position = {}) : OdDbSpaceVertex(kKindFlag, position) {}

private:
    static constexpr std::int16_t kKindFlag = 32;
};
using OdDb3dPolylineVertexPtr = OdSmartPtr<OdDb3dPolylineVertex>;
