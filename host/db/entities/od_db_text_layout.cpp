// The geometry of a text: frame, position after a change, transformation.
//
// A point (x, y) of the line, counted from the start of the baseline, leans by the oblique angle, is moved so that
// the anchor comes to the origin, mirrored by the flags, turned by the rotation and moved to the anchor point.
#include "host/db/entities/od_db_plane_transform.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/entities/od_db_transform.h"

namespace {

OdGeVector2d turned(OdGeVector2d const& v, double angle)
{
    double const cosine = std::cos(angle);
    double const sine = std::sin(angle);
    return {cosine * v.x - sine * v.y, sine * v.x + cosine * v.y};
}

OdGePoint3d moved(OdGePoint3d const& point, OdGeVector2d const& by)
{
    return {point.x + by.x, point.y + by.y, point.z};
}

double slopeOf(double oblique)
{
    double const cosine = std::cos(oblique);
    return std::abs(cosine) > 1e-6 ? std::sin(oblique) / cosine : 0.0;
}

} // namespace

/// What a transformation changes.
struct OdDbText::Layout
{
    OdDbPlaneTransform plane;
    OdDbAngle rotation;
    OdDbAngle oblique;
    double height;
    double widthFactor;
    std::int16_t generation;
};

bool OdDbText::runsBetweenPoints() const
{
    OdDbTextHorizontalMode const mode = horizontalMode();
    return mode == OdDbTextHorizontalMode::kAligned || mode == OdDbTextHorizontalMode::kFit;
}

OdGeVector2d OdDbText::mirrorSigns() const
{
    // Between two points the room stays the same when the text is read the other way.
    return {isMirroredInX() && !runsBetweenPoints() ? -1.0 : 1.0, isMirroredInY() ? -1.0 : 1.0};
}

void OdDbText::adjustPosition()
{
    if (isDefaultAlignment() || runsBetweenPoints())
        return;
    OdGeVector2d const anchor =
        odDbTextAnchor(horizontalMode(), verticalMode(), odDbTextWidth(m_text, m_height, m_widthFactor), m_height);
    OdGeVector2d const signs = mirrorSigns();
    m_position = moved(m_alignment, turned({-anchor.x * signs.x, -anchor.y * signs.y}, rotation()));
}

void OdDbText::outline(OdDbOutlineSink& sink) const
{
    outlineOf(m_text, sink);
}

void OdDbText::outlineOf(OdString const& shown, OdDbOutlineSink& sink) const
{
    double width = odDbTextWidth(shown, m_height, m_widthFactor);
    double height = m_height;
    double angle = rotation();
    OdGeVector2d const run = (m_alignment - m_position).convert2d();
    if (runsBetweenPoints() && !run.isZeroLength() && width > 0) {
        if (horizontalMode() == OdDbTextHorizontalMode::kAligned)
            height *= run.length() / width;
        width = run.length();
        angle = run.angle();
    }
    OdGePoint3d const& anchorPoint = isDefaultAlignment() || runsBetweenPoints() ? m_position : m_alignment;
    if (!(width > 0)) {
        sink.point(odDbToWorld(anchorPoint, m_normal));
        return;
    }
    OdGeVector2d const anchor = odDbTextAnchor(horizontalMode(), verticalMode(), width, height);
    OdGeVector2d const signs = mirrorSigns();
    double const slope = slopeOf(oblique());
    OdGeMatrix3d const toWorld = odDbPlaneToWorld(m_normal);
    auto const corner = [&](double x, double y) {
        OdGeVector2d const local{(x + slope * y - anchor.x) * signs.x, (y - anchor.y) * signs.y};
        return toWorld * moved(anchorPoint, turned(local, angle));
    };
    sink.polygon(std::array{corner(0, 0), corner(width, 0), corner(width, height), corner(0, height)});
}

std::optional<OdDbText::Layout> OdDbText::layoutAfter(OdGeMatrix3d const& transformation) const
{
    auto const plane = OdDbPlaneTransform::make(transformation, m_normal);
    if (!plane || (m_thickness != 0 && !plane->keepsExtrusion()))
        return std::nullopt;
    Layout after{*plane, *plane * m_rotation, m_oblique, m_height * plane->scale(), m_widthFactor, m_generation};
    if (plane->keepsShape() && !plane->mirrors())
        return after;
    // The images of the line's length and of the direction in which its characters stand, both without the
    // mirroring of the flags, split into a new direction along the line and one across it.
    OdGeVector2d const signs = mirrorSigns();
    double const angle = rotation();
    OdGeVector2d const along = *plane * turned({signs.x * m_widthFactor * m_height, 0}, angle);
    OdGeVector2d const up = *plane * turned({signs.x * slopeOf(oblique()) * m_height, signs.y * m_height}, angle);
    OdGeVector2d const direction = along / along.length();
    double const across = direction.crossProduct(up);
    if (!(std::abs(across) > 0) || !std::isfinite(across))
        return std::nullopt;
    if (!plane->keepsShape()) {
        after.height = std::abs(across);
        after.widthFactor = along.length() / after.height;
        after.oblique = OdDbAngle::ofRadians(std::atan2(direction.dotProduct(up), after.height));
    }
    OdGeVector2d axis = direction * signs.x;
    if (plane->mirrors()) {
        bool const keepsAxis = runsBetweenPoints() || axis.dotProduct(turned(OdGeVector2d::kXAxis, angle)) >= 0;
        after.generation = static_cast<std::int16_t>(m_generation ^ (keepsAxis ? kMirroredInY : kMirroredInX));
        axis = keepsAxis ? axis : -axis;
    }
    after.rotation = OdDbAngle::ofRadians(axis.angle());
    return after;
}

bool OdDbText::canTransformBy(OdGeMatrix3d const& transformation) const
{
    return layoutAfter(transformation).has_value();
}

OdResult OdDbText::transformBy(OdGeMatrix3d const& transformation)
{
    auto const after = layoutAfter(transformation);
    if (!after)
        return eDegenerateGeometry;
    assertWriteEnabled();
    m_position = after->plane * m_position;
    bool const hasAlignment = !isDefaultAlignment() || m_alignment.asVector().lengthSqrd() != 0;
    if (hasAlignment)
        m_alignment = after->plane * m_alignment;
    m_normal = after->plane.normal();
    m_thickness *= after->plane.extrusionScale();
    m_rotation = after->rotation;
    m_oblique = after->oblique;
    m_height = after->height;
    m_widthFactor = after->widthFactor;
    m_generation = after->generation;
    return eOk;
}
