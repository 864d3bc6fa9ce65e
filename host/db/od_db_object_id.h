#pragma once

#include "host/db/od_db_handle.h"
#include "host/root/od_smart_ptr.h"

#include <functional>

class OdDbDatabase;
class OdDbObject;
using OdDbObjectPtr = OdSmartPtr<OdDbObject>;

namespace OdDb {
enum OpenMode
{
    kNotOpen,
    kForRead,
    kForWrite
};
} // namespace OdDb

/// What stands behind an object id; it outlives erasing and lives as long as its drawing.
struct OdDbStub
{
    OdDbHandle handle;
    OdDbObject* object = nullptr; ///< null while only references to the handle were read
    OdDbDatabase* database = nullptr;
    bool erased = false;
};

/// Identity of an object within the running program. Ids of two drawings never compare equal.
class OdDbObjectId
{
public:
    static OdDbObjectId const kNull;

    constexpr OdDbObjectId() = default;
    constexpr explicit OdDbObjectId(OdDbStub* stub) : m_stub(stub) {}

    bool isNull() const { return m_stub == nullptr; }
    /// Names an existing object, erased or not.
    bool isValid() const { return m_stub && m_stub->object; }
    bool isErased() const { return !isValid() || m_stub->erased; }
    OdDbHandle getHandle() const { return m_stub ? m_stub->handle : OdDbHandle(); }
    OdDbDatabase* database() const { return m_stub ? m_stub->database : nullptr; }
    OdDbStub* stub() const { return m_stub; }

    /// Throws OdError: eNullObjectId, eUnknownHandle (nothing stands behind the handle), eWasErased.
    OdDbObjectPtr safeOpenObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
    /// As safeOpenObject, but null instead of an exception.
    OdDbObjectPtr openObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
    /// safeOpenObject as class T; an object of another class throws OdError_NotThatKindOfClass.
    template <class T>
    OdSmartPtr<T> open(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const
    {
        return safeOpenObject(mode, openErased);
    }

    friend bool operator==(OdDbObjectId a, OdDbObjectId b) { return a.m_stub == b.m_stub; }
    /// By handle within a drawing; stable during the drawing's life.
    friend bool operator<(OdDbObjectId a, OdDbObjectId b)
    {
        OdDbHandle const ha = a.getHandle(), hb = b.getHandle();
        return ha != hb ? ha < hb : std::less<>()(a.m_stub, b.m_stub);
    }

private:
    OdDbStub* m_stub = nullptr;
};

inline constexpr OdDbObjectId OdDbObjectId::kNull{};

template <>
struct std::hash<OdDbObjectId>
{
    std::size_t operator()(OdDbObjectId id) const noexcept { return std::hash<OdDbStub*>()(id.stub()); }
};
