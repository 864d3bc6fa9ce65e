#pragma once

#include "host/db/od_db_database.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/db/records/od_db_table_kinds.h"
#include "host/dxf/dxf_tag_source.h"

#include <array>
#include <unordered_map>
#include <unordered_set>

namespace dxf {

/// Ids for the names and handles of a file that is being read. Records are found before they are read: the symbol
/// tables are looked through first. A name that no record has gets an implied record.
class NameIndex final : public OdDbReferenceResolver
{
public:
    /// Creates the tables of the drawing that the file has, still empty.
    NameIndex(OdDbDatabase& database, TagSource const& source);

    OdDbObjectId byName(OdDbTableKind kind, std::string_view utf8Name) override;
    OdDbObjectId byHandle(OdDbHandle handle) override { return m_database.getOdDbObjectId(handle, true); }

    /// As byName, but null for a name that no record has.
    OdDbObjectId find(OdDbTableKind kind, std::string_view utf8Name);
    /// A record was read: its name stands for it unless it stands for another one already.
    void noteRead(OdDbTableKind kind, OdDbSymbolTableRecord const& record);
    /// The drawing's table, created if the file lacks it.
    OdDbSymbolTable& table(OdDbTableKind kind);
    /// Adds a record under a name that the file does not define.
    OdDbObjectId addRecord(OdDbTableKind kind, std::string_view utf8Name);

    /// The name (in capitals) under which the look ahead saw the record of a handle; empty when it did not.
    OdString nameSeen(OdDbTableKind kind, OdDbHandle handle);
    /// A name for a record that lacks one of its own; no other is given out or, but for bad luck, in use.
    std::string freeName(std::string_view prefix = "UNNAMED");

    /// Lets the drawing give handles of its own: from now on they lie above all handles that the file uses.
    void openFreeHandles();
    /// The whole file is read, and this was its highest handle: free handles need no look ahead any more, and
    /// records that were seen by the look ahead but never came, as in damaged files, are added as implied ones.
    void endOfFile(OdDbHandle highest);

private:
    struct FoundRecord;
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept
        {
            return std::hash<std::string_view>()(text);
        }
    };
    struct Names
    {
        std::unordered_map<std::string, OdDbObjectId, Hash, std::equal_to<>> bySpelling;
        std::unordered_map<OdString, OdDbObjectId> byUpperName;
        std::unordered_map<std::uint64_t, OdString>
            upperNameByHandle; ///< of the look ahead; made when first needed
    };

    static bool mayBe(OdDbTableKind kind, OdDbObjectId id);
    static bool hasName(OdDbObjectId id, OdString const& upperName);
    static bool findTables(TagSource& source, OdDbTag& tag);
    static bool readRecord(TagSource& source, OdDbTag& tag, FoundRecord& record);
    void lookThroughTables();
    OdDbSymbolTable& createTable(OdDbTableKindInfo const& kind, OdDbHandle handle);
    void noteRecord(OdDbTableKind kind, FoundRecord const& record, std::unordered_set<std::uint64_t>& taken);
    void addMissingRecords();
    Names& names(OdDbTableKind kind) { return m_names[static_cast<std::size_t>(kind)]; }

    OdDbDatabase& m_database;
    TagSource const& m_source;
    std::array<Names, kOdDbTableKinds> m_names;
    bool m_hasFreeHandles = false;
    int m_freeNames = 0;
};

} // namespace dxf
