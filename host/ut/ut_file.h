#pragma once

// Files as a whole. To write a file see ut_atomic_file.h, to read a large one ut_mapped_file.h; both come with
// this header.

#include "host/ut/ut_atomic_file.h"
#include "host/ut/ut_mapped_file.h"

namespace ut {

/// Whether a regular file exists; links are followed, folders do not count.
bool fileExists(OdString const& path);

// The functions below are false on failure and then say why in `reason`, where given.

/// Copies over an existing file; the target has its old or the whole new content. Creates no folders. A file
/// copied onto itself stays as it is.
bool copyFile(OdString const& source, OdString const& target, OdString* reason = nullptr);
/// Removes a file or a symbolic link, never a folder.
bool removeFile(OdString const& path, OdString* reason = nullptr);
/// Reads all bytes; on failure `bytes` stays as it is.
bool readWholeFile(OdString const& path, std::string& bytes, OdString* reason = nullptr);

} // namespace ut
