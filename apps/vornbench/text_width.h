#pragma once

#include <string>
#include <string_view>

/// Columns that UTF-8 text takes, one for each character.
std::size_t textWidth(std::string_view text);
/// The text with blanks behind it up to `width` columns.
std::string padded(std::string_view text, std::size_t width);
/// The text cut to `width` columns, an ellipsis at its end where something was cut.
std::string shortened(std::string_view text, std::size_t width);
/// The text with control characters other than the line feed and the tabulator replaced, so that a message cannot
/// steer the terminal.
std::string printable(std::string_view text);
/// "4.2 ms", "12.34 s", "3 min 05 s".
std::string durationText(double seconds);
/// "1 test", "2 tests".
std::string counted(std::size_t count, std::string_view noun);
