#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

// How the records of R12 relate to those of today: below which subclass marker each of their group codes stands.
// Both ways of translating work from this table: sorting the groups of an old record below markers, and leaving
// out of a new record what R12 does not have.

namespace dxf {

/// A set of group codes below 512. A point is named by its first code and brings those of y and z along.
class OldCodes
{
public:
    constexpr OldCodes(std::initializer_list<int> codes)
    {
        for (int const code : codes) {
            insert(code);
            if (code >= 10 && code <= 18)
                insert(code + 10);
            if (code >= 10 && code <= 17)
                insert(code + 20);
            if (code == 210) {
                insert(220);
                insert(230);
            }
        }
    }
    constexpr bool contains(int code) const
    {
        return code >= 0 && code < kCount && (m_bits[word(code)] >> (code % 64) & 1) != 0;
    }

private:
    static constexpr int kCount = 512;
    static constexpr std::size_t word(int code) { return static_cast<std::size_t>(code / 64); }
    constexpr void insert(int code) { m_bits[word(code)] |= std::uint64_t{1} << (code % 64); }

    std::array<std::uint64_t, kCount / 64> m_bits{};
};

/// One section of a record of today, with the groups of it that R12 has.
struct OldSection
{
    std::string_view marker;
    OldCodes codes;
};

/// A kind of record of R12: the sections that it has today, from the base class down.
struct OldForm
{
    std::string_view type; ///< text of group 0
    std::span<OldSection const> sections;
};

/// All forms; of those of one type the plain one comes first.
std::span<OldForm const> oldForms();
/// The form of a record. POLYLINE, VERTEX, INSERT and DIMENSION have several, told apart by their flags (group 70)
/// and, for INSERT, the numbers of columns and rows; for them this is the form without flags. Null for records
/// that R12 does not have.
OldForm const* findOldForm(std::string_view type);
/// The form of a POLYLINE by its flags.
OldForm const& oldPolylineForm(std::int64_t flags);
/// The form of a VERTEX by its flags; vertices without telling flags follow their polyline.
OldForm const& oldVertexForm(std::int64_t flags, std::int64_t polylineFlags);
/// The flags of a POLYLINE or VERTEX that stand below a marker of today, as they tell its kind without markers;
/// others as they are.
std::int64_t oldKindFlags(std::string_view marker, std::int64_t flags);
/// The form of a DIMENSION by its type and flags.
OldForm const& oldDimensionForm(std::int64_t flags);
/// The form of an INSERT of several columns or rows.
OldForm const& oldGridInsertForm();

/// R12 has the group in some section of the record, below a marker or without one. Handles, comments, groups in
/// braces and extended data are not asked for here.
bool isOldGroup(std::string_view type, int code);

} // namespace dxf
