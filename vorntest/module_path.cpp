#include "vorntest/module_path.h"

#include "host/root/od_string.h"
#include "host/ut/ut_file_name.h"

#include <dlfcn.h>

namespace vorntest {

namespace {

constexpr std::wstring_view suffix = L".so";

std::wstring folderOfThisLibrary()
{
    Dl_info info{};
    if (!dladdr(reinterpret_cast<void const*>(&folderOfThisLibrary), &info) || !info.dli_fname)
        return L".";
    ut::FileName library(OdString::fromUtf8(info.dli_fname));
    library.normalize(ut::FileName::kDots | ut::FileName::kAbsolute);
    return library.getPath(1).str();
}

} // namespace

std::wstring modulePath(ModuleConfig const& module, TestsConfig const& config)
{
    std::wstring file = module.location;
    if (!file.ends_with(suffix) && file.find(std::wstring(suffix) + L".") == std::wstring::npos)
        file += suffix;
    if (file.find(L'/') == std::wstring::npos)
        return folderOfThisLibrary() + L"/vorn/" + file;
    ut::FileName path(file);
    path.normalize(ut::FileName::kAllButCase, config.root().parameter(L"basePath"));
    return path.getFullPath().str();
}

} // namespace vorntest
