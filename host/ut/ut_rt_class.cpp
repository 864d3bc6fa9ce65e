#include "host/ut/ut_rt_class.h"

#include <cstdio>
#include <unordered_map>

namespace ut {

namespace {

/// Made before the first record is complete, and so there until the last one is gone.
std::unordered_map<std::string_view, CRtClass const*>& registry()
{
    static std::unordered_map<std::string_view, CRtClass const*> s_classes;
    return s_classes;
}

} // namespace

CRtClass::CRtClass(char const* name, CRtClass const* parent, CreateFunction create)
    : m_name(name), m_parent(parent), m_create(create)
{
    if (!registry().emplace(name, this).second)
        std::fprintf(stderr, "test data class %s is registered twice, the second one is left out\n", name);
}

CRtClass::~CRtClass()
{
    auto const it = registry().find(m_name);
    if (it != registry().end() && it->second == this)
        registry().erase(it);
}

CRtClass const* CRtClass::find(std::string_view name)
{
    auto const it = registry().find(name);
    return it == registry().end() ? nullptr : it->second;
}

bool CRtClass::isKindOf(CRtClass const* other) const
{
    for (CRtClass const* cls = this; cls; cls = cls->m_parent)
        if (cls == other)
            return true;
    return false;
}

} // namespace ut
