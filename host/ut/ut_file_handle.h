#pragma once

#include "host/ut/ut_file_system.h"

#include <string>
#include <utility>

namespace ut {

/// An open file descriptor of the current FileSystem, closed with the object. Default constructed: none.
class FileHandle
{
public:
    FileHandle() = default;
    /// Opens; on failure the object holds none and errno says why.
    FileHandle(char const* path, int flags, mode_t mode = 0)
        : m_file(retryInterrupted([&] { return FileSystem::current().open(path, flags, mode); }))
    {
    }
    FileHandle(FileHandle&& other) noexcept : m_file(std::exchange(other.m_file, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept
    {
        std::swap(m_file, other.m_file);
        return *this;
    }
    ~FileHandle() { close(); }

    explicit operator bool() const { return m_file >= 0; }
    int get() const { return m_file; }

    /// False with errno when the system reports that something written may be lost. The file is closed either way.
    bool close();
    /// Appends everything from the current position to the end; false with errno when reading fails.
    bool readAll(std::string& bytes);

private:
    int m_file = -1;
};

} // namespace ut
