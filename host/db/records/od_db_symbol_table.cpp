#include "host/db/records/od_db_symbol_table.h"

#include "host/db/od_db_database.h"

#include <unordered_set>

OD_DEFINE_ABSTRACT_CLASS(OdDbSymbolTableRecord, OdDbObject)
OD_DEFINE_CLASS(OdDbSymbolTable, OdDbObject)

OdDbFieldTable const& OdDbSymbolTable::fields()
{
    static OdDbFieldTable const s_table({tableSection()});
    return s_table;
}

namespace {

OdError invalidName(OdString const& name)
{
    return OdError(eInvalidName, odFormat(L"\"%ls\" is not a valid name", name.c_str()));
}

OdError nameIsTaken(OdString const& name)
{
    return OdError(eDuplicateKey, odFormat(L"\"%ls\" already exists", name.c_str()));
}

} // namespace

void OdDbSymbolTableRecord::assertWriteEnabled()
{
    OdDbObject::assertWriteEnabled();
    m_isImplied = false;
}

void OdDbSymbolTableRecord::setFlag(int bit, bool on)
{
    assertWriteEnabled();
    m_flags = static_cast<std::int16_t>(on ? m_flags | bit : m_flags & ~bit);
}

void OdDbSymbolTableRecord::setName(OdString const& name)
{
    if (!OdDbSymbolTable::isValidName(name))
        throw invalidName(name);
    if (auto const table = OdSmartPtr<OdDbSymbolTable>(ownerId().openObject())) {
        OdDbObjectId const other = table->getAt(name);
        if (!other.isNull() && other != objectId())
            throw nameIsTaken(name);
    }
    assertWriteEnabled();
    m_name = name;
    fieldsRestored();
}

void OdDbSymbolTableRecord::fieldsRestored()
{
    if (auto const table = OdSmartPtr<OdDbSymbolTable>(ownerId().openObject()))
        table->namesChanged();
}

void OdDbSymbolTableRecord::erasedStateChanged()
{
    fieldsRestored();
}

bool OdDbSymbolTable::isValidName(OdString const& name)
{
    // The characters that the command line, file names and name lists give a meaning of their own.
    constexpr std::wstring_view kForbidden = L"<>/\\\":;?,*|=`";
    std::wstring_view const text = name.str();
    std::size_t const first = text.starts_with(L'*') ? 1 : 0; // anonymous blocks begin with an asterisk
    return text.size() > first && text.find_first_of(kForbidden, first) == std::wstring_view::npos;
}

OdDbObjectId OdDbSymbolTable::getAt(OdString const& name) const
{
    if (m_index.isStale)
        rebuildIndex();
    auto const it = m_index.find(name.upper());
    return it == m_index.end() ? OdDbObjectId() : OdDbObjectId(it->second);
}

void OdDbSymbolTable::rebuildIndex() const
{
    m_index.clear();
    m_index.isStale = false;
    for (OdDbStub* const stub : m_records)
        if (!stub->erased)
            indexRecord(stub);
}

void OdDbSymbolTable::indexRecord(OdDbStub* stub) const
{
    auto const& record = *static_cast<OdDbSymbolTableRecord*>(stub->object);
    if (!record.isNameless())
        m_index.emplace(record.getName().upper(), stub);
}

void OdDbSymbolTable::checkNewName(OdString const& name) const
{
    if (!isValidName(name))
        throw invalidName(name);
    if (has(name))
        throw nameIsTaken(name);
}

OdDbObjectId OdDbSymbolTable::add(OdDbSymbolTableRecord* record)
{
    OdDbSymbolTableRecordPtr const keep(record);
    if (!database())
        throw OdError(eNotInDatabase);
    if (record->isDBRO())
        throw OdError(eAlreadyInDb);
    if (!record->isNameless())
        checkNewName(record->getName());
    if (!isWriteEnabled())
        throw OdError(eNotOpenForWrite);
    database()->addOdDbObject(record, objectId());
    adopt(*record);
    return record->objectId();
}

void OdDbSymbolTable::adopt(OdDbSymbolTableRecord& record)
{
    m_records.push_back(record.objectId().stub());
    if (!m_index.isStale)
        indexRecord(m_records.back());
}

void OdDbSymbolTable::putInFront(std::span<OdDbStub* const> records)
{
    std::unordered_set<OdDbStub*> placed;
    std::vector<OdDbStub*> order;
    order.reserve(m_records.size());
    auto const place = [&](std::span<OdDbStub* const> stubs) {
        std::copy_if(stubs.begin(), stubs.end(), std::back_inserter(order),
                     [&placed](OdDbStub* stub) { return placed.insert(stub).second; });
    };
    place(records);
    place(m_records);
    static_cast<std::vector<OdDbStub*>&>(m_records) = std::move(order);
    m_index.isStale = true;
}
