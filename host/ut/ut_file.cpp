#include "host/ut/ut_file.h"

#include <fcntl.h>

namespace ut {

namespace {

bool refused(OdError const& error, OdString* reason)
{
    if (reason)
        *reason = error.description();
    return false;
}

bool isSameFile(OdString const& a, OdString const& b)
{
    FileSystem& system = FileSystem::current();
    struct stat statusA = {};
    struct stat statusB = {};
    return system.stat(a.toUtf8().c_str(), statusA) == 0 && system.stat(b.toUtf8().c_str(), statusB) == 0 &&
           statusA.st_dev == statusB.st_dev && statusA.st_ino == statusB.st_ino;
}

} // namespace

bool fileExists(OdString const& path)
{
    struct stat status = {};
    return FileSystem::current().stat(path.toUtf8().c_str(), status) == 0 && S_ISREG(status.st_mode);
}

bool copyFile(OdString const& source, OdString const& target, OdString* reason)
{
    try {
        MappedFile const bytes(source);
        if (isSameFile(source, target))
            return true;
        AtomicFile copy(target);
        copy.write(bytes.bytes());
        copy.commit();
        return true;
    } catch (OdError const& error) {
        return refused(error, reason);
    }
}

bool removeFile(OdString const& path, OdString* reason)
{
    if (FileSystem::current().unlink(path.toUtf8().c_str()) == 0)
        return true;
    int const error = errno;
    return refused(systemError(error == ENOENT ? eFileNotFound : eFileAccess, L"remove", path, error), reason);
}

bool readWholeFile(OdString const& path, std::string& bytes, OdString* reason)
{
    FileHandle file(path.toUtf8().c_str(), O_RDONLY | O_CLOEXEC);
    std::string content;
    if (file && file.readAll(content)) {
        bytes = std::move(content);
        return true;
    }
    int const error = errno;
    return refused(systemError(error == ENOENT ? eFileNotFound : eFileAccess, L"read", path, error), reason);
}

} // namespace ut
