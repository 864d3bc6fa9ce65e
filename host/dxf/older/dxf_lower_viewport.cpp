#include "host/dxf/older/dxf_lower_viewport.h"

#include "host/dxf/older/dxf_old_viewport.h"

namespace dxf {

namespace {

constexpr int kClipBoundary = 340;
constexpr int kInteger = 1070;

bool isOldGroup(int code)
{
    switch (code) {
    case 10:
    case 20:
    case 30:
    case 40:
    case 41:
    case 68:
    case 69:
    case 999: return true;
    default: return false;
    }
}

/// What a view has where the viewport does not say it.
double usualValue(int code)
{
    switch (code) {
    case 36: return 1;  // seen from above
    case 42: return 50; // lens length
    case 45: return 1;  // height
    case 72: return 100;
    default: return 0;
    }
}

void putView(TagSpan view, LegacyNames const& names, OdDbTagSink& sink)
{
    std::int64_t const flags = integerOf(view, kViewFlagsCode);
    sink.text(1000, kOldViewName);
    sink.text(1002, "{");
    sink.integer(kInteger, kOldViewVersion);
    for (OldViewItem const& item : oldViewItems()) {
        double const usual = usualValue(item.code);
        if (item.isFlag())
            sink.integer(kInteger, item.valueOf(flags));
        else if (item.extendedCode == kInteger)
            sink.integer(kInteger, integerOf(view, item.code, static_cast<std::int64_t>(usual)));
        else
            sink.real(item.extendedCode, realOf(view, item.code, usual));
    }
    sink.text(1002, "{");
    for (OdDbTag const& tag : view) {
        if (tag.code != kViewFrozenLayerCode)
            continue;
        std::string_view const layer = tag.kind == OdDbTagKind::kHandle
                                           ? names.ofRecord(OdDbTableKind::kLayer, tag.handle())
                                           : names.of(OdDbTableKind::kLayer, tag.text);
        if (!layer.empty())
            sink.text(1003, layer);
    }
    sink.text(1002, "}");
    sink.text(1002, "}");
}

/// The number of tags that a view list takes here; 0 for anything else.
std::size_t viewListSize(TagSpan tags)
{
    if (tags.size() < 2 || !tags[0].is(1000, kOldViewName) || !tags[1].is(1002, "{"))
        return 0;
    int depth = 0;
    for (std::size_t i = 1; i < tags.size() && tags[i].code != 1001; ++i) {
        depth += tags[i].is(1002, "{") ? 1 : tags[i].is(1002, "}") ? -1 : 0;
        if (depth == 0)
            return i + 1;
    }
    return 0;
}

} // namespace

bool hasOldView(TagSpan record)
{
    TagSpan const data = extendedDataOf(record);
    for (std::size_t i = 0; i < data.size(); ++i)
        if (viewListSize(data.subspan(i)) > 0)
            return !findTag(record, kViewFlagsCode);
    return false;
}

void putOldViewport(TagSpan record, LowerContext const& context, LegacyNames const& names, OdDbTagSink& sink)
{
    TagSpan const view = sectionOf(record, "AcDbViewport");
    for (OdDbTag const& tag : entityHeadOf(record))
        sink.put(tag);
    sink.text(100, "AcDbViewport");
    for (OdDbTag const& tag : view)
        if (isOldGroup(tag.code))
            sink.put(tag);
    if (OdDbTag const* const clip = findTag(view, kClipBoundary); clip && !clip->handle().isNull())
        context.noteLeftOut("VIEWPORT", L"a clipping boundary", ERelease::kR2000, handleOf(record));

    bool isPut = false;
    TagSpan const data = extendedDataOf(record);
    for (std::size_t i = 0; i < data.size(); ++i) {
        if (std::size_t const size = viewListSize(data.subspan(i)); size > 0) {
            i += size - 1;
            continue;
        }
        sink.put(data[i]);
        if (data[i].is(1001, kOldViewApplication) && !std::exchange(isPut, true))
            putView(view, names, sink);
    }
    if (!isPut) {
        sink.text(1001, kOldViewApplication);
        putView(view, names, sink);
    }
}

} // namespace dxf
