// What users are told of a text, and the point by which they stretch it.
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/od_db_property_sink.h"

namespace {

wchar_t const* nameOf(OdDbTextHorizontalMode mode)
{
    constexpr wchar_t const* kNames[] = {L"left", L"center", L"right", L"aligned", L"middle", L"fit"};
    return kNames[static_cast<std::size_t>(mode)];
}

wchar_t const* nameOf(OdDbTextVerticalMode mode)
{
    constexpr wchar_t const* kNames[] = {L"baseline", L"bottom", L"middle", L"top"};
    return kNames[static_cast<std::size_t>(mode)];
}

} // namespace

void OdDbText::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    points.push_back(isDefaultAlignment() || runsBetweenPoints() ? position() : alignmentPoint());
}

OdResult OdDbText::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    return odDbStretchWhole(*this, indices, offset);
}

void OdDbText::listProperties(OdDbPropertySink& sink) const
{
    sink.text(L"text", m_text);
    sink.reference(L"style", textStyle());
    sink.point(L"position", position());
    if (!isDefaultAlignment()) {
        sink.point(L"alignment point", alignmentPoint());
        sink.text(L"horizontal alignment", nameOf(horizontalMode()));
        sink.text(L"vertical alignment", nameOf(verticalMode()));
    }
    sink.distance(L"height", m_height);
    sink.direction(L"rotation", rotation(), m_normal);
    sink.number(L"width factor", m_widthFactor);
    sink.angle(L"oblique angle", oblique());
    if (isMirroredInX())
        sink.flag(L"backwards", true);
    if (isMirroredInY())
        sink.flag(L"upside down", true);
    odDbListExtrusion(sink, m_normal, m_thickness);
}
