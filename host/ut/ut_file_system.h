#pragma once

#include "host/root/od_error.h"
#include "host/ut/ut_scoped_replacement.h"

#include <cerrno>
#include <cstddef>
#include <string_view>

#include <sys/stat.h>
#include <sys/types.h>

namespace ut {

/// The system calls behind everything that this layer does with files: arguments, results and errno are those of
/// the system. Paths are UTF-8. Tests derive from it to make single calls fail and put that in place with
/// ScopedReplacement<FileSystem>.
class FileSystem
{
public:
    virtual ~FileSystem() = default;

    virtual int open(char const* path, int flags, mode_t mode);
    virtual ssize_t read(int file, void* buffer, std::size_t size);
    virtual ssize_t write(int file, void const* bytes, std::size_t size);
    virtual int fsync(int file);
    /// Lets the disk begin to write what the file was given so far. Advice: nothing depends on whether it is
    /// taken.
    virtual void startWriting(int file);
    virtual int close(int file);
    virtual int stat(char const* path, struct stat& status);
    virtual int fstat(int file, struct stat& status);
    /// Whether this process may use the file so, with its effective ids.
    virtual int access(char const* path, int mode);
    virtual ssize_t readlink(char const* path, char* buffer, std::size_t size);
    virtual int fchown(int file, uid_t user, gid_t group);
    virtual int fchmod(int file, mode_t mode);
    virtual int rename(char const* from, char const* to);
    virtual int unlink(char const* path);
    virtual int mkdir(char const* path, mode_t mode);
    virtual int rmdir(char const* path);

    static FileSystem& current();
    /// Null brings the system's own calls back; returns what was installed before.
    static FileSystem* install(FileSystem* replacement);
};

/// Repeats a call that a signal interrupted.
template <class Call>
auto retryInterrupted(Call call)
{
    for (;;) {
        auto const result = call();
        if (result != -1 || errno != EINTR)
            return result;
    }
}

/// The error "cannot <action> <path>: <reason>", the reason in the system's words for the errno value given.
OdError systemError(OdResult code, std::wstring_view action, OdString const& path, int error);

} // namespace ut
