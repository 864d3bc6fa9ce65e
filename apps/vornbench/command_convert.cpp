#include "apps/vornbench/commands.h"
#include "apps/vornbench/usage_error.h"
#include "host/app/file_notes.h"

#include <iostream>

namespace {

std::string nameOf(dxf::Release const& release)
{
    return OdString(release.name).toUtf8();
}

dxf::ERelease namedRelease(std::string const& name)
{
    if (dxf::Release const* const release = dxf::findReleaseByName(name))
        return release->id;
    std::string known;
    for (dxf::Release const& release : dxf::writableReleases())
        known += (known.empty() ? "" : ", ") + nameOf(release) + " (" + std::string(release.code) + ")";
    throw UsageError("vornbench: '" + name + "' is no release that can be written; known are " + known);
}

/// Files older than R12 are saved as R12, which is what they were read as.
dxf::ERelease ownRelease(OdDbDatabase const& database)
{
    dxf::Release const* const release = dxf::findRelease(database.fileContent().release);
    return release ? release->id : dxf::kCurrentRelease;
}

std::string formText(bool isBinary)
{
    return isBinary ? ", binary" : ", text";
}

void convert(Options const& options)
{
    bool const isNamed = !options.release.empty();
    dxf::FileFormat format;
    if (isNamed)
        format.release = namedRelease(options.release);
    OdString const input = OdString::fromUtf8(options.input);
    OdString const output = OdString::fromUtf8(options.output);

    dxf::ReadReport opening;
    OdDbDatabasePtr const database = dxf::readFile(input, &opening);
    if (!isNamed)
        format.release = ownRelease(*database);
    format.isBinary = options.binary || opening.isBinary;
    dxf::SaveReport saving;
    dxf::writeFile(*database, output, format, &saving);

    std::cout << options.input << " (" << opening.release.toUtf8() << formText(opening.isBinary) << ") -> "
              << options.output << " (" << nameOf(dxf::releaseOf(format.release)) << formText(format.isBinary)
              << ")\n";
    for (dxf::ReadNote const& note : opening.notes)
        std::cout << ca::noteText(input, opening, note).toUtf8() << '\n';
    if (opening.moreNotes > 0)
        std::cout << options.input << ": " << opening.moreNotes << " more notes\n";
    for (dxf::SaveNote const& note : saving.grouped())
        std::cout << ca::noteText(output, note).toUtf8() << '\n';
}

} // namespace

ExitCode convertDrawing(Options const& options)
{
    try {
        convert(options);
        return ExitCode::FilesFine;
    } catch (OdError const& error) {
        std::cerr << error.what() << '\n';
        return ExitCode::FileUnusable;
    }
}
