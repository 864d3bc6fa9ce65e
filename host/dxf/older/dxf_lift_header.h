#pragma once

#include "host/db/filer/od_db_tag.h"
#include "host/dxf/dxf_release.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace dxf {

/// Header variables of an older drawing that have other names today. The old ones stay; those of today are added
/// where the drawing lacks them.
class LiftHeader
{
public:
    explicit LiftHeader(ERelease release);

    /// Sees every tag of the section HEADER.
    void note(OdDbTag const& tag);
    /// The variables of today that the drawing lacks, as tags; empty the second time.
    std::vector<OdDbTag> takeMissing();
    /// The value of one of the variables that are watched; none when the drawing lacks it.
    std::optional<std::int64_t> value(std::string_view name) const;

private:
    struct Variable
    {
        std::string_view name;
        std::optional<std::int64_t> value;
    };
    Variable* find(std::string_view name);
    void add(std::vector<OdDbTag>& tags, std::string_view name, std::int64_t value);

    ERelease m_release;
    std::vector<Variable> m_variables;
    Variable* m_current = nullptr; ///< whose value comes next
    bool m_isTaken = false;
};

} // namespace dxf
