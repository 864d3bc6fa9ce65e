#pragma once

#include "host/db/filer/od_db_field.h"
#include "host/dxf/older/dxf_lower_context.h"

#include <array>
#include <optional>
#include <string>
#include <unordered_map>

namespace dxf {

/// The names of table records as an older release can have them. Before R2000 names have up to 31 characters out
/// of A-Z 0-9 $ - _ (and an asterisk in front of anonymous ones); a drawing of a newer release gets such names.
/// Models and sheets are blocks with names of their own in R12.
class LegacyNames
{
public:
    /// Reports every name that becomes another one; a change of case is none.
    explicit LegacyNames(LowerContext const& context);

    /// False when every name stays as it is.
    bool changesAny() const { return m_changesAny; }
    /// What a name of the drawing becomes; itself when no record has it.
    std::string_view of(OdDbTableKind kind, std::string_view name) const;
    /// The new name of a record by its handle; empty for a handle that no such record has.
    std::string_view ofRecord(OdDbTableKind kind, OdDbHandle handle) const;

private:
    struct Hash : std::hash<std::string_view>
    {
        using is_transparent = void;
    };
    struct Names
    {
        std::unordered_map<std::string, std::string, Hash, std::equal_to<>> bySpelling;
        std::unordered_map<std::string, std::string, Hash, std::equal_to<>> byUpperName;
        std::optional<std::unordered_map<std::uint64_t, std::string>> byHandle;
    };

    void makeFitting(OdDbTableKind kind);
    void nameSpaces();

    LowerContext const& m_context;
    bool m_changesAny = false;
    mutable std::array<Names, kOdDbTableKinds> m_names; ///< the map by handle is made when first asked for
};

/// The table that a group of a record names a record of; nothing for groups that name none. An empty type asks
/// for what all entities have.
std::optional<OdDbTableKind> namedTable(std::string_view type, int code);
/// The same for header variables.
std::optional<OdDbTableKind> namedTableOfVariable(std::string_view name);

} // namespace dxf
