#pragma once

#include <string_view>

namespace dxf {

/// What a file is, by its first bytes.
enum class EContentKind
{
    kText,   ///< could be tags in text form
    kBinary, ///< tags in binary form
    kDwg,
    kUtf16,
    kEmpty,
    kOther
};

EContentKind contentKindOf(std::string_view bytes);

/// The mark that text editors put before UTF-8.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

} // namespace dxf
