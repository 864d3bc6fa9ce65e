#include "testapi/ta_utils.h"

#include <algorithm>

namespace ta {

wchar_t const* const BASE_PATH = L"basePath";
wchar_t const* const LOG_PATH = L"logPath";

void correctSlashes(wchar_t* path, bool toBackslash)
{
    if (!path)
        return;
    auto const [from, to] = toBackslash ? std::pair(L'/', L'\\') : std::pair(L'\\', L'/');
    std::replace(path, path + std::wcslen(path), from, to);
}

std::string wcstombs(std::wstring const& text)
{
    return odWideToUtf8(text);
}

ScopedSdsSSetsHolder::~ScopedSdsSSetsHolder()
{
    for (SdsName const& name : m_names)
        sds_ssfree(name.words);
}

SdsName const& ScopedSdsSSetsHolder::append(long const* name)
{
    return m_names.emplace_back(SdsName{{name[0], name[1]}});
}

SdsName const& ScopedSdsSSetsHolder::append(OdDbSelectionSet* set)
{
    return m_names.emplace_back(ca::nameOf(set));
}

} // namespace ta
