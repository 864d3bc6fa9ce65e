#include "host/ut/ut_file_system.h"

#include <cstdio>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace ut {

namespace {

FileSystem* s_replacement = nullptr;

} // namespace

int FileSystem::open(char const* path, int flags, mode_t mode)
{
    return ::open(path, flags, mode);
}

ssize_t FileSystem::read(int file, void* buffer, std::size_t size)
{
    return ::read(file, buffer, size);
}

ssize_t FileSystem::write(int file, void const* bytes, std::size_t size)
{
    return ::write(file, bytes, size);
}

int FileSystem::fsync(int file)
{
    return ::fsync(file);
}

void FileSystem::startWriting(int file)
{
    int const before = errno;
    ::sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
    errno = before;
}

int FileSystem::close(int file)
{
    return ::close(file);
}

int FileSystem::stat(char const* path, struct stat& status)
{
    return ::stat(path, &status);
}

int FileSystem::fstat(int file, struct stat& status)
{
    return ::fstat(file, &status);
}

int FileSystem::access(char const* path, int mode)
{
    return ::faccessat(AT_FDCWD, path, mode, AT_EACCESS);
}

ssize_t FileSystem::readlink(char const* path, char* buffer, std::size_t size)
{
    return ::readlink(path, buffer, size);
}

int FileSystem::fchown(int file, uid_t user, gid_t group)
{
    return ::fchown(file, user, group);
}

int FileSystem::fchmod(int file, mode_t mode)
{
    return ::fchmod(file, mode);
}

int FileSystem::rename(char const* from, char const* to)
{
    return ::rename(from, to);
}

int FileSystem::unlink(char const* path)
{
    return ::unlink(path);
}

int FileSystem::mkdir(char const* path, mode_t mode)
{
    return ::mkdir(path, mode);
}

int FileSystem::rmdir(char const* path)
{
    return ::rmdir(path);
}

FileSystem& FileSystem::current()
{
    static FileSystem s_system;
    return s_replacement ? *s_replacement : s_system;
}

FileSystem* FileSystem::install(FileSystem* replacement)
{
    return std::exchange(s_replacement, replacement);
}

OdError systemError(OdResult code, std::wstring_view action, OdString const& path, int error)
{
    OdString const reason = OdString::fromUtf8(std::generic_category().message(error));
    return OdError(code, OdString(L"cannot ") + OdString(action) + L" " + path + L": " + reason);
}

} // namespace ut
