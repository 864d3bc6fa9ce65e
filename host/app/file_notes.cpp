#include "host/app/file_notes.h"

#include "host/app/command_line.h"

namespace ca {

namespace {

constexpr std::size_t kShownNotes = 10;

template <class Notes, class Text>
void show(CommandLine& commandLine, OdString const& path, Notes const& notes, std::size_t moreNotes,
          Text const& text)
{
    std::size_t const shown = std::min(notes.size(), kShownNotes);
    for (std::size_t i = 0; i < shown; ++i)
        commandLine.message(text(notes[i]));
    if (std::size_t const more = notes.size() - shown + moreNotes; more > 0)
        commandLine.message(odFormat(L"%ls: %lld more notes.", path.c_str(), static_cast<long long>(more)));
}

} // namespace

OdString noteText(OdString const& path, dxf::ReadReport const& report, dxf::ReadNote const& note)
{
    OdString const place = note.place == 0 ? path : dxf::locationOf(path, report, note);
    OdString const handle =
        note.handle.isNull() ? OdString() : odFormat(L" (handle %ls)", note.handle.ascii().c_str());
    return place + L": " + note.text + handle;
}

OdString noteText(OdString const& path, dxf::SaveNote const& note)
{
    OdString where;
    if (note.count > 1)
        where = odFormat(L"%lld times", static_cast<long long>(note.count));
    if (!note.first.isNull())
        where += odFormat(note.count > 1 ? L", first %ls" : L"handle %ls", note.first.ascii().c_str());
    return path + L": " + note.text + (where.isEmpty() ? where : L" (" + where + L")");
}

void showNotes(CommandLine& commandLine, OdString const& path, dxf::ReadReport const& report)
{
    show(commandLine, path, report.notes, report.moreNotes,
         [&](dxf::ReadNote const& note) { return noteText(path, report, note); });
}

void showNotes(CommandLine& commandLine, OdString const& path, dxf::SaveReport const& report)
{
    show(commandLine, path, report.grouped(), 0, [&](dxf::SaveNote const& note) { return noteText(path, note); });
}

} // namespace ca
