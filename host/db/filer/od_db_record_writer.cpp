#include "host/db/filer/od_db_record_writer.h"

namespace {

bool isWritable(OdDbObjectId id)
{
    return !id.isNull() && !id.stub()->erased;
}

void writeEnvelope(OdDbObject const& object, OdDbTagSink& sink)
{
    OdDbObjectExtras const* const extras = object.extras();
    sink.handle(object.handleGroupCode(), object.getDbHandle());
    if (extras && isWritable(extras->extensionDictionary)) {
        sink.text(102, "{ACAD_XDICTIONARY");
        sink.handle(360, extras->extensionDictionary.getHandle());
        sink.text(102, "}");
    }
    if (extras && std::any_of(extras->reactors.begin(), extras->reactors.end(), isWritable)) {
        sink.text(102, "{ACAD_REACTORS");
        for (OdDbObjectId const id : extras->reactors)
            if (isWritable(id))
                sink.handle(330, id.getHandle());
        sink.text(102, "}");
    }
    if (extras)
        extras->applicationGroups.writeTo(sink);
    sink.handle(330, object.ownerId().getHandle());
}

void writeKept(OdDbObject const& object, int group, OdDbTagSink& sink)
{
    OdDbObjectExtras const* const extras = object.extras();
    if (!extras)
        return;
    for (OdDbObjectExtras::Section const& section : extras->sections) {
        if (section.group != group)
            continue;
        if (!section.marker.empty())
            sink.text(100, section.marker);
        section.tags.writeTo(sink);
    }
}

} // namespace

void odDbWriteRecord(OdDbObject const& object, OdDbTagSink& sink)
{
    OdDbFieldTable const& table = object.fieldTable();
    sink.text(0, object.dxfName());
    writeEnvelope(object, sink);
    writeKept(object, -1, sink);
    // What was kept of a group that another one stands in for goes behind that one: without a marker of its own it
    // would be taken for a part of the group before it.
    int firstKept = 0;
    auto const writeKeptBelow = [&](int end) {
        for (; firstKept < end; ++firstKept)
            writeKept(object, firstKept, sink);
    };
    for (int group = 0; group < table.numGroups(); ++group)
        if (table.write(object, group, sink))
            writeKeptBelow(group + 1);
    writeKeptBelow(table.numGroups());
    if (OdDbObjectExtras const* const extras = object.extras())
        extras->extendedData.writeTo(sink);
}
