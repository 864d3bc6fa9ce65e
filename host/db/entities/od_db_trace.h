#pragma once

#include "host/db/entities/od_db_filled_quad.h"

/// A wide line piece: a filled quadrilateral, as TRACE draws one after the other.
class OdDbTrace : public OdDbFilledQuad
{
    OD_DB_DECLARE_CLASS(OdDbTrace)
public:
    OdDbTrace() = default;
    /// Corners in world coordinates, in the XY plane or a plane parallel to it.
    OdDbTrace(OdGePoint3d const& p0, OdGePoint3d const& p1, OdGePoint3d const& p2, OdGePoint3d const& p3)
        : OdDbFilledQuad(p0, p1, p2, p3)
    {
    }
};
using OdDbTracePtr = OdSmartPtr<OdDbTrace>;
