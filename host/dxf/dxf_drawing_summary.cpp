#include "host/dxf/dxf_drawing_summary.h"

#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_table_kinds.h"
#include "host/db/template/od_db_template_header.h"

#include <iterator>
#include <map>

namespace dxf {

namespace {

using Tally = std::map<std::string_view, std::size_t>;

DrawingSummary::Counts countsOf(Tally const& tally)
{
    DrawingSummary::Counts counts;
    counts.reserve(tally.size());
    for (auto const& [name, count] : tally)
        counts.push_back({std::string(name), count});
    return counts;
}

std::size_t numGroups(OdDbTagList const& tags)
{
    return static_cast<std::size_t>(std::distance(tags.begin(), tags.end()));
}

std::size_t numRecords(OdDbTagList const& tags)
{
    return static_cast<std::size_t>(
        std::count_if(tags.begin(), tags.end(), [](OdDbTag const& tag) { return tag.code == 0; }));
}

class Summing
{
public:
    explicit Summing(OdDbDatabase const& database) : m_database(database) {}

    void run(DrawingSummary& summary)
    {
        for (OdDbTableKindInfo const& kind : odDbTableKinds())
            countTable(kind);
        for (OdDbStub const* const stub : m_database.fileObjects())
            count(*stub, m_objects);
        countKept();
        summary.modelSpace = countsOf(m_modelSpace);
        summary.paperSpace = countsOf(m_paperSpace);
        summary.blocks = countsOf(m_blocks);
        summary.objects = countsOf(m_objects);
        summary.tables = countsOf(m_tables);
        summary.raw.classes = countsOf(m_rawClasses);
        summary.raw.groups = countsOf(m_rawGroups);
        summary.raw.sections = countsOf(m_rawSections);
        summary.raw.tables = countsOf(m_rawTables);
        listVariables(summary.raw.headerVariables);
    }

private:
    /// What opening added to a file does not count.
    bool isSupplied(OdDbStub const& stub) const
    {
        return !m_database.fileContent().release.empty() && m_database.isFromTemplate(stub.handle);
    }
    void countTable(OdDbTableKindInfo const& kind);
    void countBlock(OdDbBlockTableRecord const& block);
    void count(OdDbStub const& stub, Tally& tally);
    void countRawPartsOf(OdDbObject const& object, std::string_view name);
    void countKept();
    void listVariables(std::vector<std::string>& names) const;

    OdDbDatabase const& m_database;
    Tally m_modelSpace, m_paperSpace, m_blocks, m_objects, m_tables;
    Tally m_rawClasses, m_rawGroups, m_rawSections, m_rawTables;
};

void Summing::countTable(OdDbTableKindInfo const& kind)
{
    for (OdDbStub const* const stub : m_database.table(kind.kind).records()) {
        auto const& record = static_cast<OdDbSymbolTableRecord const&>(*stub->object);
        if (stub->erased || record.isImplied())
            continue;
        if (!isSupplied(*stub))
            ++m_tables[kind.fileName];
        countRawPartsOf(record, kind.fileName);
        if (kind.kind == OdDbTableKind::kBlock)
            countBlock(static_cast<OdDbBlockTableRecord const&>(record));
    }
}

void Summing::countBlock(OdDbBlockTableRecord const& block)
{
    bool const isModelSpace = block.objectId() == m_database.getModelSpaceId();
    Tally& tally = isModelSpace ? m_modelSpace : block.isPaperSpace() ? m_paperSpace : m_blocks;
    for (OdDbStub const* const stub : block.entities()) {
        count(*stub, tally);
        for (OdDbStub const* const part : static_cast<OdDbEntity const&>(*stub->object).subentities())
            count(*part, tally);
    }
}

void Summing::count(OdDbStub const& stub, Tally& tally)
{
    if (stub.erased || isSupplied(stub))
        return;
    OdDbObject const& object = *stub.object;
    std::string_view const name = object.dxfName();
    ++tally[name];
    if (object.isA() == OdDbRawEntity::desc() || object.isA() == OdDbRawObject::desc())
        ++m_rawClasses[name];
    else
        countRawPartsOf(object, name);
}

void Summing::countRawPartsOf(OdDbObject const& object, std::string_view name)
{
    if (!object.extras())
        return;
    std::size_t groups = 0;
    for (OdDbObjectExtras::Section const& section : object.extras()->sections)
        groups += numGroups(section.tags);
    if (groups > 0)
        m_rawGroups[name] += groups;
}

void Summing::countKept()
{
    for (OdDbFileContent::Section const& section : m_database.fileContent().sections)
        if (!section.tags.empty() && section.name != "CLASSES")
            m_rawSections[section.name] += numGroups(section.tags);
    for (OdDbFileContent::Table const& table : m_database.fileContent().tables)
        if (std::size_t const records = numRecords(table.tags); records > 0)
            m_rawTables[table.name] += records;
}

void Summing::listVariables(std::vector<std::string>& names) const
{
    constexpr std::string_view kOfTheFile[] = {"ACADVER", "HANDSEED"}; // follow from the drawing when it is saved
    for (OdDbHeader::Variable const& variable : m_database.header().variables())
        if (!odDbTemplateHeader().find(variable.name) &&
            std::find(std::begin(kOfTheFile), std::end(kOfTheFile), variable.name) == std::end(kOfTheFile))
            names.push_back("$" + variable.name);
}

OdString itemsOf(DrawingSummary::Counts const& counts)
{
    OdString text;
    for (DrawingSummary::Count const& each : counts)
        text += (text.isEmpty() ? OdString() : OdString(L", ")) + OdString::fromUtf8(each.name) +
                odFormat(L" %lld", static_cast<long long>(each.count));
    return text;
}

OdString itemsOf(std::vector<std::string> const& names)
{
    OdString text;
    for (std::string const& name : names)
        text += (text.isEmpty() ? OdString() : OdString(L", ")) + OdString::fromUtf8(name);
    return text;
}

} // namespace

bool DrawingSummary::Raw::isEmpty() const
{
    return classes.empty() && groups.empty() && sections.empty() && tables.empty() && headerVariables.empty();
}

DrawingSummary summaryOf(OdDbDatabase const& database, ReadReport const& report)
{
    DrawingSummary summary;
    summary.isNew = report.release.isEmpty();
    summary.release = summary.isNew ? OdString(releaseOf(kCurrentRelease).name) : report.release;
    summary.isBinary = report.isBinary;
    Summing(database).run(summary);
    return summary;
}

std::vector<SummaryRow> rowsOf(DrawingSummary const& summary)
{
    OdString const form = summary.isNew ? L", new drawing" : summary.isBinary ? L", binary" : L", text";
    std::vector<SummaryRow> rows{
        {L"Release", summary.release + form},
        {L"Model space", itemsOf(summary.modelSpace)},
        {L"Paper space", itemsOf(summary.paperSpace)},
        {L"Blocks", itemsOf(summary.blocks)},
        {L"Objects", itemsOf(summary.objects)},
        {L"Tables", itemsOf(summary.tables)},
        {L"Raw classes", itemsOf(summary.raw.classes)},
        {L"Raw groups in", itemsOf(summary.raw.groups)},
        {L"Raw sections", itemsOf(summary.raw.sections)},
        {L"Raw tables", itemsOf(summary.raw.tables)},
        {L"Raw variables", itemsOf(summary.raw.headerVariables)},
    };
    std::erase_if(rows, [](SummaryRow const& row) { return row.text.isEmpty(); });
    return rows;
}

} // namespace dxf
