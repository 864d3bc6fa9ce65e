#pragma once

#include "host/dxf/dxf_release.h"

#include "host/root/od_string.h"

#include <string>

namespace dxf {

class TagSource;

/// What has to be known of a file before it can be read.
struct FileHead
{
    Release const* release = nullptr;
    std::string codePage; ///< $DWGCODEPAGE, empty without
};

/// Throws OdError(eUnsupportedFormat) for a release that is not read, eInvalidFile for a file without a clear one.
FileHead readHead(OdString const& path, TagSource& source);

} // namespace dxf
