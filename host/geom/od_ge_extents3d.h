#pragma once

#include "host/geom/od_ge_3d.h"
#include "host/geom/od_ge_extents.h"
#include "host/geom/od_ge_extents2d.h"

class OdGeMatrix3d;

/// Box parallel to the axes; empty by default.
class OdGeExtents3d : public OdGeExtents<OdGePoint3d>
{
public:
    using OdGeExtents::OdGeExtents;

    /// Becomes the box around the transformed box; an empty one stays empty.
    void transformBy(OdGeMatrix3d const& transformation);
    /// The box seen along Z.
    constexpr OdGeExtents2d convert2d() const
    {
        return isValidExtents() ? OdGeExtents2d(minPoint().convert2d(), maxPoint().convert2d()) : OdGeExtents2d();
    }
};
