#pragma once

#include "host/app/editor.h"
#include "host/db/entities/od_db_text.h"

namespace ca {

/// Where and how the next line of a TEXT command goes. Coordinates are those of the world.
struct TextPlacement
{
    OdDbTextHorizontalMode horizontal = OdDbTextHorizontalMode::kLeft;
    OdDbTextVerticalMode vertical = OdDbTextVerticalMode::kBaseline;
    OdGePoint3d anchor;
    OdGePoint3d end; ///< other end of the baseline, for texts that run between two points
    OdGeVector3d normal{0, 0, 1};
    double rotation = 0; ///< from the X axis of the plane of the normal
    double height = 0;   ///< aligned texts take theirs from the length of the baseline
    OdDbObjectId style;

    bool isAligned() const { return horizontal == OdDbTextHorizontalMode::kAligned; }
    bool runsBetweenPoints() const { return isAligned() || horizontal == OdDbTextHorizontalMode::kFit; }

    /// That of an existing text.
    static TextPlacement of(OdDbText const& text);
    /// Appends a line of text and moves on to the place of the next one below it.
    void drawLine(Editor& editor, OdString const& text);
    /// One line down, as the line spacing of a text of this height is.
    void moveDown(double lineHeight);

private:
    void applyStyle(OdDbText& text) const;
    void applyAlignment(OdDbText& text) const;
};

/// The last text of the active space; null when there is none.
OdDbTextPtr lastText(Editor const& editor);

} // namespace ca
