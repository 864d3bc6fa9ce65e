#pragma once

#include "host/root/od_string.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ut {

/// The bytes of a file for reading, without a copy where the file is large. What the view shows when another
/// process changes the file in place meanwhile is not defined; replacing the file (AtomicFile) is safe.
class MappedFile
{
public:
    /// Throws OdError "cannot read <path>: <reason>" with eFileNotFound or eFileAccess.
    explicit MappedFile(OdString const& path);
    ~MappedFile();
    MappedFile(MappedFile const&) = delete;
    MappedFile& operator=(MappedFile const&) = delete;

    std::string_view bytes() const { return m_bytes; }

private:
    void* m_mapping = nullptr;
    std::string m_copy; // of small files, and of what cannot be mapped
    std::string_view m_bytes;
};

} // namespace ut
