#pragma once

#include "host/db/od_db_handle.h"
#include "host/root/od_string.h"

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace dxf {

/// Something that a saved file does not hold as the drawing does, because its release or form cannot.
struct SaveNote
{
    OdString text;         ///< what is lost or changed, such as "HATCH: R12 has no such entities; left out"
    std::size_t count = 0; ///< how often
    OdDbHandle first;      ///< the first object concerned; may be null
};

/// What saving could not keep.
class SaveReport
{
public:
    /// Equal texts become one note that counts.
    void add(OdString const& text, OdDbHandle object = {});
    std::vector<SaveNote> const& notes() const { return m_notes; }
    /// The notes for people: those that say the same of different subjects ("HATCH: ...", "MESH: ...") are one.
    std::vector<SaveNote> grouped() const;

private:
    std::vector<SaveNote> m_notes;
    std::unordered_map<OdString, std::size_t> m_numbers; ///< of the notes by their texts
};

} // namespace dxf
