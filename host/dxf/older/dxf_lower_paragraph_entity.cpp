// MTEXT as one TEXT for each line.
#include "host/db/entities/od_db_text_metrics.h"
#include "host/db/od_db_angle.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/db/records/od_db_text_style_table_record.h"
#include "host/dxf/older/dxf_lower_paragraphs.h"
#include "host/dxf/older/dxf_lower_replace.h"
#include "host/geom/od_ge_matrix3d.h"

#include <algorithm>
#include <cmath>

namespace dxf {

namespace {

constexpr double kLineDistance = 5.0 / 3.0; // of lines with spacing 1, in heights

/// What the lines of one MTEXT have in common, in the coordinates of their plane.
struct Layout
{
    OdGePoint3d anchor;
    OdGeVector3d normal;
    double angle;
    double height;
    double distance;
    double widthFactor;
    OdDbTextHorizontalMode horizontal;
    int row; ///< 0: the anchor is at the top, 1: in the middle, 2: at the bottom
    std::string_view style;
};

double widthFactorOf(OdDbDatabase const& database, std::string_view style)
{
    OdDbObjectId const id = database.table(OdDbTableKind::kTextStyle).getAt(OdString::fromUtf8(style));
    auto const record =
        id.isErased() ? OdSmartPtr<OdDbTextStyleTableRecord>() : id.open<OdDbTextStyleTableRecord>();
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
    layout.height = realOf(section, 40, 1);
    layout.distance = layout.height * kLineDistance * realOf(section, 44, 1);
    layout.style = textOf(section, 7);
    layout.widthFactor = widthFactorOf(database, layout.style);
    auto const attachment = std::clamp<std::int64_t>(integerOf(section, 71, 1), 1, 9) - 1;
    layout.horizontal = static_cast<OdDbTextHorizontalMode>(attachment % 3);
    layout.row = static_cast<int>(attachment / 3);
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

/// The line broken where it is wider than the frame; words stay whole.
void breakLine(OdString const& line, double width, Layout const& layout, std::vector<OdString>& lines)
{
    std::wstring const& text = line.str();
    std::wstring current;
    for (std::size_t from = 0; from <= text.size();) {
        std::size_t const end = std::min(text.find(L' ', from), text.size());
        std::wstring const word = text.substr(from, end - from);
        std::wstring const longer = from == 0 ? word : current + L' ' + word;
        bool const fits =
            width <= 0 || odDbTextWidth(OdString(longer), layout.height, layout.widthFactor) <= width;
        if (fits || current.empty()) {
            current = longer;
        } else {
            lines.emplace_back(current);
            current = word;
        }
        from = end + 1;
    }
    lines.emplace_back(current);
}

void putLine(OdString const& line, std::size_t number, std::size_t count, Layout const& layout, OdDbTagSink& sink)
{
    double const block = layout.height + layout.distance * static_cast<double>(count - 1);
    double const top = block * layout.row / 2 - layout.distance * static_cast<double>(number);
    double const width = odDbTextWidth(line, layout.height, layout.widthFactor);
    OdGeVector2d const toAnchor =
        odDbTextAnchor(layout.horizontal, OdDbTextVerticalMode::kTop, width, layout.height);
    OdGeVector3d const right(std::cos(layout.angle), std::sin(layout.angle), 0);
    OdGeVector3d const up(-right.y, right.x, 0);
    OdGePoint3d const anchor = layout.anchor + up * top;

    sink.text(100, "AcDbText");
    putPoint(10, anchor - right * toAnchor.x - up * toAnchor.y, sink);
    sink.real(40, layout.height);
    sink.text(1, line);
    if (layout.angle != 0)
        sink.real(50, odgeToDegrees(layout.angle));
    if (layout.widthFactor != 1)
        sink.real(41, layout.widthFactor);
    if (!layout.style.empty())
        sink.text(7, layout.style);
    sink.integer(72, static_cast<std::int64_t>(layout.horizontal));
    putPoint(11, anchor, sink);
    putNormal(layout.normal, sink);
    sink.text(100, "AcDbText");
    sink.integer(73, static_cast<std::int64_t>(OdDbTextVerticalMode::kTop));
}

} // namespace

bool putParagraphs(TagSpan record, ReplacementTarget const& target)
{
    TagSpan const section = sectionOf(record, "AcDbMText");
    Layout const layout = layoutOf(section, target.context.database);
    std::vector<OdString> lines;
    for (OdString const& line : plainLines(OdString::fromUtf8(contentOf(section))))
        breakLine(line, realOf(section, 41), layout, lines);
    bool isFirst = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].isEmpty())
            continue; // keeps its place
        if (isFirst)
            putHead(record, "TEXT", target.sink);
        else
            putFurtherHead(record, "TEXT", target.handles.take(), ownerOf(record), target.sink);
        putLine(lines[i], i, lines.size(), layout, target.sink);
        if (std::exchange(isFirst, false))
            putAll(extendedDataOf(record), target.sink);
    }
    return !isFirst;
}

} // namespace dxf
