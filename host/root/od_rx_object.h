#pragma once

#include "host/root/od_rx_class.h"
#include "host/root/od_smart_ptr.h"

/// Root of the run-time class tree: reference counting and the exact class.
/// A new object has no reference; the first OdSmartPtr that takes it gives it one.
class OdRxObject
{
public:
    OdRxObject() = default;
    OdRxObject(OdRxObject const&) {}
    OdRxObject& operator=(OdRxObject const&) { return *this; }
    virtual ~OdRxObject() = default;

    static OdRxClass* desc();
    /// The exact class of the object.
    virtual OdRxClass* isA() const { return desc(); }
    bool isKindOf(OdRxClass const* cls) const { return isA()->isDerivedFrom(cls); }

    void addRef() const { ++m_references; }
    /// Gives one reference back; without references the object is deleted.
    void release() const
    {
        if (--m_references == m_closeAt)
            const_cast<OdRxObject*>(this)->onLastRelease();
    }
    int numRefs() const { return m_references; }

protected:
    /// Called when the count falls to the level that nobody but the owner holds; deletes by default.
    virtual void onLastRelease();
    /// An owner that holds one reference of its own asks to be told when all others are gone.
    void setOwnedByOne(bool owned) { m_closeAt = owned ? 1 : 0; }

private:
    mutable int m_references = 0;
    int m_closeAt = 0;
};

/// In the class body: the class record and the exact class.
#define OD_DECLARE_CLASS(Class)                                                                                   \
public:                                                                                                           \
    static OdRxClass* desc();                                                                                     \
    OdRxClass* isA() const override                                                                               \
    {                                                                                                             \
        return Class::desc();                                                                                     \
    }

/// In the source file, for a class with a default constructor.
#define OD_DEFINE_CLASS(Class, Parent)                                                                            \
    OdRxClass* Class::desc()                                                                                      \
    {                                                                                                             \
        static OdRxClass s_class(L## #Class, &Parent::desc, []() -> OdRxObject* { return new Class; });           \
        return &s_class;                                                                                          \
    }                                                                                                             \
    static OdRxClassRegistrar const s_register##Class(&Class::desc);

/// In the source file, for a class that cannot be created by itself.
#define OD_DEFINE_ABSTRACT_CLASS(Class, Parent)                                                                   \
    OdRxClass* Class::desc()                                                                                      \
    {                                                                                                             \
        static OdRxClass s_class(L## #Class, &Parent::desc, nullptr);                                             \
        return &s_class;                                                                                          \
    }                                                                                                             \
    static OdRxClassRegistrar const s_register##Class(&Class::desc);

/// Cast that gives null for an object of another class.
template <class T>
T* odCast(OdRxObject* object)
{
    return object && object->isKindOf(T::desc()) ? static_cast<T*>(object) : nullptr;
}
template <class T>
T const* odCast(OdRxObject const* object)
{
    return object && object->isKindOf(T::desc()) ? static_cast<T const*>(object) : nullptr;
}
/// Cast that throws OdError_NotThatKindOfClass for an object of another class; null stays null.
template <class T>
T* odCastOrThrow(OdRxObject* object)
{
    if (object && !object->isKindOf(T::desc()))
        throw OdError_NotThatKindOfClass(object->isA(), T::desc());
    return static_cast<T*>(object);
}

using OdRxObjectPtr = OdSmartPtr<OdRxObject>;
