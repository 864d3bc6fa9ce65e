#include "host/dxf/dxf_file.h"

#include "host/dxf/dxf_content_kind.h"
#include "host/dxf/dxf_drawing_reader.h"
#include "host/dxf/dxf_drawing_writer.h"
#include "host/dxf/dxf_file_head.h"
#include "host/dxf/dxf_text_sink.h"
#include "host/dxf/dxf_text_source.h"
#include "host/ut/ut_file.h"

namespace dxf {

namespace {

/// Why files of a kind are not read; null for the kind that is.
struct Refusal
{
    EContentKind kind;
    OdResult code;
    wchar_t const* reason;
};

// clang-format off
constexpr Refusal s_refusals[] = {
    {EContentKind::kBinary, eUnsupportedFormat, L"This is binary DXF; reading it is not supported yet"},
    {EContentKind::kDwg,    eUnsupportedFormat, L"This is a DWG file; only drawings as DXF text are read, whatever "
                                                L"their extension"},
    {EContentKind::kUtf16,  eUnsupportedFormat, L"This is text in UTF-16; drawings are text in UTF-8 or in a code page"},
    {EContentKind::kEmpty,  eInvalidFile,       L"The file is empty"},
    {EContentKind::kOther,  eInvalidFile,       L"This is not a drawing: no group code 0 or 999 in the first line"},
};
// clang-format on

void refuseUnlessText(OdString const& path, std::string_view bytes)
{
    EContentKind const kind = contentKindOf(bytes);
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

} // namespace

EFormat formatOfCode(int code)
{
    if (code != static_cast<int>(EFormat::kCurrent))
        throw OdError(eUnsupportedFormat,
                      odFormat(L"%d is not a known format code; 60 is the current format", code));
    return EFormat::kCurrent;
}

OdDbDatabasePtr readFile(OdString const& path, ReadReport* report)
{
    ut::MappedFile const file(path);
    refuseUnlessText(path, file.bytes());
    TextDecoder noCodePage({});
    TextSource headSource(path, file.bytes(), noCodePage);
    FileHead const head = readHead(path, headSource);

    ReadReport unwanted;
    ReadReport& target = report ? *report : unwanted;
    target = {head.release->name, {}};
    TextDecoder decoder(head.codePage);
    TextSource source(path, file.bytes(), decoder);
    OdDbDatabasePtr database = new OdDbDatabase(false);
    BuildingMode const mode(*database);
    readDrawing(*database, source, target);
    return database;
}

void writeFile(OdDbDatabase const& database, OdString const& path, EFormat)
{
    ut::AtomicFile file(path);
    TextSink sink(file);
    writeDrawing(database, sink);
    sink.flush();
    file.commit();
}

} // namespace dxf
