#pragma once

#include "host/geom/od_ge_2d.h"
#include "host/root/od_string.h"

#include <cstdint>

/// Where the anchor of a text lies along its line. Aligned and fitted texts run from one point to another; aligned
/// ones take their height, fitted ones their width factor from the distance.
enum class OdDbTextHorizontalMode : std::int16_t
{
    kLeft,
    kCenter,
    kRight,
    kAligned,
    kMiddle,
    kFit
};
/// Where the anchor of a text lies across its line.
enum class OdDbTextVerticalMode : std::int16_t
{
    kBaseline,
    kBottom,
    kMiddle,
    kTop
};

// Sizes of texts are estimated: the host draws no glyphs and needs the room that a text takes only for selection
// and extents. All estimates stand here.

/// The number of characters that a text shows: codes such as %%d count once, switches such as %%u not at all.
std::size_t odDbShownCharacters(OdString const& text);
/// Width of a line of text, in the units of its height.
double odDbTextWidth(OdString const& text, double height, double widthFactor);
/// From the start of the baseline to the anchor, for a line of the given size.
OdGeVector2d odDbTextAnchor(OdDbTextHorizontalMode horizontal, OdDbTextVerticalMode vertical, double width,
                            double height);
