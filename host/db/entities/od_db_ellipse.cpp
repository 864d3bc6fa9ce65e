#include "host/db/entities/od_db_ellipse.h"

#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"

OD_DB_DEFINE_CLASS(OdDbEllipse, OdDbCurve, "ELLIPSE")

namespace {

/// Cosine of the angle between normal and major axis up to which they count as perpendicular.
constexpr double kPerpendicular = 1e-10;

void checkParam(double param)
{
    if (!std::isfinite(param))
        throw OdError(eOutOfRange, L"The parameter of an ellipse is not finite");
}

double checkedRatio(double ratio)
{
    if (!(ratio > 0 && ratio <= 1))
        throw OdError(eOutOfRange, odFormat(L"The radius ratio %g is not above 0 and at most 1", ratio));
    return ratio;
}

/// The major axis without its part along the unit normal.
OdGeVector3d axisAcross(OdGeVector3d const& axis, OdGeVector3d const& normal)
{
    double const along = axis.dotProduct(normal);
    double const length = axis.length();
    OdGeVector3d const across = std::abs(along) <= kPerpendicular * length ? axis : axis - normal * along;
    if (!(across.length() > kPerpendicular * length) || !std::isfinite(length))
        throw OdError(eDegenerateGeometry, L"The major axis of an ellipse has no length in its plane");
    return across;
}

} // namespace

double odDbEllipseSweep(double start, double end)
{
    // Files hold the full turn with as many digits as their writers liked.
    constexpr double kRounding = 1e-8;
    double const sweep = odgeSweep(start, end);
    bool const isTurn = sweep <= kRounding && std::abs(end - start) > OdaPI;
    return isTurn || sweep >= Oda2PI - kRounding ? Oda2PI : sweep;
}

OdDbFieldTable const& OdDbEllipse::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbEllipse::m_center>   (10, OdDbWriteRule::kAlways),
        odField<&OdDbEllipse::m_majorAxis>(11, OdDbWriteRule::kAlways),
        odField<&OdDbEllipse::m_normal>   (210),
        odField<&OdDbEllipse::m_ratio>    (40, OdDbWriteRule::kAlways),
        odField<&OdDbEllipse::m_start>    (41, OdDbWriteRule::kAlways),
        odField<&OdDbEllipse::m_end>      (42, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table({entitySection(), {"AcDbEllipse", s_fields}});
    return s_table;
}

OdDbEllipse::OdDbEllipse(OdGePoint3d const& center, OdGeVector3d const& normal, OdGeVector3d const& majorAxis,
                         double ratio, double start, double end)
{
    set(center, normal, majorAxis, ratio, start, end);
}

void OdDbEllipse::set(OdGePoint3d const& center, OdGeVector3d const& normal, OdGeVector3d const& majorAxis,
                      double ratio, double start, double end)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    OdGeVector3d const axis = axisAcross(majorAxis, unit);
    checkedRatio(ratio);
    checkParam(start);
    checkParam(end);
    assertWriteEnabled();
    m_center = center;
    m_normal = unit;
    m_majorAxis = axis;
    m_ratio = ratio;
    m_start = start;
    m_end = end;
}

void OdDbEllipse::setCenter(OdGePoint3d const& center)
{
    assertWriteEnabled();
    m_center = center;
}

void OdDbEllipse::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    OdGeVector3d const axis = axisAcross(m_majorAxis, unit);
    assertWriteEnabled();
    m_normal = unit;
    m_majorAxis = axis * odDbCleanFactor(m_majorAxis.length() / axis.length());
}

void OdDbEllipse::setMajorAxis(OdGeVector3d const& majorAxis)
{
    OdGeVector3d const axis = axisAcross(majorAxis, odDbSaneNormal(m_normal));
    assertWriteEnabled();
    m_majorAxis = axis;
}

OdGeVector3d OdDbEllipse::minorAxis() const
{
    double const length = m_majorAxis.length();
    OdGeVector3d const across = planeNormal().crossProduct(m_majorAxis);
    double const acrossLength = across.length();
    if (!(acrossLength > kPerpendicular * length))
        return {};
    return across * (radiusRatio() * odDbCleanFactor(length / acrossLength));
}

double OdDbEllipse::radiusRatio() const
{
    double const ratio = std::abs(m_ratio);
    return ratio > 0 && std::isfinite(ratio) ? ratio : kLeastRatio;
}

void OdDbEllipse::setRadiusRatio(double ratio)
{
    checkedRatio(ratio);
    assertWriteEnabled();
    m_ratio = ratio;
}

OdResult OdDbEllipse::getStartParam(double& param) const
{
    param = m_start;
    return eOk;
}

OdResult OdDbEllipse::getEndParam(double& param) const
{
    param = m_end;
    return eOk;
}

void OdDbEllipse::setStartParam(double param)
{
    checkParam(param);
    assertWriteEnabled();
    m_start = param;
}

void OdDbEllipse::setEndParam(double param)
{
    checkParam(param);
    assertWriteEnabled();
    m_end = param;
}

bool OdDbEllipse::isClosed() const
{
    return sweep() == Oda2PI;
}

std::unique_ptr<OdGeCurve3d> OdDbEllipse::getOdGeCurve() const
{
    try {
        return std::make_unique<OdGeEllipArc3d>(m_center, m_majorAxis, minorAxis(), m_start, m_start + sweep());
    } catch (OdError const&) {
        return nullptr; // axes that span no area, parameters beyond measure
    }
}

OdGeVector3d OdDbEllipse::planeNormal() const
{
    return odDbSaneNormal(m_normal).normal();
}

OdResult OdDbEllipse::reverseCurve()
{
    assertWriteEnabled();
    m_normal = -odDbSaneNormal(m_normal);
    m_start = Oda2PI - std::exchange(m_end, Oda2PI - m_start);
    return eOk;
}

OdResult OdDbEllipse::transformBy(OdGeMatrix3d const& transformation)
{
    if (odDbIsTranslation(transformation)) {
        assertWriteEnabled();
        m_center = transformation * m_center;
        return eOk;
    }
    std::unique_ptr<OdGeCurve3d> const curve = getOdGeCurve();
    if (!curve)
        return eDegenerateGeometry;
    auto image = static_cast<OdGeEllipArc3d const&>(*curve);
    double const start = image.startParam();
    try {
        image.transformBy(transformation);
    } catch (OdError const&) {
        return eDegenerateGeometry;
    }
    image.orderAxes();
    // The normal stays on the side to which it was carried; a mirrored ellipse runs the other way then.
    if (image.normal().dotProduct(transformation * planeNormal()) < 0)
        image.reverseParam();
    assertWriteEnabled();
    takeImage(image, start);
    return eOk;
}

void OdDbEllipse::takeImage(OdGeEllipArc3d const& image, double startBefore)
{
    double const ratio = radiusRatio();
    double const imageRatio = std::min(image.minorRadius() / image.majorRadius(), 1.0);
    if (!isClosed() && image.startParam() != startBefore) {
        m_start = odgeFoldAngle(image.startParam());
        m_end = m_start + (image.endParam() - image.startParam());
    }
    m_center = image.center();
    m_majorAxis = image.majorAxis();
    m_ratio = std::min(ratio * odDbCleanFactor(imageRatio / ratio), 1.0);
    m_normal = odDbCleanDirection(image.normal(), m_normal);
}

void OdDbEllipse::outline(OdDbOutlineSink& sink) const
{
    if (std::unique_ptr<OdGeCurve3d> const curve = getOdGeCurve())
        sink.arc(static_cast<OdGeEllipArc3d const&>(*curve).ellipticArc());
    else // what is left of a damaged one
        sink.segment(m_center - m_majorAxis, m_center + m_majorAxis);
}

void OdDbEllipse::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    points.push_back(m_center);
}

OdResult OdDbEllipse::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    return odDbStretchWhole(*this, indices, offset);
}

void OdDbEllipse::listProperties(OdDbPropertySink& sink) const
{
    sink.point(L"center", m_center);
    sink.vector(L"major axis", m_majorAxis);
    sink.vector(L"minor axis", minorAxis());
    sink.number(L"radius ratio", radiusRatio());
    if (!isClosed()) {
        OdGePoint3d point;
        if (getStartPoint(point) == eOk)
            sink.point(L"start point", point);
        if (getEndPoint(point) == eOk)
            sink.point(L"end point", point);
        sink.angle(L"start parameter", m_start);
        sink.angle(L"end parameter", m_end);
    }
    double size = 0;
    if (getLength(size) == eOk)
        sink.distance(isClosed() ? L"circumference" : L"length", size);
    if (getArea(size) == eOk)
        sink.area(L"area", size);
    odDbListExtrusion(sink, m_normal, 0);
}
