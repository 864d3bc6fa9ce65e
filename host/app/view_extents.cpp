#include "host/app/view_extents.h"

#include "host/app/ca_doc.h"
#include "host/app/selection_finder.h"
#include "host/db/entities/od_db_transforming_sink.h"
#include "host/db/od_db_extents.h"

namespace ca {

OdGeExtents2d extentsInView(ScreenView const& view, std::vector<OdDbObjectId> const& entities)
{
    OdDbExtentsSink extents;
    OdDbTransformingSink toDisplay(extents, view.displayToWorld().inverse());
    for (OdDbObjectId const id : entities)
        if (auto const& entity = static_cast<OdDbEntity const&>(*id.stub()->object); entity.isVisible())
            entity.outline(toDisplay);
    return extents.extents().convert2d();
}

OdGeExtents2d extentsInView(CaDoc const& document, ScreenView const& view)
{
    return extentsInView(view, SelectionFinder(document).all());
}

OdGeExtents2d limitsInView(OdDbDatabase const& database, ScreenView const& view)
{
    OdGePoint3d const low = database.header().point("LIMMIN");
    OdGePoint3d const high = database.header().point("LIMMAX");
    OdGeMatrix3d const toDisplay = view.displayToWorld().inverse();
    OdGeExtents2d box;
    for (double const x : {low.x, high.x})
        for (double const y : {low.y, high.y})
            box.addPoint((toDisplay * OdGePoint3d(x, y, 0)).convert2d());
    return box;
}

OdGeExtents2d drawingInView(CaDoc const& document, ScreenView const& view)
{
    OdGeExtents2d const box = extentsInView(document, view);
    return box.isValidExtents() ? box : limitsInView(*document.database(), view);
}

} // namespace ca
