#include "host/db/filer/od_db_class_registry.h"

#include "host/db/od_db_object.h"

#include <cstdio>
#include <cstdlib>
#include <unordered_map>

namespace {

struct Variant
{
    OdRxClass* cls;
    OdDbVariantTest test;
};

struct Names
{
    std::unordered_map<std::string_view, OdRxClass*> classes;
    std::unordered_map<std::string_view, std::vector<Variant>> variants;
    std::unordered_map<OdRxClass const*, std::string_view> names;
};

Names& names()
{
    static Names s_names;
    return s_names;
}

} // namespace

OdRxClass* odDbClassRegistry::find(std::string_view dxfName)
{
    auto const it = names().classes.find(dxfName);
    return it == names().classes.end() ? nullptr : it->second;
}

bool odDbClassRegistry::hasVariants(std::string_view dxfName)
{
    return names().variants.contains(dxfName);
}

OdRxClass* odDbClassRegistry::choose(std::string_view dxfName, OdDbTagList const& tags, OdDbObject const* whole)
{
    auto const variants = names().variants.find(dxfName);
    if (variants != names().variants.end())
        for (Variant const& variant : variants->second)
            if (variant.test(tags, whole))
                return variant.cls;
    return find(dxfName);
}

std::string_view odDbClassRegistry::dxfNameOf(OdRxClass const* cls)
{
    auto const it = names().names.find(cls);
    return it == names().names.end() ? std::string_view() : it->second;
}

OdDbClassRegistrar::OdDbClassRegistrar(std::string_view dxfName, OdRxClass::DescFunction desc,
                                       OdDbVariantTest test)
{
    OdRxClass* const cls = desc();
    if (test) {
        names().variants[dxfName].push_back({cls, test});
    } else if (!names().classes.emplace(dxfName, cls).second) {
        std::fprintf(stderr, "two classes want the file name %.*s\n", static_cast<int>(dxfName.size()),
                     dxfName.data());
        std::abort();
    }
    names().names.emplace(cls, dxfName);
}
