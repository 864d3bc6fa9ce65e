#pragma once

#include "host/db/filer/od_db_tag.h"
#include "host/dxf/older/dxf_old_records.h"

#include <array>
#include <string>
#include <vector>

namespace dxf {

/// One record of an older file while it is brought into today's form: its tags in the order of the file, then
/// handed out in the order of today. One object serves for all records of a file.
class LiftRecord
{
public:
    /// Begins a record with its group 0, whose text has to outlive the record.
    void begin(OdDbTag const& head, std::size_t place);
    void append(OdDbTag const& tag, std::size_t place);

    std::string_view type() const { return m_slots.front().tag.text; }
    void setType(std::string_view type) { m_slots.front().tag.text = type; }
    /// A subclass marker stands among the tags.
    bool hasMarker() const { return m_hasMarker; }
    std::size_t size() const { return m_slots.size(); }
    /// Text of the tag lasts until the record is changed.
    OdDbTag at(std::size_t index) const;
    /// Where the extended data begin; size() when there are none.
    std::size_t bodyEnd() const;
    /// Index of the first tag with the code in front of the extended data; size() for none.
    std::size_t find(int code) const;
    bool has(int code) const { return find(code) != size(); }
    /// The integer of the first tag with the code; 0 for none.
    std::int64_t integer(int code) const;

    /// @name Changes; a tag that is put in stands, for messages, where its neighbour does
    /// @{
    void insert(std::size_t index, OdDbTag const& tag);
    void remove(std::size_t index, std::size_t count = 1);
    void replace(std::size_t index, OdDbTag const& tag);
    /// Sorts the tags below the markers of the form; without this they are handed out in their own order.
    void sortBelow(OldForm const& form);
    /// @}

    /// Hands out the next tag; false when all are.
    bool next(OdDbTag& tag, std::size_t& place);

private:
    struct Slot
    {
        OdDbTag tag; ///< its text, if copied, is only a length
        std::size_t place = 0;
        std::size_t textAt = 0;
        std::uint32_t next = 0; ///< of the same section; 0 for none
        bool isTextCopied = false;
    };
    /// What stands below one marker, as a chain of slots.
    struct Chain
    {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
    };
    static constexpr std::size_t kMostSections = 8;
    Slot slotOf(OdDbTag const& tag, std::size_t place);
    OdDbTag tagOf(Slot const& slot) const;
    bool nextSorted(OdDbTag& tag, std::size_t& place);

    std::vector<Slot> m_slots;
    std::string m_text;
    OldForm const* m_form = nullptr;
    /// 0 in front of all markers, then those of the form, then the extended data.
    std::array<Chain, kMostSections> m_chains;
    std::size_t m_at = 0;      ///< slot that is handed out next
    std::size_t m_section = 0; ///< that is being handed out
    bool m_hasMarker = false;
};

} // namespace dxf
