#pragma once

#include "host/db/filer/od_db_tag.h"
#include "host/root/od_error.h"

#include <memory>

namespace dxf {

/// The tags of a drawing file one after another, whatever form the file has.
class TagSource
{
public:
    virtual ~TagSource() = default;

    /// Reads the next tag; false at the end of the file. Text of the tag is UTF-8 and lasts until the next call;
    /// the text of group 0 lasts as long as the file. Throws OdError(eInvalidFile) for what is no tag.
    virtual bool next(OdDbTag& tag) = 0;
    /// Line of the tag that was read last, from 1.
    virtual std::size_t line() const = 0;
    /// The same file from its beginning, for looking ahead.
    virtual std::unique_ptr<TagSource> fromStart() const = 0;

    /// Throws OdError(eInvalidFile) with path and line in front of the reason.
    [[noreturn]] void fail(OdString const& reason, std::size_t line) const;
    [[noreturn]] void fail(OdString const& reason) const { fail(reason, line()); }

protected:
    explicit TagSource(OdString path) : m_path(std::move(path)) {}
    OdString const& path() const { return m_path; }

private:
    OdString m_path;
};

} // namespace dxf
