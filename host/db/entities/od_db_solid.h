#pragma once

#include "host/db/entities/od_db_filled_quad.h"

/// A filled triangle or quadrilateral in a plane.
class OdDbSolid : public OdDbFilledQuad
{
    OD_DB_DECLARE_CLASS(OdDbSolid)
public:
    OdDbSolid() = default;
    /// Corners in world coordinates, in the XY plane or a plane parallel to it.
    OdDbSolid(OdGePoint3d const& p0, OdGePoint3d const& p1, OdGePoint3d const& p2, OdGePoint3d const& p3)
        : OdDbFilledQuad(p0, p1, p2, p3)
    {
    }
};
using OdDbSolidPtr = OdSmartPtr<OdDbSolid>;
