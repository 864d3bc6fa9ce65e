#pragma once

#include "host/root/od_error.h"

#include <vector>

class OdRxObject;

/// Run-time record of a class, one for each class, compared by address. Its name is the C++ name.
class OdRxClass
{
public:
    using DescFunction = OdRxClass* (*)();
    using FactoryFunction = OdRxObject* (*)();

    OdRxClass(wchar_t const* name, DescFunction parent, FactoryFunction factory);

    OdString const& name() const { return m_name; }
    /// Null for the root of the tree.
    OdRxClass* myParent() const { return m_parent; }
    bool isDerivedFrom(OdRxClass const* other) const;

    /// A new object without references. Throws OdError(eCreationFailed) for a class that cannot be created.
    OdRxObject* create() const;

    /// Protocol extensions: an object that serves this class and its descendants for the protocol class given.
    /// addX refuses a second extension of one protocol with OdError(eDuplicateKey).
    void addX(OdRxClass const* protocol, OdRxObject* extension);
    void delX(OdRxClass const* protocol);
    /// The extension, searched up the parents; null when there is none.
    OdRxObject* getX(OdRxClass const* protocol) const;

private:
    struct Extension
    {
        OdRxClass const* protocol;
        OdRxObject* object;
    };
    OdString m_name;
    OdRxClass* m_parent;
    FactoryFunction m_create;
    std::vector<Extension> m_extensions;
};

/// Class records by name. Records exist from library load.
namespace odrxClassDictionary {
/// Null when the name is unknown.
OdRxClass* find(OdString const& name);
std::vector<OdRxClass*> all();
} // namespace odrxClassDictionary

/// Puts a class record into the dictionary; a second class of one name terminates the program with a message,
/// since it is a fault of the program and would make every lookup doubtful.
struct OdRxClassRegistrar
{
    explicit OdRxClassRegistrar(OdRxClass::DescFunction desc);
};
