// The list of classes: kept as it was, completed for the current release with what older ones did not say and with
// the classes of objects that the host added.
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/dxf/dxf_section_writers.h"

#include <unordered_map>
#include <unordered_set>

namespace dxf {

namespace {

constexpr int kFlagsCode = 90;
constexpr int kCountCode = 91;

/// A class of objects that the host makes and that readers know from the list only.
struct ListedClass
{
    std::string_view name;
    std::string_view cppName;
    int flags;
};

// clang-format off
constexpr ListedClass s_ownClasses[] = {
    {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", 0},
    {"ACDBPLACEHOLDER",     "AcDbPlaceHolder",           0},
    {"LAYOUT",              "AcDbLayout",                0},
    {"MATERIAL",            "AcDbMaterial",              1153},
};
// clang-format on

using Counts = std::unordered_map<std::string_view, std::int64_t>;

/// Entities and objects by their names in files.
Counts countInstances(OdDbDatabase const& database)
{
    Counts counts;
    auto const count = [&counts](OdDbStub const* stub) {
        if (!stub->erased)
            ++counts[stub->object->dxfName()];
    };
    for (OdDbStub const* const block : database.table(OdDbTableKind::kBlock).records())
        if (!block->erased)
            std::ranges::for_each(static_cast<OdDbBlockTableRecord const*>(block->object)->entities(), count);
    std::ranges::for_each(database.fileObjects(), count);
    return counts;
}

/// Passes the kept list on; releases before R2004 did not count the instances of a class.
class ClassListSink final : public OdDbTagSink
{
public:
    ClassListSink(OdDbTagSink& sink, Counts const& counts) : m_sink(sink), m_counts(counts) {}

    void put(OdDbTag const& tag) override
    {
        if (m_hasFlags && tag.code != kCountCode)
            putCount();
        m_hasFlags = tag.code == kFlagsCode;
        if (tag.code == 1)
            m_name = *m_names.emplace(tag.text).first;
        m_sink.put(tag);
    }
    bool has(std::string_view name) const { return m_names.contains(std::string(name)); }

private:
    void putCount()
    {
        auto const it = m_counts.find(m_name);
        m_sink.integer(kCountCode, it == m_counts.end() ? 0 : it->second);
    }

    OdDbTagSink& m_sink;
    Counts const& m_counts;
    std::unordered_set<std::string> m_names;
    std::string m_name;
    bool m_hasFlags = false;
};

void writeClass(ListedClass const& listed, std::int64_t count, OdDbTagSink& sink)
{
    sink.text(0, "CLASS");
    sink.text(1, listed.name);
    sink.text(2, listed.cppName);
    sink.text(3, "ObjectDBX Classes");
    sink.integer(kFlagsCode, listed.flags);
    sink.integer(kCountCode, count);
    sink.integer(280, 0);
    sink.integer(281, 0);
}

} // namespace

void writeClasses(OdDbDatabase const& database, OdDbTagSink& sink)
{
    Counts const counts = countInstances(database);
    ClassListSink list(sink, counts);
    for (OdDbFileContent::Section const& section : database.fileContent().sections)
        if (section.name == "CLASSES")
            section.tags.writeTo(list);
    for (ListedClass const& listed : s_ownClasses)
        if (auto const it = counts.find(listed.name); it != counts.end() && !list.has(listed.name))
            writeClass(listed, it->second, sink);
}

} // namespace dxf
