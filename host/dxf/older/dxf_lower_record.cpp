#include "host/dxf/older/dxf_lower_record.h"

#include <algorithm>

namespace dxf {

namespace {

constexpr int kMarker = 100;
constexpr int kEmbeddedObject = 101;
constexpr int kExtendedData = 1000;

bool endsSection(OdDbTag const& tag)
{
    return tag.code == kMarker || tag.code == kEmbeddedObject || tag.code >= kExtendedData;
}

} // namespace

void LowerRecord::put(OdDbTag const& tag)
{
    m_tags.push_back(tag);
    if (!tag.text.empty())
        m_tags.back().text = keep(tag.text);
}

void LowerRecord::clear()
{
    m_tags.clear();
    m_texts.release();
}

std::string_view LowerRecord::keep(std::string_view text)
{
    auto* const copy = static_cast<char*>(m_texts.allocate(std::max<std::size_t>(text.size(), 1), 1));
    std::copy(text.begin(), text.end(), copy);
    return {copy, text.size()};
}

std::string_view typeOf(TagSpan record)
{
    return record.empty() ? std::string_view() : record.front().text;
}

OdDbHandle handleOf(TagSpan record)
{
    for (OdDbTag const& tag : record) {
        if ((tag.code == 5 || tag.code == 105) && tag.kind == OdDbTagKind::kHandle)
            return tag.handle();
        if (tag.code == kMarker)
            break;
    }
    return {};
}

TagSpan extendedDataOf(TagSpan record)
{
    auto const it =
        std::find_if(record.begin(), record.end(), [](OdDbTag const& tag) { return tag.code >= kExtendedData; });
    return record.subspan(static_cast<std::size_t>(it - record.begin()));
}

TagSpan entityHeadOf(TagSpan record)
{
    std::size_t end = 0;
    while (end < record.size() && record[end].code < kExtendedData &&
           (record[end].code != kMarker || record[end].text == "AcDbEntity"))
        ++end;
    return record.first(end);
}

TagSpan sectionOf(TagSpan record, std::string_view marker)
{
    auto const at = std::find_if(record.begin(), record.end(),
                                 [marker](OdDbTag const& tag) { return tag.is(kMarker, marker); });
    if (at == record.end())
        return {};
    return {at + 1, std::find_if(at + 1, record.end(), &endsSection)};
}

OdDbTag const* findTag(TagSpan tags, int code)
{
    auto const it =
        std::find_if(tags.begin(), tags.end(), [code](OdDbTag const& tag) { return tag.code == code; });
    return it == tags.end() ? nullptr : &*it;
}

double realOf(TagSpan tags, int code, double fallback)
{
    OdDbTag const* const tag = findTag(tags, code);
    return tag && tag->kind == OdDbTagKind::kReal ? tag->real : fallback;
}

std::int64_t integerOf(TagSpan tags, int code, std::int64_t fallback)
{
    OdDbTag const* const tag = findTag(tags, code);
    return tag && tag->kind == OdDbTagKind::kInteger ? tag->integer : fallback;
}

std::string_view textOf(TagSpan tags, int code)
{
    OdDbTag const* const tag = findTag(tags, code);
    return tag && tag->kind == OdDbTagKind::kText ? tag->text : std::string_view();
}

OdGePoint3d pointOf(TagSpan tags, int code, OdGePoint3d const& fallback)
{
    return {realOf(tags, code, fallback.x), realOf(tags, code + 10, fallback.y),
            realOf(tags, code + 20, fallback.z)};
}

std::vector<OdGePoint3d> pointsOf(TagSpan tags, int code)
{
    std::vector<OdGePoint3d> points;
    for (OdDbTag const& tag : tags) {
        if (tag.kind != OdDbTagKind::kReal)
            continue;
        if (tag.code == code)
            points.emplace_back(tag.real, 0, 0);
        else if (tag.code == code + 10 && !points.empty())
            points.back().y = tag.real;
        else if (tag.code == code + 20 && !points.empty())
            points.back().z = tag.real;
    }
    return points;
}

std::vector<double> realsOf(TagSpan tags, int code)
{
    std::vector<double> values;
    for (OdDbTag const& tag : tags)
        if (tag.code == code && tag.kind == OdDbTagKind::kReal)
            values.push_back(tag.real);
    return values;
}

} // namespace dxf
