#pragma once

#include "host/root/od_error.h"
#include "host/ut/ut_file_handle.h"

#include <string>
#include <string_view>

namespace ut {

/// Writes a file so that others see either its old or its new content, never a part: everything goes into a
/// temporary file in the same folder, and commit() renames that over the target.
///
/// A symbolic link is kept and its target replaced. Permissions are kept, owner and group where the system allows
/// it; where the group cannot be kept, the new group gets no more than everybody has. Other hard links of the
/// target keep the old content. Targets without write permission, folders and devices are refused.
///
/// Every failure throws OdError "cannot write <path>: <reason>": eFileAccess when the file cannot be replaced at
/// all, eFileWrite when writing fails on the way. The temporary file is then gone already, and the object cannot
/// be used further. Without commit() the destructor removes the temporary file and the target stays as it was.
class AtomicFile
{
public:
    explicit AtomicFile(OdString const& path);
    ~AtomicFile();
    AtomicFile(AtomicFile const&) = delete;
    AtomicFile& operator=(AtomicFile const&) = delete;

    /// Appends; buffered.
    void write(std::string_view bytes);
    /// Brings everything to the disk and puts it in place of the target. When only the last step fails, making the
    /// new name itself durable, the error is thrown with the new content in place.
    void commit();

private:
    void prepare();
    void followLinks();
    void createTemporary(mode_t mode);
    void keepOwnerAndMode(struct stat const& status);
    void requireOpen() const;
    void flush();
    void writeThrough(std::string_view bytes);
    void discard() noexcept;
    [[noreturn]] void fail(OdResult code, int error);
    std::string folder() const;

    OdString m_path;         // as given, for messages
    std::string m_target;    // what is replaced, after following links
    std::string m_temporary; // empty when there is none
    FileHandle m_file;
    std::string m_buffer;
    std::size_t m_unstarted = 0; // bytes that the disk was not told to write yet
};

} // namespace ut
