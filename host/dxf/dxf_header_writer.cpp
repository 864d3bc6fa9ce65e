#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_table_kinds.h"
#include "host/dxf/dxf_current_records.h"
#include "host/dxf/dxf_release.h"
#include "host/dxf/dxf_section_writers.h"

#include <unordered_set>

namespace dxf {

namespace {

/// Handles of implied records, which are not written, and of what belongs to them.
std::unordered_set<std::uint64_t> unwrittenHandles(OdDbDatabase const& database)
{
    std::unordered_set<std::uint64_t> handles;
    for (OdDbTableKindInfo const& kind : odDbTableKinds()) {
        for (OdDbStub const* const stub : database.table(kind.kind).records()) {
            if (!static_cast<OdDbSymbolTableRecord const*>(stub->object)->isImplied())
                continue;
            handles.insert(stub->handle.value());
            if (auto const* const block =
                    odCast<OdDbBlockTableRecord>(static_cast<OdRxObject const*>(stub->object)))
                for (OdDbObjectId const frame : {block->beginId(), block->endId()})
                    handles.insert(frame.getHandle().value());
        }
    }
    return handles;
}

/// The next free handle as files say it. What is not written does not count, so that opening and saving a drawing
/// uses no handles up.
OdDbHandle seedOf(OdDbDatabase const& database)
{
    std::unordered_set<std::uint64_t> const unwritten = unwrittenHandles(database);
    std::uint64_t seed = database.handseed().value();
    while (unwritten.contains(seed - 1))
        --seed;
    return OdDbHandle(seed);
}

/// Variables that the drawing itself answers for, whatever the header holds under their names.
OdDbHeader liveVariables(OdDbDatabase const& database)
{
    OdDbHeader variables;
    auto const set = [&variables](std::string_view name, OdDbTag const& tag) {
        OdDbTagList tags;
        tags.put(tag);
        variables.set(name, std::move(tags));
    };
    set("ACADVER", OdDbTag::ofText(1, releaseOf(kCurrentRelease).code));
    set("HANDSEED", OdDbTag::ofHandle(5, seedOf(database)));
    for (CurrentRecordVariable const& variable : kCurrentRecordVariables)
        if (auto const record = OdSmartPtr<OdDbSymbolTableRecord>(database.current(variable.table).openObject()))
            set(variable.name, OdDbTag::ofText(variable.code, record->getName().toUtf8()));
    return variables;
}

/// A variable with the value of the drawing, and with the comments that stand behind it in the file.
void writeVariable(std::string_view name, OdDbTagList const* liveValue, OdDbTagList const* kept, OdDbTagSink& sink)
{
    sink.text(9, '$' + std::string(name));
    if (!liveValue)
        return kept->writeTo(sink);
    liveValue->writeTo(sink);
    if (!kept)
        return;
    for (OdDbTag const tag : *kept)
        if (tag.code == 999)
            sink.put(tag);
}

OdDbTagList const* tagsOf(OdDbHeader const& header, std::string_view name)
{
    OdDbHeader::Variable const* const variable = header.find(name);
    return variable ? &variable->tags : nullptr;
}

} // namespace

void writeHeader(OdDbDatabase const& database, OdDbTagSink& sink)
{
    constexpr std::string_view kRelease = "ACADVER"; // readers look for it in the first variable
    OdDbHeader const live = liveVariables(database);
    OdDbHeader const& kept = database.header();
    writeVariable(kRelease, tagsOf(live, kRelease), tagsOf(kept, kRelease), sink);
    for (OdDbHeader::Variable const& variable : kept.variables())
        if (variable.name != kRelease)
            writeVariable(variable.name, tagsOf(live, variable.name), &variable.tags, sink);
    for (OdDbHeader::Variable const& variable : live.variables())
        if (variable.name != kRelease && !kept.find(variable.name))
            writeVariable(variable.name, &variable.tags, nullptr, sink);
}

} // namespace dxf
