#pragma once

#include "host/dxf/older/dxf_lower_names.h"
#include "host/dxf/older/dxf_lower_record.h"

namespace dxf {

/// Dimension variables, under the codes of dimension styles, as an older release has them: arrows by name instead
/// of handle, units and fitting as one number each before R2000.
class LowerDimVariables
{
public:
    LowerDimVariables(LowerContext const& context, LegacyNames const& names) : m_context(context), m_names(names)
    {
    }

    /// What a whole style holds. Tags that are no variables pass.
    std::vector<OdDbTag> ofStyle(TagSpan style, OdDbHandle handle) const;
    /// What a single entity changes of its style; `subject` names it in reports.
    std::vector<OdDbTag> ofOverrides(TagSpan overrides, std::string_view subject, OdDbHandle handle) const;

private:
    void note(OdDbTag const& tag, ERelease first, std::string_view subject, OdDbHandle handle) const;

    LowerContext const& m_context;
    LegacyNames const& m_names;
};

/// The number that the drawing has for units and precision where R12 has none for dimensions: such a dimension
/// variable says nothing of its own. Nothing for other variables.
std::optional<std::int64_t> drawingUnit(OdDbDatabase const& database, int styleCode);

} // namespace dxf
