// How multiline texts stand in drawing files. Contents come in pieces of 250 characters, the last one under a
// group of its own; columns are an embedded object that repeats the placement.
#include "host/db/entities/od_db_mtext.h"
#include "host/db/filer/od_db_embedded.h"

OD_DB_DEFINE_CLASS(OdDbMText, OdDbEntity, "MTEXT")

namespace {

constexpr std::string_view kMarker = "AcDbMText";
constexpr int kLastPiece = 1;
constexpr int kPiece = 3;
constexpr std::size_t kPieceLength = 250;
constexpr int kDirectionCode = 11;
constexpr int kRotationCode = 50;

/// What groups of the embedded object are.
enum class EColumnValue : std::uint8_t
{
    kDirection,
    kLocation,
    kWidth,
    kAlong, ///< a length along the lines
    kAcross ///< a length across them
};
struct ColumnGroup
{
    int code;
    EColumnValue value;
    int coordinate;
};
// clang-format off
constexpr ColumnGroup kColumnGroups[] = {
    {10, EColumnValue::kDirection, 0}, {20, EColumnValue::kDirection, 1}, {30, EColumnValue::kDirection, 2},
    {11, EColumnValue::kLocation,  0}, {21, EColumnValue::kLocation,  1}, {31, EColumnValue::kLocation,  2},
    {40, EColumnValue::kWidth,     0}, {41, EColumnValue::kAcross,    0}, {42, EColumnValue::kAlong,     0},
    {43, EColumnValue::kAcross,    0}, {44, EColumnValue::kAlong,     0}, {45, EColumnValue::kAlong,     0},
    {46, EColumnValue::kAcross,    0},
};
// clang-format on

double coordinateOf(double const (&coordinates)[3], int index)
{
    return coordinates[index];
}

} // namespace

OdDbFieldTable const& OdDbMText::fields()
{
    // clang-format off
    static constexpr OdDbField s_frame[] = {
        odField<&OdDbMText::m_location>      (10, OdDbWriteRule::kAlways),
        odField<&OdDbMText::m_textHeight>    (40, OdDbWriteRule::kAlways),
        odField<&OdDbMText::m_width>         (41),
        odField<&OdDbMText::m_definedHeight> (46),
        odField<&OdDbMText::m_attachment>    (71, OdDbWriteRule::kAlways),
        odField<&OdDbMText::m_flowDirection> (72),
    };
    static constexpr OdDbField s_plane[] = {
        odNameField<&OdDbMText::m_style>     (7, OdDbTableKind::kTextStyle),
        odField<&OdDbMText::m_normal>        (210),
    };
    static constexpr OdDbField s_measured[] = {
        odField<&OdDbMText::m_measuredWidth> (42),
        odField<&OdDbMText::m_measuredHeight>(43),
    };
    static constexpr OdDbField s_spacing[] = {
        odField<&OdDbMText::m_lineSpacingStyle>      (73),
        odField<&OdDbMText::m_lineSpacingFactor>     (44),
        odField<&OdDbMText::m_backgroundFill>        (90),
        odField<&OdDbMText::m_backgroundColor>       (63),
        odField<&OdDbMText::m_backgroundRgb>         (421),
        odField<&OdDbMText::m_backgroundColorName>   (431),
        odField<&OdDbMText::m_backgroundScale>       (45),
        odField<&OdDbMText::m_backgroundTransparency>(441),
    };
    // clang-format on
    static OdDbFieldTable const s_table({
        entitySection(),
        {.marker = kMarker, .fields = s_frame, .readTail = &readContents, .writeTail = &writeContents},
        {.marker = kMarker,
         .fields = s_plane,
         .readTail = &readDirection,
         .writeTail = &writeDirection,
         .continues = true},
        {.marker = kMarker, .fields = s_measured, .writeTail = &writeAngleBehind, .continues = true},
        {.marker = kMarker, .fields = s_spacing, .continues = true},
        {.marker = kOdDbEmbeddedMarker,
         .fields = {},
         .readTail = &readColumns,
         .writeTail = &writeColumns,
         .isWritten = &hasColumns},
    });
    return s_table;
}

bool OdDbMText::readContents(OdDbObject& object, OdDbTag const& tag)
{
    if ((tag.code != kPiece && tag.code != kLastPiece) || tag.kind != OdDbTagKind::kText)
        return false;
    auto& text = static_cast<OdDbMText&>(object);
    OdString const piece = OdString::fromUtf8(tag.text);
    text.m_contents += piece;
    std::size_t const length = piece.getLength();
    if (tag.code == kPiece || text.m_pieces || length > kPieceLength)
        text.m_pieces.makeIfNull().push_back(static_cast<std::uint32_t>(length));
    return true;
}

void OdDbMText::writeContents(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& text = static_cast<OdDbMText const&>(object);
    std::wstring_view rest = text.m_contents.str();
    auto const put = [&](std::size_t length, bool isLast) {
        sink.text(isLast ? kLastPiece : kPiece, OdString(std::wstring(rest.substr(0, length))));
        rest.remove_prefix(length);
    };
    if (text.m_pieces) {
        auto const& pieces = *text.m_pieces.get();
        for (std::size_t i = 0; i < pieces.size(); ++i)
            put(pieces[i], i + 1 == pieces.size());
        return;
    }
    while (rest.size() > kPieceLength)
        put(kPieceLength, false);
    put(rest.size(), true);
}

bool OdDbMText::readDirection(OdDbObject& object, OdDbTag const& tag)
{
    if (tag.kind != OdDbTagKind::kReal)
        return false;
    auto& text = static_cast<OdDbMText&>(object);
    std::uint8_t const other = text.m_directionForm & (kVector | kAngle);
    switch (tag.code) {
    case kDirectionCode: text.m_direction.x = tag.real; break;
    case kDirectionCode + 10: text.m_direction.y = tag.real; break;
    case kDirectionCode + 20: text.m_direction.z = tag.real; break;
    case kRotationCode:
        text.m_angle = OdDbAngle::ofDegrees(tag.real);
        text.m_directionForm = other | kAngle | kAngleLast;
        return true;
    default: return false;
    }
    text.m_directionForm = other | kVector;
    return true;
}

void OdDbMText::writeDirection(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& text = static_cast<OdDbMText const&>(object);
    if ((text.m_directionForm & kAngle) != 0 && (text.m_directionForm & kAngleLast) == 0)
        sink.real(kRotationCode, text.m_angle.degrees());
    if ((text.m_directionForm & kVector) != 0)
        sink.point(kDirectionCode, &text.m_direction.x, 3);
}

void OdDbMText::writeAngleBehind(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& text = static_cast<OdDbMText const&>(object);
    if ((text.m_directionForm & kAngleLast) != 0)
        sink.real(kRotationCode, text.m_angle.degrees());
}

bool OdDbMText::hasColumns(OdDbObject const& object)
{
    return static_cast<bool>(static_cast<OdDbMText const&>(object).m_columns);
}

bool OdDbMText::readColumns(OdDbObject& object, OdDbTag const& tag)
{
    OdDbTagList& columns = static_cast<OdDbMText&>(object).m_columns.makeIfNull();
    if (!tag.is(kOdDbEmbeddedCode, kOdDbEmbeddedMarker))
        columns.put(tag);
    return true;
}

void OdDbMText::writeColumns(OdDbObject const& object, OdDbTagSink& sink)
{
    static_cast<OdDbMText const&>(object).m_columns.get()->writeTo(sink);
}

void OdDbMText::updateColumns(double along, double across)
{
    if (!m_columns)
        return;
    OdGeVector3d const right = direction();
    OdDbTagList updated;
    for (OdDbTag tag : *m_columns.get()) {
        auto const* const group = std::ranges::find(kColumnGroups, int(tag.code), &ColumnGroup::code);
        if (group != std::end(kColumnGroups) && tag.kind == OdDbTagKind::kReal) {
            switch (group->value) {
            case EColumnValue::kDirection:
                tag.real = coordinateOf({right.x, right.y, right.z}, group->coordinate);
                break;
            case EColumnValue::kLocation:
                tag.real = coordinateOf({m_location.x, m_location.y, m_location.z}, group->coordinate);
                break;
            case EColumnValue::kWidth: tag.real = m_width; break;
            case EColumnValue::kAlong: tag.real *= along; break;
            case EColumnValue::kAcross: tag.real *= across; break;
            }
        }
        updated.put(tag);
    }
    *m_columns.get() = std::move(updated);
}
