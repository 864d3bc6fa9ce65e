#pragma once

// For the comparison of drawings: lists of tags, as variable parts of objects are written and as what the host
// does not know is kept.

#include "testapi/ta_drawing_comparison_bridge.h"

#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace ta {

/// Tags in memory, used again and again: clearing frees nothing.
class TagBuffer : public OdDbTagSink
{
public:
    void put(OdDbTag const& tag) override;
    void clear();
    std::size_t size() const { return m_tags.size(); }
    OdDbTag operator[](std::size_t index) const;
    void removeIf(std::function<bool(OdDbTag const&)> const& isUnwanted);
    /// By code; tags of one code keep their order.
    void sortByCode();

private:
    std::vector<OdDbTag> m_tags; ///< where they hold text, it stands in m_text
    std::vector<std::size_t> m_textPlaces;
    std::string m_text;
};

/// Compares lists of tags of two drawings: reals within a tolerance, handles by what they stand for.
class TagComparison
{
public:
    TagComparison(DrawingBridge const& bridge, double eps) : m_bridge(bridge), m_eps(eps) {}

    /// The same, reals exactly.
    bool areIdentical(OdDbTagList const& tags1, OdDbTagList const& tags2) const;
    bool areIdentical(TagBuffer const& tags1, TagBuffer const& tags2) const;
    bool agree(OdDbTag const& tag1, OdDbTag const& tag2) const;
    bool agree(TagBuffer const& tags1, TagBuffer const& tags2) const;

    /// A pair of tags of one code that does not agree; null where one list has more tags of the code.
    using Receiver = std::function<void(OdDbTag const* tag1, OdDbTag const* tag2)>;
    /// Tells all differences. Lists that do not have the same codes in the same order are compared code by code,
    /// and sorted for that.
    void compare(TagBuffer& tags1, TagBuffer& tags2, Receiver const& receiver) const;

    /// The value for messages.
    static OdString textOf(OdDbTag const* tag, OdDbDatabase const& database);

private:
    bool areIdentical(OdDbTag const& tag1, OdDbTag const& tag2) const;

    DrawingBridge const& m_bridge;
    double m_eps;
};

/// Calls the receiver with the values of each key, null where a map does not have it, in the order of keys.
template <class Map, class Receiver>
void forEachKey(Map const& map1, Map const& map2, Receiver const& receiver)
{
    auto it1 = map1.begin(), it2 = map2.begin();
    while (it1 != map1.end() || it2 != map2.end()) {
        bool const hasFirst = it1 != map1.end() && (it2 == map2.end() || it1->first <= it2->first);
        bool const hasSecond = it2 != map2.end() && (it1 == map1.end() || it2->first <= it1->first);
        receiver(hasFirst ? it1->first : it2->first, hasFirst ? &it1->second : nullptr,
                 hasSecond ? &it2->second : nullptr);
        if (hasFirst)
            ++it1;
        if (hasSecond)
            ++it2;
    }
}

} // namespace ta
