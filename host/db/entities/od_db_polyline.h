#pragma once

#include "host/db/entities/od_db_plane_transform.h"
#include "host/db/od_db_entity.h"

/// Polyline of straight and arc segments in one plane, with widths. Vertices are points of the plane (ECS); each
/// carries the bulge and the widths of the segment that leaves it. An index that is no vertex throws
/// OdError(eInvalidIndex).
class OdDbPolyline : public OdDbEntity
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

    bool isClosed() const { return (m_flags & kClosedFlag) != 0; }
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

    /// eDegenerateGeometry where arcs would become elliptic or widths uneven.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// The center line: widths and thickness are left out.
    void outline(OdDbOutlineSink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

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
    void setFlag(std::int16_t flag, bool on);
    /// Widths other than the constant one: from then on every vertex has its own.
    void giveWidths(Vertex& target, double startWidth, double endWidth);
    void moveVertices(OdDbPlaneTransform const& plane);
    void mendVertices();

    std::int16_t m_flags = 0;
    double m_constantWidth = 0.0;
    double m_elevation = 0.0;
    double m_thickness = 0.0;
    OdGeVector3d m_normal{0, 0, 1};
    bool m_hasVertexWidths = false;
    std::vector<Vertex> m_vertices;
};
using OdDbPolylinePtr = OdSmartPtr<OdDbPolyline>;
