#pragma once

#include "host/db/entities/od_db_vertices.h"

#include <array>

/// A face of a polyface mesh: up to four vertices of the mesh, and whether the edges that leave them are seen. An
/// index of a corner that is not 0 to 3 throws OdError(eInvalidIndex).
class OdDbFaceRecord : public OdDbVertex
{
    OD_DB_DECLARE_CLASS(OdDbFaceRecord)
public:
    static constexpr int kCorners = 4;

    OdDbFaceRecord() : OdDbVertex(kKindFlag) {}
    /// Numbers of vertices from 1, 0 for no corner; all edges are seen. Throws OdError(eOutOfRange) as
    /// setVertexAt.
    OdDbFaceRecord(int first, int second, int third, int fourth = 0);

    /// Number of the vertex in the mesh, from 1; 0 where the face has no such corner. Damaged files hold numbers
    /// that no vertex has.
    int getVertexAt(int corner) const;
    /// Throws OdError(eOutOfRange) for a number below 0 or above 32767.
    void setVertexAt(int corner, int vertex);
    /// The edge from this corner to the next one.
    bool isEdgeVisibleAt(int corner) const;
    void makeEdgeVisibleAt(int corner) { setEdgeVisible(corner, true); }
    void makeEdgeInvisibleAt(int corner) { setEdgeVisible(corner, false); }

    /// Nothing: its corners go along with the vertices.
    OdResult transformBy(OdGeMatrix3d const&) override { return eOk; }
    void listProperties(OdDbPropertySink& sink) const override;

private:
    static constexpr std::int16_t kKindFlag = 128;

    static std::size_t checked(int corner);
    void setEdgeVisible(int corner, bool visible);

    /// As files have it: negative where the edge is not seen.
    std::array<std::int16_t, kCorners> m_corners{};
    /// Edges that are not seen, by bits, of corners that have no vertex (yet); files cannot say it.
    std::uint8_t m_hiddenWithoutVertex = 0;
};
/// Of the parts of a polyface mesh in a file, whether one is a face: by its marker, else by its flags.
bool odDbIsFaceRecord(OdDbTagList const& tags);
using OdDbFaceRecordPtr = OdSmartPtr<OdDbFaceRecord>;
