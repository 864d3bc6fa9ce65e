#include "host/db/filer/od_db_record_writer.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/db/records/od_db_table_kinds.h"
#include "host/dxf/dxf_section_writers.h"

namespace dxf {

namespace {

bool isWritten(OdDbStub const* stub)
{
    return !stub->erased && !static_cast<OdDbSymbolTableRecord const*>(stub->object)->isImplied();
}

/// Passes the record of a table object on as the head of a table: with its name behind the first tag and the
/// number of records behind the marker.
class HeadSink final : public OdDbTagSink
{
public:
    HeadSink(OdDbTagSink& sink, std::string_view name, std::ptrdiff_t count)
        : m_sink(sink), m_name(name), m_count(count)
    {
    }

    void put(OdDbTag const& tag) override
    {
        if (tag.code == 0) {
            m_sink.text(0, "TABLE");
            m_sink.text(2, m_name);
            return;
        }
        m_sink.put(tag);
        if (tag.is(100, "AcDbSymbolTable"))
            m_sink.integer(70, m_count);
    }

private:
    OdDbTagSink& m_sink;
    std::string_view m_name;
    std::ptrdiff_t m_count;
};

void writeTable(OdDbDatabase const& database, OdDbTableKindInfo const& kind, OdDbFileContent::Table const* kept,
                OdDbTagSink& sink)
{
    OdDbSymbolTable const& table = database.table(kind.kind);
    std::vector<OdDbStub*> const& records = table.records();
    HeadSink head(sink, kind.fileName, std::count_if(records.begin(), records.end(), isWritten));
    odDbWriteRecord(table, head);
    for (OdDbStub const* const stub : records)
        if (isWritten(stub))
            odDbWriteRecord(*stub->object, sink);
    if (kept)
        kept->tags.writeTo(sink);
    sink.text(0, "ENDTAB");
    if (kept)
        kept->commentsBehind.writeTo(sink);
}

} // namespace

void writeTables(OdDbDatabase const& database, OdDbTagSink& sink)
{
    std::array<bool, kOdDbTableKinds> isDone{};
    for (OdDbFileContent::Table const& kept : database.fileContent().tables) {
        OdDbTableKindInfo const* const kind = odDbFindTableKind(kept.name);
        if (!kind) {
            sink.text(0, "TABLE");
            sink.text(2, kept.name);
            kept.tags.writeTo(sink);
            sink.text(0, "ENDTAB");
            kept.commentsBehind.writeTo(sink);
        } else if (!std::exchange(isDone[static_cast<std::size_t>(kind->kind)], true)) {
            writeTable(database, *kind, &kept, sink);
        }
    }
    for (OdDbTableKindInfo const& kind : odDbTableKinds())
        if (!isDone[static_cast<std::size_t>(kind.kind)])
            writeTable(database, kind, nullptr, sink);
}

} // namespace dxf
