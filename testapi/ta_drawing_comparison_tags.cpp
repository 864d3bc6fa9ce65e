#include "testapi/ta_drawing_comparison_tags.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ta {

namespace {

bool holdsText(OdDbTag const& tag)
{
    return tag.kind == OdDbTagKind::kText || tag.kind == OdDbTagKind::kBinary;
}

template <class Tags, class Agree>
bool allAgree(Tags const& tags1, Tags const& tags2, Agree const& agree)
{
    std::size_t const count = tags1.size();
    if (count != tags2.size())
        return false;
    for (std::size_t i = 0; i < count; ++i)
        if (!agree(tags1[i], tags2[i]))
            return false;
    return true;
}

bool haveSameCodes(TagBuffer const& tags1, TagBuffer const& tags2)
{
    return allAgree(tags1, tags2, [](OdDbTag const& a, OdDbTag const& b) { return a.code == b.code; });
}

} // namespace

void TagBuffer::put(OdDbTag const& tag)
{
    m_tags.push_back(tag);
    m_textPlaces.push_back(m_text.size());
    if (holdsText(tag))
        m_text += tag.text;
}

void TagBuffer::clear()
{
    m_tags.clear();
    m_textPlaces.clear();
    m_text.clear();
}

OdDbTag TagBuffer::operator[](std::size_t index) const
{
    OdDbTag tag = m_tags[index];
    if (holdsText(tag))
        tag.text = std::string_view(m_text).substr(m_textPlaces[index], tag.text.size());
    return tag;
}

void TagBuffer::removeIf(std::function<bool(OdDbTag const&)> const& isUnwanted)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_tags.size(); ++i) {
        if (isUnwanted((*this)[i]))
            continue;
        m_tags[kept] = m_tags[i];
        m_textPlaces[kept++] = m_textPlaces[i];
    }
    m_tags.resize(kept);
    m_textPlaces.resize(kept);
}

void TagBuffer::sortByCode()
{
    std::vector<std::size_t> order(m_tags.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::ranges::stable_sort(order, {}, [this](std::size_t index) { return m_tags[index].code; });
    std::vector<OdDbTag> tags;
    std::vector<std::size_t> places;
    for (std::size_t const index : order) {
        tags.push_back(m_tags[index]);
        places.push_back(m_textPlaces[index]);
    }
    m_tags = std::move(tags);
    m_textPlaces = std::move(places);
}

bool TagComparison::areIdentical(OdDbTag const& tag1, OdDbTag const& tag2) const
{
    if (tag1.code != tag2.code || tag1.kind != tag2.kind)
        return false;
    if (tag1.kind == OdDbTagKind::kHandle)
        return m_bridge.sameHandles(tag1.handle(), tag2.handle());
    if (tag1.kind == OdDbTagKind::kReal)
        return tag1.real == tag2.real || tag1.integer == tag2.integer; // bit for bit: what is no number
    return holdsText(tag1) ? tag1.text == tag2.text : tag1.integer == tag2.integer;
}

bool TagComparison::areIdentical(OdDbTagList const& tags1, OdDbTagList const& tags2) const
{
    auto it1 = tags1.begin(), it2 = tags2.begin();
    for (; it1 != tags1.end() && it2 != tags2.end(); ++it1, ++it2)
        if (!areIdentical(*it1, *it2))
            return false;
    return it1 == tags1.end() && it2 == tags2.end();
}

bool TagComparison::areIdentical(TagBuffer const& tags1, TagBuffer const& tags2) const
{
    return allAgree(tags1, tags2, [this](OdDbTag const& a, OdDbTag const& b) { return areIdentical(a, b); });
}

bool TagComparison::agree(OdDbTag const& tag1, OdDbTag const& tag2) const
{
    bool const areReals = tag1.kind == OdDbTagKind::kReal && tag2.kind == OdDbTagKind::kReal;
    return areIdentical(tag1, tag2) ||
           (areReals && tag1.code == tag2.code && std::abs(tag1.real - tag2.real) <= m_eps);
}

bool TagComparison::agree(TagBuffer const& tags1, TagBuffer const& tags2) const
{
    return allAgree(tags1, tags2, [this](OdDbTag const& a, OdDbTag const& b) { return agree(a, b); });
}

void TagComparison::compare(TagBuffer& tags1, TagBuffer& tags2, Receiver const& receiver) const
{
    if (!haveSameCodes(tags1, tags2)) {
        tags1.sortByCode();
        tags2.sortByCode();
    }
    std::size_t i1 = 0, i2 = 0;
    while (i1 < tags1.size() || i2 < tags2.size()) {
        OdDbTag const tag1 = i1 < tags1.size() ? tags1[i1] : OdDbTag();
        OdDbTag const tag2 = i2 < tags2.size() ? tags2[i2] : OdDbTag();
        bool const hasFirst = i1 < tags1.size() && (i2 >= tags2.size() || tag1.code <= tag2.code);
        bool const hasSecond = i2 < tags2.size() && (i1 >= tags1.size() || tag2.code <= tag1.code);
        if (!hasFirst || !hasSecond || !agree(tag1, tag2))
            receiver(hasFirst ? &tag1 : nullptr, hasSecond ? &tag2 : nullptr);
        i1 += hasFirst;
        i2 += hasSecond;
    }
}

OdString TagComparison::textOf(OdDbTag const* tag, OdDbDatabase const& database)
{
    if (!tag)
        return L"nothing";
    switch (tag->kind) {
    case OdDbTagKind::kText: return Comparison::textOf(OdString::fromUtf8(tag->text));
    case OdDbTagKind::kReal: return Comparison::textOf(tag->real);
    case OdDbTagKind::kInteger: return odFormat(L"%lld", static_cast<long long>(tag->integer));
    case OdDbTagKind::kBinary: return odFormat(L"%d bytes", static_cast<int>(tag->text.size()));
    case OdDbTagKind::kHandle: break;
    }
    OdDbObjectId const id = DrawingBridge::find(database, tag->handle());
    return id.isNull() && !tag->handle().isNull() ? L"handle " + tag->handle().ascii() : Comparison::textOf(id);
}

} // namespace ta
