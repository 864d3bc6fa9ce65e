#pragma once

#include "host/geom/od_ge_extents2d.h"
#include "host/geom/od_ge_matrix3d.h"

class OdDbDatabase;

namespace ca {

class CaDoc;

/// How the current viewport of the screen looks at model space. Its display coordinates have their origin in the
/// target, X to the right, Y upwards and Z towards the eye.
struct ScreenView
{
    OdGePoint2d center; ///< in display coordinates
    double height = 1;
    double aspect = 1; ///< width by height of the viewport
    OdGeVector3d direction{0, 0, 1};
    OdGePoint3d target;
    double twist = 0; ///< radians by which what is seen is turned counterclockwise

    double width() const { return height * aspect; }
    OdGeMatrix3d displayToWorld() const;
    /// Looks along the Z axis of a coordinate system, with its X axis to the right.
    void lookAtPlan(OdGeMatrix3d const& ucsToWorld);
    /// Shows a box of display coordinates as large as it can be; a point only comes to the middle.
    void showBox(OdGeExtents2d const& box);
};

/// Throws OdError(eKeyNotFound) for a damaged drawing without viewport.
ScreenView screenView(OdDbDatabase const& database);

/// Changes the view; the one before it is remembered, up to ten of them for each document.
void setScreenView(CaDoc& document, ScreenView const& view);
/// Shows the view again that was shown before the last change. False when none is remembered.
bool restorePreviousView(CaDoc& document);

} // namespace ca
