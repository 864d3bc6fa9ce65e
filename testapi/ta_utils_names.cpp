// Names that nothing has yet.
#include "testapi/ta_utils.h"

#include <cstdlib>
#include <ctime>

namespace ta {

namespace {

template <class Container>
OdString uniqueName(Container const* container, wchar_t const* prefix)
{
    if (!container)
        throw OdError(eInvalidInput, L"Unique names need a table or a dictionary");
    OdString const start = prefix;
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    OdString name;
    do
        name = odFormat(L"%ls%d", start.c_str(), std::rand());
    while (container->has(name));
    return name;
}

OdString filePath(OdString const& folder, OdString const& name, wchar_t const* ext)
{
    OdString const extension = ext && *ext == L'.' ? ext + 1 : ext;
    OdString const fullName = extension.isEmpty() ? name : name + L"." + extension;
    ut::FileName path(folder + L"/" + fullName);
    path.normalize(ut::FileName::kAbsolute | ut::FileName::kDots);
    return path.getFullPath();
}

} // namespace

OdString createUniqueName(OdDbSymbolTable const* table, wchar_t const* prefix)
{
    return uniqueName(table, prefix);
}

OdString createUniqueName(OdDbDictionary const* dictionary, wchar_t const* prefix)
{
    return uniqueName(dictionary, prefix);
}

OdString createUniqueTempFileName(wchar_t const* prefix, wchar_t const* ext, wchar_t const* dir)
{
    OdString const folder = dir ? OdString(dir) : ut::FileName::getTempDir();
    OdString const start = prefix;
    OdString path;
    do
        path = filePath(folder, odFormat(L"%ls%x", start.c_str(), static_cast<unsigned>(std::rand())), ext);
    while (ut::fileExists(path));
    return path;
}

bool createTempFileName(OdString& path, wchar_t const* name, wchar_t const* ext)
{
    path = filePath(ut::FileName::getTempDir(), name, ext);
    return !ut::fileExists(path);
}

} // namespace ta
