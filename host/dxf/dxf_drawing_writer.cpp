#include "host/dxf/dxf_drawing_writer.h"

#include "host/dxf/dxf_section_writers.h"

#include <unordered_set>

namespace dxf {

namespace {

struct SectionWriter
{
    std::string_view name;
    void (*write)(OdDbDatabase const& database, OdDbTagSink& sink);
};

/// The sections of every drawing, in the usual order.
constexpr SectionWriter s_writers[] = {
    {"HEADER", &writeHeader}, {"CLASSES", &writeClasses},   {"TABLES", &writeTables},
    {"BLOCKS", &writeBlocks}, {"ENTITIES", &writeEntities}, {"OBJECTS", &writeObjects},
};

/// A section to be written: from the drawing, as it was kept, or both.
struct Section
{
    SectionWriter const* writer = nullptr;
    OdDbFileContent::Section const* kept = nullptr;

    std::string_view name() const { return kept ? std::string_view(kept->name) : writer->name; }
};

SectionWriter const* findWriter(std::string_view name)
{
    for (SectionWriter const& writer : s_writers)
        if (writer.name == name)
            return &writer;
    return nullptr;
}

/// Header, classes and tables have to stand in front of what refers to them, which damaged files may not do; a
/// section that the host does not know stays behind the one before it. Sound files keep their order.
void putInReadableOrder(std::vector<Section>& sections)
{
    constexpr std::ptrdiff_t kFree = 3; // sections from BLOCKS on can have any order
    constexpr std::ptrdiff_t kBehindHeader = 1;
    std::vector<std::pair<std::ptrdiff_t, Section>> ranked;
    std::ptrdiff_t rank = kBehindHeader;
    for (Section const& section : sections) {
        rank = section.writer ? std::min(section.writer - std::begin(s_writers), kFree)
                              : std::max(rank, kBehindHeader);
        ranked.emplace_back(rank, section);
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](auto const& a, auto const& b) { return a.first < b.first; });
    std::transform(ranked.begin(), ranked.end(), sections.begin(), [](auto const& each) { return each.second; });
}

/// The kept sections in their order, as far as files can have it, each known one once; known ones that are missing
/// follow the one that they usually follow.
std::vector<Section> sectionsOf(OdDbFileContent const& content)
{
    std::vector<Section> sections;
    std::unordered_set<SectionWriter const*> present;
    for (OdDbFileContent::Section const& kept : content.sections) {
        SectionWriter const* const writer = findWriter(kept.name);
        if (!writer || present.insert(writer).second)
            sections.push_back({writer, &kept});
    }
    auto place = sections.begin();
    for (SectionWriter const& writer : s_writers) {
        auto const found = std::find_if(sections.begin(), sections.end(),
                                        [&writer](Section const& section) { return section.writer == &writer; });
        place = found != sections.end() ? found : sections.insert(place, {&writer, nullptr});
        ++place;
    }
    putInReadableOrder(sections);
    return sections;
}

void writeSection(OdDbDatabase const& database, Section const& section, OdDbTagSink& sink)
{
    if (section.kept)
        section.kept->commentsBefore.writeTo(sink);
    sink.text(0, "SECTION");
    sink.text(2, section.name());
    if (section.kept)
        section.kept->commentsInside.writeTo(sink);
    if (section.writer)
        section.writer->write(database, sink);
    else
        section.kept->tags.writeTo(sink);
    sink.text(0, "ENDSEC");
}

} // namespace

void writeDrawing(OdDbDatabase const& database, OdDbTagSink& sink)
{
    for (Section const& section : sectionsOf(database.fileContent()))
        writeSection(database, section, sink);
    database.fileContent().closingComments.writeTo(sink);
    sink.text(0, "EOF");
}

} // namespace dxf
