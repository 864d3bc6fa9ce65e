#include "host/db/records/od_db_text_style_table_record.h"

#include "host/db/od_db_database.h"

OD_DB_DEFINE_CLASS(OdDbTextStyleTableRecord, OdDbSymbolTableRecord, "STYLE")

OdDbFieldTable const& OdDbTextStyleTableRecord::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbTextStyleTableRecord::m_name>           (2, OdDbWriteRule::kAlways),
        odField<&OdDbTextStyleTableRecord::m_flags>          (70, OdDbWriteRule::kAlways),
        odField<&OdDbTextStyleTableRecord::m_textSize>       (40, OdDbWriteRule::kAlways),
        odField<&OdDbTextStyleTableRecord::m_xScale>         (41, OdDbWriteRule::kAlways),
        odField<&OdDbTextStyleTableRecord::m_oblique>        (50, OdDbWriteRule::kAlways),
        odField<&OdDbTextStyleTableRecord::m_generation>     (71, OdDbWriteRule::kAlways),
        odField<&OdDbTextStyleTableRecord::m_priorSize>      (42, OdDbWriteRule::kAlways),
        odField<&OdDbTextStyleTableRecord::m_fileName>       (3, OdDbWriteRule::kAlways),
        odField<&OdDbTextStyleTableRecord::m_bigFontFileName>(4, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table({recordSection(), {"AcDbTextStyleTableRecord", s_fields}});
    return s_table;
}

void OdDbTextStyleTableRecord::setTextSize(double height)
{
    if (!(height >= 0))
        throw OdError(eOutOfRange, L"The height of a text style cannot be negative");
    assertWriteEnabled();
    m_textSize = height;
}

void OdDbTextStyleTableRecord::setPriorSize(double height)
{
    if (!(height > 0))
        throw OdError(eOutOfRange, L"The height of a text must be positive");
    assertWriteEnabled();
    m_priorSize = height;
}

void OdDbTextStyleTableRecord::setXScale(double factor)
{
    if (!(factor > 0))
        throw OdError(eOutOfRange, L"The width factor of a text style must be positive");
    assertWriteEnabled();
    m_xScale = factor;
}

void OdDbTextStyleTableRecord::setObliquingAngle(double angle)
{
    constexpr double kSteepest = 85.0 / 180.0 * OdaPI;
    if (!(std::abs(angle) <= kSteepest))
        throw OdError(eOutOfRange, L"The slant of a text style cannot exceed 85 degrees");
    assertWriteEnabled();
    m_oblique = OdDbAngle::ofRadians(angle);
}

void OdDbTextStyleTableRecord::setGeneration(int bit, bool on)
{
    assertWriteEnabled();
    m_generation = static_cast<std::int16_t>(on ? m_generation | bit : m_generation & ~bit);
}

void OdDbTextStyleTableRecord::setFileName(OdString const& font)
{
    assertWriteEnabled();
    m_fileName = font;
}

void OdDbTextStyleTableRecord::setBigFontFileName(OdString const& font)
{
    assertWriteEnabled();
    m_bigFontFileName = font;
}

OdDbTextStyleTableRecordPtr odDbTextStyleOf(OdDbObjectId id)
{
    OdDbObjectPtr const object = id.openObject();
    return OdDbTextStyleTableRecordPtr(odCast<OdDbTextStyleTableRecord>(object.get()));
}

double odDbUsualTextHeight(OdDbDatabase const& database, OdDbObjectId style)
{
    OdDbTextStyleTableRecordPtr const record = odDbTextStyleOf(style);
    if (record && record->textSize() > 0)
        return record->textSize();
    double const current = database.header().real("TEXTSIZE");
    return current > 0 ? current : 1.0;
}
