#pragma once

#include "host/db/filer/od_db_tag_list.h"
#include "host/geom/od_ge_3d.h"

#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

/// The header variables of a drawing, in the order of its file. Variables that the host does not know are kept
/// like all others. Names carry no "$".
class OdDbHeader
{
public:
    struct Variable
    {
        std::string name;
        OdDbTagList tags; ///< one tag, or the coordinates of a point
    };

    std::span<Variable const> variables() const { return m_data->variables; }
    /// Null when the drawing does not have it.
    Variable const* find(std::string_view name) const;

    double real(std::string_view name, double fallback = 0) const;
    std::int64_t integer(std::string_view name, std::int64_t fallback = 0) const;
    OdString text(std::string_view name) const;
    OdGePoint3d point(std::string_view name) const;

    /// Replaces or appends a variable; returns what was there before (empty when nothing was).
    OdDbTagList set(std::string_view name, OdDbTagList tags);
    void remove(std::string_view name);

private:
    struct Hash : std::hash<std::string_view>
    {
        using is_transparent = void;
    };
    struct Data
    {
        std::vector<Variable> variables;
        std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> index; ///< numbers by name
    };
    Data& edit();

    /// Shared by copies until one of them changes: all new drawings begin with the same variables.
    std::shared_ptr<Data> m_data = std::make_shared<Data>();
};
