#pragma once

#include "host/geom/od_ge_matrix3d.h"
#include "host/root/od_string.h"

namespace ca {

class CaDoc;

/// Changes the user coordinate system of the active space of a document. Calls change what is prepared, which
/// begins as the current system; commit() makes it current. What was not committed is forgotten. Points and
/// directions are in world coordinates.
class UcsOp
{
public:
    explicit UcsOp(CaDoc& document);

    /// Axes get unit length. Throws OdError(eDegenerateGeometry) unless they are perpendicular and have a length;
    /// then nothing changes.
    void set(OdGePoint3d const& origin, OdGeVector3d const& xAxis, OdGeVector3d const& yAxis);
    void setWorld();
    void setOrigin(OdGePoint3d const& origin);
    /// Turns the axes about the origin, by radians, counterclockwise about an axis of the prepared system: its X
    /// axis (0), Y axis (1) or Z axis (2), or a direction in its coordinates. Throws OdError: eOutOfRange for
    /// another number, eDegenerateGeometry for a direction of no length.
    void rotate(int axis, double angle);
    void rotate(OdGeVector3d const& axis, double angle);
    /// Name under which the prepared system stands in the drawing's table; the calls above forget it.
    void setName(OdString const& name) { m_prepared.name = name; }

    OdGePoint3d const& origin() const { return m_prepared.origin; }
    OdGeVector3d const& xAxis() const { return m_prepared.xAxis; }
    OdGeVector3d const& yAxis() const { return m_prepared.yAxis; }
    OdGeVector3d zAxis() const { return m_prepared.xAxis.crossProduct(m_prepared.yAxis); }
    OdGeMatrix3d ucsToWorld() const;
    bool isWorld() const;

    /// One change, which can be undone; the system before it is remembered.
    void commit();
    /// Makes the system current that was current before the last change that is remembered, up to ten of them for
    /// each space. False when there is none.
    static bool restorePrevious(CaDoc& document);

    struct System
    {
        OdGePoint3d origin;
        OdGeVector3d xAxis{1, 0, 0};
        OdGeVector3d yAxis{0, 1, 0};
        OdString name; ///< empty for a system without a name

        /// To the bit: a system that differs in its last digits is another one.
        bool isSameAs(System const& other) const;
    };

private:
    CaDoc& m_document;
    System m_prepared;
};

/// Name of the current system of the active space; empty when it has none, as that of the world.
OdString currentUcsName(CaDoc const& document);

} // namespace ca
