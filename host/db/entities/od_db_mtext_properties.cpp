// What users are told of a multiline text, and the point by which they stretch it.
#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_mtext.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/od_db_property_sink.h"

namespace {

wchar_t const* nameOf(OdDbMTextAttachment attachment)
{
    constexpr wchar_t const* kNames[] = {L"top left",    L"top center",    L"top right",
                                         L"middle left", L"middle center", L"middle right",
                                         L"bottom left", L"bottom center", L"bottom right"};
    return kNames[static_cast<std::size_t>(attachment) - 1];
}

} // namespace

void OdDbMText::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    points.push_back(m_location);
}

OdResult OdDbMText::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    return odDbStretchWhole(*this, indices, offset);
}

void OdDbMText::listProperties(OdDbPropertySink& sink) const
{
    sink.text(L"contents", m_contents);
    sink.reference(L"style", textStyle());
    sink.point(L"location", m_location);
    sink.text(L"attachment", nameOf(attachment()));
    sink.distance(L"text height", m_textHeight);
    sink.distance(L"width", m_width);
    sink.direction(L"rotation", rotation(), m_normal);
    sink.number(L"line spacing", m_lineSpacingFactor);
    odDbListExtrusion(sink, m_normal, 0);
}
