// Opens a drawing and saves it under another name, for check_roundtrip.py.
#include "host/dxf/dxf_file.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: resave IN OUT\n");
        return 2;
    }
    try {
        dxf::ReadReport report;
        OdDbDatabasePtr const database = dxf::readFile(OdString::fromUtf8(argv[1]), &report);
        for (dxf::ReadNote const& note : report.notes)
            std::printf("%zu: %s\n", note.line, note.text.toUtf8().c_str());
        dxf::writeFile(*database, OdString::fromUtf8(argv[2]));
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
