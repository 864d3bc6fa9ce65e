#pragma once

// For authors of tests of polyline commands: the polyline that a test expects, and what the commands do to one.
// The checks that compare it with what was drawn stand in ta_utils_pline.h.

#include "testapi/ta_host.h"

namespace ta {

/// Vertices of a polyline with the bulges and widths of the segments that leave them, those of the last vertex
/// belonging to the closing segment. Whether the polyline is closed is not part of the data. `bulges` and `widths`
/// may hold less than the vertices need, as for a 3D polyline, which has neither: what is missing counts as 0.
class CPlineData
{
public:
    OdGePoint3dArray points;
    OdGeDoubleArray bulges;
    OdGeDoubleArray widths; ///< start and end width of each vertex in turn

    void add(OdGePoint3d const& pt, double bulge, double startWidth, double endWidth);
    /// Appends all vertices of another polyline. Where it begins at the last point of this one, under the global
    /// tolerance, the two become one vertex with the bulge and the widths of the other: the curves are joined.
    void append(CPlineData const& other);
    /// The vertices `from` to `to`, both included, replace those of `out`, which may be this one: the part between
    /// these two parameters. Throws OdError(eInvalidIndex) unless 0 <= from <= to < number of vertices.
    void copy(int from, int to, CPlineData& out) const;
    /// Remove a vertex; nothing happens where there is none.
    void cutFirst();
    void cutLast();
    /// The same curve run through the other way; twice gives the data back. A single vertex stays as it is.
    void reverse();

    /// Splits at a parameter of the curve, which counts segments: 2.5 is the middle of the third, in an arc by
    /// angle, as commands that break polylines do it.
    /// - `numSegments` says whether the closing segment takes part: all vertices but one for an open polyline, all
    ///   for a closed one, whose second piece then ends at the first vertex (cutLast() takes that away again).
    /// - Within a segment both pieces get a new vertex: on the arc of the XY plane, Z and widths interpolated
    ///   linearly, bulges those of the parts of the sweep. At a vertex (to within 1e-10) there is nothing new.
    /// - `first` ends with bulge 0 and the width at the split. Appending `second` to it gives the curve back, at a
    ///   vertex of an open polyline the very data.
    /// - At an end of the curve one piece is a single vertex. `second` may be null, and either may be this one.
    /// Throws OdError and changes nothing: eInvalidInput for a number of segments that the vertices do not give or
    /// less than two vertices, eOutOfRange for a parameter outside the curve.
    void splitAtPrm(double prm, int numSegments, CPlineData& first, CPlineData* second) const;

    /// Points agree under the global tolerance, numbers exactly.
    friend bool operator==(CPlineData const&, CPlineData const&) = default;

private:
    struct Vertex
    {
        OdGePoint3d point;
        double bulge;
        double startWidth;
        double endWidth;
    };

    int numVertices() const { return static_cast<int>(points.size()); }
    /// Vertex of the curve at a whole parameter; behind the closing segment the first point again.
    Vertex vertexAt(int param) const;
    void add(Vertex const& vertex) { add(vertex.point, vertex.bulge, vertex.startWidth, vertex.endWidth); }
    /// Shortens a segment to a part of it and gives the rest of it as another one.
    static Vertex divide(Vertex& segment, OdGePoint3d const& end, double part);
    /// Takes away the lists that the whole does not have.
    void dropMissing(CPlineData const& whole);
};

} // namespace ta
