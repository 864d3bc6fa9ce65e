#include "host/dxf/older/dxf_lower_context.h"

namespace dxf {

LowerContext::LowerContext(OdDbDatabase const& drawing, ERelease release, SaveReport& notes)
    : database(drawing), target(release), origin(kCurrentRelease), report(notes)
{
    if (Release const* const found = findRelease(drawing.fileContent().release))
        origin = found->id;
}

void LowerContext::noteLeftOut(std::string_view subject, OdString const& what, ERelease first,
                               OdDbHandle handle) const
{
    report.add(odFormat(L"%ls: %ls needs %ls; left out", OdString::fromUtf8(subject).c_str(), what.c_str(),
                        releaseOf(first).name),
               handle);
}

} // namespace dxf
