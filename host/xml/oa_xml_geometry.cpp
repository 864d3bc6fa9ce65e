// Each geometry has a layout: what its attributes hold, their names, and the way from the geometry and back. A
// layout names its attributes once, for reading and for writing.
#include "host/xml/oa_xml_geometry.h"

#include "host/geom/od_ge_frame.h"
#include "host/xml/xml_attributes.h"

namespace oa {

namespace {

template <class Curve>
struct Layout;

template <class Curve>
bool readCurve(pugi::xml_node node, Curve& value)
{
    Layout<Curve> layout;
    AttributeReader reader(node);
    if (!Layout<Curve>::attributes(layout, reader) || !layout.isPossible())
        return false;
    try {
        value = layout.curve();
    } catch (OdError const&) {
        return false; // geometry that cannot be, such as a direction of zero length
    }
    return true;
}

template <class Curve>
bool writeCurve(pugi::xml_node node, Curve const& value, int precision)
{
    auto const layout = Layout<Curve>::of(value);
    AttributeWriter writer(precision);
    if (!layout.isPossible() || !Layout<Curve>::attributes(layout, writer))
        return false;
    // Rounding can make a curve impossible, such as knots that only differ in digits that are not written.
    pugi::xml_document trial;
    Curve back;
    pugi::xml_node const written = trial.append_child(L"trial");
    return writer.writeTo(written) && readCurve(written, back) && writer.writeTo(node);
}

template <class Segment, class Point>
struct SegmentLayout
{
    Point start;
    Point end;

    static SegmentLayout of(Segment const& segment) { return {segment.startPoint(), segment.endPoint()}; }
    Segment curve() const { return {start, end}; }
    bool isPossible() const { return true; }
    template <class Self, class Attributes>
    static bool attributes(Self& self, Attributes& io)
    {
        return io.value(L"start", self.start) && io.value(L"end", self.end);
    }
};
template <>
struct Layout<OdGeLineSeg2d> : SegmentLayout<OdGeLineSeg2d, OdGePoint2d>
{
};
template <>
struct Layout<OdGeLineSeg3d> : SegmentLayout<OdGeLineSeg3d, OdGePoint3d>
{
};

template <class Line>
struct LineLayout
{
    OdGePoint3d base;
    OdGeVector3d direction;

    static LineLayout of(Line const& line) { return {line.pointOnLine(), line.direction()}; }
    Line curve() const { return {base, direction}; }
    bool isPossible() const { return true; }
    template <class Self, class Attributes>
    static bool attributes(Self& self, Attributes& io)
    {
        return io.value(L"base", self.base) && io.value(L"dir", self.direction);
    }
};
template <>
struct Layout<OdGeRay3d> : LineLayout<OdGeRay3d>
{
};
template <>
struct Layout<OdGeLine3d> : LineLayout<OdGeLine3d>
{
};

template <>
struct Layout<OdGeCircArc2d>
{
    OdGePoint2d center;
    double radius = 0;
    double startAngle = 0;
    double endAngle = 0;
    OdGeVector2d refVec;
    bool isClockwise = false;

    static Layout of(OdGeCircArc2d const& arc)
    {
        return {arc.center(), arc.radius(), arc.startAng(), arc.endAng(), arc.refVec(), arc.isClockWise()};
    }
    OdGeCircArc2d curve() const { return {center, radius, startAngle, endAngle, refVec, isClockwise}; }
    bool isPossible() const { return radius > 0; }
    template <class Self, class Attributes>
    static bool attributes(Self& self, Attributes& io)
    {
        return io.value(L"center", self.center) && io.value(L"radius", self.radius) &&
               io.range(L"startAng", L"endAng", self.startAngle, self.endAngle) &&
               io.optional(L"refVec", self.refVec, OdGeVector2d::kXAxis) &&
               io.optional(L"clockwise", self.isClockwise, false);
    }
};

template <>
struct Layout<OdGeCircArc3d>
{
    OdGePoint3d center;
    OdGeVector3d normal;
    OdGeVector3d refVec;
    double radius = 0;
    double startAngle = 0;
    double endAngle = 0;

    static Layout of(OdGeCircArc3d const& arc)
    {
        return {arc.center(), arc.normal(), arc.refVec(), arc.radius(), arc.startAng(), arc.endAng()};
    }
    OdGeCircArc3d curve() const { return {center, normal, refVec, radius, startAngle, endAngle}; }
    bool isPossible() const { return radius > 0; }
    template <class Self, class Attributes>
    static bool attributes(Self& self, Attributes& io)
    {
        return io.value(L"center", self.center) && io.value(L"normal", self.normal) &&
               io.value(L"refVec", self.refVec) && io.value(L"radius", self.radius) &&
               io.range(L"startAng", L"endAng", self.startAngle, self.endAngle);
    }
};

OdGePoint3d inSpace(OdGePoint2d const& point)
{
    return {point.x, point.y, 0};
}
OdGeVector3d inSpace(OdGeVector2d const& vector)
{
    return {vector.x, vector.y, 0};
}
OdGePoint3d const& inSpace(OdGePoint3d const& point)
{
    return point;
}
OdGeVector3d const& inSpace(OdGeVector3d const& vector)
{
    return vector;
}

template <class Arc, class Point, class Vector>
struct EllipseLayout
{
    Point center;
    Vector majorAxis;
    Vector minorAxis;
    double majorRadius = 0;
    double minorRadius = 0;
    double startAngle = 0;
    double endAngle = 0;

    static EllipseLayout of(Arc const& arc)
    {
        return {arc.center(),      arc.majorAxis(),  arc.minorAxis(), arc.majorRadius(),
                arc.minorRadius(), arc.startParam(), arc.endParam()};
    }
    Arc curve() const
    {
        OdGeVector3d major = inSpace(majorAxis);
        if (!isHalfAxis(major, majorRadius))
            major = odgeUnitOrThrow(major) * majorRadius;
        OdGeVector3d const unit = major / major.length();
        OdGeVector3d const across = odgePartAcross(inSpace(minorAxis), unit);
        OdGeVector3d const minor =
            isHalfAxis(across, minorRadius) ? across : odgeUnitAcross(inSpace(minorAxis), unit) * minorRadius;
        return Arc(OdGeEllipArc3d(inSpace(center), major, minor, startAngle, endAngle));
    }
    /// Axes are written with their half lengths, which keeps their digits; other lengths only tell directions.
    static bool isHalfAxis(OdGeVector3d const& axis, double radius)
    {
        return std::abs(axis.length() - radius) <= 1e-14 * radius;
    }
    bool isPossible() const { return majorRadius > 0 && minorRadius > 0; }
    template <class Self, class Attributes>
    static bool attributes(Self& self, Attributes& io)
    {
        return io.value(L"center", self.center) && io.value(L"majorAxis", self.majorAxis) &&
               io.value(L"minorAxis", self.minorAxis) && io.value(L"majorRadius", self.majorRadius) &&
               io.value(L"minorRadius", self.minorRadius) &&
               io.range(L"startAng", L"endAng", self.startAngle, self.endAngle);
    }
};
template <>
struct Layout<OdGeEllipArc2d> : EllipseLayout<OdGeEllipArc2d, OdGePoint2d, OdGeVector2d>
{
};
template <>
struct Layout<OdGeEllipArc3d> : EllipseLayout<OdGeEllipArc3d, OdGePoint3d, OdGeVector3d>
{
};

template <>
struct Layout<OdGeNurbCurve3d>
{
    int degree = 0;
    bool isPeriodic = false;
    OdGeDoubleArray knots;
    OdGePoint3dArray points;
    OdGeDoubleArray weights;

    static Layout of(OdGeNurbCurve3d const& curve)
    {
        OdGeNurbCurve3d::Definition const& from = curve.definition();
        std::vector<double> const& knots = from.knots.asVector();
        return {from.degree, from.isPeriodic, OdGeDoubleArray(knots.begin(), knots.end()),
                OdGePoint3dArray(from.controlPoints.begin(), from.controlPoints.end()),
                OdGeDoubleArray(from.weights.begin(), from.weights.end())};
    }
    OdGeNurbCurve3d curve() const
    {
        OdGeNurbCurve3d::Definition definition;
        definition.degree = degree;
        definition.isPeriodic = isPeriodic;
        definition.knots = OdGeKnotVector({knots.begin(), knots.end()});
        definition.controlPoints.assign(points.begin(), points.end());
        definition.weights.assign(weights.begin(), weights.end());
        return OdGeNurbCurve3d(std::move(definition));
    }
    bool isPossible() const { return true; }
    template <class Self, class Attributes>
    static bool attributes(Self& self, Attributes& io)
    {
        return io.value(L"degree", self.degree) && io.value(L"periodic", self.isPeriodic) &&
               io.list(L"nKnot", L"aKnot", self.knots) && io.list(L"nPt", L"aPt", self.points) &&
               io.optionalList(L"nWeight", L"aWeight", self.weights);
    }
};

/// The number of points of a grid, which may be more than an unsigned number holds.
std::uint64_t gridSize(unsigned m, unsigned n)
{
    return std::uint64_t{m} * n;
}

struct Vertex
{
    OdGePoint2d point;
    double bulge = 0;

    template <class Self, class Attributes>
    static bool attributes(Self& self, Attributes& io)
    {
        return io.value(L"pt", self.point) && io.optional(L"bulge", self.bulge, 0.0);
    }
};
wchar_t const s_vertex[] = L"vertex";
wchar_t const s_closed[] = L"closed";

} // namespace

bool readAttr(pugi::xml_node node, OdGePoint3dArray& points, unsigned& m, unsigned& n, wchar_t const* mName,
              wchar_t const* nName)
{
    unsigned rows = 0;
    unsigned columns = 0;
    OdGePoint3dArray read;
    AttributeReader reader(node);
    if (!reader.value(mName, rows) || !reader.value(nName, columns) ||
        !reader.items(L"aPt", read, gridSize(rows, columns)) || read.size() != gridSize(rows, columns))
        return false;
    points = std::move(read);
    m = rows;
    n = columns;
    return true;
}

bool writeAttr(pugi::xml_node node, OdGePoint3dArray const& points, unsigned m, unsigned n, wchar_t const* mName,
               wchar_t const* nName, int precision)
{
    AttributeWriter writer(precision);
    return points.size() == gridSize(m, n) && writer.value(mName, m) && writer.value(nName, n) &&
           writer.items(L"aPt", points) && writer.writeTo(node);
}

bool read(pugi::xml_node node, OdGeSegmentChain2d& value)
{
    bool isClosed = false;
    if (!AttributeReader(node).optional(s_closed, isClosed, false))
        return false;
    std::vector<OdGePoint2d> points;
    std::vector<double> bulges;
    for (pugi::xml_node const child : node.children()) {
        if (child.type() != pugi::node_element)
            continue;
        Vertex vertex;
        AttributeReader reader(child);
        if (std::wstring_view(child.name()) != s_vertex || !Vertex::attributes(vertex, reader))
            return false;
        points.push_back(vertex.point);
        bulges.push_back(vertex.bulge);
    }
    if (points.empty())
        return false;
    if (std::ranges::all_of(bulges, [](double bulge) { return bulge == 0; }))
        bulges.clear();
    value = OdGeSegmentChain2d(std::move(points), std::move(bulges), isClosed);
    return true;
}

bool write(pugi::xml_node node, OdGeSegmentChain2d const& value, int precision)
{
    AttributeWriter frame(precision);
    if (value.numVertices() == 0 || !frame.optional(s_closed, value.isClosedChain(), false))
        return false;
    std::vector<AttributeWriter> vertices(static_cast<std::size_t>(value.numVertices()),
                                          AttributeWriter(precision));
    for (int i = 0; i < value.numVertices(); ++i) {
        Vertex const vertex{value.vertexAt(i), value.bulgeAt(i)};
        if (!Vertex::attributes(vertex, vertices[static_cast<std::size_t>(i)]))
            return false;
    }
    return frame.writeTo(node) && std::ranges::all_of(vertices, [&](AttributeWriter const& vertex) {
               return vertex.writeTo(node.append_child(s_vertex));
           });
}

bool readAttr(pugi::xml_node node, OdGeLineSeg2d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeLineSeg2d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

bool readAttr(pugi::xml_node node, OdGeLineSeg3d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeLineSeg3d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

bool readAttr(pugi::xml_node node, OdGeRay3d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeRay3d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

bool readAttr(pugi::xml_node node, OdGeLine3d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeLine3d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

bool readAttr(pugi::xml_node node, OdGeCircArc2d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeCircArc2d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

bool readAttr(pugi::xml_node node, OdGeCircArc3d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeCircArc3d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

bool readAttr(pugi::xml_node node, OdGeEllipArc2d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeEllipArc2d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

bool readAttr(pugi::xml_node node, OdGeEllipArc3d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeEllipArc3d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

bool readAttr(pugi::xml_node node, OdGeNurbCurve3d& value)
{
    return readCurve(node, value);
}

bool writeAttr(pugi::xml_node node, OdGeNurbCurve3d const& value, int precision)
{
    return writeCurve(node, value, precision);
}

} // namespace oa
