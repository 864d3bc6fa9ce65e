#pragma once

#include "host/db/entities/od_db_3d_polyline_vertex.h"
#include "host/db/entities/od_db_curve.h"

namespace OdDb {
enum Poly3dType
{
    k3dSimplePoly,
    k3dQuadSplinePoly, ///< quadratic B-spline with the vertices as its frame
    k3dCubicSplinePoly
};
} // namespace OdDb

/// Straight segments in space. Spline-fit ones run through all vertices but the control vertices, which stay as
/// their frame.
class OdDb3dPolyline : public OdDbVertexSequence<OdDbCurve>
{
    OD_DB_DECLARE_CLASS(OdDb3dPolyline)
public:
    OdDb3dPolyline() { m_flags = k3dFlag; }

    OdDb::Poly3dType polyType() const;
    /// Says what the vertices are; it does not make them. See also straighten(), splineFit().
    void setPolyType(OdDb::Poly3dType type);
    bool isClosed() const override { return hasFlag(kClosedFlag); }
    void setClosed(bool closed) { setFlag(kClosedFlag, closed); }

    /// Becomes the last vertex; its id is null while the polyline is in no drawing. Throws OdError: eAlreadyInDb,
    /// eNotOpenForWrite.
    OdDbObjectId appendVertex(OdDb3dPolylineVertex* vertex) { return appendPart(vertex); }
    OdRxClass* partClass() const override { return OdDb3dPolylineVertex::desc(); }

    /// @name Fitting: makes vertices anew; the polyline is open for writing
    /// @{
    /// Takes away what fitting made.
    OdResult straighten();
    /// A quadratic or cubic spline with the vertices as its frame, as `segments` straight pieces for each segment
    /// of the frame. eInvalidInput for another type, or less than one segment.
    OdResult splineFit(OdDb::Poly3dType type, int segments);
    /// @}

    /// The curve that is seen: a chain whose parameter counts segments.
    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void outline(OdDbOutlineSink& sink) const override;
    /// Lines.
    OdResult explode(std::vector<OdDbEntityPtr>& pieces) const override;
    OdResult reverseCurve() override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

protected:
    OdDbEntityPtr pieceOf(OdGeCurve3d const& curve, double from, double to) const override;

private:
    static constexpr std::int16_t kClosedFlag = 1;
    static constexpr std::int16_t kSplineFitFlag = 4;
    static constexpr std::int16_t k3dFlag = 8;

    std::vector<OdGePoint3d> visiblePoints() const;
    std::vector<OdDb3dPolylineVertexPtr> frame() const;
    void replaceVertices(std::vector<OdDb3dPolylineVertexPtr> const& vertices, OdDb::Poly3dType type);

    std::int16_t m_curveType = 0;
};
using OdDb3dPolylinePtr = OdSmartPtr<OdDb3dPolyline>;
