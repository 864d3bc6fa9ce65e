#pragma once

#include "host/db/entities/od_db_attribute.h"
#include "host/db/od_db_entity.h"

class OdDbBlockOutline;
class OdDbBlockTableRecord;

/// Shows a block at a place, scaled and turned, and owns attributes. In a grid: od_db_minsert_block.h.
class OdDbBlockReference : public OdDbEntity
{
    OD_DB_DECLARE_CLASS(OdDbBlockReference)
public:
    OdDbBlockReference() = default;

    /// Null for a reference that was not told its block, or whose block the file lacks.
    OdDbObjectId blockTableRecord() const { return m_block; }
    /// Throws OdError: eNullObjectId, eWrongDatabase, eSelfReference when a block would come to contain itself.
    void setBlockTableRecord(OdDbObjectId block);

    OdGePoint3d position() const;
    void setPosition(OdGePoint3d const& position);
    OdGeScale3d scaleFactors() const { return m_scale; }
    /// Throws OdError(eOutOfRange) when a factor is zero.
    void setScaleFactors(OdGeScale3d const& factors);
    /// Turn within the plane, radians.
    double rotation() const { return m_rotation.radians(); }
    void setRotation(double angle);
    OdGeVector3d normal() const { return m_normal; }
    /// The position stays where it is in the world. Throws OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);

    /// How often and where the block is shown: once, unless the class says more.
    struct Grid
    {
        int columns = 1;
        int rows = 1;
        double columnSpacing = 0; ///< along the turned axes of the reference
        double rowSpacing = 0;
    };
    virtual Grid grid() const { return {}; }
    /// From the coordinates of the block to the world; of the first column and row of a grid.
    OdGeMatrix3d blockTransform() const { return cellTransform(0, 0); }

    /// @name Attributes, in order of appending
    /// @{
    /// Throws OdError: eAlreadyInDb, eNotOpenForWrite.
    OdDbObjectId appendAttribute(OdDbAttribute* attribute) { return appendPart(attribute); }
    OdDbPartIterator attributeIterator(bool skipErased = true) const { return partIterator(skipErased); }
    OdDbPartList const* partList() const override { return &m_attributes; }
    bool takesPart(OdDbEntity const& part) const override { return odCast<OdDbAttribute>(&part) != nullptr; }
    /// @}

    /// Attributes go along. eDegenerateGeometry where the axes of the block would no longer be perpendicular.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// The entities of the block, and visible attributes.
    void outline(OdDbOutlineSink& sink) const override;
    /// Copies of the entities of the block, placed; those on layer 0 come to the layer of the reference, and what
    /// is by block becomes as the reference is. Attributes go, their definitions come as they stand in the block.
    /// Where the scale factors differ, circles and arcs become ellipses, and what cannot follow otherwise is taken
    /// apart in turn (polylines with arcs, references that would be sheared). An error, and no pieces at all, when
    /// one of the entities cannot follow: eDegenerateGeometry, eNotApplicable for one that the host only keeps;
    /// eNotApplicable also where isExplodable() is false; eSelfReference, eOutOfRange for blocks within themselves
    /// and beyond measure.
    OdResult explode(std::vector<OdDbEntityPtr>& pieces) const override;
    /// The block is there and not of another drawing, and says that it may be exploded.
    virtual bool isExplodable() const;
    /// The position.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    /// Moves the whole reference.
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

protected:
    /// The axes of the reference grew by these factors.
    virtual void scaleGrid(double, double) {}
    virtual void listGrid(OdDbPropertySink&) const {}

    /// The fields below the marker of the class; `more` are those of a derived class, which come before the
    /// normal.
    static OdDbFieldTable tableWith(std::string_view marker, std::span<OdDbField const> more,
                                    std::span<std::string_view const> otherMarkers = {});

private:
    struct Placement;

    static bool readFollowFlag(OdDbObject& object, OdDbTag const& tag);
    static void writeFollowFlag(OdDbObject const& object, OdDbTagSink& sink);
    static bool readSingleGrid(OdDbObject& object, OdDbTag const& tag);
    static void writeSingleGrid(OdDbObject const& object, OdDbTagSink& sink);

    OdDbBlockTableRecord const* block() const;
    OdGeMatrix3d cellTransform(int column, int row) const;
    void outlineGrid(OdDbBlockOutline& outline) const;
    bool lacksBlock() const;
    std::optional<Placement> placementAfter(OdGeMatrix3d const& transformation) const;

    OdDbObjectId m_block;
    OdGePoint3d m_position; ///< ECS
    OdGeScale3d m_scale;
    OdDbAngle m_rotation;
    OdGeVector3d m_normal{0, 0, 1};
    OdDbCopiedPtr<OdDbTagList> m_singleGrid; ///< what a file says of a grid of one column and row; mostly nothing
    OdDbPartList m_attributes;
};
using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;
