#pragma once

#include "host/db/entities/od_db_attribute.h"
#include "host/db/entities/od_db_sequence_end.h"
#include "host/db/od_db_object_iterator.h"

class OdDbBlockOutline;
class OdDbBlockTableRecord;

/// Shows a block at a place, scaled and turned, once or in a grid of columns and rows, and owns attributes.
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

    /// @name Grid: at least one column and row; spacings along the turned axes of the reference
    /// @{
    int columns() const { return std::max<int>(m_columns, 1); }
    int rows() const { return std::max<int>(m_rows, 1); }
    /// Throws OdError(eOutOfRange) for less than one column or row, or more than 32767.
    void setGrid(int columns, int rows);
    double columnSpacing() const { return m_columnSpacing; }
    void setColumnSpacing(double spacing);
    double rowSpacing() const { return m_rowSpacing; }
    void setRowSpacing(double spacing);
    /// @}

    /// From the coordinates of the block to the world; of the first column and row in a grid.
    OdGeMatrix3d blockTransform() const { return cellTransform(0, 0); }

    /// @name Attributes, in order of appending
    /// @{
    /// Gives the attribute to the drawing. Throws OdError: eNotInDatabase when the reference is in none,
    /// eAlreadyInDb, eNotOpenForWrite.
    OdDbObjectId appendAttribute(OdDbAttribute* attribute);
    OdDbObjectIterator attributeIterator(bool skipErased = true) const
    {
        return OdDbObjectIterator(m_attributes, true, skipErased);
    }
    std::span<OdDbStub* const> subentities() const override { return m_attributes; }
    OdDbObjectId sequenceEnd() const override;
    /// For filers: takes an attribute and the end mark that are in the drawing already.
    void adoptAttribute(OdDbAttribute& attribute) { m_attributes.push_back(attribute.objectId().stub()); }
    void adoptSequenceEnd(OdDbSequenceEnd& end) { m_sequenceEnd.stub = end.objectId().stub(); }
    /// @}

    /// Attributes go along. eDegenerateGeometry where the axes of the block would no longer be perpendicular.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// The entities of the block, and visible attributes.
    void outline(OdDbOutlineSink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;

private:
    struct End
    {
        OdDbStub* stub = nullptr;
    };
    struct Placement;

    static bool readFollowFlag(OdDbObject& object, OdDbTag const& tag);
    static void writeFollowFlag(OdDbObject const& object, OdDbTagSink& sink);
    static bool isGridInFile(OdDbObject const& object);
    static bool isSingleInFile(OdDbObject const& object) { return !isGridInFile(object); }

    bool hasAttributes() const;
    OdDbBlockTableRecord const* block() const;
    OdGeMatrix3d cellTransform(int column, int row) const;
    void outlineGrid(OdDbBlockOutline& outline) const;
    bool lacksBlock() const;
    std::optional<Placement> placementAfter(OdGeMatrix3d const& transformation) const;

    OdDbObjectId m_block;
    OdGePoint3d m_position; ///< ECS
    OdGeScale3d m_scale;
    OdDbAngle m_rotation;
    std::int16_t m_columns = 1;
    std::int16_t m_rows = 1;
    double m_columnSpacing = 0.0;
    double m_rowSpacing = 0.0;
    OdGeVector3d m_normal{0, 0, 1};
    OdDbNotCopied<std::vector<OdDbStub*>> m_attributes;
    OdDbNotCopied<End> m_sequenceEnd;
};
using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;
