#pragma once

#include <string_view>

// Some entities end with a whole object of another kind: the columns of a multiline text, the multiline text of an
// attribute. It stands behind a group of its own, and its tags reuse the group codes of the entity. For a list of
// fields it is a section with this marker; the first tag that its readTail gets is the group itself.

inline constexpr int kOdDbEmbeddedCode = 101;
inline constexpr std::string_view kOdDbEmbeddedMarker = "Embedded Object";
