#include "host/dxf/dxf_save_report.h"

#include <algorithm>

namespace dxf {

void SaveReport::add(OdString const& text, OdDbHandle object)
{
    auto const it =
        std::find_if(m_notes.begin(), m_notes.end(), [&text](SaveNote const& note) { return note.text == text; });
    if (it == m_notes.end())
        m_notes.push_back({text, 1, object});
    else
        ++it->count;
}

} // namespace dxf
