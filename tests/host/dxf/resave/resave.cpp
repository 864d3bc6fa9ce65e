// Opens a drawing and saves it under another name, for check_roundtrip.py.
#include "host/dxf/dxf_file.h"

#include <cstdio>
#include <string_view>

namespace {

constexpr int kWrongUsage = 2;

struct Arguments
{
    OdString source;
    OdString target;
    dxf::FileFormat format;
};

/// False for arguments that make no sense.
bool parse(int argc, char** argv, Arguments& arguments)
{
    constexpr int kFirstOption = 3;
    if (argc < kFirstOption)
        return false;
    arguments.source = OdString::fromUtf8(argv[1]);
    arguments.target = OdString::fromUtf8(argv[2]);
    for (int i = kFirstOption; i < argc; ++i) {
        std::string_view const option = argv[i];
        dxf::Release const* const release = dxf::findReleaseByName(option);
        if (option == "--binary")
            arguments.format.isBinary = true;
        else if (release)
            arguments.format.release = release->id;
        else
            return false;
    }
    return true;
}

void resave(Arguments const& arguments)
{
    dxf::ReadReport read;
    OdDbDatabasePtr const database = dxf::readFile(arguments.source, &read);
    for (dxf::ReadNote const& note : read.notes)
        std::printf("%s: %s\n", dxf::locationOf(arguments.source, read, note).toUtf8().c_str(),
                    note.text.toUtf8().c_str());
    dxf::SaveReport saved;
    dxf::writeFile(*database, arguments.target, arguments.format, &saved);
    for (dxf::SaveNote const& note : saved.notes())
        std::printf("%zu times: %s (first: %s)\n", note.count, note.text.toUtf8().c_str(),
                    note.first.ascii().toUtf8().c_str());
}

} // namespace

int main(int argc, char** argv)
{
    Arguments arguments;
    if (!parse(argc, argv, arguments)) {
        std::fprintf(stderr, "usage: resave IN OUT [RELEASE] [--binary]\n");
        return kWrongUsage;
    }
    try {
        resave(arguments);
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
