#pragma once

#include "host/app/commands/drawing_plane.h"

class OdDbPolyline;

namespace ca {

/// The polyline that a PLINE command draws. It stands in the drawing from its first segment on and grows with each
/// more, so that a cancelled command leaves what was drawn, as LINE does. Points, directions and bulges are those
/// of the plane.
class PlineDrawing
{
public:
    PlineDrawing(Editor& editor, OdGePoint3d const& start);

    DrawingPlane const& plane() const { return m_plane; }
    bool hasSegments() const { return !m_segments.empty(); }
    OdGePoint2d start() const { return m_start; }
    /// Where the next segment begins.
    OdGePoint2d end() const { return hasSegments() ? m_segments.back().end : m_start; }
    OdGePoint3d worldEnd() const { return m_plane.toWorld(end()); }
    /// Unit vector in which the last segment arrived; before the first, the last direction drawn in the document.
    OdGeVector2d direction() const;

    /// @name Widths of the next segment; further ones keep the end width
    /// @{
    double startWidth() const { return m_startWidth; }
    double endWidth() const { return m_endWidth; }
    void setWidths(double start, double end);
    /// @}

    void add(OdGePoint2d const& to, double bulge);
    /// The last segment goes back to the start; there must be one before it.
    void close(double bulge);
    /// Takes the last segment back; false when there is none.
    bool undo();

private:
    struct Segment
    {
        OdGePoint2d end;
        OdGeVector2d direction; ///< at the end
        double startWidth;
        double endWidth;
    };
    OdSmartPtr<OdDbPolyline> begin();
    OdSmartPtr<OdDbPolyline> open() const;
    void remember();

    Editor& m_editor;
    DrawingPlane m_plane;
    OdGePoint2d m_start;
    OdGeVector2d m_startDirection;
    double m_startWidth;
    double m_endWidth;
    std::vector<Segment> m_segments;
    OdDbObjectId m_polyline; ///< null while there is no segment
};

} // namespace ca
