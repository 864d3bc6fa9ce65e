#include "host/ut/ut_atomic_file.h"

#include <array>
#include <charconv>
#include <climits>
#include <cstdint>
#include <random>

#include <fcntl.h>
#include <unistd.h>

namespace ut {

namespace {

constexpr std::size_t s_bufferSize = 64 * 1024;
constexpr std::size_t s_startSize = 2 * 1024 * 1024;
constexpr int s_maxLinks = 40; // as many as the system follows itself
constexpr int s_maxNameAttempts = 100;

/// The name does not depend on the target's, which may be as long as a name can be.
std::string temporaryName()
{
    std::random_device random;
    std::uint64_t const number = (std::uint64_t{random()} << 32) | random();
    std::array<char, 16> digits;
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 36).ptr;
    return ".vorn-" + std::string(digits.data(), end) + ".tmp";
}

bool isOwnershipRefused(int error)
{
    return error == EPERM || error == EINVAL || error == ENOTSUP || error == ENOSYS;
}

/// Some file systems know no synchronising of folders.
bool isFolderSyncUnknown(int error)
{
    return error == EINVAL || error == ENOTSUP || error == ENOSYS;
}

} // namespace

AtomicFile::AtomicFile(OdString const& path) : m_path(path), m_target(path.toUtf8())
{
    m_buffer.reserve(s_bufferSize);
    prepare();
}

AtomicFile::~AtomicFile()
{
    discard();
}

void AtomicFile::prepare()
{
    FileSystem& system = FileSystem::current();
    if (m_target.empty())
        fail(eFileAccess, ENOENT);
    followLinks();
    struct stat status = {};
    if (system.stat(m_target.c_str(), status) != 0) {
        if (errno != ENOENT)
            fail(eFileAccess, errno);
        createTemporary(0666);
        return;
    }
    if (S_ISDIR(status.st_mode))
        fail(eFileAccess, EISDIR);
    if (!S_ISREG(status.st_mode))
        throw OdError(eFileAccess, L"cannot write " + m_path + L": Not a regular file");
    if (system.access(m_target.c_str(), W_OK) != 0)
        fail(eFileAccess, errno);
    createTemporary(0600); // nobody else reads it before it has the target's permissions
    keepOwnerAndMode(status);
}

void AtomicFile::followLinks()
{
    std::array<char, PATH_MAX> link;
    for (int i = 0; i < s_maxLinks; ++i) {
        ssize_t const size = FileSystem::current().readlink(m_target.c_str(), link.data(), link.size());
        if (size < 0) {
            bool const isNoLink = errno == EINVAL || errno == ENOENT;
            if (!isNoLink)
                fail(eFileAccess, errno);
            return;
        }
        std::string const target(link.data(), static_cast<std::size_t>(size));
        m_target = target.starts_with('/') ? target : folder() + target;
    }
    fail(eFileAccess, ELOOP);
}

void AtomicFile::createTemporary(mode_t mode)
{
    for (int i = 0; i < s_maxNameAttempts; ++i) {
        std::string path = folder() + temporaryName();
        m_file = FileHandle(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        if (m_file) {
            m_temporary = std::move(path);
            return;
        }
        if (errno != EEXIST)
            break;
    }
    fail(eFileAccess, errno);
}

void AtomicFile::keepOwnerAndMode(struct stat const& status)
{
    FileSystem& system = FileSystem::current();
    constexpr uid_t keepUser = static_cast<uid_t>(-1);
    mode_t mode = status.st_mode & 07777;
    if (system.fchown(m_file.get(), status.st_uid, status.st_gid) != 0) {
        if (!isOwnershipRefused(errno))
            fail(eFileAccess, errno);
        mode &= static_cast<mode_t>(~(S_ISUID | S_ISGID));
        if (system.fchown(m_file.get(), keepUser, status.st_gid) != 0) {
            if (!isOwnershipRefused(errno))
                fail(eFileAccess, errno);
            mode = (mode & ~mode_t{S_IRWXG}) | (mode & (mode & S_IRWXO) << 3);
        }
    }
    if (system.fchmod(m_file.get(), mode) != 0)
        fail(eFileAccess, errno);
}

void AtomicFile::write(std::string_view bytes)
{
    requireOpen();
    if (m_buffer.size() + bytes.size() > s_bufferSize)
        flush();
    if (bytes.size() >= s_bufferSize)
        writeThrough(bytes);
    else
        m_buffer += bytes;
}

void AtomicFile::commit()
{
    requireOpen();
    flush();
    FileSystem& system = FileSystem::current();
    if (retryInterrupted([&] { return system.fsync(m_file.get()); }) != 0 || !m_file.close())
        fail(eFileWrite, errno);
    // Opened before the renaming, so that as little as possible can go wrong after it.
    std::string const folderPath = folder();
    FileHandle const folderHandle(folderPath.empty() ? "." : folderPath.c_str(),
                                  O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (!folderHandle && errno != EACCES) // a folder may be writable and yet unreadable
        fail(eFileWrite, errno);
    if (system.rename(m_temporary.c_str(), m_target.c_str()) != 0)
        fail(eFileWrite, errno);
    m_temporary.clear();
    if (folderHandle && retryInterrupted([&] { return system.fsync(folderHandle.get()); }) != 0 &&
        !isFolderSyncUnknown(errno))
        fail(eFileWrite, errno);
}

void AtomicFile::requireOpen() const
{
    if (!m_file)
        throw OdError(eNotApplicable, L"cannot write " + m_path + L": it is finished already");
}

void AtomicFile::flush()
{
    writeThrough(m_buffer);
    m_buffer.clear();
}

void AtomicFile::writeThrough(std::string_view bytes)
{
    FileSystem& system = FileSystem::current();
    while (!bytes.empty()) {
        ssize_t const count =
            retryInterrupted([&] { return system.write(m_file.get(), bytes.data(), bytes.size()); });
        if (count <= 0)
            fail(eFileWrite, count < 0 ? errno : EIO);
        bytes.remove_prefix(static_cast<std::size_t>(count));
        m_unstarted += static_cast<std::size_t>(count);
    }
    if (m_unstarted >= s_startSize) {
        system.startWriting(m_file.get()); // meanwhile the rest is made; committing has less to wait for
        m_unstarted = 0;
    }
}

void AtomicFile::discard() noexcept
{
    m_file.close();
    if (!m_temporary.empty())
        FileSystem::current().unlink(m_temporary.c_str());
    m_temporary.clear();
}

void AtomicFile::fail(OdResult code, int error)
{
    discard();
    throw systemError(code, L"write", m_path, error);
}

std::string AtomicFile::folder() const
{
    return m_target.substr(0, m_target.rfind('/') + 1);
}

} // namespace ut
