#pragma once

#include "host/geom/od_ge_2d.h"
#include "host/geom/od_ge_extents.h"

/// Rectangle parallel to the axes; empty by default.
class OdGeExtents2d : public OdGeExtents<OdGePoint2d>
{
public:
    using OdGeExtents::OdGeExtents;
};
