#pragma once

// Small things that tests of all kinds use: names and paths, places in files, scripts in files.

#include "testapi/ta_host.h"

#include <pugixml.hpp>

#include <string>
#include <vector>

namespace vorntest {
class VornTestBench;
}

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

/// @name Unique names
/// @{
/// The prefix and a random number: a name that no record of the table, or no entry of the dictionary, has. The
/// random generator (std::rand) is seeded with the time each time, so that names of two runs differ; within one
/// second, a name comes again unless it was used. Throws OdError(eInvalidInput) for a null container.
OdString createUniqueName(OdDbSymbolTable const* table, wchar_t const* prefix);
OdString createUniqueName(OdDbDictionary const* dictionary, wchar_t const* prefix);
/// Full path of a file that does not exist: the prefix and a random number in hexadecimal digits. The extension
/// comes with or without its dot; a null folder is the one for temporary files. Seeds nothing.
OdString createUniqueTempFileName(wchar_t const* prefix, wchar_t const* ext, wchar_t const* dir = nullptr);
/// Sets `path` to this file in the folder for temporary files; whether there is none yet.
bool createTempFileName(OdString& path, wchar_t const* name, wchar_t const* ext);
/// @}

/// The folder that paths in the tests configuration count from, with "/" as separator. With `addToSearchPath`
/// drawings are looked for in it from now on (SRCHPATH). Null means the bench that runs; empty without one.
OdString getTestFilesPath(bool addToSearchPath, vorntest::VornTestBench const* bench = nullptr);

/// The name with references to environment variables replaced; names that are not set stay as written.
OdString fileNameExpEnv(OdString const& name);

/// Removes every file of the folder, hidden ones and links too, but no folder in it. A folder that does not exist
/// has nothing to remove. Fails the test where something could not be removed.
void clearDir(OdString const& dir);

/// Runs the text of a file by executeCommands() (ta_draw_utils.h). Fails the test where it cannot be read.
void executeCommandsFromFile(OdString const& file);

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
