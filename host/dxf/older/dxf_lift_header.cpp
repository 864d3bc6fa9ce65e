#include "host/dxf/older/dxf_lift_header.h"

#include "host/dxf/older/dxf_old_dimensions.h"

#include <algorithm>
#include <utility>

namespace dxf {

namespace {

constexpr int kNameCode = 9;
constexpr int kValueCode = 70;

constexpr std::string_view kWatched[] = {
    "$DIMUNIT", "$DIMLUNIT", "$DIMFRAC", "$DIMFIT", "$DIMATFIT", "$DIMTMOVE", "$LUNITS",
    "$LUPREC",  "$AUNITS",   "$AUPREC",  "$DIMDEC", "$DIMTDEC",  "$DIMAUNIT", "$DIMADEC",
};

} // namespace

LiftHeader::LiftHeader(ERelease release) : m_release(release)
{
    for (std::string_view const name : kWatched)
        m_variables.push_back({name, {}});
}

LiftHeader::Variable* LiftHeader::find(std::string_view name)
{
    auto const it = std::find_if(m_variables.begin(), m_variables.end(),
                                 [name](Variable const& each) { return each.name == name; });
    return it == m_variables.end() ? nullptr : &*it;
}

std::optional<std::int64_t> LiftHeader::value(std::string_view name) const
{
    Variable const* const variable = const_cast<LiftHeader*>(this)->find(name);
    return variable ? variable->value : std::nullopt;
}

void LiftHeader::note(OdDbTag const& tag)
{
    if (tag.code == kNameCode)
        m_current = find(tag.text);
    else if (m_current && tag.code == kValueCode && tag.kind == OdDbTagKind::kInteger)
        m_current->value = tag.integer;
}

void LiftHeader::add(std::vector<OdDbTag>& tags, std::string_view name, std::int64_t value)
{
    if (find(name)->value)
        return;
    tags.push_back(OdDbTag::ofText(kNameCode, name));
    tags.push_back(OdDbTag::ofInteger(kValueCode, value));
}

std::vector<OdDbTag> LiftHeader::takeMissing()
{
    std::vector<OdDbTag> tags;
    if (std::exchange(m_isTaken, true))
        return tags;
    if (OldDimUnit const* const unit = findOldDimUnit(value("$DIMUNIT").value_or(-1))) {
        add(tags, "$DIMLUNIT", unit->linearUnit);
        add(tags, "$DIMFRAC", unit->fraction);
    }
    if (OldDimFit const* const fit = findOldDimFit(value("$DIMFIT").value_or(-1))) {
        add(tags, "$DIMATFIT", fit->arrowTextFit);
        add(tags, "$DIMTMOVE", fit->textMove);
    }
    if (m_release == ERelease::kR12)
        for (OldUnitSource const& source : oldUnitSources())
            if (std::optional<std::int64_t> const given = value(source.variable))
                add(tags, source.dimVariable, *given);
    return tags;
}

} // namespace dxf
