#include "host/db/entities/od_db_2d_vertex.h"

#include "host/db/entities/od_db_2d_polyline.h"
#include "host/db/od_db_property_sink.h"

namespace {

constexpr std::int16_t kCurveFitFlag = 1;
constexpr std::int16_t kTangentFlag = 2;

bool isPartOf2dPolyline(OdDbTagList const&, OdDbObject const* whole)
{
    return whole && odCast<OdDb2dPolyline>(whole);
}

double checkedWidth(double width)
{
    if (!(width >= 0) || !std::isfinite(width))
        throw OdError(eOutOfRange, odFormat(L"The width %g is negative", width));
    return width;
}

OdDb2dPolyline const* polylineOf(OdDb2dVertex const& vertex)
{
    OdDbObjectId const owner = vertex.ownerId();
    return owner.isValid() ? odCast<OdDb2dPolyline>(static_cast<OdDbObject const*>(owner.stub()->object))
                           : nullptr;
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDb2dVertex, OdDbVertex, "VERTEX", &isPartOf2dPolyline)

OdDbFieldTable const& OdDb2dVertex::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDb2dVertex::m_position>  (10, OdDbWriteRule::kAlways),
        odField<&OdDb2dVertex::m_startWidth>(40),
        odField<&OdDb2dVertex::m_endWidth>  (41),
        odField<&OdDb2dVertex::m_bulge>     (42),
        odField<&OdDb2dVertex::m_flags>     (70),
        odField<&OdDb2dVertex::m_tangent>   (50),
        odField<&OdDb2dVertex::m_identifier>(91),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {entitySection(),
         vertexSection(),
         {.marker = "AcDb2dVertex", .fields = s_fields, .otherMarkers = allMarkers()}});
    return s_table;
}

OdDb2dVertex::OdDb2dVertex(OdGePoint3d const& position, double bulge, double startWidth, double endWidth)
    : OdDbVertex(0, position), m_startWidth(startWidth), m_endWidth(endWidth), m_bulge(bulge)
{
}

OdDb::Vertex2dType OdDb2dVertex::vertexType() const
{
    return isControlVertex()                ? OdDb::k2dSplineCtlVertex
           : (m_flags & kFitFlag) != 0      ? OdDb::k2dSplineFitVertex
           : (m_flags & kCurveFitFlag) != 0 ? OdDb::k2dCurveFitVertex
                                            : OdDb::k2dVertex;
}

void OdDb2dVertex::setVertexType(OdDb::Vertex2dType type)
{
    setFlag(kControlFlag, type == OdDb::k2dSplineCtlVertex);
    setFlag(kFitFlag, type == OdDb::k2dSplineFitVertex);
    setFlag(kCurveFitFlag, type == OdDb::k2dCurveFitVertex);
}

double OdDb2dVertex::startWidth() const
{
    OdDb2dPolyline const* const polyline = polylineOf(*this);
    return startWidthOr(polyline ? polyline->defaultStartWidth() : 0);
}

double OdDb2dVertex::endWidth() const
{
    OdDb2dPolyline const* const polyline = polylineOf(*this);
    return endWidthOr(polyline ? polyline->defaultEndWidth() : 0);
}

void OdDb2dVertex::setStartWidth(double width)
{
    double const checked = checkedWidth(width);
    assertWriteEnabled();
    m_startWidth = checked;
}

void OdDb2dVertex::setEndWidth(double width)
{
    double const checked = checkedWidth(width);
    assertWriteEnabled();
    m_endWidth = checked;
}

void OdDb2dVertex::setBulge(double bulge)
{
    assertWriteEnabled();
    m_bulge = bulge;
}

bool OdDb2dVertex::isTangentUsed() const
{
    return (m_flags & kTangentFlag) != 0;
}

void OdDb2dVertex::setTangent(double angle)
{
    setFlag(kTangentFlag, true);
    m_tangent = OdDbAngle::ofRadians(angle);
}

void OdDb2dVertex::clearTangent()
{
    setFlag(kTangentFlag, false);
    m_tangent = {};
}

void OdDb2dVertex::setVertexIdentifier(int identifier)
{
    assertWriteEnabled();
    m_identifier = identifier;
}

OdResult OdDb2dVertex::transformBy(OdGeMatrix3d const&)
{
    return eNotApplicable;
}

void OdDb2dVertex::moveInPlane(OdDbPlaneTransform const& plane)
{
    assertWriteEnabled();
    m_position = plane * m_position;
    if (plane.mirrors() && m_bulge != 0)
        m_bulge = -m_bulge;
    if (plane.keepsShape()) {
        for (double* const width : {&m_startWidth, &m_endWidth})
            if (*width > 0)
                *width *= plane.scale();
        if (isTangentUsed())
            m_tangent = plane * m_tangent;
    } else if (isTangentUsed()) {
        double const angle = m_tangent.radians();
        m_tangent = OdDbAngle::ofRadians((plane * OdGeVector2d(std::cos(angle), std::sin(angle))).angle());
    }
}

void OdDb2dVertex::giveWidths(double startWidth, double endWidth)
{
    assertWriteEnabled();
    m_startWidth = startWidthOr(startWidth);
    m_endWidth = endWidthOr(endWidth);
}

void OdDb2dVertex::takeReversed(OdDb2dVertex const& place, OdDb2dVertex const& leaving)
{
    assertWriteEnabled();
    m_position = place.m_position;
    m_flags = place.m_flags;
    m_tangent =
        place.isTangentUsed() ? OdDbAngle::ofRadians(odgeFoldAngle(place.tangent() + OdaPI)) : place.m_tangent;
    m_identifier = place.m_identifier;
    m_startWidth = leaving.m_endWidth;
    m_endWidth = leaving.m_startWidth;
    m_bulge = leaving.m_bulge == 0 ? leaving.m_bulge : -leaving.m_bulge;
}

void OdDb2dVertex::forgetFitting()
{
    setVertexType(OdDb::k2dVertex);
    m_bulge = 0;
}

void OdDb2dVertex::listProperties(OdDbPropertySink& sink) const
{
    OdDb2dPolyline const* const polyline = polylineOf(*this);
    sink.point(L"position", polyline ? polyline->vertexPosition(*this) : position());
    if (m_bulge != 0)
        sink.number(L"bulge", m_bulge);
    if (startWidth() != 0 || endWidth() != 0) {
        sink.distance(L"start width", startWidth());
        sink.distance(L"end width", endWidth());
    }
    if (isTangentUsed())
        sink.angle(L"tangent direction", tangent());
}
