#include "host/app/commands/spline_conversion.h"

#include "host/app/ca_doc.h"
#include "host/app/select_objects.h"
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_2d_polyline.h"
#include "host/db/entities/od_db_3d_polyline.h"
#include "host/db/entities/od_db_spline.h"
#include "host/db/oa_space.h"
#include "host/db/records/od_db_block_table_record.h"

namespace ca {

namespace {

/// The control points of a fitted polyline, and what they control.
struct Frame
{
    int degree = 0; ///< 0: nothing was fitted
    bool isClosed = false;
    std::vector<OdGePoint3d> points;
};

template <class Vertex, class Polyline, class Place>
void takeFrame(Frame& frame, Polyline const& polyline, Place place)
{
    frame.isClosed = polyline.isClosed();
    for (OdDbPartIterator it = polyline.vertexIterator(); !it.done(); it.step())
        if (auto const* vertex = odCast<Vertex>(&it.peek()); vertex && vertex->isControlVertex())
            frame.points.push_back(place(*vertex));
}

Frame frameOf(OdDbEntity const& entity)
{
    Frame frame;
    if (auto const* flat = odCast<OdDb2dPolyline>(&entity)) {
        frame.degree = flat->polyType() == OdDb::k2dQuadSplinePoly    ? 2
                       : flat->polyType() == OdDb::k2dCubicSplinePoly ? 3
                                                                      : 0;
        takeFrame<OdDb2dVertex>(frame, *flat, [flat](auto const& vertex) { return flat->vertexPosition(vertex); });
    } else if (auto const* spatial = odCast<OdDb3dPolyline>(&entity)) {
        frame.degree = spatial->polyType() == OdDb::k3dQuadSplinePoly    ? 2
                       : spatial->polyType() == OdDb::k3dCubicSplinePoly ? 3
                                                                         : 0;
        takeFrame<OdDb3dPolylineVertex>(frame, *spatial, [](auto const& vertex) { return vertex.position(); });
    }
    return frame;
}

/// Null for an entity that shows no spline.
OdDbSplinePtr splineOf(OdDbEntity const& entity)
{
    Frame const frame = frameOf(entity);
    std::size_t const least = frame.isClosed ? 3 : 2;
    if (frame.degree == 0 || frame.points.size() < least)
        return {};
    // A short open frame carries no curve of the full degree.
    int const most = static_cast<int>(frame.points.size()) - 1;
    int const degree = frame.isClosed ? frame.degree : std::min(frame.degree, most);
    OdDbSplinePtr spline(new OdDbSpline(OdGeNurbCurve3d::ofControlPoints(degree, frame.points, frame.isClosed)));
    spline->setPropertiesFrom(entity);
    return spline;
}

/// DELOBJ: 0 keeps the sources, positive values delete them, negative ones ask.
Task<bool> askDeleting(Editor& editor)
{
    int const mode = std::get<int>(SysVar::find(L"DELOBJ")->value(&editor.doc()));
    if (mode >= 0)
        co_return mode > 0;
    Answer const answer =
        co_await editor.keyword(Prompt(L"Delete source objects?").keywords(L"Yes No").defaultText(L"Yes"));
    co_return !answer.isKeyword(L"No");
}

} // namespace

Task<> convertToSplines(Editor& editor)
{
    editor.message(L"Select objects to convert to splines.");
    std::vector<OdDbObjectId> const ids = co_await selectObjects(editor);
    if (ids.empty())
        co_return;
    bool const isDeleting = co_await askDeleting(editor);
    auto const space = oa::getActiveSpace(&editor.db()).open<OdDbBlockTableRecord>(OdDb::kForWrite);
    bool hasLeft = false;
    for (OdDbObjectId const id : ids) {
        auto const source = id.open<OdDbEntity>();
        OdDbSplinePtr const spline = splineOf(*source);
        if (spline.isNull()) {
            hasLeft = true;
            continue;
        }
        space->appendOdDbEntity(spline);
        if (isDeleting)
            id.safeOpenObject(OdDb::kForWrite)->erase();
    }
    if (hasLeft)
        editor.message(L"Only spline-fit polylines can be converted to splines.");
}

} // namespace ca
