#pragma once

#include "host/dxf/dxf_release.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace dxf {

/// Groups of a kind of record that came with a later release than the record itself.
struct LateGroup
{
    std::string_view type;   ///< record; empty: what all entities have
    std::string_view marker; ///< only behind this subclass marker; empty: behind any
    std::int16_t firstCode;
    std::int16_t lastCode; ///< a range, such as that of the three coordinates of a point
    ERelease first;        ///< the release that brought it
    wchar_t const* what;   ///< as reports name it; null when nobody misses it
    double usual = 0;      ///< a number that says nothing: not reported
};

/// Which groups of one kind of record a release does not have.
class LateGroups
{
public:
    /// Those of the common section of entities.
    static LateGroups common(ERelease target);
    /// Those of the sections of the class itself.
    static LateGroups ofType(std::string_view type, ERelease target);

    /// Null for a group that the release has.
    LateGroup const* find(int code, std::string_view marker) const
    {
        if (code < 0 || code >= kCodes || !m_mentioned[static_cast<std::size_t>(code)])
            return nullptr;
        return findMentioned(code, marker);
    }

private:
    static constexpr int kCodes = 512;

    explicit LateGroups(std::string_view type, ERelease target);
    LateGroup const* findMentioned(int code, std::string_view marker) const;

    std::vector<bool> m_mentioned = std::vector<bool>(kCodes);
    std::vector<LateGroup const*> m_groups;
};

/// Sections of a record, by their marker, that came with a later release than the record; null for none.
struct LateSection
{
    std::string_view type; ///< empty: of any record
    std::string_view marker;
    ERelease first;
    wchar_t const* what;
};
LateSection const* findLateSection(std::string_view type, std::string_view marker, ERelease target);

} // namespace dxf
