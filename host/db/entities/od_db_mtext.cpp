#include "host/db/entities/od_db_mtext.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_text_style_table_record.h"

namespace {

constexpr std::int16_t kColumns = 3; // of attachment points
constexpr double kLeastSpacing = 0.25;
constexpr double kMostSpacing = 4;

bool isAttachment(std::int16_t value)
{
    return value >= static_cast<std::int16_t>(OdDbMTextAttachment::kTopLeft) &&
           value <= static_cast<std::int16_t>(OdDbMTextAttachment::kBottomRight);
}

/// Not zero, and not along the normal.
bool isAcross(OdGeVector3d const& direction, OdGeVector3d const& normal)
{
    double const length = direction.length();
    return std::isfinite(length) && length > 0 && !(direction / length).crossProduct(normal).isZeroLength();
}

} // namespace

void OdDbMText::setContents(OdString const& contents)
{
    assertWriteEnabled();
    m_contents = contents;
    m_pieces.reset();
}

void OdDbMText::setLocation(OdGePoint3d const& location)
{
    assertWriteEnabled();
    m_location = location;
    updateColumns();
}

void OdDbMText::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    OdGeVector3d const before = direction();
    assertWriteEnabled();
    m_normal = unit;
    takeDirection(isAcross(before, unit) ? before : odDbPlaneToWorld(unit) * OdGeVector3d::kXAxis);
}

bool OdDbMText::hasVector() const
{
    return (m_directionForm & kVector) != 0 && (m_directionForm & kAngleLast) == 0;
}

bool OdDbMText::isVectorUsable() const
{
    return isAcross(m_direction, odDbSaneNormal(m_normal));
}

OdGeVector3d OdDbMText::direction() const
{
    if (hasVector() && isVectorUsable())
        return m_direction / m_direction.length();
    bool const isTurned = (m_directionForm & kAngleLast) != 0 && std::isfinite(m_angle.radians());
    double const angle = isTurned ? m_angle.radians() : 0;
    OdGeVector3d const inPlane(std::cos(angle), std::sin(angle), 0);
    return odDbCleanDirection(odDbPlaneToWorld(m_normal) * inPlane, OdGeVector3d::kXAxis);
}

void OdDbMText::setDirection(OdGeVector3d const& direction)
{
    if (!isAcross(direction, odDbSaneNormal(m_normal)))
        throw OdError(eDegenerateGeometry, L"A text cannot run along its normal");
    assertWriteEnabled();
    takeDirection(direction / direction.length());
}

void OdDbMText::takeDirection(OdGeVector3d const& direction)
{
    m_direction = direction;
    m_directionForm = kVector;
    updateColumns();
}

double OdDbMText::rotation() const
{
    return (odDbWorldToPlane(m_normal) * direction()).convert2d().angle();
}

void OdDbMText::setRotation(double angle)
{
    if (!std::isfinite(angle))
        throw OdError(eOutOfRange, L"A text cannot be turned by an angle that is not finite");
    assertWriteEnabled();
    OdGeVector3d const inPlane(std::cos(angle), std::sin(angle), 0);
    takeDirection(odDbCleanDirection(odDbPlaneToWorld(m_normal) * inPlane, OdGeVector3d::kXAxis));
}

void OdDbMText::setWidth(double width)
{
    if (!(width >= 0) || !std::isfinite(width))
        throw OdError(eOutOfRange, odFormat(L"The width %g of a text is negative", width));
    assertWriteEnabled();
    m_width = width;
    updateColumns();
}

void OdDbMText::setTextHeight(double height)
{
    if (!(height > 0) || !std::isfinite(height))
        throw OdError(eOutOfRange, odFormat(L"The height %g of a text is not positive", height));
    assertWriteEnabled();
    m_textHeight = height;
}

OdDbMTextAttachment OdDbMText::attachment() const
{
    return isAttachment(m_attachment) ? OdDbMTextAttachment(m_attachment) : OdDbMTextAttachment::kTopLeft;
}

void OdDbMText::setAttachment(OdDbMTextAttachment attachment)
{
    assertWriteEnabled();
    m_attachment = static_cast<std::int16_t>(attachment);
}

OdDbTextHorizontalMode OdDbMText::horizontalMode() const
{
    return OdDbTextHorizontalMode((static_cast<std::int16_t>(attachment()) - 1) % kColumns);
}

OdDbTextVerticalMode OdDbMText::verticalMode() const
{
    constexpr OdDbTextVerticalMode kRows[] = {OdDbTextVerticalMode::kTop, OdDbTextVerticalMode::kMiddle,
                                              OdDbTextVerticalMode::kBottom};
    return kRows[(static_cast<std::int16_t>(attachment()) - 1) / kColumns];
}

OdDbObjectId OdDbMText::textStyle() const
{
    return m_style.isNull() && database() ? database()->getUsual(OdDbTableKind::kTextStyle) : m_style;
}

void OdDbMText::copyPartsOf(OdDbObject const& source)
{
    OdDbEntity::copyPartsOf(source);
    m_style = static_cast<OdDbMText const&>(source).textStyle();
}

void OdDbMText::setTextStyle(OdDbObjectId style)
{
    if (isDBRO() && !style.isNull() && style.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    m_style = style;
}

void OdDbMText::setLineSpacingFactor(double factor)
{
    if (!(factor >= kLeastSpacing && factor <= kMostSpacing))
        throw OdError(eOutOfRange, odFormat(L"The line spacing %g is not between 0.25 and 4", factor));
    assertWriteEnabled();
    m_lineSpacingFactor = factor;
}

void OdDbMText::setDatabaseDefaults(OdDbDatabase& database)
{
    OdDbEntity::setDatabaseDefaults(database);
    m_style = database.getTEXTSTYLE();
    double const height = database.header().real("TEXTSIZE");
    if (height > 0)
        m_textHeight = height;
}

void OdDbMText::audit(OdDbAuditInfo& info) const
{
    OdDbEntity::audit(info);
    if (m_textHeight <= 0)
        info.report(*this, odFormat(L"its text height %g is not positive", m_textHeight),
                    m_textHeight < 0 ? L"made positive" : L"the usual height taken", [](OdDbObject& object) {
                        auto& text = static_cast<OdDbMText&>(object);
                        text.setTextHeight(text.textHeight() < 0
                                               ? -text.textHeight()
                                               : odDbUsualTextHeight(*text.database(), text.textStyle()));
                    });
    if (!isAttachment(m_attachment))
        info.report(*this, odFormat(L"its attachment %d is not between 1 and 9", m_attachment), L"top left taken",
                    [](OdDbObject& object) {
                        static_cast<OdDbMText&>(object).setAttachment(OdDbMTextAttachment::kTopLeft);
                    });
    bool const isDirection = hasVector() ? isVectorUsable() : std::isfinite(m_angle.radians());
    if (!isDirection)
        info.report(*this, L"its direction is none within its plane", L"X axis of the plane taken",
                    [](OdDbObject& object) { static_cast<OdDbMText&>(object).setRotation(0); });
}
