#include "host/dxf/dxf_sections.h"

namespace dxf {

namespace {

bool isVariable(Reading const& reading)
{
    return reading.tag().code == 9 && reading.tag().text.starts_with('$');
}

/// Damage: goes to the next variable or to the end of the section.
void skipToVariable(Reading& reading)
{
    reading.note(
        L"A header variable (group 9) or ENDSEC is expected here; what stands up to the next one is left out");
    do
        reading.advance();
    while (!isVariable(reading) && !reading.isAtSectionEnd());
}

} // namespace

void readHeader(Reading& reading)
{
    OdDbHeader& header = reading.database().editHeader();
    while (!reading.isAtSectionEnd()) {
        if (!isVariable(reading)) {
            skipToVariable(reading);
            continue;
        }
        std::string const name(reading.tag().text.substr(1));
        OdDbTagList value;
        for (reading.advance(); reading.tag().code != 9 && !reading.isAtRecord(); reading.advance())
            value.put(reading.tag());
        header.set(name, std::move(value));
    }
    auto const seed = static_cast<std::uint64_t>(header.integer("HANDSEED"));
    reading.database().raiseHandseed(OdDbHandle(seed));
}

} // namespace dxf
