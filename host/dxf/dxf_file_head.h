#pragma once

#include "host/dxf/dxf_release.h"

#include <string>

namespace dxf {

class TagSource;

/// What has to be known of a file before it can be read.
struct FileHead
{
    Release const* release = nullptr; ///< never null once read
    std::string codePage;             ///< $DWGCODEPAGE, empty without
};

/// A file that does not name its release is one of R12: older programs left the header out. Throws
/// OdError(eInvalidFile) for a release that is not known.
FileHead readHead(TagSource& source);

} // namespace dxf
