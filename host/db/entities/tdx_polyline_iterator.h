#pragma once

#include "host/db/entities/od_db_2d_polyline.h"
#include "host/db/entities/od_db_3d_polyline.h"

namespace tdx {

/// Walks over the vertices that make up the visible curve of a polyline (OdDb2dPolyline, OdDb3dPolyline), in a
/// drawing or not: all of a simple one, all but the control vertices of a fitted one; erased ones never.
template <class Polyline>
class PolylineIterator
{
public:
    /// The polyline has to outlive the iterator; without one there is nothing to walk over.
    PolylineIterator(Polyline const* polyline, bool isSimple)
        : m_at(polyline ? polyline->partList() : nullptr), m_isSimple(isSimple)
    {
        skipHidden();
    }

    bool done() const { return m_at.done(); }
    void next()
    {
        m_at.step();
        skipHidden();
    }
    /// As the vertex holds it: in the plane of a 2D polyline, in the world otherwise. Throws
    /// OdError(eInvalidIndex) behind the last vertex.
    OdGePoint3d vertexPoint() const { return vertex().position(); }
    OdDbVertex const& vertex() const { return static_cast<OdDbVertex const&>(m_at.peek()); }

private:
    void skipHidden()
    {
        while (!m_isSimple && !m_at.done() && vertex().isControlVertex())
            m_at.step();
    }

    OdDbPartIterator m_at;
    bool m_isSimple;
};

} // namespace tdx
