#pragma once

#include "host/ut/ut_atomic_file.h"
#include "tests/support/temp_folder.h"

#include <set>
#include <string>

using Names = std::set<std::string>;

/// More than the buffer holds.
inline std::string const s_newContent = [] {
    std::string text;
    for (int i = 0; i < 30000; ++i)
        text += std::to_string(i) + "\n";
    return text;
}();

/// Replaces the file by s_newContent, in pieces of many sizes.
inline void writeInPieces(OdString const& path)
{
    ut::AtomicFile file(path);
    std::string_view rest = s_newContent;
    for (std::size_t size = 1; !rest.empty(); size = size * 3 + 1) {
        std::string_view const piece = rest.substr(0, size);
        file.write(piece);
        rest.remove_prefix(piece.size());
    }
    file.commit();
}

inline unsigned modeOf(TempFolder const& folder, char const* name)
{
    return static_cast<unsigned>(std::filesystem::status(folder.path() / name).permissions());
}
