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

/// Entities and objects by their names in files. There can be millions of entities, and most files have all that
/// is to be known: they are counted when first asked for.
class InstanceCounts
{
public:
    explicit InstanceCounts(OdDbDatabase const& database) : m_database(database) { count(database.fileObjects()); }

    std::int64_t ofObject(std::string_view name) const
    {
        auto const it = m_counts.find(name);
        return it == m_counts.end() ? 0 : it->second;
    }
    std::int64_t ofAny(std::string_view name)
    {
        if (!std::exchange(m_hasEntities, true))
            for (OdDbStub const* const block : m_database.table(OdDbTableKind::kBlock).records())
                if (!block->erased)
                    count(static_cast<OdDbBlockTableRecord const*>(block->object)->entities());
        return ofObject(name);
    }

private:
    void count(std::vector<OdDbStub*> const& stubs)
    {
        for (OdDbStub const* const stub : stubs)
            if (!stub->erased)
                ++m_counts[stub->object->dxfName()];
    }

    OdDbDatabase const& m_database;
    std::unordered_map<std::string_view, std::int64_t> m_counts;
    bool m_hasEntities = false;
};

/// Passes the kept list on; releases before R2004 did not count the instances of a class.
class ClassListSink final : public OdDbTagSink
{
public:
    ClassListSink(OdDbTagSink& sink, InstanceCounts& counts) : m_sink(sink), m_counts(counts) {}

    void put(OdDbTag const& tag) override
    {
        if (m_hasFlags && tag.code != kCountCode)
            m_sink.integer(kCountCode, m_counts.ofAny(m_name));
        m_hasFlags = tag.code == kFlagsCode;
        if (tag.code == 1)
            m_name = *m_names.emplace(tag.text).first;
        m_sink.put(tag);
    }
    bool has(std::string_view name) const { return m_names.contains(std::string(name)); }

private:
    OdDbTagSink& m_sink;
    InstanceCounts& m_counts;
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
    InstanceCounts counts(database);
    ClassListSink list(sink, counts);
    for (OdDbFileContent::Section const& section : database.fileContent().sections)
        if (section.name == "CLASSES")
            section.tags.writeTo(list);
    for (ListedClass const& listed : s_ownClasses)
        if (std::int64_t const count = counts.ofObject(listed.name); count > 0 && !list.has(listed.name))
            writeClass(listed, count, sink);
}

} // namespace dxf
