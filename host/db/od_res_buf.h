#pragma once

#include "host/db/od_db_handle.h"
#include "host/geom/od_ge_3d.h"
#include "host/root/od_rx_object.h"

#include <cstdint>
#include <string>
#include <variant>

class OdResBuf;
using OdResBufPtr = OdSmartPtr<OdResBuf>;

/// One value of extended data or of a record, with the group code that says what it means, and the node behind it.
/// Group codes of drawing files and the result types from 5000 on both fix the kind of value; a node of any other
/// code takes every kind. A new node holds zero, an empty text or nothing, after its kind.
///
/// Getters of another kind than the value's throw OdError(eInvalidInput), as do setters of another kind than the
/// code's. A chain must not come back to itself, neither by next() nor by nested chains.
class OdResBuf : public OdRxObject
{
    OD_DECLARE_CLASS(OdResBuf)
public:
    /// Code of a node that holds another chain.
    static constexpr int kNestedChain = 5023;

    OdResBuf() = default;
    explicit OdResBuf(int restype) { setRestype(restype); }
    ~OdResBuf() override;
    OdResBuf(OdResBuf const&) = delete;
    OdResBuf& operator=(OdResBuf const&) = delete;

    static OdResBufPtr newRb(int restype) { return new OdResBuf(restype); }
    static OdResBufPtr newRb(int restype, double value);
    static OdResBufPtr newRb(int restype, OdString const& value);
    static OdResBufPtr newRb(int restype, OdGePoint3d const& value);

    int restype() const { return m_restype; }
    /// A value of the kind that the new code asks for stays, any other is replaced as in a new node.
    void setRestype(int restype);

    double getDouble() const { return get<double>(); }
    OdGePoint3d const& getPoint3d() const { return get<OdGePoint3d>(); }
    /// First node of the nested chain, null for an empty one.
    OdResBufPtr getResBuf() const { return get<OdResBufPtr>(); }
    OdString const& getString() const { return get<OdString>(); }
    OdDbHandle getHandle() const { return get<OdDbHandle>(); }
    std::int16_t getInt16() const { return get<std::int16_t>(); }
    std::int32_t getInt32() const { return get<std::int32_t>(); }
    std::int64_t getInt64() const { return get<std::int64_t>(); }
    /// The bytes, unprintable ones and zeros included.
    std::string const& getBinary() const { return get<Binary>().bytes; }

    void setDouble(double value) { set(value); }
    void setPoint3d(OdGePoint3d const& value) { set(value); }
    void setResBuf(OdResBufPtr const& value);
    void setString(OdString const& value) { set(value); }
    void setHandle(OdDbHandle value) { set(value); }
    void setInt16(std::int16_t value) { set(value); }
    void setInt32(std::int32_t value) { set(value); }
    void setInt64(std::int64_t value) { set(value); }
    void setBinary(std::string bytes) { set(Binary{std::move(bytes)}); }

    OdResBufPtr const& next() const { return m_next; }
    /// Puts the chain that begins with `node` behind this one and returns its first node.
    OdResBufPtr const& setNext(OdResBufPtr node);

    /// Code and value are the same; what follows does not count, but nested chains are compared to their ends.
    /// Reals are equal bit for bit, or as 0.0 and -0.0.
    friend bool operator==(OdResBuf const& a, OdResBuf const& b) { return a.hasSameValue(b); }

private:
    struct Binary
    {
        std::string bytes;
        friend bool operator==(Binary const&, Binary const&) = default;
    };
    using Value = std::variant<std::monostate, double, OdGePoint3d, OdResBufPtr, OdString, OdDbHandle,
                               std::int16_t, std::int32_t, std::int64_t, Binary>;

    /// The value of a new node of the code; nothing for a code that takes every kind.
    static Value zeroOf(int restype);
    static bool areChainsEqual(OdResBuf const* a, OdResBuf const* b);
    [[noreturn]] static void refuse();
    bool hasSameValue(OdResBuf const& other) const;

    template <class T>
    T const& get() const
    {
        if (T const* const value = std::get_if<T>(&m_value))
            return *value;
        refuse();
    }
    void set(Value value);

    int m_restype = 0;
    Value m_value;
    OdResBufPtr m_next;
};
