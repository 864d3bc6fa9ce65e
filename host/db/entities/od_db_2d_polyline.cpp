#include "host/db/entities/od_db_2d_polyline.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"

OD_DB_DEFINE_CLASS(OdDb2dPolyline, OdDbCurve, "POLYLINE")

namespace {

constexpr std::int16_t kQuadratic = 5;
constexpr std::int16_t kCubic = 6;

constexpr wchar_t const* kTypeNames[] = {L"simple", L"curve fit", L"quadratic spline", L"cubic spline"};

void checkWidth(double width)
{
    if (!(width >= 0) || !std::isfinite(width))
        throw OdError(eOutOfRange, odFormat(L"The width %g is negative", width));
}

} // namespace

OdDbFieldTable const& OdDb2dPolyline::fields()
{
    constexpr std::string_view kMarker = "AcDb2dPolyline";
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDb2dPolyline::m_origin>    (10, OdDbWriteRule::kAlways),
        odField<&OdDb2dPolyline::m_thickness> (39),
        odField<&OdDb2dPolyline::m_flags>     (70),
        odField<&OdDb2dPolyline::m_startWidth>(40),
        odField<&OdDb2dPolyline::m_endWidth>  (41),
        odField<&OdDb2dPolyline::m_curveType> (75),
        odField<&OdDb2dPolyline::m_normal>    (210),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(),
         {.marker = kMarker, .fields = {}, .readTail = &readFollowFlag, .writeTail = &writeFollowFlag},
         {.marker = kMarker, .fields = s_fields, .continues = true}});
    return s_table;
}

OdDb::Poly2dType OdDb2dPolyline::polyType() const
{
    if (hasFlag(kSplineFitFlag))
        return m_curveType == kQuadratic ? OdDb::k2dQuadSplinePoly : OdDb::k2dCubicSplinePoly;
    return hasFlag(kCurveFitFlag) ? OdDb::k2dFitCurvePoly : OdDb::k2dSimplePoly;
}

void OdDb2dPolyline::setPolyType(OdDb::Poly2dType type)
{
    setFlag(kCurveFitFlag, type == OdDb::k2dFitCurvePoly);
    setFlag(kSplineFitFlag, type == OdDb::k2dQuadSplinePoly || type == OdDb::k2dCubicSplinePoly);
    m_curveType = type == OdDb::k2dQuadSplinePoly ? kQuadratic : type == OdDb::k2dCubicSplinePoly ? kCubic : 0;
}

void OdDb2dPolyline::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
}

void OdDb2dPolyline::setElevation(double elevation)
{
    assertWriteEnabled();
    m_origin.z = elevation;
    for (OdDb2dVertexPtr const vertex : openParts()) {
        OdGePoint3d const at = vertex->position();
        vertex->setPosition({at.x, at.y, elevation});
    }
}

void OdDb2dPolyline::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    assertWriteEnabled();
    m_normal = unit;
}

void OdDb2dPolyline::setDefaultStartWidth(double width)
{
    checkWidth(width);
    assertWriteEnabled();
    m_startWidth = width;
}

void OdDb2dPolyline::setDefaultEndWidth(double width)
{
    checkWidth(width);
    assertWriteEnabled();
    m_endWidth = width;
}

OdDbObjectId OdDb2dPolyline::appendVertex(OdDb2dVertex* vertex)
{
    OdDb2dVertexPtr const keep(vertex);
    OdDbObjectId const id = appendPart(vertex);
    OdGePoint3d const at = vertex->position();
    if (at.z != elevation())
        vertex->setPosition({at.x, at.y, elevation()});
    if (defaultStartWidth() != 0 || defaultEndWidth() != 0)
        vertex->giveWidths(defaultStartWidth(), defaultEndWidth());
    return id;
}

void OdDb2dPolyline::copyPartsOf(OdDbObject const& source)
{
    // While copies are in no drawing they do not know from which polyline they have their widths.
    OdDbVertexSequence::copyPartsOf(source);
    if (defaultStartWidth() != 0 || defaultEndWidth() != 0)
        for (OdDb2dVertexPtr const vertex : openParts())
            vertex->giveWidths(defaultStartWidth(), defaultEndWidth());
}

OdGeVector3d OdDb2dPolyline::planeNormal() const
{
    return odDbSaneNormal(m_normal).normal();
}

OdGeMatrix3d OdDb2dPolyline::verticesToWorld() const
{
    return odDbPlaneToWorld(m_normal);
}

OdGePoint3d OdDb2dPolyline::vertexPosition(OdDb2dVertex const& vertex) const
{
    OdGePoint3d const at = vertex.position();
    return odDbToWorld({at.x, at.y, elevation()}, m_normal);
}

void OdDb2dPolyline::listProperties(OdDbPropertySink& sink) const
{
    sink.text(L"type", kTypeNames[polyType()]);
    sink.flag(L"closed", isClosed());
    if (isLinetypeGenerationOn())
        sink.flag(L"linetype generation", true);
    double length = 0, area = 0;
    if (getLength(length) == eOk)
        sink.distance(L"length", length);
    if (getArea(area) == eOk)
        sink.area(L"area", area);
    odDbListExtrusion(sink, m_normal, m_thickness);
    int number = 0;
    for (auto it = vertexIterator(); !it.done(); it.step()) {
        auto const& vertex = static_cast<OdDb2dVertex const&>(it.peek());
        sink.part(vertex.isControlVertex() ? L"control vertex" : L"vertex", ++number);
        vertex.listProperties(sink);
    }
}

void OdDb2dPolyline::audit(OdDbAuditInfo& info) const
{
    OdDbVertexSequence::audit(info);
    if (visibleChain().vertices.empty())
        info.reportUseless(*this, numParts() == 0 ? L"it has no vertices" : L"it has no vertices that are shown");
}
