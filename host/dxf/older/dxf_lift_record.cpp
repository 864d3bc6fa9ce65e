#include "host/dxf/older/dxf_lift_record.h"

#include <algorithm>
#include <bitset>

namespace dxf {

namespace {

constexpr int kMarkerCode = 100;
constexpr int kBraces = 102;
constexpr int kCommentCode = 999;
constexpr int kFirstExtendedCode = 1000;
constexpr std::size_t kEnd = static_cast<std::size_t>(-1); ///< of a chain

/// Groups that every entity can have in later releases; some programs write them into old files too.
constexpr OldCodes kLaterEntityCodes = {48, 60, 284, 370, 420, 430, 440};

std::size_t orEnd(std::uint32_t slot)
{
    return slot == 0 ? kEnd : slot;
}

/// Says below which marker of a form each tag of a record stands; asked for one tag after the other.
class Sorter
{
public:
    explicit Sorter(OldForm const& form)
        : m_form(form),
          m_last(form.sections.size()),
          m_isEntity(form.sections.front().marker == "AcDbEntity"),
          m_handleCode(form.type == "DIMSTYLE" ? 105 : 5)
    {
    }

    std::size_t sectionOf(OdDbTag const& tag)
    {
        if (tag.code >= kFirstExtendedCode)
            m_isInExtendedData = true;
        if (m_isInExtendedData)
            return m_last + 1;
        if (tag.code != kCommentCode) // a comment stays behind the tag that it follows
            m_section = isEnvelope(tag) ? 0 : sectionOfGroup(tag.code);
        return m_section;
    }

private:
    bool isEnvelope(OdDbTag const& tag)
    {
        constexpr int kOwner = 330;
        if (tag.code == kBraces)
            m_isInBraces = tag.text.starts_with('{');
        bool const isTableName = tag.code == 2 && m_form.type == "TABLE";
        return m_isInBraces || tag.code == kBraces || tag.code == m_handleCode || tag.code == kOwner ||
               isTableName;
    }

    /// A group that repeats another one belongs to the last section too: further up it would replace that one.
    std::size_t sectionOfGroup(int code)
    {
        std::size_t const section = homeOf(code);
        if (section == m_last || code < 0 || code >= kCodes)
            return m_last;
        bool const isRepeated = m_seen[static_cast<std::size_t>(code)];
        m_seen.set(static_cast<std::size_t>(code));
        return isRepeated ? m_last : section;
    }

    std::size_t homeOf(int code) const
    {
        auto const it = std::find_if(m_form.sections.begin(), m_form.sections.end(),
                                     [code](OldSection const& section) { return section.codes.contains(code); });
        if (it != m_form.sections.end())
            return static_cast<std::size_t>(it - m_form.sections.begin()) + 1;
        return m_isEntity && kLaterEntityCodes.contains(code) ? 1 : m_last;
    }

    static constexpr int kCodes = 512;
    OldForm const& m_form;
    std::size_t m_last;
    bool m_isEntity;
    int m_handleCode;
    std::size_t m_section = 0;
    std::bitset<kCodes> m_seen; ///< groups in front of the last section
    bool m_isInBraces = false;
    bool m_isInExtendedData = false;
};

} // namespace

void LiftRecord::begin(OdDbTag const& head, std::size_t place)
{
    m_slots.clear();
    m_text.clear();
    m_slots.push_back({head, place});
    m_form = nullptr;
    m_at = 0;
    m_section = 0;
    m_hasMarker = false;
}

void LiftRecord::append(OdDbTag const& tag, std::size_t place)
{
    m_slots.push_back(slotOf(tag, place));
    m_hasMarker |= tag.code == kMarkerCode;
}

LiftRecord::Slot LiftRecord::slotOf(OdDbTag const& tag, std::size_t place)
{
    Slot slot{tag, place};
    if (!tag.text.empty()) {
        slot.isTextCopied = true;
        slot.textAt = m_text.size();
        m_text.append(tag.text);
    }
    return slot;
}

OdDbTag LiftRecord::tagOf(Slot const& slot) const
{
    OdDbTag tag = slot.tag;
    if (slot.isTextCopied)
        tag.text = {m_text.data() + slot.textAt, slot.tag.text.size()};
    return tag;
}

OdDbTag LiftRecord::at(std::size_t index) const
{
    return tagOf(m_slots[index]);
}

std::size_t LiftRecord::bodyEnd() const
{
    auto const it = std::find_if(m_slots.begin(), m_slots.end(),
                                 [](Slot const& slot) { return slot.tag.code >= kFirstExtendedCode; });
    return static_cast<std::size_t>(it - m_slots.begin());
}

std::size_t LiftRecord::find(int code) const
{
    bool isInBraces = false; // of an application that has group codes of its own
    for (std::size_t i = 1; i < m_slots.size() && m_slots[i].tag.code < kFirstExtendedCode; ++i) {
        if (m_slots[i].tag.code == kBraces)
            isInBraces = at(i).text.starts_with('{');
        else if (!isInBraces && m_slots[i].tag.code == code)
            return i;
    }
    return size();
}

std::int64_t LiftRecord::integer(int code) const
{
    std::size_t const index = find(code);
    bool const isInteger = index != size() && m_slots[index].tag.kind == OdDbTagKind::kInteger;
    return isInteger ? m_slots[index].tag.integer : 0;
}

void LiftRecord::insert(std::size_t index, OdDbTag const& tag)
{
    Slot const slot = slotOf(tag, m_slots[index - 1].place);
    m_slots.insert(m_slots.begin() + static_cast<std::ptrdiff_t>(index), slot);
}

void LiftRecord::remove(std::size_t index, std::size_t count)
{
    auto const first = m_slots.begin() + static_cast<std::ptrdiff_t>(index);
    m_slots.erase(first, first + static_cast<std::ptrdiff_t>(count));
}

void LiftRecord::replace(std::size_t index, OdDbTag const& tag)
{
    m_slots[index] = slotOf(tag, m_slots[index].place);
}

void LiftRecord::sortBelow(OldForm const& form)
{
    m_form = &form;
    m_chains.fill({});
    Sorter sorter(form);
    for (std::uint32_t i = 1; i < m_slots.size(); ++i) {
        Chain& chain = m_chains[sorter.sectionOf(at(i))];
        (chain.last == 0 ? chain.first : m_slots[chain.last].next) = i;
        chain.last = i;
    }
    m_slots.front().next = m_chains.front().first;
    m_at = 0;
}

bool LiftRecord::next(OdDbTag& tag, std::size_t& place)
{
    if (m_form)
        return nextSorted(tag, place);
    if (m_at == m_slots.size())
        return false;
    place = m_slots[m_at].place;
    tag = at(m_at++);
    return true;
}

bool LiftRecord::nextSorted(OdDbTag& tag, std::size_t& place)
{
    std::size_t const extendedData = m_form->sections.size() + 1;
    while (m_at == kEnd) {
        if (m_section == extendedData)
            return false;
        m_at = orEnd(m_chains[++m_section].first);
        if (m_section == extendedData)
            continue;
        place = m_slots.front().place;
        tag = OdDbTag::ofText(kMarkerCode, m_form->sections[m_section - 1].marker);
        return true;
    }
    Slot const& slot = m_slots[m_at];
    place = slot.place;
    tag = tagOf(slot);
    m_at = orEnd(slot.next);
    return true;
}

} // namespace dxf
