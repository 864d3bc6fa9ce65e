#pragma once

#include <string>
#include <vector>

/// The reading of LISP texts in its plainest form: a nested list is cut out of the text and read by a call of its
/// own. It judges the reader that does without.
namespace lispRecursion {

struct Reading
{
    int status = 0;
    std::vector<std::string> tokens; ///< as shownList() shows them
};

Reading read(std::wstring const& text);
/// The tokens as one line, or "status" and its number.
std::string shown(Reading const& reading);

} // namespace lispRecursion
