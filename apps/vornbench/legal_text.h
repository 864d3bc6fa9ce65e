#pragma once

#include <string>
#include <string_view>

/// Text for an XML 1.0 document, whatever it holds: markup characters become references; bytes that are no UTF-8,
/// and characters that XML 1.0 does not allow, become U+FFFD. Line breaks and tabulators become references too
/// where `isAttribute` is set, so that readers keep them.
std::string xmlText(std::string_view text, bool isAttribute);

/// A JSON string with its quotes; bytes that are no UTF-8 become U+FFFD.
std::string jsonString(std::string_view text);
