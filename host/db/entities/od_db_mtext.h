#pragma once

#include "host/db/entities/od_db_paragraph.h"
#include "host/db/od_db_entity.h"

/// Which point of the block of lines stands at the location, row by row.
enum class OdDbMTextAttachment : std::int16_t
{
    kTopLeft = 1,
    kTopCenter,
    kTopRight,
    kMiddleLeft,
    kMiddleCenter,
    kMiddleRight,
    kBottomLeft,
    kBottomCenter,
    kBottomRight
};

/// Text of several lines in any plane. Its contents hold formatting codes ("\P" ends a line, "{\H2x;big}"), which
/// nobody but the estimates of its size looks into. It has no mirror flags: one that is mirrored is seen from
/// behind.
class OdDbMText : public OdDbEntity
{
    OD_DB_DECLARE_CLASS(OdDbMText)
public:
    OdDbMText() = default;

    /// With formatting codes, as files have them.
    OdString const& contents() const { return m_contents; }
    void setContents(OdString const& contents);
    OdGePoint3d location() const { return m_location; }
    void setLocation(OdGePoint3d const& location);
    OdGeVector3d normal() const { return m_normal; }
    /// Location and direction stay; a direction along the new normal gives way to the X axis of the plane. Throws
    /// OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);
    /// Unit vector along the lines.
    OdGeVector3d direction() const;
    /// Throws OdError(eDegenerateGeometry) for a zero vector and one along the normal.
    void setDirection(OdGeVector3d const& direction);
    /// Angle of the direction from the X axis of the plane, radians in [0, 2 pi).
    double rotation() const;
    /// Sets the direction.
    void setRotation(double angle);
    /// Width of the frame at which lines are broken; 0 for none.
    double width() const { return m_width; }
    /// Throws OdError(eOutOfRange) for a negative width.
    void setWidth(double width);
    /// Height of the frame, which only columns heed; 0 for none.
    double definedHeight() const { return m_definedHeight; }
    /// Height of capital letters.
    double textHeight() const { return m_textHeight; }
    /// Throws OdError(eOutOfRange) for a height that is not positive.
    void setTextHeight(double height);
    OdDbMTextAttachment attachment() const;
    void setAttachment(OdDbMTextAttachment attachment);
    /// @name What the attachment says
    /// @{
    OdDbTextHorizontalMode horizontalMode() const;
    OdDbTextVerticalMode verticalMode() const;
    /// @}
    /// The record of the text style; the drawing's Standard where none is set, null without a drawing.
    OdDbObjectId textStyle() const;
    /// Throws OdError(eWrongDatabase).
    void setTextStyle(OdDbObjectId style);
    /// Distance of lines, as a factor of the usual one.
    double lineSpacingFactor() const { return m_lineSpacingFactor; }
    /// Throws OdError(eOutOfRange) below 0.25 and above 4.
    void setLineSpacingFactor(double factor);

    void setDatabaseDefaults(OdDbDatabase& database) override;
    /// A mirroring that turns the letters round turns the normal round. A skewing keeps the direction of the
    /// lines.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// The letters are to be read from the other side, in the same place: the normal is turned round, and either
    /// the lines run the other way, or what was above is below. `reversed` says which; the attachment follows.
    void turnFace(bool reversed);
    /// The frame around the estimated lines; a point for an empty text.
    void outline(OdDbOutlineSink& sink) const override;
    /// One text for each line that is not empty. eNotApplicable when there is none, eDegenerateGeometry
    /// for a height that is none.
    OdResult explode(std::vector<OdDbEntityPtr>& pieces) const override;
    /// The location.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    /// Moves the whole text.
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;
    /// No style means that of the drawing the source is in, which the copy may be outside of.
    void copyPartsOf(OdDbObject const& source) override;

private:
    /// Unit vectors in the plane: along the lines, and up the letters.
    struct Axes
    {
        OdGeVector3d right;
        OdGeVector3d up;
    };
    /// Files give the direction as a vector, an angle or both; the one that comes last counts.
    enum EDirectionForm : std::uint8_t
    {
        kVector = 1,
        kAngle = 2,
        kAngleLast = 4
    };

    static bool readContents(OdDbObject& object, OdDbTag const& tag);
    static void writeContents(OdDbObject const& object, OdDbTagSink& sink);
    static bool readDirection(OdDbObject& object, OdDbTag const& tag);
    static void writeDirection(OdDbObject const& object, OdDbTagSink& sink);
    static void writeAngleBehind(OdDbObject const& object, OdDbTagSink& sink);
    static bool readColumns(OdDbObject& object, OdDbTag const& tag);
    static void writeColumns(OdDbObject const& object, OdDbTagSink& sink);
    static bool hasColumns(OdDbObject const& object);

    bool hasVector() const;
    bool isVectorUsable() const;
    Axes axes() const;
    OdDbParagraph paragraph() const;
    void takeDirection(OdGeVector3d const& direction);
    /// Brings what the embedded object repeats in line, and scales its lengths along and across the lines.
    void updateColumns(double along = 1, double across = 1);

    OdGePoint3d m_location; ///< in the world
    double m_textHeight = 1.0;
    double m_width = 0.0;
    double m_definedHeight = 0.0;
    std::int16_t m_attachment = 1;
    std::int16_t m_flowDirection = 1;
    OdString m_contents;
    OdDbCopiedPtr<std::vector<std::uint32_t>> m_pieces; ///< lengths of the pieces that the file had, if several
    OdDbObjectId m_style;
    OdGeVector3d m_normal{0, 0, 1};
    OdGeVector3d m_direction{1, 0, 0}; ///< as given, in the world
    OdDbAngle m_angle;
    std::uint8_t m_directionForm = 0;
    double m_measuredWidth = 0.0;
    double m_measuredHeight = 0.0;
    std::int16_t m_lineSpacingStyle = 1;
    double m_lineSpacingFactor = 1.0;
    std::int32_t m_backgroundFill = 0;
    std::int16_t m_backgroundColor = 0;
    std::int32_t m_backgroundRgb = 0;
    OdString m_backgroundColorName;
    double m_backgroundScale = 1.0;
    std::int32_t m_backgroundTransparency = 0;
    OdDbCopiedPtr<OdDbTagList> m_columns; ///< the embedded object
};
using OdDbMTextPtr = OdSmartPtr<OdDbMText>;
