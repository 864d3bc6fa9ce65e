#include "host/app/commands/text_placement.h"

#include "host/app/commands/new_entity.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/oa_space.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_text_style_table_record.h"

namespace ca {

namespace {

/// Distance of two baselines for a height of 1.
constexpr double kLineSpacing = 5.0 / 3;

} // namespace

TextPlacement TextPlacement::of(OdDbText const& text)
{
    TextPlacement placement;
    placement.horizontal = text.horizontalMode();
    placement.vertical = text.verticalMode();
    bool const beginsAtPosition = text.isDefaultAlignment() || placement.runsBetweenPoints();
    placement.anchor = beginsAtPosition ? text.position() : text.alignmentPoint();
    placement.end = text.alignmentPoint();
    placement.normal = text.normal();
    placement.rotation = text.rotation();
    placement.height = text.height();
    placement.style = text.textStyle();
    return placement;
}

void TextPlacement::applyStyle(OdDbText& text) const
{
    auto const record = style.open<OdDbTextStyleTableRecord>();
    text.setWidthFactor(record->xScale());
    text.setOblique(record->obliquingAngle());
    text.mirrorInX(record->isBackwards());
    text.mirrorInY(record->isUpsideDown());
}

void TextPlacement::applyAlignment(OdDbText& text) const
{
    text.setHorizontalMode(horizontal);
    text.setVerticalMode(vertical);
    bool const isOnBaseline = text.isDefaultAlignment();
    if (isOnBaseline || runsBetweenPoints())
        text.setPosition(anchor);
    if (!isOnBaseline)
        text.setAlignmentPoint(runsBetweenPoints() ? end : anchor);
    double const natural = odDbTextWidth(text.textString(), 1, text.widthFactor());
    if (!runsBetweenPoints() || natural <= 0)
        return;
    double const stretch = anchor.distanceTo(end) / natural;
    if (isAligned())
        text.setHeight(stretch);
    else
        text.setWidthFactor(text.widthFactor() * stretch / height);
}

void TextPlacement::drawLine(Editor& editor, OdString const& text)
{
    OdDbTextPtr const line = new OdDbText;
    line->setNormal(normal);
    line->setTextString(text);
    if (height > 0)
        line->setHeight(height);
    line->setRotation(rotation);
    applyStyle(*line);
    applyAlignment(*line);
    appendNew(editor, line);
    if (line->textStyle() != style)
        line->setTextStyle(style);
    moveDown(line->height());
}

void TextPlacement::moveDown(double lineHeight)
{
    OdGeVector3d const down(std::sin(rotation), -std::cos(rotation), 0);
    OdGeVector3d const step = odDbPlaneToWorld(normal) * down * (kLineSpacing * lineHeight);
    anchor += step;
    end += step;
}

OdDbTextPtr lastText(Editor const& editor)
{
    auto const space = oa::getActiveSpace(&editor.db()).open<OdDbBlockTableRecord>();
    for (OdDbObjectIterator it = space->newIterator(false); !it.done(); it.step(false))
        if (OdDbEntityPtr const entity = it.entity(); entity->isA() == OdDbText::desc())
            return entity;
    return {};
}

} // namespace ca
