#pragma once

#include "host/db/od_db_angle.h"
#include "host/db/records/od_db_symbol_table.h"

/// A text style, or a loaded shape file, which has no name.
class OdDbTextStyleTableRecord : public OdDbSymbolTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbTextStyleTableRecord)
public:
    bool isShapeFile() const { return hasFlag(kShapeFile); }
    void setIsShapeFile(bool shapeFile) { setFlag(kShapeFile, shapeFile); }
    bool isVertical() const { return hasFlag(kVertical); }
    void setIsVertical(bool vertical) { setFlag(kVertical, vertical); }
    bool isNameless() const override { return isShapeFile() && m_name.isEmpty(); }

    /// Height that all texts of the style have; 0 lets each text have its own.
    double textSize() const { return m_textSize; }
    /// Throws OdError(eOutOfRange) for a negative height.
    void setTextSize(double height);
    /// Height that the next text gets where the style leaves it open.
    double priorSize() const { return m_priorSize; }
    void setPriorSize(double height);
    double xScale() const { return m_xScale; }
    /// Throws OdError(eOutOfRange) for a factor that is not positive.
    void setXScale(double factor);
    /// Slant of the letters in radians, positive to the right.
    double obliquingAngle() const { return m_oblique.radians(); }
    /// Throws OdError(eOutOfRange) for more than 85 degrees.
    void setObliquingAngle(double angle);
    bool isBackwards() const { return (m_generation & kBackwards) != 0; }
    bool isUpsideDown() const { return (m_generation & kUpsideDown) != 0; }
    void setIsBackwards(bool backwards) { setGeneration(kBackwards, backwards); }
    void setIsUpsideDown(bool upsideDown) { setGeneration(kUpsideDown, upsideDown); }
    OdString const& fileName() const { return m_fileName; }
    void setFileName(OdString const& font);
    OdString const& bigFontFileName() const { return m_bigFontFileName; }
    void setBigFontFileName(OdString const& font);

private:
    static constexpr int kShapeFile = 1;
    static constexpr int kVertical = 4;
    static constexpr int kBackwards = 2;
    static constexpr int kUpsideDown = 4;
    void setGeneration(int bit, bool on);

    double m_textSize = 0;
    double m_xScale = 1;
    OdDbAngle m_oblique;
    std::int16_t m_generation = 0;
    double m_priorSize = 2.5;
    OdString m_fileName;
    OdString m_bigFontFileName;
};
using OdDbTextStyleTableRecordPtr = OdSmartPtr<OdDbTextStyleTableRecord>;

/// The record of an id; null for none, an erased one, and what is no text style in a damaged drawing.
OdDbTextStyleTableRecordPtr odDbTextStyleOf(OdDbObjectId id);
/// For a text whose own height is none: that of its style, else the one that new texts get.
double odDbUsualTextHeight(OdDbDatabase const& database, OdDbObjectId style);
