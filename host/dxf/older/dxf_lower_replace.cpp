#include "host/dxf/older/dxf_lower_replace.h"

#include "host/db/od_db_header.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/geom/od_ge_angle.h"

#include <array>
#include <cmath>

namespace dxf {

namespace {

/// Common groups that further records of a replacement share with the first.
bool isShared(int code)
{
    switch (code) {
    case 6:
    case 8:
    case 48:
    case 60:
    case 62:
    case 67:
    case 370:
    case 420: return true;
    default: return false;
    }
}

/// How far a line without end has to reach from its base to lie across the whole drawing.
double reachFrom(OdGePoint3d const& base, OdDbDatabase const& database)
{
    constexpr double kNowhere = 1e19;
    constexpr double kAnyReach = 1000;
    OdGePoint3d const low = database.header().point("EXTMIN");
    OdGePoint3d const high = database.header().point("EXTMAX");
    bool const isEmpty =
        low.x > high.x || low.y > high.y || std::abs(low.x) > kNowhere || std::abs(high.x) > kNowhere;
    return isEmpty ? kAnyReach : std::max(base.distanceTo(low), base.distanceTo(high)) + low.distanceTo(high);
}

bool putEndlessLine(TagSpan record, std::string_view marker, bool hasBothEnds, ReplacementTarget const& target)
{
    TagSpan const line = sectionOf(record, marker);
    OdGePoint3d const base = pointOf(line, 10);
    OdGeVector3d const direction = pointOf(line, 11).asVector().normal();
    if (!direction.isUnitLength())
        return false;
    OdGeVector3d const reach = direction * reachFrom(base, target.context.database);
    OdGePoint3d const start = hasBothEnds ? base - reach : base;
    OdGePoint3d const end = base + reach;
    if (!isFinite(start) || !isFinite(end))
        return false;
    putHead(record, "LINE", target.sink);
    target.sink.text(100, "AcDbLine");
    putPoint(10, start, target.sink);
    putPoint(11, end, target.sink);
    putAll(extendedDataOf(record), target.sink);
    return true;
}

bool putRay(TagSpan record, ReplacementTarget const& target)
{
    return putEndlessLine(record, "AcDbRay", false, target);
}

bool putXLine(TagSpan record, ReplacementTarget const& target)
{
    return putEndlessLine(record, "AcDbXline", true, target);
}

/// Tables and the newer dimensions draw themselves as a block.
bool putBlock(TagSpan record, ReplacementTarget const& target)
{
    TagSpan const dimension = sectionOf(record, "AcDbDimension");
    TagSpan const section = dimension.empty() ? sectionOf(record, "AcDbBlockReference") : dimension;
    std::string_view const block = textOf(section, 2);
    if (block.empty() ||
        target.context.database.table(OdDbTableKind::kBlock).getAt(OdString::fromUtf8(block)).isNull())
        return false;
    OdGePoint3d const across = pointOf(sectionOf(record, "AcDbTable"), 11, {1, 0, 0});
    putHead(record, "INSERT", target.sink);
    target.sink.text(100, "AcDbBlockReference");
    target.sink.text(2, block);
    putPoint(10, pointOf(section, dimension.empty() ? 10 : 12), target.sink);
    if (dimension.empty() && across.y != 0)
        target.sink.real(50, odgeToDegrees(std::atan2(across.y, across.x)));
    putNormal(normalOf(section), target.sink);
    putAll(extendedDataOf(record), target.sink);
    return true;
}

/// A helix holds the spline that shows it.
bool putHelix(TagSpan record, ReplacementTarget const& target)
{
    constexpr std::string_view kMarker = "AcDbSpline";
    TagSpan const spline = sectionOf(record, kMarker);
    if (target.context.target < ERelease::kR13 || spline.empty())
        return putSpline(record, target);
    putHead(record, "SPLINE", target.sink);
    target.sink.text(100, kMarker);
    putAll(spline, target.sink);
    putAll(extendedDataOf(record), target.sink);
    return true;
}

struct Replacement
{
    bool (*put)(TagSpan record, ReplacementTarget const& target);
    wchar_t const* name;
    wchar_t const* nameSinceR13 = name;
};

/// In the order of EReplacement.
// clang-format off
constexpr Replacement s_replacements[] = {
    {nullptr,           L""},
    {&putLightPolyline, L"POLYLINE"},
    {&putEllipse,       L"POLYLINE"},
    {&putSpline,        L"POLYLINE"},
    {&putHelix,         L"POLYLINE", L"SPLINE"},
    {&putLeader,        L"POLYLINE"},
    {&putParagraphs,    L"TEXT"},
    {&putRay,           L"LINE"},
    {&putXLine,         L"LINE"},
    {&putBlock,         L"INSERT"},
};
// clang-format on
static_assert(std::size(s_replacements) == static_cast<std::size_t>(EReplacement::kBlock) + 1);

} // namespace

bool isFinite(OdGePoint3d const& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool putReplacement(EReplacement how, TagSpan record, ReplacementTarget const& target)
{
    Replacement const& replacement = s_replacements[static_cast<std::size_t>(how)];
    return replacement.put && replacement.put(record, target);
}

wchar_t const* replacementName(EReplacement how, ERelease release)
{
    Replacement const& replacement = s_replacements[static_cast<std::size_t>(how)];
    return release >= ERelease::kR13 ? replacement.nameSinceR13 : replacement.name;
}

void putHead(TagSpan record, std::string_view type, OdDbTagSink& sink)
{
    sink.text(0, type);
    putAll(entityHeadOf(record).subspan(1), sink);
}

void putFurtherHead(TagSpan record, std::string_view type, OdDbHandle handle, OdDbHandle owner, OdDbTagSink& sink)
{
    sink.text(0, type);
    sink.handle(5, handle);
    sink.handle(330, owner);
    sink.text(100, "AcDbEntity");
    for (OdDbTag const& tag : sectionOf(record, "AcDbEntity"))
        if (isShared(tag.code))
            sink.put(tag);
}

void putAll(TagSpan tags, OdDbTagSink& sink)
{
    for (OdDbTag const& tag : tags)
        sink.put(tag);
}

void putPoint(int code, OdGePoint3d const& point, OdDbTagSink& sink)
{
    double const coordinates[] = {point.x, point.y, point.z};
    sink.point(code, coordinates, 3);
}

void putNormal(OdGeVector3d const& normal, OdDbTagSink& sink)
{
    if (normal.x != 0 || normal.y != 0 || normal.z != 1)
        putPoint(210, {normal.x, normal.y, normal.z}, sink);
}

OdDbHandle ownerOf(TagSpan record)
{
    bool isInBraces = false;
    for (OdDbTag const& tag : record) {
        if (tag.code == 102)
            isInBraces = tag.text.starts_with('{');
        if (tag.code == 100)
            break;
        if (tag.code == 330 && !isInBraces)
            return tag.handle();
    }
    return {};
}

OdGeVector3d normalOf(TagSpan section)
{
    OdGeVector3d const normal = pointOf(section, 210, {0, 0, 1}).asVector();
    // The length of a monstrous one is infinite, so that it has no direction either.
    return normal.normal().isZeroLength() ? OdGeVector3d::kZAxis : normal;
}

} // namespace dxf
