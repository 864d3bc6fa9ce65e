#pragma once

#include "host/db/entities/od_db_2d_vertex.h"
#include "host/db/entities/od_db_bulge_chain.h"
#include "host/db/entities/od_db_curve.h"

namespace OdDb {
enum Poly2dType
{
    k2dSimplePoly,
    k2dFitCurvePoly,   ///< arcs through the vertices
    k2dQuadSplinePoly, ///< quadratic B-spline with the vertices as its frame
    k2dCubicSplinePoly
};
} // namespace OdDb

/// Polyline in one plane whose vertices are entities of their own: the older relative of OdDbPolyline, which also
/// knows fitted curves. Simple and curve-fit ones run through all vertices, spline-fit ones through all but the
/// control vertices, which stay as their frame.
class OdDb2dPolyline : public OdDbVertexSequence<OdDbCurve>
{
    OD_DB_DECLARE_CLASS(OdDb2dPolyline)
public:
    OdDb2dPolyline() = default;

    OdDb::Poly2dType polyType() const;
    /// Says what the vertices are; it does not make them. See also straighten(), curveFit(), splineFit().
    void setPolyType(OdDb::Poly2dType type);
    bool isClosed() const override { return hasFlag(kClosedFlag); }
    void setClosed(bool closed) { setFlag(kClosedFlag, closed); }
    /// Linetypes run through the vertices instead of starting anew at each.
    bool isLinetypeGenerationOn() const { return hasFlag(kLinetypeGenerationFlag); }
    void setLinetypeGeneration(bool on) { setFlag(kLinetypeGenerationFlag, on); }
    double thickness() const { return m_thickness; }
    void setThickness(double thickness);
    /// Height of the plane above the world origin, along the normal.
    double elevation() const { return m_origin.z; }
    /// The vertices get this height too.
    void setElevation(double elevation);
    OdGeVector3d normal() const { return m_normal; }
    /// The vertices keep their coordinates in the plane. Throws OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);
    /// Of vertices without widths of their own.
    double defaultStartWidth() const { return std::max(m_startWidth, 0.0); }
    double defaultEndWidth() const { return std::max(m_endWidth, 0.0); }
    /// Throw OdError(eOutOfRange) for a negative width.
    void setDefaultStartWidth(double width);
    void setDefaultEndWidth(double width);

    /// Becomes the last vertex, at the elevation of the polyline, with the default widths where it has none; its
    /// id is null while the polyline is in no drawing. Throws OdError: eAlreadyInDb, eNotOpenForWrite.
    OdDbObjectId appendVertex(OdDb2dVertex* vertex);
    OdRxClass* partClass() const override { return OdDb2dVertex::desc(); }
    /// Place of a vertex in the world.
    OdGePoint3d vertexPosition(OdDb2dVertex const& vertex) const;

    /// @name Fitting: makes vertices anew; the polyline is open for writing
    /// @{
    /// Takes away what fitting made, and bulges.
    OdResult straighten();
    /// Two arcs between each two vertices, in the directions of the tangents that vertices have.
    OdResult curveFit();
    /// A quadratic or cubic spline with the vertices as its frame, as `segments` straight pieces for each segment
    /// of the frame. eInvalidInput for another type, or less than one segment.
    OdResult splineFit(OdDb::Poly2dType type, int segments);
    /// @}

    /// The curve that is seen: a chain whose parameter counts segments.
    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;
    OdGeVector3d planeNormal() const override;
    /// eDegenerateGeometry where arcs would become elliptic or widths uneven.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void outline(OdDbOutlineSink& sink) const override;
    /// Lines and arcs; widths are lost.
    OdResult explode(std::vector<OdDbEntityPtr>& pieces) const override;
    OdResult reverseCurve() override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;
    void copyPartsOf(OdDbObject const& source) override;

protected:
    OdGeMatrix3d verticesToWorld() const override;
    OdDbEntityPtr pieceOf(OdGeCurve3d const& curve, double from, double to) const override;
    OdDbEntityPtr offsetEntity(OdGeCurve3d const& curve) const override;
    double curveThickness() const override { return m_thickness; }

private:
    static constexpr std::int16_t kClosedFlag = 1;
    static constexpr std::int16_t kCurveFitFlag = 2;
    static constexpr std::int16_t kSplineFitFlag = 4;
    static constexpr std::int16_t kLinetypeGenerationFlag = 128;

    /// What makes up the curve.
    OdDbBulgeChain visibleChain() const;
    /// Flags and normal as this one, without vertices, simple.
    OdSmartPtr<OdDb2dPolyline> emptyLike() const;
    /// The vertices that were not made by fitting, without what fitting did to them.
    std::vector<OdDb2dVertexPtr> frame() const;
    /// Puts vertices that are in no drawing into the place of all others.
    void replaceVertices(std::vector<OdDb2dVertexPtr> const& vertices, OdDb::Poly2dType type);
    void moveVertices(OdDbPlaneTransform const& plane);

    std::int16_t m_curveType = 0;
    double m_thickness = 0.0;
    double m_startWidth = 0.0;
    double m_endWidth = 0.0;
    OdGeVector3d m_normal{0, 0, 1};
};
using OdDb2dPolylinePtr = OdSmartPtr<OdDb2dPolyline>;
