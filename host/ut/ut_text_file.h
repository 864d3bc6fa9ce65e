#pragma once

#include "host/root/od_string.h"

#include <string_view>
#include <vector>

namespace ut {

/// The text of a whole file: UTF-8 with or without a byte-order mark, or UTF-16 of either byte order with one.
/// What is not valid in its encoding becomes U+FFFD.
class TextFile
{
public:
    /// Reads all of the file. False when it cannot be read, with the object as it was and the reason in `reason`.
    bool open(OdString const& path, OdString* reason = nullptr);

    /// As it stands in the file, without the mark.
    OdString const& text() const { return m_text; }
    /// The lines without their ends, LF or CRLF; an unterminated last line counts. Views of text().
    std::vector<std::wstring_view> lines() const;

private:
    OdString m_text;
};

} // namespace ut
