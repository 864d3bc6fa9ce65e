// The geometry of a block reference: where it puts its block, and what a transformation makes of that.
#include "host/db/entities/od_db_block_outline.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_plane_transform.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/records/od_db_block_table_record.h"

/// What a transformation changes.
struct OdDbBlockReference::Placement
{
    OdGePoint3d position;
    OdGeVector3d normal;
    OdGeScale3d scale;
    OdDbAngle rotation;
    double xFactor;
    double yFactor;
};

OdGeMatrix3d OdDbBlockReference::cellTransform(int column, int row) const
{
    double const angle = rotation();
    OdGeVector3d const x(std::cos(angle), std::sin(angle), 0);
    OdGeVector3d const y(-x.y, x.x, 0);
    Grid const cells = grid();
    OdGeMatrix3d placed;
    placed.setCoordSystem(m_position + x * (cells.columnSpacing * column) + y * (cells.rowSpacing * row),
                          x * m_scale.sx, y * m_scale.sy, {0, 0, m_scale.sz});
    OdDbBlockTableRecord const* const record = block();
    OdGeVector3d const base = record ? record->origin().asVector() : OdGeVector3d();
    return odDbPlaneToWorld(m_normal) * placed * OdGeMatrix3d::translation(-base);
}

void OdDbBlockReference::outline(OdDbOutlineSink& sink) const
{
    if (OdDbBlockTableRecord const* const record = block()) {
        OdDbBlockOutline outline(*record, sink);
        outlineGrid(outline);
    }
    for (OdDbPartIterator it = attributeIterator(); !it.done(); it.step()) {
        auto const* const attribute = odCast<OdDbAttribute>(&it.peek());
        if (attribute && attribute->isVisible() && !attribute->isInvisible())
            attribute->outline(sink);
    }
}

void OdDbBlockReference::outlineGrid(OdDbBlockOutline& outline) const
{
    // The cells at the corners come first: they alone decide the extents, also of a grid too large to be given
    // whole.
    Grid const cells = grid();
    int const lastColumn = cells.columns - 1;
    int const lastRow = cells.rows - 1;
    auto const isCorner = [&](int column, int row) {
        return (column == 0 || column == lastColumn) && (row == 0 || row == lastRow);
    };
    auto const give = [&](int column, int row) { return outline.give(cellTransform(column, row)); };
    bool const goesOn = give(0, 0) && (lastColumn == 0 || give(lastColumn, 0)) &&
                        (lastRow == 0 || give(0, lastRow)) &&
                        (lastColumn == 0 || lastRow == 0 || give(lastColumn, lastRow));
    if (!goesOn)
        return;
    for (int row = 0; row <= lastRow; ++row)
        for (int column = 0; column <= lastColumn; ++column)
            if (!isCorner(column, row) && !give(column, row))
                return;
}

std::optional<OdDbBlockReference::Placement>
OdDbBlockReference::placementAfter(OdGeMatrix3d const& transformation) const
{
    auto const plane = OdDbPlaneTransform::make(transformation, m_normal);
    if (!plane || !plane->keepsExtrusion() || plane->extrusionScale() == 0)
        return std::nullopt;
    Placement after{*plane * m_position, plane->normal(), m_scale, *plane * m_rotation, 1, 1};
    double const angle = rotation();
    OdGeVector2d const oldX(std::cos(angle), std::sin(angle));
    OdGeVector2d newX = *plane * oldX;
    OdGeVector2d const newY = *plane * oldX.perpVector();
    constexpr double kSquare = 1e-10;
    if (std::abs(newX.dotProduct(newY)) > kSquare * newX.length() * newY.length())
        return std::nullopt;
    double xFactor = plane->keepsShape() ? plane->scale() : newX.length();
    double yFactor = plane->keepsShape() ? plane->scale() : newY.length();
    if (plane->mirrors()) {
        // One axis is turned round: the one that leaves the smaller turn.
        bool const isY = newX.dotProduct(oldX) >= 0;
        (isY ? yFactor : xFactor) *= -1;
        newX = isY ? newX : -newX;
    }
    if (plane->mirrors() || !plane->keepsShape())
        after.rotation = OdDbAngle::ofRadians(newX.angle());
    after.scale = m_scale * OdGeScale3d(xFactor, yFactor, plane->extrusionScale());
    after.xFactor = xFactor;
    after.yFactor = yFactor;
    return after;
}

OdResult OdDbBlockReference::transformBy(OdGeMatrix3d const& transformation)
{
    auto const after = placementAfter(transformation);
    if (!after)
        return eDegenerateGeometry;
    std::vector<OdDbAttributePtr> attributes;
    for (OdDbPartIterator it = attributeIterator(); !it.done(); it.step()) {
        attributes.push_back(it.entity(OdDb::kForWrite));
        if (!attributes.back()->canTransformBy(transformation))
            return eDegenerateGeometry;
    }
    assertWriteEnabled();
    m_position = after->position;
    m_normal = after->normal;
    m_scale = after->scale;
    m_rotation = after->rotation;
    scaleGrid(after->xFactor, after->yFactor);
    for (OdDbAttributePtr const& attribute : attributes)
        attribute->transformBy(transformation);
    return eOk;
}
