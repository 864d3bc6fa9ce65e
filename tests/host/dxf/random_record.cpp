#include "tests/host/dxf/random_record.h"

#include "host/db/entities/od_db_block_reference.h"
#include "host/db/filer/od_db_embedded.h"
#include "host/db/od_dxf_code.h"
#include "host/db/records/od_db_dim_variable.h"

namespace {

constexpr int kMarker = 100;
constexpr int kBraces = 102;
constexpr int kPaperSpace = 67;
constexpr int kName = 2;
constexpr int kComment = 999;

template <class... Unwanted>
std::vector<std::int16_t> codesBetween(int first, int last, Unwanted... unwanted)
{
    std::vector<std::int16_t> codes;
    for (int code = first; code <= last; ++code)
        if (OdDxfCode::_getType(code) != OdDxfCode::kUnknown && ((code != unwanted) && ...))
            codes.push_back(static_cast<std::int16_t>(code));
    return codes;
}

std::span<std::int16_t const> extendedDataCodes()
{
    static std::vector<std::int16_t> const s_codes = codesBetween(1000, 1071, 1001);
    return s_codes;
}

/// Codes that no class has for values of its own, of every kind.
std::span<std::int16_t const> foreignCodes()
{
    static std::vector<std::int16_t> const s_codes = [] {
        std::vector<std::int16_t> codes;
        for (auto const& [first, last] :
             {std::pair(92, 99), {160, 169}, {221, 229}, {231, 239}, {300, 329}, {430, 481}})
            std::ranges::copy(codesBetween(first, last, kMarker), std::back_inserter(codes));
        return codes;
    }();
    return s_codes;
}

/// Whether a tag of this code leaves the record what it is: there are tags that put it elsewhere or that make it
/// one of another class.
bool mayKeep(OdDbObject const& object, int code)
{
    constexpr int kColumns = 70;
    constexpr int kRows = 71;
    if (object.isA() == OdDbBlockReference::desc() && (code == kColumns || code == kRows))
        return false;
    return code != (odCast<OdDbEntity>(&object) ? kPaperSpace : kName);
}

} // namespace

class RandomRecord::ReaderSink final : public OdDbTagSink
{
public:
    explicit ReaderSink(OdDbRecordReader& reader) : m_reader(reader) {}
    void put(OdDbTag const& tag) override { m_reader.put(tag); }

private:
    OdDbRecordReader& m_reader;
};

RandomRecord::RandomRecord(OdDbDatabase& database, RandomValues& values, std::vector<OdDbHandle> handles,
                           EOddities oddities)
    : m_database(database), m_values(values), m_handles(std::move(handles)), m_oddities(oddities)
{
}

std::span<std::int16_t const> RandomRecord::recordCodes()
{
    static std::vector<std::int16_t> const s_codes = codesBetween(1, kComment, kMarker, kBraces);
    return s_codes;
}

void RandomRecord::canBeNamed(OdDbTableKind kind, OdDbSymbolTableRecord const& record)
{
    if (!record.isNameless())
        m_namesOf[static_cast<std::size_t>(kind)].push_back(record.getName().toUtf8());
}

/// A name that no record has may come with a random tag; it stands for some record then.
OdDbObjectId RandomRecord::byName(OdDbTableKind kind, std::string_view utf8Name)
{
    OdDbSymbolTable const& table = m_database.table(kind);
    OdDbObjectId const found = table.getAt(OdString::fromUtf8(utf8Name));
    auto const& names = m_namesOf[static_cast<std::size_t>(kind)];
    return !found.isNull() || names.empty() ? found : table.getAt(OdString::fromUtf8(names.front()));
}

void RandomRecord::fill(OdDbObject& object)
{
    OdDbRecordReader reader(object, *this);
    ReaderSink sink(reader);
    putEnvelope(object, sink);
    std::string_view last;
    for (OdDbSection const& section : object.fieldTable().sections()) {
        if (section.marker != last)
            putGroup(object, section.marker, sink);
        last = section.marker;
    }
    if (m_values.oneIn(4)) {
        sink.text(kMarker, "AcDbUnknown" + std::to_string(m_values.below(10)));
        putKept(object, sink);
    }
    if (m_values.oneIn(3))
        putExtendedData(sink);
}

void RandomRecord::putEnvelope(OdDbObject const& object, Sink& sink)
{
    constexpr int kOwner = 330;
    sink.handle(object.handleGroupCode(), handle()); // the drawing gives another one
    if (m_values.oneIn(4)) {
        sink.text(kBraces, "{ACAD_XDICTIONARY");
        sink.handle(360, handle());
        sink.text(kBraces, "}");
    }
    if (m_values.oneIn(4)) {
        sink.text(kBraces, "{ACAD_REACTORS");
        for (auto count = m_values.below(4); count > 0; --count)
            sink.handle(kOwner, handle());
        sink.text(kBraces, "}");
    }
    if (m_values.oneIn(4)) {
        sink.text(kBraces, "{" + std::to_string(m_values.below(100)));
        putTags(sink, recordCodes());
        sink.text(kBraces, "}");
    }
    sink.handle(kOwner, handle());
}

void RandomRecord::putGroup(OdDbObject const& object, std::string_view marker, Sink& sink)
{
    struct Tail
    {
        std::string_view marker;
        void (RandomRecord::*put)(Sink& sink);
    };
    constexpr Tail kTails[] = {
        {"AcDbPolyline", &RandomRecord::putVertices},
        {"AcDbLinetypeTableRecord", &RandomRecord::putDashes},
        {"AcDbDictionary", &RandomRecord::putEntries},
        {"AcDbDimStyleTableRecord", &RandomRecord::putDimVariables},
        {"AcDbAttribute", &RandomRecord::putVersion},
        {"AcDbAttributeDefinition", &RandomRecord::putVersion},
        {"AcDbSpline", &RandomRecord::putSplineLists},
        {"AcDbTrace", &RandomRecord::putLastCorner},
        {"AcDbFace", &RandomRecord::putLastCorner},
        {"AcDbMText", &RandomRecord::putParagraphs},
        {kOdDbEmbeddedMarker, &RandomRecord::putEmbedded},
    };
    if (!marker.empty())
        sink.text(marker == kOdDbEmbeddedMarker ? kOdDbEmbeddedCode : kMarker, marker);
    for (OdDbSection const& section : object.fieldTable().sections())
        if (section.marker == marker)
            for (OdDbField const& field : section.fields)
                putField(object, field, sink);
    for (Tail const& tail : kTails)
        if (tail.marker == marker)
            (this->*tail.put)(sink);
    if (mayKeepBelow(object, marker) && m_values.oneIn(4))
        putKept(object, sink);
}

bool RandomRecord::mayKeepBelow(OdDbObject const& object, std::string_view marker) const
{
    return m_oddities == EOddities::kAnywhere || object.fieldTable().sections().back().marker == marker;
}

void RandomRecord::putField(OdDbObject const& object, OdDbField const& field, Sink& sink)
{
    bool const isOwnName = field.code == kName && odCast<OdDbSymbolTableRecord>(&object);
    if (isOwnName)
        return sink.text(kName, newName());
    if (m_values.oneIn(6))
        return;
    switch (field.kind) {
    case OdDbFieldKind::kReal:
    case OdDbFieldKind::kAngle: return sink.real(field.code, m_values.real());
    case OdDbFieldKind::kInt8: return sink.integer(field.code, m_values.integer(8));
    case OdDbFieldKind::kInt16: return sink.integer(field.code, m_values.integer(16));
    case OdDbFieldKind::kInt32: return sink.integer(field.code, m_values.integer(32));
    case OdDbFieldKind::kBool: return sink.integer(field.code, m_values.integer(2) & 1);
    case OdDbFieldKind::kPoint2:
    case OdDbFieldKind::kPoint3: {
        double const coordinates[] = {m_values.real(), m_values.real(), m_values.real()};
        return sink.point(field.code, coordinates, field.kind == OdDbFieldKind::kPoint2 ? 2 : 3);
    }
    case OdDbFieldKind::kString: return sink.text(field.code, m_values.text());
    case OdDbFieldKind::kReference: return sink.handle(field.code, m_values.oneIn(8) ? OdDbHandle() : handle());
    case OdDbFieldKind::kName:
        if (auto const& names = m_namesOf[static_cast<std::size_t>(field.table)]; !names.empty())
            sink.text(field.code, m_values.pick(names));
    }
}

/// Tags that no field takes, unless they happen to have the code of one.
void RandomRecord::putKept(OdDbObject const& object, Sink& sink)
{
    auto const codes = m_oddities == EOddities::kAnywhere ? recordCodes() : foreignCodes();
    for (auto count = m_values.below(6); count > 0; --count)
        if (OdDbTag const tag = m_values.tag(m_values.pick(codes), m_handles); mayKeep(object, tag.code))
            sink.put(tag);
}

void RandomRecord::putTags(OdDbTagSink& sink, std::span<std::int16_t const> codes)
{
    for (auto count = m_values.below(10); count > 0; --count)
        sink.put(m_values.tag(m_values.pick(codes), m_handles));
}

void RandomRecord::putComments(OdDbTagSink& sink)
{
    for (auto count = m_values.below(3); count > 0; --count)
        sink.text(kComment, m_values.text());
}

void RandomRecord::putExtendedData(Sink& sink)
{
    for (auto count = m_values.below(3); count > 0; --count) {
        sink.text(1001, m_values.pick(m_namesOf[static_cast<std::size_t>(OdDbTableKind::kRegApp)]));
        putTags(sink, extendedDataCodes());
    }
}

void RandomRecord::putVertices(Sink& sink)
{
    for (auto count = m_values.below(5); count > 0; --count) {
        sink.real(10, m_values.real());
        sink.real(20, m_values.real());
        for (int const code : {40, 41, 42})
            if (m_values.oneIn(2))
                sink.real(code, m_values.real());
        if (m_values.oneIn(2))
            sink.integer(91, m_values.integer(32));
    }
}

void RandomRecord::putDashes(Sink& sink)
{
    sink.real(40, m_values.real());
    for (auto count = m_values.below(4); count > 0; --count) {
        sink.real(49, m_values.real());
        sink.integer(74, m_values.integer(16));
        sink.integer(75, m_values.integer(16));
        sink.handle(340, handle());
        for (int const code : {46, 50, 44, 45})
            sink.real(code, m_values.real());
        sink.text(9, m_values.text());
    }
}

void RandomRecord::putEntries(Sink& sink)
{
    for (auto count = m_values.below(4); count > 0; --count) {
        sink.text(3, newName());
        sink.handle(m_values.oneIn(2) ? 350 : 360, handle());
    }
}

void RandomRecord::putDimVariables(Sink& sink)
{
    sink.integer(70, m_values.integer(16)); // the flags of the record, not the variable of that code
    for (OdDbDimVariable const& variable : odDbDimVariables())
        if (m_values.oneIn(2))
            sink.put(m_values.tag(variable.code, m_handles));
}

void RandomRecord::putVersion(Sink& sink)
{
    constexpr int kVersionOrLock = 280;
    for (auto count = m_values.below(3); count > 0; --count)
        sink.integer(kVersionOrLock, m_values.integer(8));
}

void RandomRecord::putSplineLists(Sink& sink)
{
    for (int const code : {72, 73, 74}) // counts that lie
        sink.integer(code, m_values.integer(16));
    for (auto count = m_values.below(8); count > 0; --count)
        sink.real(m_values.oneIn(3) ? 41 : 40, m_values.real());
    for (auto count = m_values.below(8); count > 0; --count) {
        int const code = m_values.oneIn(3) ? 11 : 10;
        for (int const coordinate : {0, 10, 20})
            if (coordinate == 0 || !m_values.oneIn(6))
                sink.real(code + coordinate, m_values.real());
    }
}

void RandomRecord::putLastCorner(Sink& sink)
{
    double const corner[] = {m_values.real(), m_values.real(), m_values.real()};
    if (!m_values.oneIn(3))
        sink.point(13, corner, 3);
}

/// Contents in pieces, and the direction in both forms.
void RandomRecord::putParagraphs(Sink& sink)
{
    for (auto count = m_values.below(3); count > 0; --count)
        sink.text(3, m_values.text());
    if (m_values.oneIn(2))
        sink.text(1, m_values.text());
    for (auto count = m_values.below(4); count > 0; --count)
        sink.real(m_values.oneIn(2) ? 50 : 11 + 10 * static_cast<int>(m_values.below(3)), m_values.real());
}

void RandomRecord::putEmbedded(Sink& sink)
{
    for (int const code : {70, 71, 72})
        sink.integer(code, m_values.integer(16));
    for (int const code : {10, 20, 30, 11, 21, 31, 40, 41, 42})
        sink.real(code, m_values.real());
    sink.text(1, m_values.text());
    sink.real(44, m_values.real());
}
