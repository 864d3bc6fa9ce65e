#pragma once

#include "host/db/entities/od_db_text_metrics.h"

#include <vector>

/// How a text of several lines is set. Positions count from its anchor, which the modes place on the block of
/// lines.
struct OdDbParagraph
{
    double height = 1;      ///< of capital letters
    double widthFactor = 1; ///< of the letters
    double frameWidth = 0;  ///< longer lines are broken between words; 0 for none
    double lineSpacing = 1; ///< as a factor of the usual distance of lines
    OdDbTextHorizontalMode horizontal = OdDbTextHorizontalMode::kLeft;
    OdDbTextVerticalMode vertical = OdDbTextVerticalMode::kTop; ///< a block has no baseline: that counts as bottom

    struct Line
    {
        OdString text;
        double width; ///< estimated
        double top;   ///< of its capital letters, above the anchor
    };
    /// The lines of a content with formatting codes, from the top down, empty ones included.
    std::vector<Line> lines(OdString const& contents) const;

    /// Between the tops of one line and the next.
    double lineDistance() const;
    /// From the top of the first of so many lines to the foot of the last.
    double blockHeight(std::size_t count) const;
    /// Top of a block of so many lines above the anchor.
    double blockTop(std::size_t count) const;
};
