#include "host/db/od_db_handle_table.h"

OdDbHandleTable::Page* OdDbHandleTable::pageOf(std::uint64_t number) const
{
    if (number == m_lastNumber)
        return m_lastPage;
    auto const it = m_pages.find(number);
    if (it == m_pages.end())
        return nullptr;
    m_lastNumber = number;
    return m_lastPage = it->second.get();
}

void OdDbHandleTable::set(OdDbHandle handle, OdDbStub* stub)
{
    std::uint64_t const number = handle.value() / kPageSize;
    Page* page = pageOf(number);
    if (!page) {
        page = m_pages.emplace(number, std::make_unique<Page>()).first->second.get();
        page->fill(nullptr);
    }
    (*page)[handle.value() % kPageSize] = stub;
}
