#pragma once

#include "host/dxf/older/dxf_lower_dim_variables.h"
#include "host/dxf/older/dxf_lower_groups.h"
#include "host/dxf/older/dxf_lower_names.h"
#include "host/dxf/older/dxf_lower_record.h"

#include <bitset>
#include <map>

namespace dxf {

/// Writes records of which the release has the type: without the groups and the other things that came later, and
/// with the names that the release can have.
class LowerFilter
{
public:
    LowerFilter(LowerContext const& context, LegacyNames const& names, OdDbTagSink& target);

    /// Tags of the common section of entities are known as such.
    void writeEntity(TagSpan record) { write(record, true); }
    void writeTableRecord(TagSpan record);
    /// Anything else.
    void writeRecord(TagSpan record) { write(record, false); }

private:
    static constexpr int kCodes = 512;
    static constexpr int kLastNameCode = 9;
    /// What is to be known of a type of records; made when the first one comes.
    struct TypeRules
    {
        std::string type;
        LateGroups late;
        std::bitset<kCodes> ofR12; ///< groups of the type in R12; of unknown types all
        std::array<std::optional<OdDbTableKind>, kLastNameCode + 1> names;
    };
    struct Place; ///< where in a record the filter is

    TypeRules const& rulesOf(std::string_view type, bool isEntity);
    void write(TagSpan record, bool isEntity);
    std::size_t writeEnvelope(TagSpan record);
    std::size_t writeMarker(TagSpan record, std::size_t index, Place& place);
    void writeTag(OdDbTag const& tag, Place const& place);
    void writeDimStyle(TagSpan record);
    void writeExtendedData(TagSpan data, Place const& place);
    std::size_t writeOverrides(TagSpan data, Place const& place);
    void noteLate(LateGroup const& late, OdDbTag const& tag, Place const& place);
    void noteUnknownInR12(OdDbTag const& tag, Place const& place);

    LowerContext const& m_context;
    LegacyNames const& m_names;
    OdDbTagSink& m_target;
    LowerDimVariables m_dimVariables;
    bool m_isR12;
    bool m_isFromR12;
    LateGroups m_lateCommon;
    std::map<std::string, TypeRules, std::less<>> m_entityRules;
    std::map<std::string, TypeRules, std::less<>> m_otherRules;
    TypeRules const* m_lastRules = nullptr;
    bool m_lastIsEntity = false;
    std::map<std::pair<TypeRules const*, LateGroup const*>, OdString> m_notes;
};

} // namespace dxf
