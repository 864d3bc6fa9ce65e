#pragma once

#include "host/db/od_db_color.h"
#include "host/root/od_string.h"

#include <optional>

namespace ca {

/// A color of the palette: its number, 1 to 255, or the name of one of the first seven, in any case.
std::optional<OdCmColor> parsePaletteColor(OdString const& text);
/// A palette color, or ByLayer or ByBlock, in any case: what an entity can have.
std::optional<OdCmColor> parseEntityColor(OdString const& text);
/// "red,green,blue", each 0 to 255.
std::optional<OdCmColor> parseTrueColor(OdString const& text);

/// As prompts and lists show it: "1 (red)", "30", "12,34,56", "ByLayer", "ByBlock".
OdString colorText(OdCmColor const& color);

/// Number of the palette color (1 to 255) that looks most like a true color; of several, the first.
std::int16_t nearestPaletteColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

} // namespace ca
