#include "host/dxf/older/dxf_lifting_source.h"

#include <utility>

namespace dxf {

LiftingSource::LiftingSource(OdString path, std::unique_ptr<TagSource> inner, ERelease release)
    : TagSource(std::move(path)),
      m_inner(std::move(inner)),
      m_release(release),
      m_header(release),
      m_rules(release, m_header)
{
    m_inner->setDamageListener([this](Damage const& damage) { damaged(damage); });
}

std::unique_ptr<TagSource> LiftingSource::fromStart() const
{
    return std::make_unique<LiftingSource>(path(), m_inner->fromStart(), m_release);
}

void LiftingSource::damaged(Damage const& damage)
{
    if (m_isGathering)
        m_heldDamage.push_back(damage);
    else
        tellDamage(damage.place, damage.reason, damage.breaksRecord);
}

void LiftingSource::tellHeldDamage()
{
    for (Damage& damage : m_heldDamage)
        tellDamage(damage.place, std::move(damage.reason), damage.breaksRecord);
    m_heldDamage.clear();
}

bool LiftingSource::next(OdDbTag& tag)
{
    if (!m_heldDamage.empty())
        tellHeldDamage();
    if (m_isHandingOut && handOut(tag))
        return true;
    if (!take(tag))
        return false;
    if (tag.code == 0)
        return beginRecord(tag);
    if (m_section == ESection::kHeader) {
        m_header.note(tag);
    } else if (m_isSectionName && tag.code == 2) {
        m_isSectionName = false;
        bool const hasEntities = tag.text == "BLOCKS" || tag.text == "ENTITIES";
        m_section = tag.text == "HEADER"   ? ESection::kHeader
                    : tag.text == "TABLES" ? ESection::kTables
                    : hasEntities          ? ESection::kEntities
                                           : ESection::kOther;
    }
    return true;
}

/// The next tag of the file itself.
bool LiftingSource::take(OdDbTag& tag)
{
    if (std::exchange(m_hasAhead, false)) {
        tag = m_ahead;
        m_place = m_aheadPlace;
        return true;
    }
    bool const isMore = m_inner->next(tag);
    m_place = m_inner->place();
    return isMore;
}

bool LiftingSource::handOut(OdDbTag& tag)
{
    m_isHandingOut = m_record.next(tag, m_place);
    return m_isHandingOut;
}

bool LiftingSource::beginRecord(OdDbTag& tag)
{
    if (m_section == ESection::kHeader && endHeader(tag))
        return handOut(tag);
    if (tag.text == "SECTION" || tag.text == "ENDSEC" || tag.text == "EOF") {
        m_section = ESection::kOther;
        m_isSectionName = tag.text == "SECTION";
        return true;
    }
    bool const isInTable = m_section == ESection::kTables;
    if (!isInTable && m_section != ESection::kEntities)
        return true;
    LiftRules::EWish const wish = m_rules.wishOf(tag.text, isInTable);
    if (wish == LiftRules::EWish::kNothing)
        return true;
    gather(tag, wish);
    return handOut(tag);
}

/// Puts variables that are to be added in front of the end of the header; false when there are none.
bool LiftingSource::endHeader(OdDbTag const& end)
{
    std::vector<OdDbTag> const missing = m_header.takeMissing();
    if (missing.empty())
        return false;
    m_record.begin(missing.front(), m_place);
    for (std::size_t i = 1; i < missing.size(); ++i)
        m_record.append(missing[i], m_place);
    m_ahead = end;
    m_aheadPlace = m_place;
    m_hasAhead = true;
    return true;
}

void LiftingSource::gather(OdDbTag const& head, LiftRules::EWish wish)
{
    constexpr std::size_t kMost = 1 << 16; // no record that changed has more; memory stays small
    m_record.begin(head, m_place);
    m_isGathering = true;
    bool isWhole = true;
    for (OdDbTag tag; isWhole && m_inner->next(tag);) {
        if (tag.code == 0) {
            m_ahead = tag;
            m_aheadPlace = m_inner->place();
            m_hasAhead = true;
            break;
        }
        m_record.append(tag, m_inner->place());
        bool const isEnough = wish == LiftRules::EWish::kUnlessMarked && m_record.hasMarker();
        isWhole = !isEnough && m_record.size() < kMost;
    }
    m_isGathering = false;
    if (isWhole)
        m_rules.lift(m_record);
}

} // namespace dxf
