#pragma once

#include "host/root/od_string.h"

namespace ut {

/// The name of a file as text: folder, name and extension. Folders are separated by "/"; backslashes become "/" at
/// once. Only normalize() and fileExists() look at the world outside.
class FileName
{
public:
    /// What normalize() does. The bits 32, 64 and 128 are accepted and have no effect here.
    enum ENormalize : unsigned
    {
        kVariables = 1, ///< replaces references to environment variables
        kDots = 2,      ///< resolves "." and ".." in the text, joins repeated "/"
        kTilde = 4,     ///< replaces a leading "~" by the home folder; "~user" stays
        kCase = 8,      ///< lower case on systems whose file names have no case; so no effect here
        kAbsolute = 16, ///< puts the folder before a relative name
        kAllButCase = 247
    };
    enum EPath : unsigned
    {
        kPlainFolder = 1,       ///< folder without a trailing "/", but for the root
        kTrailingSeparator = 2, ///< folder with a trailing "/"; empty when the name has no folder
    };

    FileName() = default;
    explicit FileName(OdString text);

    /// Takes the steps that `flags` name, in the order variables, tilde, absolute, dots. Links are not resolved. A
    /// relative `folder` counts from the current one, an empty one is the current one. False, with the name as it
    /// was, when the current folder is needed and cannot be found out.
    bool normalize(unsigned flags = kAllButCase, OdString const& folder = OdString());

    OdString const& getFullPath() const { return m_text; }
    /// The folder, empty when the name has none.
    OdString getPath(unsigned flags = kPlainFolder) const;
    /// Name and extension without the folder.
    OdString getFullName() const;
    /// Name without folder and extension. The dots that a name begins with do not start an extension.
    OdString getName() const;
    /// What follows the last dot of the name; empty when there is none.
    OdString getExt() const;
    /// Replaces or adds the extension, given with or without its dot; an empty one removes it.
    void setExt(OdString const& extension);

    /// Begins with "/", or with "~" for the home folder.
    bool isAbsolute() const;
    /// Whether it names a regular file; links are followed, folders do not count.
    bool fileExists() const;

    /// Makes a folder and the parents that it lacks; true as well when it exists. On failure no folder made on the
    /// way is left. The permissions are subject to the process's mask.
    static bool mkdir(OdString const& path, unsigned permissions = 0777);
    /// The folder for temporary files, without a trailing "/": TMPDIR, TMP or TEMP if one of them names a folder,
    /// else the system's own.
    static OdString getTempDir();

private:
    std::size_t nameStart() const { return m_text.str().rfind(L'/') + 1; }
    std::size_t extensionDot() const;

    OdString m_text;
};

} // namespace ut
