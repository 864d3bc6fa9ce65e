#pragma once

#include "host/app/screen_view.h"
#include "host/db/od_db_object_id.h"

#include <vector>

namespace ca {

// Boxes in the display coordinates of a view, empty where there is nothing to show.

/// The true extents of entities; invisible ones and construction lines do not count.
OdGeExtents2d extentsInView(ScreenView const& view, std::vector<OdDbObjectId> const& entities);
/// Of everything in the active space that is not on frozen layers.
OdGeExtents2d extentsInView(CaDoc const& document, ScreenView const& view);
/// The limits of the drawing, LIMMIN to LIMMAX, in the XY plane of the world.
OdGeExtents2d limitsInView(OdDbDatabase const& database, ScreenView const& view);
/// The extents, or the limits of an empty drawing.
OdGeExtents2d drawingInView(CaDoc const& document, ScreenView const& view);

} // namespace ca
