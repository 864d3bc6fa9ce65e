// Opens a drawing as document, moves all of it by (1,0) and saves it under another name, for check_roundtrip.py.
#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/app/sds_cmd.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: move_all IN OUT\n");
        return 2;
    }
    ca::CaApp& app = *ca::app();
    app.commandLine().setListener(
        [](OdString const& line) { std::fprintf(stderr, "%s\n", line.toUtf8().c_str()); });
    if (!app.openFile(OdString::fromUtf8(argv[1]).c_str()) ||
        sds_command(RTSTR, L"_MOVE", RTSTR, L"_ALL", RTSTR, L"", 0) != RTNORM)
        return 1;
    bool const hasEntities = !app.commandProcessor().isIdle(); // in an empty drawing MOVE has ended already
    if (hasEntities && sds_command(RTSTR, L"0,0", RTSTR, L"1,0", 0) != RTNORM)
        return 1;
    return ca::curDoc()->saveAs(OdString::fromUtf8(argv[2]), 60) ? 0 : 1;
}
