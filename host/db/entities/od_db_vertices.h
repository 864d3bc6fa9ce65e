#pragma once

#include "host/db/od_db_entity.h"

// What the entities have in common that files call POLYLINE, and their parts, which files call VERTEX.

namespace OdDb {
/// Of vertices in space: of 3D polylines and polygon meshes.
enum Vertex3dType
{
    k3dSimpleVertex,  ///< an ordinary vertex
    k3dControlVertex, ///< of the frame of a fitted curve or surface; not shown
    k3dFitVertex      ///< made by fitting
};
} // namespace OdDb

/// A point that belongs to a polyline or mesh. What kind of vertex it is stands in its flags.
class OdDbVertex : public OdDbEntity
{
    OD_DECLARE_CLASS(OdDbVertex)
public:
    static constexpr std::int16_t kFitFlag = 8;
    static constexpr std::int16_t kControlFlag = 16;

    /// In the coordinates that the class says.
    OdGePoint3d position() const { return m_position; }
    void setPosition(OdGePoint3d const& position);
    /// Belongs to the frame of a fitted curve or surface, which is not shown.
    bool isControlVertex() const { return (m_flags & kControlFlag) != 0; }

    /// Moves the vertex alone, as a point of the world. The whole moves its vertices itself.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void listProperties(OdDbPropertySink& sink) const override;

protected:
    explicit OdDbVertex(std::int16_t flags = 0, OdGePoint3d const& position = {})
        : m_position(position), m_flags(flags)
    {
    }
    /// The marker that stands before that of the class.
    static OdDbSection vertexSection() { return {"AcDbVertex", {}}; }
    /// The markers of all kinds of vertices: damaged files hold one in place of another.
    static std::span<std::string_view const> allMarkers();
    void setFlag(std::int16_t flag, bool on);

    OdGePoint3d m_position;
    std::int16_t m_flags;
};
using OdDbVertexPtr = OdSmartPtr<OdDbVertex>;

/// A vertex of a polyline or a mesh in space; position in world coordinates.
class OdDbSpaceVertex : public OdDbVertex
{
    OD_DECLARE_CLASS(OdDbSpaceVertex)
public:
    OdDb::Vertex3dType vertexType() const;
    void setVertexType(OdDb::Vertex3dType type);

protected:
    using OdDbVertex::OdDbVertex;
};

/// The kinds of entities that files call POLYLINE.
enum class OdDbPolylineKind
{
    k2d,
    k3d,
    kMesh,
    kPolyFace
};
/// By the marker of the class, or, in records without one, by the flags.
OdDbPolylineKind odDbPolylineKind(OdDbTagList const& tags);

/// Base of polylines and meshes with their vertices: flags, and the point that files put into their head.
template <class Base>
class OdDbVertexSequence : public Base
{
public:
    /// All vertices, of every kind, in the order of the file.
    OdDbPartIterator vertexIterator(bool skipErased = true) const { return this->partIterator(skipErased); }
    OdDbPartList const* partList() const override { return &m_vertices; }

    /// Every vertex is a point for stretching, in order.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;

protected:
    OdDbVertexSequence() = default;
    bool alwaysHasSequenceEnd() const override { return true; }
    bool partsFollowProperties() const override { return true; }
    bool hasFlag(std::int16_t flag) const { return (m_flags & flag) != 0; }
    void setFlag(std::int16_t flag, bool on);
    /// Turns the coordinates of the vertices into those of the world.
    virtual OdGeMatrix3d verticesToWorld() const { return {}; }
    /// Moves all vertices as points of the world.
    void transformVertices(OdGeMatrix3d const& transformation);
    /// False for parts that have no place of their own.
    virtual bool takesPartInStretching(OdDbEntity const&) const { return true; }
    /// Erases all vertices and appends others.
    template <class Vertex>
    void replaceAllVertices(std::vector<OdSmartPtr<Vertex>> const& vertices)
    {
        this->clearParts();
        for (OdSmartPtr<Vertex> const& vertex : vertices)
            this->appendPart(vertex);
    }
    /// An entity whose flags do not name its kind becomes another one in files of older releases.
    void auditKindFlag(std::int16_t flag, OdDbAuditInfo& info) const;

    /// Files say in front of everything that parts follow; the parts themselves tell.
    static bool readFollowFlag(OdDbObject& object, OdDbTag const& tag);
    static void writeFollowFlag(OdDbObject const& object, OdDbTagSink& sink);

    OdGePoint3d m_origin;
    std::int16_t m_flags = 0;

private:
    static constexpr int kFollowFlag = 66;

    OdDbPartList m_vertices;
};
