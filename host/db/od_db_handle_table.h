#pragma once

#include "host/db/od_db_object_id.h"

#include <array>
#include <memory>
#include <unordered_map>

/// Stubs by handle. Handles of a drawing are dense, so they lie in pages of neighbours.
class OdDbHandleTable
{
public:
    OdDbStub* find(OdDbHandle handle) const
    {
        Page const* const page = pageOf(handle.value() / kPageSize);
        return page ? (*page)[handle.value() % kPageSize] : nullptr;
    }
    void set(OdDbHandle handle, OdDbStub* stub);

private:
    static constexpr std::uint64_t kPageSize = 32;
    using Page = std::array<OdDbStub*, kPageSize>;

    Page* pageOf(std::uint64_t number) const;

    std::unordered_map<std::uint64_t, std::unique_ptr<Page>> m_pages;
    mutable std::uint64_t m_lastNumber = ~std::uint64_t(0);
    mutable Page* m_lastPage = nullptr;
};
