#include "host/dxf/dxf_file.h"

#include "host/dxf/dxf_binary_sink.h"
#include "host/dxf/dxf_binary_source.h"
#include "host/dxf/dxf_content_kind.h"
#include "host/dxf/dxf_drawing_reader.h"
#include "host/dxf/dxf_drawing_writer.h"
#include "host/dxf/dxf_file_head.h"
#include "host/dxf/dxf_text_sink.h"
#include "host/dxf/dxf_text_source.h"
#include "host/dxf/older/dxf_lifting_source.h"
#include "host/dxf/older/dxf_lowering_sink.h"
#include "host/ut/ut_file.h"

namespace dxf {

namespace {

/// Why files of a kind are not read.
struct Refusal
{
    EContentKind kind;
    OdResult code;
    wchar_t const* reason;
};

// clang-format off
constexpr Refusal s_refusals[] = {
    {EContentKind::kDwg,    eUnsupportedFormat, L"This is a DWG file; only DXF drawings are read, whatever their "
                                                L"extension"},
    {EContentKind::kUtf16,  eUnsupportedFormat, L"This is text in UTF-16; drawings are text in UTF-8 or in a code page"},
    {EContentKind::kEmpty,  eInvalidFile,       L"The file is empty"},
    {EContentKind::kOther,  eInvalidFile,       L"This is not a drawing: no group code 0 or 999 in the first line"},
};
// clang-format on

void refuseUnlessDrawing(OdString const& path, EContentKind kind)
{
    for (Refusal const& refusal : s_refusals)
        if (refusal.kind == kind)
            throw OdError(refusal.code, odFormat(L"%ls:1: %ls", path.c_str(), refusal.reason));
}

/// A drawing is built without undo.
class BuildingMode
{
public:
    explicit BuildingMode(OdDbDatabase& database) : m_database(database)
    {
        m_database.disableUndoRecording(true);
        m_database.setBeingRead(true);
    }
    ~BuildingMode()
    {
        m_database.setBeingRead(false);
        m_database.disableUndoRecording(false);
    }
    BuildingMode(BuildingMode const&) = delete;
    BuildingMode& operator=(BuildingMode const&) = delete;

private:
    OdDbDatabase& m_database;
};

using SourcePtr = std::unique_ptr<TagSource>;

SourcePtr makeSource(OdString const& path, std::string_view bytes, bool isBinary, TextDecoder& decoder)
{
    if (isBinary)
        return std::make_unique<BinarySource>(path, bytes, decoder);
    return std::make_unique<TextSource>(path, bytes, decoder);
}

std::unique_ptr<FileSink> makeSink(FileFormat format, ByteSink& bytes, TextEncoder& encoder, SaveReport& report)
{
    if (format.isBinary)
        return std::make_unique<BinarySink>(bytes, encoder, format.release, report);
    return std::make_unique<TextSink>(bytes, encoder);
}

void writeTo(OdDbDatabase const& database, ByteSink& bytes, FileFormat format, SaveReport* report)
{
    SaveReport unwanted;
    SaveReport& target = report ? *report : unwanted;
    TextEncoder encoder(format.release, database.header().text("DWGCODEPAGE").toUtf8());
    std::unique_ptr<FileSink> const sink = makeSink(format, bytes, encoder, target);
    if (format.release == kCurrentRelease) {
        writeDrawing(database, *sink);
    } else {
        LoweringSink lowering(database, *sink, format.release, target);
        writeDrawing(database, lowering);
        lowering.finish();
    }
    sink->flush();
}

} // namespace

FileFormat formatOfCode(int code)
{
    constexpr int kCurrentBinary = 80;
    auto const releases = static_cast<int>(writableReleases().size());
    bool const isBinary = code >= kCurrentBinary;
    int const back = code - (isBinary ? kCurrentBinary : kCurrentFormatCode);
    if (back < 0 || back >= releases)
        throw OdError(eUnsupportedFormat,
                      odFormat(L"%d is not a known format code; 60 is the current format", code));
    return {static_cast<ERelease>(releases - 1 - back), isBinary};
}

OdString locationOf(OdString const& path, ReadReport const& report, ReadNote const& note)
{
    auto const place = static_cast<long long>(note.place);
    return report.isBinary ? odFormat(L"%ls: byte %lld", path.c_str(), place)
                           : odFormat(L"%ls:%lld", path.c_str(), place);
}

OdDbDatabasePtr readFile(OdString const& path, ReadReport* report)
{
    ut::MappedFile const file(path);
    return readBytes(path, file.bytes(), report);
}

OdDbDatabasePtr readBytes(OdString const& path, std::string_view bytes, ReadReport* report)
{
    EContentKind const kind = contentKindOf(bytes);
    refuseUnlessDrawing(path, kind);
    bool const isBinary = kind == EContentKind::kBinary;
    TextDecoder noCodePage({}, ETextForm::kUtf8);
    FileHead const head = readHead(*makeSource(path, bytes, isBinary, noCodePage));

    ReadReport unwanted;
    ReadReport& target = report ? *report : unwanted;
    target = {head.release->name, isBinary, {}, 0};
    TextDecoder decoder(head.codePage, textFormOf(bytes, head.codePage, head.release->id));
    SourcePtr source = makeSource(path, bytes, isBinary, decoder);
    if (head.release->id < ERelease::kR2000)
        source = std::make_unique<LiftingSource>(path, std::move(source), head.release->id);
    OdDbDatabasePtr database = new OdDbDatabase(false);
    BuildingMode const mode(*database);
    readDrawing(*database, *source, *head.release, target);
    return database;
}

void writeFile(OdDbDatabase const& database, OdString const& path, FileFormat format, SaveReport* report)
{
    ut::AtomicFile file(path);
    AtomicFileBytes bytes(file);
    writeTo(database, bytes, format, report);
    file.commit();
}

std::string writeBytes(OdDbDatabase const& database, FileFormat format, SaveReport* report)
{
    std::string result;
    StringBytes bytes(result);
    writeTo(database, bytes, format, report);
    return result;
}

} // namespace dxf
