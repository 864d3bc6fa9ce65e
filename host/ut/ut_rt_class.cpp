#include "host/ut/ut_rt_class.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <string>

namespace ut {

namespace {

/// With wide names, as elements have them: data files hold hundreds of thousands.
using Registry = std::map<std::wstring, CRtClass const*, std::less<>>;

/// Made before the first record is complete, and so there until the last one is gone.
Registry& registry()
{
    static Registry s_classes;
    return s_classes;
}

std::wstring widened(char const* name)
{
    return {name, name + std::strlen(name)};
}

} // namespace

CRtClass::CRtClass(char const* name, CRtClass const* parent, CreateFunction create)
    : m_name(name), m_parent(parent), m_create(create)
{
    if (!registry().emplace(widened(name), this).second)
        std::fprintf(stderr, "test data class %s is registered twice, the second one is left out\n", name);
}

CRtClass::~CRtClass()
{
    auto const it = registry().find(widened(m_name));
    if (it != registry().end() && it->second == this)
        registry().erase(it);
}

CRtClass const* CRtClass::find(std::wstring_view name)
{
    auto const it = registry().find(name);
    return it == registry().end() ? nullptr : it->second;
}

std::vector<std::wstring_view> CRtClass::names()
{
    std::vector<std::wstring_view> names;
    for (auto const& [name, cls] : registry())
        if (cls->createFunction())
            names.emplace_back(name);
    return names;
}

bool CRtClass::isKindOf(CRtClass const* other) const
{
    for (CRtClass const* cls = this; cls; cls = cls->m_parent)
        if (cls == other)
            return true;
    return false;
}

} // namespace ut
