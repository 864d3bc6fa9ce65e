#include "host/dxf/dxf_section_writers.h"

namespace dxf {

void writeClasses(OdDbDatabase const& database, OdDbTagSink& sink)
{
    for (OdDbFileContent::Section const& section : database.fileContent().sections)
        if (section.name == "CLASSES")
            section.tags.writeTo(sink);
}

} // namespace dxf
