#pragma once

#include "host/dxf/dxf_release.h"
#include "host/dxf/dxf_tag_source.h"
#include "host/dxf/older/dxf_lift_rules.h"

#include <vector>

namespace dxf {

/// The tags of a drawing of R12, R13 or R14 as a file of today would hold them: with subclass markers, today's
/// group codes and variables. Everything that has no counterpart today passes through as it is. References that
/// older files hold as names (arrow blocks of dimension styles, layers frozen in viewports) stay names, as text
/// under the code of the handle. What is done with which record: dxf_lift_rules.h.
class LiftingSource final : public TagSource
{
public:
    /// `inner` stands at the beginning of the file.
    LiftingSource(OdString path, std::unique_ptr<TagSource> inner, ERelease release);

    bool next(OdDbTag& tag) override;
    std::size_t place() const override { return m_place; }
    OdString placeText(std::size_t place) const override { return m_inner->placeText(place); }
    std::unique_ptr<TagSource> fromStart() const override;

private:
    enum class ESection
    {
        kOther,
        kHeader,
        kTables,
        kEntities ///< blocks as well
    };

    bool take(OdDbTag& tag);
    bool handOut(OdDbTag& tag);
    bool beginRecord(OdDbTag& tag);
    bool endHeader(OdDbTag const& end);
    void gather(OdDbTag const& head, LiftRules::EWish wish);
    void damaged(Damage const& damage);
    void tellHeldDamage();

    std::unique_ptr<TagSource> m_inner;
    ERelease m_release;
    LiftHeader m_header;
    LiftRules m_rules;
    LiftRecord m_record;
    std::vector<Damage> m_heldDamage; ///< to the record that is gathered; told when its tags are handed out
    OdDbTag m_ahead;                  ///< group 0 behind the record
    std::size_t m_aheadPlace = 0;
    std::size_t m_place = 0;
    ESection m_section = ESection::kOther;
    bool m_hasAhead = false;
    bool m_isHandingOut = false;
    bool m_isGathering = false;
    bool m_isSectionName = false; ///< the name of the section comes next
};

} // namespace dxf
