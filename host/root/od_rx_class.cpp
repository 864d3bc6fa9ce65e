#include "host/root/od_rx_class.h"

#include "host/root/od_rx_object.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unordered_map>

OdRxClass::OdRxClass(wchar_t const* name, DescFunction parent, FactoryFunction factory)
    : m_name(name), m_parent(parent ? parent() : nullptr), m_create(factory)
{
}

bool OdRxClass::isDerivedFrom(OdRxClass const* other) const
{
    for (OdRxClass const* cls = this; cls; cls = cls->m_parent)
        if (cls == other)
            return true;
    return false;
}

OdRxObject* OdRxClass::create() const
{
    if (!m_create)
        throw OdError(eCreationFailed, odFormat(L"Objects of class %ls cannot be created", m_name.c_str()));
    return m_create();
}

void OdRxClass::addX(OdRxClass const* protocol, OdRxObject* extension)
{
    for (Extension const& entry : m_extensions)
        if (entry.protocol == protocol)
            throw OdError(eDuplicateKey);
    extension->addRef();
    m_extensions.push_back({protocol, extension});
}

void OdRxClass::delX(OdRxClass const* protocol)
{
    auto const it = std::find_if(m_extensions.begin(), m_extensions.end(),
                                 [protocol](Extension const& entry) { return entry.protocol == protocol; });
    if (it == m_extensions.end())
        return;
    OdRxObject* const extension = it->object;
    m_extensions.erase(it);
    extension->release();
}

OdRxObject* OdRxClass::getX(OdRxClass const* protocol) const
{
    for (OdRxClass const* cls = this; cls; cls = cls->m_parent)
        for (Extension const& entry : cls->m_extensions)
            if (entry.protocol == protocol)
                return entry.object;
    return nullptr;
}

namespace {

std::unordered_map<OdString, OdRxClass*>& dictionary()
{
    static std::unordered_map<OdString, OdRxClass*> s_classes;
    return s_classes;
}

} // namespace

OdRxClass* odrxClassDictionary::find(OdString const& name)
{
    auto const it = dictionary().find(name);
    return it == dictionary().end() ? nullptr : it->second;
}

std::vector<OdRxClass*> odrxClassDictionary::all()
{
    std::vector<OdRxClass*> classes;
    for (auto const& [name, cls] : dictionary())
        classes.push_back(cls);
    std::sort(classes.begin(), classes.end(), [](auto const* a, auto const* b) { return a->name() < b->name(); });
    return classes;
}

OdRxClassRegistrar::OdRxClassRegistrar(OdRxClass::DescFunction desc)
{
    OdRxClass* const cls = desc();
    if (dictionary().emplace(cls->name(), cls).second)
        return;
    std::fprintf(stderr, "class %s is registered twice\n", cls->name().toUtf8().c_str());
    std::abort();
}
