#include "host/app/commands/pline_drawing.h"

#include "host/app/ca_doc.h"
#include "host/app/commands/arc_bulges.h"
#include "host/app/commands/drawn_end.h"
#include "host/app/commands/new_entity.h"
#include "host/db/entities/od_db_polyline.h"

namespace ca {

namespace {

/// Shape and widths of the segment that leaves the last vertex. Widths that agree with the constant width are not
/// set, since a polyline with widths of its own at a vertex has no constant one.
void shapeLast(OdDbPolyline& polyline, double bulge, double startWidth, double endWidth)
{
    unsigned const last = polyline.numVerts() - 1;
    polyline.setBulgeAt(last, bulge);
    if (polyline.getStartWidthAt(last) != startWidth || polyline.getEndWidthAt(last) != endWidth)
        polyline.setWidthsAt(last, startWidth, endWidth);
}

} // namespace

PlineDrawing::PlineDrawing(Editor& editor, OdGePoint3d const& start)
    : m_editor(editor),
      m_plane(editor, start),
      m_start(m_plane.toPlane(start)),
      m_startDirection(m_plane.directionOf(editor.doc().lastAngle())),
      m_startWidth(editor.db().header().real("PLINEWID")),
      m_endWidth(m_startWidth)
{
}

OdGeVector2d PlineDrawing::direction() const
{
    return hasSegments() ? m_segments.back().direction : m_startDirection;
}

void PlineDrawing::setWidths(double start, double end)
{
    m_startWidth = start;
    m_endWidth = end;
    if (m_editor.db().header().real("PLINEWID") != end)
        m_editor.db().setHeaderReal("PLINEWID", 40, end);
}

OdDbPolylinePtr PlineDrawing::open() const
{
    return m_polyline.open<OdDbPolyline>(OdDb::kForWrite);
}

OdDbPolylinePtr PlineDrawing::begin()
{
    OdDbPolylinePtr polyline = new OdDbPolyline;
    polyline->setNormal(m_plane.normal());
    polyline->setElevation(m_plane.elevation());
    polyline->setPlinegen(m_editor.db().header().integer("PLINEGEN") != 0);
    polyline->setConstantWidth(m_endWidth);
    polyline->addVertexAt(0, m_start);
    m_polyline = appendNew(m_editor, polyline);
    return polyline;
}

void PlineDrawing::add(OdGePoint2d const& to, double bulge)
{
    OdGeVector2d const arrival = directionAtEnd(end(), to, bulge);
    OdDbPolylinePtr const polyline = hasSegments() ? open() : begin();
    shapeLast(*polyline, bulge, m_startWidth, m_endWidth);
    polyline->addVertexAt(polyline->numVerts(), to, 0, m_endWidth, m_endWidth);
    m_segments.push_back({to, arrival.isZeroLength() ? direction() : arrival, m_startWidth, m_endWidth});
    m_startWidth = m_endWidth;
    remember();
}

void PlineDrawing::close(double bulge)
{
    OdDbPolylinePtr const polyline = open();
    shapeLast(*polyline, bulge, m_startWidth, m_endWidth);
    polyline->setClosed(true);
    OdGeVector2d const arrival = directionAtEnd(end(), m_start, bulge);
    rememberEnd(m_editor, m_plane.toWorld(m_start), m_plane.toWorld(arrival));
}

bool PlineDrawing::undo()
{
    if (!hasSegments())
        return false;
    Segment const undone = m_segments.back();
    m_segments.pop_back();
    m_startWidth = undone.startWidth;
    m_endWidth = undone.endWidth;
    if (hasSegments()) {
        OdDbPolylinePtr const polyline = open();
        polyline->removeVertexAt(polyline->numVerts() - 1);
        shapeLast(*polyline, 0, m_startWidth, m_startWidth);
    } else {
        m_polyline.safeOpenObject(OdDb::kForWrite)->erase();
        m_polyline = {};
    }
    remember();
    return true;
}

void PlineDrawing::remember()
{
    rememberEnd(m_editor, worldEnd(), m_plane.toWorld(direction()));
}

} // namespace ca
