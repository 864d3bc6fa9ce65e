#pragma once

#include "host/geom/od_ge_2d.h"
#include "host/root/od_error.h"

#include <span>
#include <string_view>
#include <vector>

namespace ca {

/// A linetype as definition files hold it:
///
///     *GAS,Gas line ----GAS----GAS----
///     A,.5,-.2,["GAS",STANDARD,S=.1,R=0,X=-.1,Y=-.05],-.25
///
/// A line of name and description, and one of dashes (positive), gaps (negative) and dots (0), texts in brackets
/// behind the gap into which they go.
struct LinetypeDefinition
{
    struct Dash
    {
        double length = 0;
        /// @name A text on the dash; empty for none
        /// @{
        OdString text;
        OdString style; ///< name of a text style
        double scale = 1;
        double rotation = 0; ///< radians
        bool isRotationAbsolute = false;
        OdGeVector2d offset;
        /// @}
    };
    OdString name;
    OdString description;
    std::vector<Dash> dashes;
};

/// The dashes of the second line, with or without "A," in front. Throws OdError(eInvalidInput), the description of
/// which says what is wrong: a list that does not begin with a dash or a dot, has fewer than two or more than
/// twelve elements or no length, holds shapes, or is no list at all.
std::vector<LinetypeDefinition::Dash> parseLinetypePattern(std::wstring_view pattern);

/// Throws OdError as above, with the number of the line; comments (";") and empty lines are skipped.
std::vector<LinetypeDefinition> parseLinetypes(std::span<std::wstring_view const> lines);

/// Definitions that are there without a file, each also half ("2") and double ("X2") as long. In inches, or for
/// metric drawings in millimetres.
std::vector<LinetypeDefinition> standardLinetypes(bool isMetric);

} // namespace ca
