#pragma once

#include "host/root/od_error.h"

#include <algorithm>
#include <initializer_list>
#include <new>
#include <stdexcept>
#include <vector>

/// Contiguous array. A bad index throws OdError(eInvalidIndex) in all builds.
template <class T>
class OdArray
{
public:
    using value_type = T;
    using size_type = std::size_t;
    using iterator = typename std::vector<T>::iterator;
    using const_iterator = typename std::vector<T>::const_iterator;

    OdArray() = default;
    OdArray(std::initializer_list<T> items) : m_items(items) {}
    explicit OdArray(size_type count) : m_items(count) {}
    template <class Iterator>
    OdArray(Iterator first, Iterator last) : m_items(first, last)
    {
    }

    size_type size() const { return m_items.size(); }
    bool empty() const { return m_items.empty(); }
    bool isEmpty() const { return m_items.empty(); }
    void clear() { m_items.clear(); }
    void reserve(size_type count)
    {
        guardGrowth([&] { m_items.reserve(count); });
    }
    void resize(size_type count)
    {
        guardGrowth([&] { m_items.resize(count); });
    }

    T& operator[](size_type index) { return m_items[checked(index)]; }
    T const& operator[](size_type index) const { return m_items[checked(index)]; }
    T& first() { return (*this)[0]; }
    T const& first() const { return (*this)[0]; }
    T& last() { return (*this)[size() - 1]; }
    T const& last() const { return (*this)[size() - 1]; }

    OdArray& append(T item)
    {
        guardGrowth([&] { m_items.push_back(std::move(item)); });
        return *this;
    }
    OdArray& append(OdArray const& other)
    {
        guardGrowth([&] { m_items.insert(m_items.end(), other.m_items.begin(), other.m_items.end()); });
        return *this;
    }
    /// Inserts before the item at `index`; index = size() appends.
    OdArray& insertAt(size_type index, T item)
    {
        if (index > size())
            throw OdError(eInvalidIndex);
        guardGrowth([&] { m_items.insert(m_items.begin() + offset(index), std::move(item)); });
        return *this;
    }
    OdArray& removeAt(size_type index)
    {
        m_items.erase(m_items.begin() + offset(checked(index)));
        return *this;
    }
    OdArray& removeFirst() { return removeAt(0); }
    OdArray& removeLast() { return removeAt(size() - 1); }
    /// Removes the items from `first` to `last`, both included.
    OdArray& removeSubArray(size_type first, size_type last)
    {
        if (first > last)
            throw OdError(eInvalidIndex);
        m_items.erase(m_items.begin() + offset(checked(first)), m_items.begin() + offset(checked(last)) + 1);
        return *this;
    }
    OdArray& reverse()
    {
        std::reverse(m_items.begin(), m_items.end());
        return *this;
    }

    bool contains(T const& item) const { return std::find(begin(), end(), item) != end(); }
    /// Finds the first equal item; `index` is set only when there is one.
    bool find(T const& item, size_type& index) const
    {
        auto const it = std::find(begin(), end(), item);
        if (it == end())
            return false;
        index = static_cast<size_type>(it - begin());
        return true;
    }

    T* asArrayPtr() { return m_items.data(); }
    T const* asArrayPtr() const { return m_items.data(); }
    iterator begin() { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }

    friend bool operator==(OdArray const&, OdArray const&) = default;

private:
    size_type checked(size_type index) const
    {
        if (index >= m_items.size())
            throw OdError(eInvalidIndex);
        return index;
    }
    static std::ptrdiff_t offset(size_type index) { return static_cast<std::ptrdiff_t>(index); }
    template <class Grow>
    static void guardGrowth(Grow grow)
    {
        try {
            grow();
        } catch (std::bad_alloc const&) {
            throw OdError(eCreationFailed);
        } catch (std::length_error const&) {
            throw OdError(eCreationFailed);
        }
    }

    std::vector<T> m_items;
};

template <class T>
using OdVector = OdArray<T>;
