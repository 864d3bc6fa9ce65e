#include "host/ut/ut_file_name.h"

#include "host/ut/ut_environment.h"
#include "host/ut/ut_file.h"
#include "host/ut/ut_text.h"

#include <array>
#include <filesystem>
#include <ranges>
#include <system_error>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace ut {

namespace {

constexpr wchar_t s_separator = L'/';

bool isRooted(OdString const& text)
{
    return text.startsWith(L"/");
}

/// "~" alone or before "/".
bool isBelowHome(OdString const& text)
{
    return text.startsWith(L"~") && (text.getLength() == 1 || text[1] == s_separator);
}

/// Without its trailing separators; the root keeps one.
std::wstring_view withoutTrailingSeparators(std::wstring_view folder)
{
    std::size_t const last = folder.find_last_not_of(s_separator);
    if (last == std::wstring_view::npos)
        return folder.substr(0, 1);
    return folder.substr(0, last + 1);
}

OdString homeFolder()
{
    OdString home;
    if (getEnvironment(L"HOME", &home))
        return home;
    passwd const* const entry = ::getpwuid(::getuid());
    return entry && entry->pw_dir ? OdString::fromUtf8(entry->pw_dir) : OdString();
}

void replaceTilde(OdString& text)
{
    if (!isBelowHome(text))
        return;
    OdString const home = homeFolder();
    if (!home.isEmpty())
        text = OdString(withoutTrailingSeparators(home.str())) + text.mid(1);
}

OdString joined(OdString const& folder, OdString const& name)
{
    bool const isSeparated = !folder.isEmpty() && folder.str().back() == s_separator;
    return folder + (isSeparated ? L"" : L"/") + name;
}

bool makeAbsolute(OdString& text, OdString const& folder)
{
    if (isRooted(text))
        return true;
    OdString base = folder;
    correctSlashes(base);
    if (!isRooted(base)) {
        std::error_code error;
        std::filesystem::path const current = std::filesystem::current_path(error);
        if (error)
            return false;
        OdString const currentText = OdString::fromUtf8(current.native());
        base = base.isEmpty() ? currentText : joined(currentText, base);
    }
    text = joined(base, text);
    return true;
}

/// The parts that stay when "." and ".." are taken away; a relative name may keep leading "..".
std::vector<std::wstring_view> resolvedParts(std::wstring_view text)
{
    bool const fromRoot = text.starts_with(s_separator);
    std::vector<std::wstring_view> parts;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t const end = std::min(text.find(s_separator, start), text.size());
        std::wstring_view const part = text.substr(start, end - start);
        start = end + 1;
        if (part.empty() || part == L".")
            continue;
        bool const goesUp = part == L"..";
        if (goesUp && !parts.empty() && parts.back() != L"..")
            parts.pop_back();
        else if (!goesUp || !fromRoot)
            parts.push_back(part);
    }
    return parts;
}

OdString withoutDots(OdString const& text)
{
    std::wstring_view const original = text.str();
    if (original.empty())
        return text;
    std::wstring out(original.starts_with(s_separator) ? 1 : 0, s_separator);
    std::vector<std::wstring_view> const parts = resolvedParts(original);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0)
            out += s_separator;
        out += parts[i];
    }
    if (out.empty())
        out = L".";
    if (original.ends_with(s_separator) && !out.ends_with(s_separator))
        out += s_separator;
    return OdString(std::move(out));
}

bool isFolder(std::string const& path)
{
    struct stat status = {};
    return FileSystem::current().stat(path.c_str(), status) == 0 && S_ISDIR(status.st_mode);
}

bool makeFolder(std::string const& path, mode_t mode)
{
    return FileSystem::current().mkdir(path.c_str(), mode) == 0;
}

} // namespace

FileName::FileName(OdString text) : m_text(std::move(text))
{
    correctSlashes(m_text);
}

bool FileName::normalize(unsigned flags, OdString const& folder)
{
    OdString text = m_text;
    if (flags & kVariables) {
        text = expandEnvironmentStrings(text);
        correctSlashes(text);
    }
    if (flags & kTilde)
        replaceTilde(text);
    if ((flags & kAbsolute) && !makeAbsolute(text, folder))
        return false;
    if (flags & kDots)
        text = withoutDots(text);
    m_text = std::move(text);
    return true;
}

OdString FileName::getPath(unsigned flags) const
{
    OdString const folder = m_text.left(nameStart());
    return flags & kTrailingSeparator ? folder : OdString(withoutTrailingSeparators(folder.str()));
}

OdString FileName::getFullName() const
{
    return m_text.mid(nameStart());
}

OdString FileName::getName() const
{
    return m_text.mid(nameStart(), extensionDot() - nameStart());
}

OdString FileName::getExt() const
{
    return m_text.mid(extensionDot() + 1);
}

void FileName::setExt(OdString const& extension)
{
    OdString const text = extension.startsWith(L".") ? extension.mid(1) : extension;
    m_text = m_text.left(extensionDot());
    if (!text.isEmpty())
        m_text += L"." + text;
}

/// Position of the dot before the extension, or the length of the text.
std::size_t FileName::extensionDot() const
{
    std::wstring const& text = m_text.str();
    std::size_t const afterDots = text.find_first_not_of(L'.', nameStart());
    std::size_t const dot = text.rfind(L'.');
    bool const isExtension = dot != std::wstring::npos && afterDots != std::wstring::npos && dot > afterDots;
    return isExtension ? dot : text.size();
}

bool FileName::isAbsolute() const
{
    return isRooted(m_text) || isBelowHome(m_text);
}

bool FileName::fileExists() const
{
    return ut::fileExists(m_text);
}

bool FileName::mkdir(OdString const& path, unsigned permissions)
{
    OdString corrected = path;
    std::string const text = odWideToUtf8(withoutTrailingSeparators(correctSlashes(corrected).str()));
    mode_t const mode = static_cast<mode_t>(permissions);
    constexpr mode_t passable = S_IWUSR | S_IXUSR; // parents must let their children be made
    std::vector<std::string> made;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t const end = std::min(text.find('/', start + 1), text.size());
        std::string part = text.substr(0, end);
        start = end;
        if (isFolder(part))
            continue;
        if (makeFolder(part, end < text.size() ? mode | passable : mode)) {
            made.push_back(std::move(part));
        } else if (!isFolder(part)) { // somebody else may have made it in between
            std::for_each(made.rbegin(), made.rend(),
                          [](std::string const& folder) { FileSystem::current().rmdir(folder.c_str()); });
            return false;
        }
    }
    return !text.empty();
}

OdString FileName::getTempDir()
{
    for (wchar_t const* const name : {L"TMPDIR", L"TMP", L"TEMP"}) {
        OdString folder;
        if (getEnvironment(name, &folder) && isFolder(folder.toUtf8()))
            return OdString(withoutTrailingSeparators(folder.str()));
    }
    return L"/tmp";
}

} // namespace ut
