#pragma once

#include "host/db/entities/od_db_plane_transform.h"
#include "host/db/entities/od_db_vertices.h"

namespace OdDb {
enum Vertex2dType
{
    k2dVertex,          ///< an ordinary vertex
    k2dSplineCtlVertex, ///< of the frame of a spline; not shown
    k2dSplineFitVertex, ///< made by fitting a spline
    k2dCurveFitVertex   ///< made by fitting arcs
};
} // namespace OdDb

/// Vertex of a 2D polyline. The position is a point of the plane of the polyline (ECS); bulge and widths are those
/// of the segment that leaves the vertex.
class OdDb2dVertex : public OdDbVertex
{
    OD_DB_DECLARE_CLASS(OdDb2dVertex)
public:
    OdDb2dVertex() = default;
    /// Negative widths stand for the default widths of the polyline.
    explicit OdDb2dVertex(OdGePoint3d const& position, double bulge = 0, double startWidth = kDefaultWidth,
                          double endWidth = kDefaultWidth);

    OdDb::Vertex2dType vertexType() const;
    void setVertexType(OdDb::Vertex2dType type);
    /// Those of the polyline where the vertex has none of its own.
    double startWidth() const;
    double endWidth() const;
    /// Throw OdError(eOutOfRange) for a negative width.
    void setStartWidth(double width);
    void setEndWidth(double width);
    double bulge() const { return m_bulge; }
    void setBulge(double bulge);

    /// Curve fitting runs through the vertex in the direction of tangent().
    bool isTangentUsed() const;
    /// Direction within the plane, radians from its X axis.
    double tangent() const { return m_tangent.radians(); }
    /// From then on the tangent is used.
    void setTangent(double angle);
    void clearTangent();
    /// 0 where none was given.
    int vertexIdentifier() const { return m_identifier; }
    void setVertexIdentifier(int identifier);

    /// eNotApplicable: only the polyline knows the plane.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void listProperties(OdDbPropertySink& sink) const override;

    /// @name For the polyline
    /// @{
    void moveInPlane(OdDbPlaneTransform const& plane);
    /// The widths, or others where the vertex has none of its own.
    double startWidthOr(double width) const { return m_startWidth < 0 ? width : m_startWidth; }
    double endWidthOr(double width) const { return m_endWidth < 0 ? width : m_endWidth; }
    /// Gives the vertex widths of its own where it has none.
    void giveWidths(double startWidth, double endWidth);
    /// Becomes what this other vertex was; `leaving` has the segment that now leaves it, run through the other
    /// way.
    void takeReversed(OdDb2dVertex const& place, OdDb2dVertex const& leaving);
    /// An ordinary vertex again, without bulge.
    void forgetFitting();
    /// @}

private:
    static constexpr double kDefaultWidth = -1;

    double m_startWidth = kDefaultWidth;
    double m_endWidth = kDefaultWidth;
    double m_bulge = 0;
    OdDbAngle m_tangent;
    std::int32_t m_identifier = 0;
};
using OdDb2dVertexPtr = OdSmartPtr<OdDb2dVertex>;
