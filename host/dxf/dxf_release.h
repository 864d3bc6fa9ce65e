#pragma once

#include <string_view>

namespace dxf {

/// A release of the file format.
struct Release
{
    std::string_view code; ///< value of $ACADVER
    wchar_t const* name;   ///< as people call it
    bool isSupported;
    bool isUtf8; ///< text is UTF-8; in older ones it is in the code page of the file
};

/// Null for a code that is no release known here.
Release const* findRelease(std::string_view code);
/// The release that is written.
Release const& currentRelease();

} // namespace dxf
