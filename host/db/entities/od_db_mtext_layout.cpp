// The geometry of a multiline text: frame, transformation, pieces.
#include "host/db/entities/od_db_mtext.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/records/od_db_text_style_table_record.h"

#include <algorithm>

OdDbMText::Axes OdDbMText::axes() const
{
    OdGeVector3d const saneNormal = odDbSaneNormal(m_normal);
    OdGeVector3d const unitNormal = saneNormal / saneNormal.length();
    OdGeVector3d const along = direction();
    double const out = along.dotProduct(unitNormal);
    OdGeVector3d const flat = std::abs(out) > 1e-15 ? along - unitNormal * out : along;
    OdGeVector3d const right = flat / flat.length();
    return {right, unitNormal.crossProduct(right)};
}

OdDbParagraph OdDbMText::paragraph() const
{
    OdDbTextStyleTableRecordPtr const style = odDbTextStyleOf(textStyle());
    return {.height = m_textHeight,
            .widthFactor = style && style->xScale() > 0 ? style->xScale() : 1.0,
            .frameWidth = m_width,
            .lineSpacing = m_lineSpacingFactor,
            .horizontal = horizontalMode(),
            .vertical = verticalMode()};
}

void OdDbMText::outline(OdDbOutlineSink& sink) const
{
    OdDbParagraph const block = paragraph();
    auto const lines = block.lines(m_contents);
    double const width = std::ranges::max(lines, {}, &OdDbParagraph::Line::width).width;
    if (!(width > 0)) {
        sink.point(m_location);
        return;
    }
    double const top = block.blockTop(lines.size());
    double const foot = top - block.blockHeight(lines.size());
    double const left = -odDbTextAnchor(block.horizontal, OdDbTextVerticalMode::kTop, width, block.height).x;
    Axes const plane = axes();
    auto const corner = [&](double x, double y) { return m_location + plane.right * x + plane.up * y; };
    sink.polygon(
        std::array{corner(left, foot), corner(left + width, foot), corner(left + width, top), corner(left, top)});
}

OdResult OdDbMText::transformBy(OdGeMatrix3d const& transformation)
{
    if (odDbIsTranslation(transformation)) {
        setLocation(transformation * m_location);
        return eOk;
    }
    constexpr double kFlat = 1e-10; // of a frame whose sides have become parallel
    Axes const before = axes();
    OdGeVector3d const along = transformation * before.right;
    OdGeVector3d const upward = transformation * before.up;
    OdGeVector3d const across = along.crossProduct(upward);
    double const length = along.length();
    double const rise = across.length() / length;
    if (!std::isfinite(rise) || !(rise > kFlat * upward.length()))
        return eDegenerateGeometry;
    assertWriteEnabled();
    double const lengthFactor = odDbCleanFactor(length);
    double const riseFactor = odDbCleanFactor(rise);
    m_location = transformation * m_location;
    m_normal = odDbCleanDirection(across, m_normal);
    m_direction = odDbCleanDirection(along, before.right);
    m_directionForm = kVector;
    m_textHeight *= riseFactor;
    m_definedHeight *= riseFactor;
    m_measuredHeight *= riseFactor;
    m_width *= lengthFactor;
    m_measuredWidth *= lengthFactor;
    updateColumns(lengthFactor, riseFactor);
    return eOk;
}

void OdDbMText::turnFace(bool reversed)
{
    auto const number = static_cast<int>(attachment()) - 1;
    int const column = reversed ? 2 - number % 3 : number % 3;
    int const row = reversed ? number / 3 : 2 - number / 3;
    Axes const before = axes();
    assertWriteEnabled();
    m_normal = -odDbSaneNormal(m_normal);
    m_attachment = static_cast<std::int16_t>(row * 3 + column + 1);
    takeDirection(reversed ? -before.right : before.right);
}

OdResult OdDbMText::explode(std::vector<OdDbEntityPtr>& pieces) const
{
    OdDbParagraph const block = paragraph();
    if (!(block.height > 0) || !std::isfinite(block.height))
        return eDegenerateGeometry;
    OdGeVector3d const up = axes().up;
    std::vector<OdDbEntityPtr> texts;
    for (OdDbParagraph::Line const& line : block.lines(m_contents)) {
        if (line.text.isEmpty())
            continue; // keeps its place
        OdDbTextPtr const text(new OdDbText);
        text->setPropertiesFrom(*this);
        text->setNormal(odDbSaneNormal(m_normal));
        text->setTextString(line.text);
        text->setTextStyle(m_style);
        text->setHeight(block.height);
        text->setWidthFactor(block.widthFactor);
        text->setRotation(rotation());
        text->setHorizontalMode(block.horizontal);
        text->setVerticalMode(OdDbTextVerticalMode::kTop);
        text->setAlignmentPoint(m_location + up * line.top);
        texts.push_back(text);
    }
    if (texts.empty())
        return eNotApplicable;
    pieces.insert(pieces.end(), texts.begin(), texts.end());
    return eOk;
}
