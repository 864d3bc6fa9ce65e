#pragma once

// Small things that tests of all kinds use.

#include "testapi/ta_host.h"

#include <pugixml.hpp>

#include <string>
#include <vector>

namespace ta {

/// Names of parameters of the tests configuration: the folder that relative paths in it count from, and the one
/// for logs.
extern wchar_t const* const BASE_PATH;
extern wchar_t const* const LOG_PATH;

/// In place: with `toBackslash` every "/" becomes a backslash, else every backslash a "/". Null is allowed.
void correctSlashes(wchar_t* path, bool toBackslash);

/// Wide text as UTF-8, the form of file names in the system's calls.
std::string wcstombs(std::wstring const& text);

/// Byte offset at which the node starts in the file that it was parsed from; -1 when it was not parsed, or the
/// file cannot be read any more. The parser itself counts characters of the text that it decoded.
long byteOffset(std::wstring const& path, pugi::xml_node node);

/// Owns names of selection sets that a test made, and frees each once when it goes, in the order of adding.
class ScopedSdsSSetsHolder
{
public:
    ScopedSdsSSetsHolder() = default;
    ~ScopedSdsSSetsHolder();
    ScopedSdsSSetsHolder(ScopedSdsSSetsHolder const&) = delete;
    ScopedSdsSSetsHolder& operator=(ScopedSdsSSetsHolder const&) = delete;

    /// Takes over a name; returns the stored copy, which stays valid until the next append.
    SdsName const& append(long const* name);
    /// Names the selection set.
    SdsName const& append(OdDbSelectionSet* set);

private:
    std::vector<SdsName> m_names;
};

} // namespace ta
