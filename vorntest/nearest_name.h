#pragma once

#include <span>
#include <string>
#include <string_view>

namespace vorntest {

/// The known name that a misspelt one most likely means: nearest by edit distance (a swap of neighbours counts as
/// one), or the first that continues it. Empty when nothing is near.
std::wstring_view nearestName(std::wstring_view given, std::span<std::wstring_view const> known);

/// The end of a message about an unknown name: "; did you mean QnameQ?" or "; known are QaQ, QbQ", where Q are the
/// quotes; empty when nothing is known.
std::wstring nearestNameHint(std::wstring_view given, std::span<std::wstring_view const> known,
                             wchar_t openQuote = L'\'', wchar_t closeQuote = L'\'');

} // namespace vorntest
