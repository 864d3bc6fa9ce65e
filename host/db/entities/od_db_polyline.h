#pragma once

#include "host/db/entities/od_db_bulge_chain.h"
#include "host/db/entities/od_db_curve.h"
#include "host/db/entities/od_db_plane_transform.h"
#include "host/geom/od_ge_arc_data2d.h"

/// Polyline of straight and arc segments in one plane, with widths. Vertices are points of the plane (ECS); each
/// carries the bulge and the widths of the segment that leaves it. An index that is no vertex throws
/// OdError(eInvalidIndex). The parameter of the curve counts segments: 2.5 is the middle of the third.
class OdDbPolyline : public OdDbCurve
{
    OD_DB_DECLARE_CLASS(OdDbPolyline)
public:
    OdDbPolyline() = default;

    unsigned numVerts() const { return static_cast<unsigned>(m_vertices.size()); }
    OdGePoint2d getPointAt(unsigned index) const { return vertex(index).point; }
    /// In world coordinates.
    OdGePoint3d getWorldPointAt(unsigned index) const;
    void setPointAt(unsigned index, OdGePoint2d const& point);
    double getBulgeAt(unsigned index) const { return vertex(index).bulge; }
    void setBulgeAt(unsigned index, double bulge);
    double getStartWidthAt(unsigned index) const;
    double getEndWidthAt(unsigned index) const;
    /// Throws OdError(eOutOfRange) for a negative width. The constant width becomes that of the other vertices.
    void setWidthsAt(unsigned index, double startWidth, double endWidth);
    /// 0 where none was given.
    int getVertexIdentifierAt(unsigned index) const { return vertex(index).identifier; }
    void setVertexIdentifierAt(unsigned index, int identifier);

    /// Inserts before the vertex at `index`; index = numVerts() appends. Negative widths stand for the constant
    /// width.
    void addVertexAt(unsigned index, OdGePoint2d const& point, double bulge = 0, double startWidth = -1,
                     double endWidth = -1);
    void removeVertexAt(unsigned index);

    /// The width that was set for all segments; 0 when widths were set one by one.
    double getConstantWidth() const { return m_hasVertexWidths ? 0.0 : m_constantWidth; }
    /// Throws OdError(eOutOfRange) for a negative width.
    void setConstantWidth(double width);
    bool hasBulges() const;
    bool hasWidth() const;

    bool isClosed() const override { return (m_flags & kClosedFlag) != 0; }
    void setClosed(bool closed) { setFlag(kClosedFlag, closed); }
    /// Linetypes run through the vertices instead of starting anew at each.
    bool hasPlinegen() const { return (m_flags & kPlinegenFlag) != 0; }
    void setPlinegen(bool on) { setFlag(kPlinegenFlag, on); }

    /// Height of the plane above the world origin, along the normal.
    double elevation() const { return m_elevation; }
    void setElevation(double elevation);
    OdGeVector3d normal() const { return m_normal; }
    /// The vertices keep their coordinates in the plane. Throws OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);
    double thickness() const { return m_thickness; }
    void setThickness(double thickness);

    /// Segments between vertices, the closing one included; 0 for less than two vertices.
    unsigned numSegments() const;

    /// Null for less than two vertices.
    std::unique_ptr<OdGeCurve3d> getOdGeCurve() const override;
    OdResult reverseCurve() override;
    OdGeVector3d planeNormal() const override;

    /// eDegenerateGeometry where arcs would become elliptic or widths uneven.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// Wide segments are polygons where they are straight, else the arc with its two borders and their ends.
    void outline(OdDbOutlineSink& sink) const override;
    /// Lines and arcs; widths are lost. eDegenerateGeometry for less than two vertices.
    OdResult explode(std::vector<OdDbEntityPtr>& pieces) const override;
    /// The vertices, which stay in the plane unless all of them move.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

protected:
    OdDbEntityPtr pieceOf(OdGeCurve3d const& curve, double from, double to) const override;
    OdDbEntityPtr offsetEntity(OdGeCurve3d const& curve) const override;
    double curveThickness() const override { return m_thickness; }

private:
    struct Vertex
    {
        OdGePoint2d point;
        double bulge = 0;
        double startWidth = 0;
        double endWidth = 0;
        std::int32_t identifier = 0;
        std::uint8_t inFile = 0; ///< bits of what the file gave, even where it is 0
    };
    static constexpr std::int16_t kClosedFlag = 1;
    static constexpr std::int16_t kPlinegenFlag = 128;

    static bool readVertex(OdDbObject& object, OdDbTag const& tag);
    static void writeCount(OdDbObject const& object, OdDbTagSink& sink);
    static void writeVertices(OdDbObject const& object, OdDbTagSink& sink);
    Vertex const& vertex(unsigned index) const;
    /// For writing: checks the index, then calls assertWriteEnabled().
    Vertex& editVertex(unsigned index);
    Vertex const& nextVertex(unsigned index) const { return m_vertices[index + 1 == numVerts() ? 0 : index + 1]; }
    OdGePoint3d inPlane(OdGePoint2d const& point) const { return {point.x, point.y, m_elevation}; }
    void setFlag(std::int16_t flag, bool on);
    OdDbBulgeChain chain() const;
    /// Plane, thickness and linetype generation of another one.
    void takeFrame(OdDbPolyline const& other);
    /// Widths other than the constant one: from then on every vertex has its own.
    void giveWidths(Vertex& target, double startWidth, double endWidth);
    void moveVertices(OdDbPlaneTransform const& plane);
    void mendVertices();
    void mendWidths();

    std::int16_t m_flags = 0;
    double m_constantWidth = 0.0;
    double m_elevation = 0.0;
    double m_thickness = 0.0;
    OdGeVector3d m_normal{0, 0, 1};
    bool m_hasVertexWidths = false;
    std::vector<Vertex> m_vertices;
};
using OdDbPolylinePtr = OdSmartPtr<OdDbPolyline>;
