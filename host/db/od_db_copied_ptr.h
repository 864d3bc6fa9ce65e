#pragma once

#include <memory>

/// Owning pointer that is copied with what it points to; null costs nothing. For data that few objects have.
template <class T>
class OdDbCopiedPtr
{
public:
    OdDbCopiedPtr() = default;
    OdDbCopiedPtr(OdDbCopiedPtr const& other) : m_data(other.m_data ? new T(*other.m_data) : nullptr) {}
    OdDbCopiedPtr(OdDbCopiedPtr&&) noexcept = default;
    OdDbCopiedPtr& operator=(OdDbCopiedPtr other) noexcept
    {
        m_data.swap(other.m_data);
        return *this;
    }

    T* get() { return m_data.get(); }
    T const* get() const { return m_data.get(); }
    T& makeIfNull()
    {
        if (!m_data)
            m_data = std::make_unique<T>();
        return *m_data;
    }
    void reset() { m_data.reset(); }
    explicit operator bool() const { return m_data != nullptr; }

private:
    std::unique_ptr<T> m_data;
};

/// A member that copying and assigning leave alone: what a container owns is undone by deltas, not by
/// before-images of the container.
template <class T>
struct OdDbNotCopied : T
{
    OdDbNotCopied() = default;
    OdDbNotCopied(OdDbNotCopied const&) : T() {}
    OdDbNotCopied& operator=(OdDbNotCopied const&) { return *this; }
};
