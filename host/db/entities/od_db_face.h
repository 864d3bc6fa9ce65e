#pragma once

#include "host/db/entities/od_db_quad.h"

/// A triangle or quadrilateral in space, not necessarily flat; each of its edges can be hidden. Edge i runs from
/// corner i to the next one.
class OdDbFace : public OdDbQuad
{
    OD_DB_DECLARE_CLASS(OdDbFace)
public:
    OdDbFace() = default;
    OdDbFace(OdGePoint3d const& p0, OdGePoint3d const& p1, OdGePoint3d const& p2, OdGePoint3d const& p3)
        : OdDbQuad({p0, p1, p2, p3})
    {
    }

    /// Throw OdError(eInvalidIndex); so do the functions about edges.
    OdGePoint3d getVertexAt(int index) const { return cornerAt(index); }
    void setVertexAt(int index, OdGePoint3d const& point) { setCornerAt(index, point); }
    bool isEdgeVisibleAt(int index) const;
    void makeEdgeVisibleAt(int index) { setEdgeVisible(index, true); }
    void makeEdgeInvisibleAt(int index) { setEdgeVisible(index, false); }

    /// eDegenerateGeometry where a corner would leave the range of numbers.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void listProperties(OdDbPropertySink& sink) const override;

protected:
    std::array<int, kCorners> border() const override { return {0, 1, 2, 3}; }

private:
    void setEdgeVisible(int index, bool visible);

    std::int16_t m_hiddenEdges = 0;
};
using OdDbFacePtr = OdSmartPtr<OdDbFace>;
