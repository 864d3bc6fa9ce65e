#pragma once

#include "host/geom/od_ge_3d.h"
#include "host/root/od_array.h"

using OdGePoint2dArray = OdArray<OdGePoint2d>;
using OdGePoint3dArray = OdArray<OdGePoint3d>;
using OdGeVector2dArray = OdArray<OdGeVector2d>;
using OdGeVector3dArray = OdArray<OdGeVector3d>;
using OdGeDoubleArray = OdArray<double>;
