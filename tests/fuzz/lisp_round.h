#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

/// What has to hold of every LISP text, however malformed: it reads as a list or is refused with a documented
/// status; what was read prints, and the print reads as the same list; taken for the list of an entity it converts
/// or is refused; what is made of that can be made again from what it says.
namespace lispRound {

class Fault : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};

/// The text ends at its first zero character.
void run(std::wstring const& text);
/// As run, for UTF-8.
void run(std::string_view bytes);

} // namespace lispRound
