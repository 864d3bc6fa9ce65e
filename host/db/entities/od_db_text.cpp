#include "host/db/entities/od_db_text.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_text_style_table_record.h"

OD_DB_DEFINE_CLASS(OdDbText, OdDbEntity, "TEXT")

namespace {

constexpr std::string_view kMarker = "AcDbText";

void checkPositive(double value, wchar_t const* what)
{
    if (!(value > 0) || !std::isfinite(value))
        throw OdError(eOutOfRange, odFormat(L"The %ls %g of a text is not positive", what, value));
}

} // namespace

OdDbSection OdDbText::textSection()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbText::m_thickness>     (39),
        odField<&OdDbText::m_position>      (10, OdDbWriteRule::kAlways),
        odField<&OdDbText::m_height>        (40, OdDbWriteRule::kAlways),
        odField<&OdDbText::m_text>          (1, OdDbWriteRule::kAlways),
        odField<&OdDbText::m_rotation>      (50),
        odField<&OdDbText::m_widthFactor>   (41),
        odField<&OdDbText::m_oblique>       (51),
        odNameField<&OdDbText::m_style>     (7, OdDbTableKind::kTextStyle),
        odField<&OdDbText::m_generation>    (71),
        odField<&OdDbText::m_horizontalMode>(72),
        odField<&OdDbText::m_alignment>     (11),
        odField<&OdDbText::m_normal>        (210),
    };
    // clang-format on
    return {kMarker, s_fields};
}

OdDbSection OdDbText::verticalModeSection()
{
    static constexpr OdDbField s_fields[] = {odField<&OdDbText::m_verticalMode>(73)};
    return {kMarker, s_fields};
}

OdDbFieldTable const& OdDbText::fields()
{
    static OdDbFieldTable const s_table({entitySection(), textSection(), verticalModeSection()});
    return s_table;
}

void OdDbText::setTextString(OdString const& text)
{
    assertWriteEnabled();
    m_text = text;
    adjustPosition();
}

OdDbObjectId OdDbText::textStyle() const
{
    return m_style.isNull() && database() ? database()->getUsual(OdDbTableKind::kTextStyle) : m_style;
}

void OdDbText::copyPartsOf(OdDbObject const& source)
{
    OdDbEntity::copyPartsOf(source);
    m_style = static_cast<OdDbText const&>(source).textStyle();
}

void OdDbText::setTextStyle(OdDbObjectId style)
{
    if (isDBRO() && !style.isNull() && style.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    m_style = style;
    adjustPosition();
}

void OdDbText::setHeight(double height)
{
    checkPositive(height, L"height");
    assertWriteEnabled();
    m_height = height;
    adjustPosition();
}

void OdDbText::setWidthFactor(double factor)
{
    checkPositive(factor, L"width factor");
    assertWriteEnabled();
    m_widthFactor = factor;
    adjustPosition();
}

void OdDbText::setRotation(double angle)
{
    assertWriteEnabled();
    m_rotation = OdDbAngle::ofRadians(angle);
    adjustPosition();
}

void OdDbText::setOblique(double angle)
{
    if (!(std::cos(angle) > 1e-10))
        throw OdError(eOutOfRange, odFormat(L"A text cannot lean by %g degrees", odgeToDegrees(angle)));
    assertWriteEnabled();
    m_oblique = OdDbAngle::ofRadians(angle);
}

void OdDbText::setGeneration(std::int16_t flag, bool on)
{
    assertWriteEnabled();
    m_generation = static_cast<std::int16_t>(on ? m_generation | flag : m_generation & ~flag);
    adjustPosition();
}

OdDbTextHorizontalMode OdDbText::horizontalMode() const
{
    bool const isKnown =
        m_horizontalMode >= 0 && m_horizontalMode <= static_cast<int>(OdDbTextHorizontalMode::kFit);
    return isKnown ? OdDbTextHorizontalMode(m_horizontalMode) : OdDbTextHorizontalMode::kLeft;
}

void OdDbText::setHorizontalMode(OdDbTextHorizontalMode mode)
{
    assertWriteEnabled();
    m_horizontalMode = static_cast<std::int16_t>(mode);
    adjustPosition();
}

OdDbTextVerticalMode OdDbText::verticalMode() const
{
    bool const isKnown = m_verticalMode >= 0 && m_verticalMode <= static_cast<int>(OdDbTextVerticalMode::kTop);
    return isKnown ? OdDbTextVerticalMode(m_verticalMode) : OdDbTextVerticalMode::kBaseline;
}

void OdDbText::setVerticalMode(OdDbTextVerticalMode mode)
{
    assertWriteEnabled();
    m_verticalMode = static_cast<std::int16_t>(mode);
    adjustPosition();
}

bool OdDbText::isDefaultAlignment() const
{
    return horizontalMode() == OdDbTextHorizontalMode::kLeft && verticalMode() == OdDbTextVerticalMode::kBaseline;
}

OdGePoint3d OdDbText::position() const
{
    return odDbToWorld(m_position, m_normal);
}

void OdDbText::setPosition(OdGePoint3d const& position)
{
    assertWriteEnabled();
    m_position = odDbToPlane(position, m_normal);
}

OdGePoint3d OdDbText::alignmentPoint() const
{
    return isDefaultAlignment() ? OdGePoint3d::kOrigin : odDbToWorld(m_alignment, m_normal);
}

void OdDbText::setAlignmentPoint(OdGePoint3d const& point)
{
    assertWriteEnabled();
    m_alignment = odDbToPlane(point, m_normal);
    adjustPosition();
}

void OdDbText::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    assertWriteEnabled();
    m_position = odDbToPlane(odDbToWorld(m_position, m_normal), unit);
    m_alignment = odDbToPlane(odDbToWorld(m_alignment, m_normal), unit);
    m_normal = unit;
}

void OdDbText::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
}

void OdDbText::setDatabaseDefaults(OdDbDatabase& database)
{
    OdDbEntity::setDatabaseDefaults(database);
    m_style = database.getTEXTSTYLE();
}

void OdDbText::audit(OdDbAuditInfo& info) const
{
    OdDbEntity::audit(info);
    if (m_height <= 0)
        info.report(*this, odFormat(L"its height %g is not positive", m_height),
                    m_height < 0 ? L"made positive" : L"the usual height taken", [](OdDbObject& object) {
                        auto& text = static_cast<OdDbText&>(object);
                        text.setHeight(text.height() < 0
                                           ? -text.height()
                                           : odDbUsualTextHeight(*text.database(), text.textStyle()));
                    });
    if (m_widthFactor <= 0)
        info.report(*this, odFormat(L"its width factor %g is not positive", m_widthFactor), L"1 taken",
                    [](OdDbObject& object) { static_cast<OdDbText&>(object).setWidthFactor(1); });
}
