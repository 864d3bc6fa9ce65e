#pragma once

#include "host/db/od_db_angle.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/geom/od_ge_2d.h"

/// A linetype: dashes, gaps and dots that repeat along a line, some with a shape or a text on them.
class OdDbLinetypeTableRecord : public OdDbSymbolTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbLinetypeTableRecord)
public:
    struct Dash
    {
        enum Flag : std::int16_t
        {
            kAbsoluteRotation = 1, ///< the rotation counts from the X axis, not from the line
            kText = 2,
            kShape = 4
        };
        double length = 0;      ///< positive a dash, negative a gap, 0 a dot
        std::int16_t flags = 0; ///< 0 without text and shape
        std::int16_t shapeNumber = 0;
        OdDbObjectId style; ///< text style, or the shape file that holds the shape
        double scale = 1;
        OdDbAngle rotation;
        OdGeVector2d offset;
        OdString text;
    };

    /// What lists of linetypes show beside the name.
    OdString const& comments() const { return m_comments; }
    void setComments(OdString const& text);
    /// Empty for a continuous line.
    std::vector<Dash> const& dashes() const { return m_dashes; }
    /// The length after which the dashes repeat.
    double patternLength() const { return m_patternLength; }
    /// Replaces the dashes; the pattern length becomes the sum of their lengths without sign.
    void setDashes(std::vector<Dash> dashes);
    void audit(OdDbAuditInfo& info) const override;

private:
    static bool readDash(OdDbObject& object, OdDbTag const& tag);
    static bool readStyle(OdDbObject& object, OdDbTag const& tag, OdDbReferenceResolver& resolver);
    static void writeDashes(OdDbObject const& object, OdDbTagSink& sink);

    OdString m_comments;
    std::int16_t m_alignment = 65; ///< the letter A, the only alignment there is
    double m_patternLength = 0;
    std::vector<Dash> m_dashes;
};
using OdDbLinetypeTableRecordPtr = OdSmartPtr<OdDbLinetypeTableRecord>;
