#pragma once

#include "host/db/entities/od_db_text_metrics.h"
#include "host/db/od_db_entity.h"

#include <optional>

/// One line of text in any plane. A left-aligned text on the baseline is anchored at its position; every other one
/// at its alignment point, and its position follows from that (aligned and fitted ones: from the position to the
/// alignment point). Base of attributes and attribute definitions.
class OdDbText : public OdDbEntity
{
    OD_DB_DECLARE_CLASS(OdDbText)
public:
    OdDbText() = default;

    OdString const& textString() const { return m_text; }
    void setTextString(OdString const& text);
    /// The record of the text style; the drawing's Standard where none is set, null without a drawing.
    OdDbObjectId textStyle() const;
    /// Throws OdError(eWrongDatabase).
    void setTextStyle(OdDbObjectId style);
    /// Height of capital letters.
    double height() const { return m_height; }
    /// Throws OdError(eOutOfRange) for a height that is not positive.
    void setHeight(double height);
    double widthFactor() const { return m_widthFactor; }
    /// Throws OdError(eOutOfRange) for a factor that is not positive.
    void setWidthFactor(double factor);
    /// Turn within the plane, radians.
    double rotation() const { return m_rotation.radians(); }
    void setRotation(double angle);
    /// Lean of upright strokes to the right, radians.
    double oblique() const { return m_oblique.radians(); }
    /// Throws OdError(eOutOfRange) for a right angle and more.
    void setOblique(double angle);
    /// Reads from right to left.
    bool isMirroredInX() const { return (m_generation & kMirroredInX) != 0; }
    void mirrorInX(bool mirrored) { setGeneration(kMirroredInX, mirrored); }
    /// Stands upside down.
    bool isMirroredInY() const { return (m_generation & kMirroredInY) != 0; }
    void mirrorInY(bool mirrored) { setGeneration(kMirroredInY, mirrored); }

    OdDbTextHorizontalMode horizontalMode() const;
    void setHorizontalMode(OdDbTextHorizontalMode mode);
    OdDbTextVerticalMode verticalMode() const;
    void setVerticalMode(OdDbTextVerticalMode mode);
    /// Left-aligned and on the baseline.
    bool isDefaultAlignment() const;
    OdGePoint3d position() const;
    void setPosition(OdGePoint3d const& position);
    /// (0, 0, 0) for a left-aligned text on the baseline.
    OdGePoint3d alignmentPoint() const;
    /// Kept, but without effect, while the text is left-aligned on the baseline.
    void setAlignmentPoint(OdGePoint3d const& point);

    OdGeVector3d normal() const { return m_normal; }
    /// The text stays where it is in the world. Throws OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);
    double thickness() const { return m_thickness; }
    void setThickness(double thickness);

    void setDatabaseDefaults(OdDbDatabase& database) override;
    /// A mirroring sets or clears a mirror flag, whichever turns the text less.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// transformBy() would succeed.
    bool canTransformBy(OdGeMatrix3d const& transformation) const;
    /// The frame around the estimated text; a point for an empty one.
    void outline(OdDbOutlineSink& sink) const override;
    /// The point at which the text is anchored.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    /// Moves the whole text.
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;
    void audit(OdDbAuditInfo& info) const override;
    /// No style means that of the drawing the source is in, which the copy may be outside of.
    void copyPartsOf(OdDbObject const& source) override;

protected:
    static OdDbSection textSection();
    static OdDbSection verticalModeSection();
    void outlineOf(OdString const& shown, OdDbOutlineSink& sink) const;

    std::int16_t m_verticalMode = 0; ///< under another group code in each class

private:
    struct Layout;
    static constexpr std::int16_t kMirroredInX = 2;
    static constexpr std::int16_t kMirroredInY = 4;

    void setGeneration(std::int16_t flag, bool on);
    bool runsBetweenPoints() const;
    OdGeVector2d mirrorSigns() const;
    /// Brings the position in line with the alignment point.
    void adjustPosition();
    std::optional<Layout> layoutAfter(OdGeMatrix3d const& transformation) const;

    double m_thickness = 0.0;
    OdGePoint3d m_position; ///< ECS
    double m_height = 1.0;
    OdString m_text;
    OdDbAngle m_rotation;
    double m_widthFactor = 1.0;
    OdDbAngle m_oblique;
    OdDbObjectId m_style;
    std::int16_t m_generation = 0;
    std::int16_t m_horizontalMode = 0;
    OdGePoint3d m_alignment; ///< ECS
    OdGeVector3d m_normal{0, 0, 1};
};
using OdDbTextPtr = OdSmartPtr<OdDbText>;
