#pragma once

#include "host/ut/ut_file_system.h"

#include <cerrno>

/// Counts the system calls on files and makes the one with the number given (from 1) fail with `error`; 0: none.
/// A failing close closes all the same, as the system's does.
class CountedFaults : public ut::FileSystem
{
public:
    explicit CountedFaults(int failing, int error = ENOSPC) : m_failing(failing), m_error(error) {}

    int calls() const { return m_calls; }
    bool hasFailed() const { return m_failing > 0 && m_calls >= m_failing; }

    int open(char const* path, int flags, mode_t mode) override
    {
        return isFault() ? -1 : FileSystem::open(path, flags, mode);
    }
    ssize_t read(int file, void* buffer, std::size_t size) override
    {
        return isFault() ? -1 : FileSystem::read(file, buffer, size);
    }
    ssize_t write(int file, void const* bytes, std::size_t size) override
    {
        return isFault() ? -1 : FileSystem::write(file, bytes, size);
    }
    int fsync(int file) override { return isFault() ? -1 : FileSystem::fsync(file); }
    int close(int file) override
    {
        int const result = FileSystem::close(file);
        return isFault() ? -1 : result;
    }
    int stat(char const* path, struct stat& status) override
    {
        return isFault() ? -1 : FileSystem::stat(path, status);
    }
    int fstat(int file, struct stat& status) override { return isFault() ? -1 : FileSystem::fstat(file, status); }
    int access(char const* path, int mode) override { return isFault() ? -1 : FileSystem::access(path, mode); }
    ssize_t readlink(char const* path, char* buffer, std::size_t size) override
    {
        return isFault() ? -1 : FileSystem::readlink(path, buffer, size);
    }
    int fchown(int file, uid_t user, gid_t group) override
    {
        return isFault() ? -1 : FileSystem::fchown(file, user, group);
    }
    int fchmod(int file, mode_t mode) override { return isFault() ? -1 : FileSystem::fchmod(file, mode); }
    int rename(char const* from, char const* to) override { return isFault() ? -1 : FileSystem::rename(from, to); }
    int unlink(char const* path) override { return isFault() ? -1 : FileSystem::unlink(path); }
    int mkdir(char const* path, mode_t mode) override { return isFault() ? -1 : FileSystem::mkdir(path, mode); }
    int rmdir(char const* path) override { return isFault() ? -1 : FileSystem::rmdir(path); }

private:
    bool isFault()
    {
        if (++m_calls != m_failing)
            return false;
        errno = m_error;
        return true;
    }

    int m_failing;
    int m_error;
    int m_calls = 0;
};

/// Runs `attempt` with the first system call failing, then with the second, and so on until one runs through
/// without meeting its fault. After each attempt that met its fault calls `check` with the number of the failing
/// call. Returns the number of faults met.
template <class Attempt, class Check>
int withEachFault(Attempt attempt, Check check, int error = ENOSPC)
{
    for (int failing = 1;; ++failing) {
        CountedFaults faults(failing, error);
        {
            ut::ScopedReplacement<ut::FileSystem> const replacement(faults);
            attempt();
        }
        if (!faults.hasFailed())
            return failing - 1;
        check(failing);
    }
}
