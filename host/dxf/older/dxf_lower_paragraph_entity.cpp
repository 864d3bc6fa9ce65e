// MTEXT as one TEXT for each line.
#include "host/db/entities/od_db_paragraph.h"
#include "host/db/od_db_angle.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/db/records/od_db_text_style_table_record.h"
#include "host/dxf/older/dxf_lower_replace.h"
#include "host/geom/od_ge_matrix3d.h"

#include <algorithm>
#include <cmath>

namespace dxf {

namespace {

using enum OdDbTextVerticalMode;
constexpr OdDbTextVerticalMode kRows[] = {kTop, kMiddle, kBottom}; // of the attachment points

/// What the lines of one MTEXT have in common, in the coordinates of their plane.
struct Layout
{
    OdGePoint3d anchor;
    OdGeVector3d normal;
    double angle;
    std::string_view style;
    OdDbParagraph paragraph;
};

double widthFactorOf(OdDbDatabase const& database, std::string_view style)
{
    OdDbObjectId const id = database.table(OdDbTableKind::kTextStyle).getAt(OdString::fromUtf8(style));
    OdDbTextStyleTableRecordPtr const record = odDbTextStyleOf(id);
    return record ? record->xScale() : 1;
}

Layout layoutOf(TagSpan section, OdDbDatabase const& database)
{
    Layout layout;
    layout.normal = normalOf(section);
    OdGeMatrix3d const toPlane = OdGeMatrix3d::worldToPlane(layout.normal);
    layout.anchor = toPlane * pointOf(section, 10);
    layout.angle = odgeToRadians(realOf(section, 50));
    if (findTag(section, 11)) {
        OdGeVector3d const direction = toPlane * pointOf(section, 11).asVector();
        if (direction.x != 0 || direction.y != 0)
            layout.angle = std::atan2(direction.y, direction.x);
    }
    layout.style = textOf(section, 7);
    auto const attachment = std::clamp<std::int64_t>(integerOf(section, 71, 1), 1, 9) - 1;
    layout.paragraph = {.height = realOf(section, 40, 1),
                        .widthFactor = widthFactorOf(database, layout.style),
                        .frameWidth = realOf(section, 41),
                        .lineSpacing = realOf(section, 44, 1),
                        .horizontal = static_cast<OdDbTextHorizontalMode>(attachment % 3),
                        .vertical = kRows[attachment / 3]};
    return layout;
}

std::string contentOf(TagSpan section)
{
    std::string content;
    for (OdDbTag const& tag : section)
        if ((tag.code == 1 || tag.code == 3) && tag.kind == OdDbTagKind::kText)
            content += tag.text;
    return content;
}

/// A line of text where it goes, in the coordinates of the plane.
struct PlacedLine
{
    OdString text;
    OdGePoint3d start; ///< of the baseline
    OdGePoint3d anchor;
};

/// The lines that are not empty, which keep their place; none where a place goes beyond all numbers.
std::vector<PlacedLine> placedLines(OdString const& contents, Layout const& layout)
{
    OdDbParagraph const& paragraph = layout.paragraph;
    OdGeVector3d const right(std::cos(layout.angle), std::sin(layout.angle), 0);
    OdGeVector3d const up(-right.y, right.x, 0);
    std::vector<PlacedLine> placed;
    for (OdDbParagraph::Line const& line : paragraph.lines(contents)) {
        if (line.text.isEmpty())
            continue;
        OdGeVector2d const toAnchor =
            odDbTextAnchor(paragraph.horizontal, OdDbTextVerticalMode::kTop, line.width, paragraph.height);
        OdGePoint3d const anchor = layout.anchor + up * line.top;
        OdGePoint3d const start = anchor - right * toAnchor.x - up * toAnchor.y;
        if (!isFinite(anchor) || !isFinite(start))
            return {};
        placed.push_back({line.text, start, anchor});
    }
    return placed;
}

void putLine(PlacedLine const& line, Layout const& layout, OdDbTagSink& sink)
{
    OdDbParagraph const& paragraph = layout.paragraph;
    sink.text(100, "AcDbText");
    putPoint(10, line.start, sink);
    sink.real(40, paragraph.height);
    sink.text(1, line.text);
    if (layout.angle != 0)
        sink.real(50, odgeToDegrees(layout.angle));
    if (paragraph.widthFactor != 1)
        sink.real(41, paragraph.widthFactor);
    if (!layout.style.empty())
        sink.text(7, layout.style);
    sink.integer(72, static_cast<std::int64_t>(paragraph.horizontal));
    putPoint(11, line.anchor, sink);
    putNormal(layout.normal, sink);
    sink.text(100, "AcDbText");
    sink.integer(73, static_cast<std::int64_t>(OdDbTextVerticalMode::kTop));
}

} // namespace

bool putParagraphs(TagSpan record, ReplacementTarget const& target)
{
    TagSpan const section = sectionOf(record, "AcDbMText");
    Layout const layout = layoutOf(section, target.context.database);
    bool isFirst = true;
    for (PlacedLine const& line : placedLines(OdString::fromUtf8(contentOf(section)), layout)) {
        if (isFirst)
            putHead(record, "TEXT", target.sink);
        else
            putFurtherHead(record, "TEXT", target.handles.take(), ownerOf(record), target.sink);
        putLine(line, layout, target.sink);
        if (std::exchange(isFirst, false))
            putAll(extendedDataOf(record), target.sink);
    }
    return !isFirst;
}

} // namespace dxf
