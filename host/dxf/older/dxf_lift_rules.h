#pragma once

#include "host/dxf/older/dxf_lift_header.h"
#include "host/dxf/older/dxf_lift_record.h"

#include <unordered_map>

namespace dxf {

/// What has to be done with the records of an older release; begin here for a kind of record that changed.
class LiftRules
{
public:
    enum class EWish
    {
        kNothing,      ///< the record is today what it was
        kUnlessMarked, ///< it is, provided that it has subclass markers
        kWhole         ///< the rules want to see it
    };

    /// `header` has to outlive the rules; it is asked when records are lifted.
    LiftRules(ERelease release, LiftHeader const& header);

    /// Asked at the begin of each record, in the order of the file. Records of tables among entities, and entities
    /// in tables, as damaged files hold them, are nothing that changed.
    EWish wishOf(std::string_view type, bool isInTable);
    /// Brings the record that was asked for last, which is there as a whole, into today's form.
    void lift(LiftRecord& record);

private:
    using Lift = void (*)(LiftRecord& record, LiftHeader const& header);
    /// A kind of record: its form without markers, and what is done with it besides sorting.
    struct Kind
    {
        OldForm const* form = nullptr;
        std::vector<Lift> lifts;
    };
    bool isToBeSorted(LiftRecord const& record) const;
    OldForm const& formOf(LiftRecord const& record) const;

    LiftHeader const& m_header;
    std::unordered_map<std::string_view, Kind> m_kinds; ///< by the text of group 0
    Kind const* m_kind = nullptr;                       ///< of the record asked for last
    std::int64_t m_polylineFlags = 0;                   ///< of the polyline that the vertices belong to
};

} // namespace dxf
