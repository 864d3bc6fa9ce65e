#pragma once

#include "host/db/filer/od_db_tag.h"
#include "host/geom/od_ge_3d.h"

#include <array>
#include <memory_resource>
#include <span>
#include <vector>

// One record of a drawing on its way into an older release, and how its values are found.

namespace dxf {

using TagSpan = std::span<OdDbTag const>;

/// The tags of one record with copies of their texts.
class LowerRecord final : public OdDbTagSink
{
public:
    LowerRecord() { m_tags.reserve(64); }

    void put(OdDbTag const& tag) override;
    void clear();
    bool empty() const { return m_tags.empty(); }
    TagSpan tags() const { return m_tags; }
    /// A copy of the text that lasts until clear().
    std::string_view keep(std::string_view text);

private:
    static constexpr std::size_t kUsualText = 8 * 1024; // bigger records take memory of their own

    std::vector<OdDbTag> m_tags;
    std::array<char, kUsualText> m_buffer;
    std::pmr::monotonic_buffer_resource m_texts{m_buffer.data(), m_buffer.size()};
};

/// The text of the first tag: the type of the record.
std::string_view typeOf(TagSpan record);
/// The handle of the record; null when it has none.
OdDbHandle handleOf(TagSpan record);
/// From the first extended data on.
TagSpan extendedDataOf(TagSpan record);
/// Everything before the section of the class itself: type, handle, owner and what all entities have.
TagSpan entityHeadOf(TagSpan record);
/// The tags behind a subclass marker up to the next one; empty when the record does not have it.
TagSpan sectionOf(TagSpan record, std::string_view marker);

OdDbTag const* findTag(TagSpan tags, int code);
double realOf(TagSpan tags, int code, double fallback = 0);
std::int64_t integerOf(TagSpan tags, int code, std::int64_t fallback = 0);
std::string_view textOf(TagSpan tags, int code);
OdGePoint3d pointOf(TagSpan tags, int code, OdGePoint3d const& fallback = {});
/// All points of a code, in order.
std::vector<OdGePoint3d> pointsOf(TagSpan tags, int code);
std::vector<double> realsOf(TagSpan tags, int code);

} // namespace dxf
