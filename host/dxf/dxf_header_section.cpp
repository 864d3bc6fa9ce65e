#include "host/dxf/dxf_sections.h"

namespace dxf {

void readHeader(Reading& reading)
{
    OdDbHeader& header = reading.database().editHeader();
    while (!reading.isAt(0, "ENDSEC")) {
        OdDbTag const& tag = reading.tag();
        if (tag.code != 9 || !tag.text.starts_with('$'))
            reading.fail(L"A header variable (group 9) or ENDSEC is expected here");
        std::string const name(tag.text.substr(1));
        OdDbTagList value;
        for (reading.advance(); reading.tag().code != 9 && reading.tag().code != 0; reading.advance())
            value.put(reading.tag());
        header.set(name, std::move(value));
    }
    auto const seed = static_cast<std::uint64_t>(header.integer("HANDSEED"));
    reading.database().raiseHandseed(OdDbHandle(seed));
}

} // namespace dxf
