#pragma once

#include "host/root/od_error.h"

#include <type_traits>
#include <utility>

template <class T>
T* odCastOrThrow(class OdRxObject* object);

/// Intrusive pointer to an OdRxObject. Assignment from a pointer to another class goes through the class test and
/// throws OdError_NotThatKindOfClass; it never becomes null silently.
template <class T>
class OdSmartPtr
{
public:
    OdSmartPtr() = default;
    OdSmartPtr(std::nullptr_t) {}
    OdSmartPtr(T* object) : m_object(object) { acquire(); }
    OdSmartPtr(OdSmartPtr const& other) : m_object(other.m_object) { acquire(); }
    OdSmartPtr(OdSmartPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    template <class U>
    OdSmartPtr(OdSmartPtr<U> const& other) : m_object(convert(other.get()))
    {
        acquire();
    }
    ~OdSmartPtr() { release(); }

    OdSmartPtr& operator=(OdSmartPtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T* get() const { return m_object; }
    bool isNull() const { return m_object == nullptr; }
    explicit operator bool() const { return m_object != nullptr; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    operator T*() const { return m_object; }

    /// Gives the reference back; the last pointer to an opened database object closes it.
    void release()
    {
        if (T* const object = std::exchange(m_object, nullptr))
            object->release();
    }

private:
    template <class U>
    static T* convert(U* object)
    {
        if constexpr (std::is_convertible_v<U*, T*>)
            return object;
        else
            return odCastOrThrow<T>(object);
    }
    void acquire() const
    {
        if (m_object)
            m_object->addRef();
    }

    T* m_object = nullptr;
};
