#include "host/ut/ut_mapped_file.h"

#include "host/ut/ut_file_handle.h"

#include <fcntl.h>
#include <sys/mman.h>

namespace ut {

namespace {

// Below this size copying costs less than setting up and tearing down a mapping.
constexpr off_t s_leastMappedSize = 64 * 1024;

OdError readError(OdString const& path, int error)
{
    return systemError(error == ENOENT ? eFileNotFound : eFileAccess, L"read", path, error);
}

/// Null when the file is small or cannot be mapped.
void* mapped(FileHandle const& file, struct stat const& status)
{
    if (!S_ISREG(status.st_mode) || status.st_size < s_leastMappedSize)
        return nullptr;
    void* const mapping =
        ::mmap(nullptr, static_cast<std::size_t>(status.st_size), PROT_READ, MAP_PRIVATE, file.get(), 0);
    return mapping == MAP_FAILED ? nullptr : mapping;
}

} // namespace

MappedFile::MappedFile(OdString const& path)
{
    FileHandle file(path.toUtf8().c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (!file || FileSystem::current().fstat(file.get(), status) != 0)
        throw readError(path, errno);
    m_mapping = mapped(file, status);
    if (m_mapping) {
        m_bytes = {static_cast<char const*>(m_mapping), static_cast<std::size_t>(status.st_size)};
        return;
    }
    if (!file.readAll(m_copy))
        throw readError(path, errno);
    m_bytes = m_copy;
}

MappedFile::~MappedFile()
{
    if (m_mapping)
        ::munmap(m_mapping, m_bytes.size());
}

} // namespace ut
