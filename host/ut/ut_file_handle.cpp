#include "host/ut/ut_file_handle.h"

#include <algorithm>
#include <new>
#include <stdexcept>

namespace ut {

namespace {

/// False with ENOMEM when there is not that much memory: sizes come from files.
bool resizeText(std::string& text, std::size_t size)
{
    try {
        text.resize(size);
        return true;
    } catch (std::bad_alloc const&) {
    } catch (std::length_error const&) {
    }
    errno = ENOMEM;
    return false;
}

} // namespace

bool FileHandle::close()
{
    if (m_file < 0)
        return true;
    // An interrupted close has closed the file all the same; repeating it could close somebody else's.
    return FileSystem::current().close(std::exchange(m_file, -1)) == 0 || errno == EINTR;
}

bool FileHandle::readAll(std::string& bytes)
{
    FileSystem& system = FileSystem::current();
    struct stat status = {};
    if (system.fstat(m_file, status) != 0)
        return false;
    // One byte more than the size, so that the usual file ends within the first round. Files without a size of
    // their own (pipes, /proc) grow as they come.
    constexpr std::size_t leastStep = 4096;
    std::size_t step = std::max(leastStep, static_cast<std::size_t>(status.st_size) + 1);
    std::size_t size = bytes.size();
    for (;;) {
        if (!resizeText(bytes, size + step))
            return false;
        ssize_t const count = retryInterrupted([&] { return system.read(m_file, bytes.data() + size, step); });
        size += count > 0 ? static_cast<std::size_t>(count) : 0;
        if (count <= 0) {
            bytes.resize(size);
            return count == 0;
        }
        step = std::max(leastStep, size / 2);
    }
}

} // namespace ut
