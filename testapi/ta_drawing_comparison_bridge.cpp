// Almost every question is about the layer or linetype of an entity, and the same few come again and again: a
// small table remembers them. Dictionaries are walked when somebody first asks for what they hold.
#include "testapi/ta_drawing_comparison_bridge.h"

#include <cstdint>

namespace ta {

namespace {

/// Marks keys that are no names of records.
constexpr wchar_t s_sheetMark = L'\x1';
constexpr wchar_t s_namelessMark = L'\x2';

template <class T>
T const* objectAs(OdDbObjectId id)
{
    return id.isValid() ? odCast<T>(static_cast<OdRxObject const*>(id.stub()->object)) : nullptr;
}

OdDbLayout const* layoutOf(OdDbBlockTableRecord const& block)
{
    return objectAs<OdDbLayout>(block.getLayoutId());
}

int tableKindOf(OdDbDatabase const& database, OdDbObjectId id)
{
    for (std::size_t kind = 0; kind < kOdDbTableKinds; ++kind)
        if (database.getTableId(static_cast<OdDbTableKind>(kind)) == id)
            return static_cast<int>(kind);
    return -1;
}

} // namespace

DrawingBridge::DrawingBridge(OdDbDatabase const& first, OdDbDatabase const& second)
    : m_first(first), m_second(second)
{
}

bool DrawingBridge::same(OdDbObjectId id1, OdDbObjectId id2) const
{
    OdDbStub *const stub1 = id1.stub(), *const stub2 = id2.stub();
    if (!stub1 || !stub2)
        return stub1 == stub2;
    Known& known = m_records[(reinterpret_cast<std::uintptr_t>(stub1) / sizeof(OdDbStub)) % s_cacheSize];
    if (known.first == stub1 && known.second == stub2)
        return true;
    if (!stub1->object || !stub2->object)
        return !stub1->object && !stub2->object; // handles of nothing mean nothing
    OdDbObject const &object1 = *stub1->object, &object2 = *stub2->object;
    if (object1.isA() != object2.isA() || stub1->erased != stub2->erased)
        return false;
    if (auto const* const record = odCast<OdDbSymbolTableRecord>(&object1)) {
        if (!sameRecords(*record, static_cast<OdDbSymbolTableRecord const&>(object2)))
            return false;
        known = {stub1, stub2};
        return true;
    }
    if (odCast<OdDbEntity>(&object1))
        return sameEntities(stub1, stub2);
    if (odCast<OdDbSymbolTable>(&object1))
        return tableKindOf(m_first, id1) == tableKindOf(m_second, id2);
    pairNamedObjects();
    return sameObjects(stub1, stub2);
}

bool DrawingBridge::sameHandles(OdDbHandle handle1, OdDbHandle handle2) const
{
    OdDbObjectId const id1 = find(m_first, handle1), id2 = find(m_second, handle2);
    return id1.isValid() || id2.isValid() ? same(id1, id2) : handle1.isNull() == handle2.isNull();
}

OdDbObjectId DrawingBridge::find(OdDbDatabase const& database, OdDbHandle handle)
{
    // Looking up without creating changes nothing.
    return const_cast<OdDbDatabase&>(database).getOdDbObjectId(handle);
}

OdString DrawingBridge::keyOf(OdDbSymbolTableRecord const& record)
{
    if (auto const* const block = odCast<OdDbBlockTableRecord>(&record); block && block->isLayout())
        if (OdDbLayout const* const layout = layoutOf(*block))
            return OdString(1, s_sheetMark) + layout->getLayoutName().upper();
    if (auto const* const style = odCast<OdDbTextStyleTableRecord>(&record); style && style->isNameless())
        return OdString(1, s_namelessMark) + style->fileName().upper();
    return record.getName().upper();
}

bool DrawingBridge::sameRecords(OdDbSymbolTableRecord const& record1, OdDbSymbolTableRecord const& record2) const
{
    bool const hasOtherKey =
        record1.isNameless() || record2.isNameless() || odCast<OdDbBlockTableRecord>(&record1);
    return hasOtherKey ? keyOf(record1) == keyOf(record2) : record1.getName().equalsNoCase(record2.getName());
}

bool DrawingBridge::sameEntities(OdDbStub* stub1, OdDbStub* stub2) const
{
    OdDbObjectId const owner1 = stub1->object->ownerId(), owner2 = stub2->object->ownerId();
    auto const *const whole1 = objectAs<OdDbEntity>(owner1), *const whole2 = objectAs<OdDbEntity>(owner2);
    if (whole1 && whole2)
        return owner1.stub() != stub1 && same(owner1, owner2) &&
               placeOfPart(*whole1, stub1) == placeOfPart(*whole2, stub2);
    if (odCast<OdDbBlockBegin>(stub1->object) || odCast<OdDbBlockEnd>(stub1->object))
        return same(owner1, owner2);
    if (!m_isPairing)
        return sameObjects(stub1, stub2);
    m_wasAssumed = true;
    return true;
}

bool DrawingBridge::sameObjects(OdDbStub const* stub1, OdDbStub const* stub2) const
{
    if (auto const partner = m_partners.find(stub1); partner != m_partners.end())
        return partner->second == stub2;
    if (m_partners.contains(stub2))
        return false;
    return stub1->handle == stub2->handle || (!odCast<OdDbEntity>(stub1->object) && sameOwned(stub1, stub2));
}

/// Objects that only something the host does not understand holds: what refers to them in the same place, and owns
/// them, makes them stand for each other.
bool DrawingBridge::sameOwned(OdDbStub const* stub1, OdDbStub const* stub2) const
{
    constexpr int kDeepest = 16; // damaged files have objects that own each other
    OdDbObject const &object1 = *stub1->object, &object2 = *stub2->object;
    OdDbObjectId const owner1 = object1.ownerId(), owner2 = object2.ownerId();
    if (owner1.isErased() || owner2.isErased() || object1.dxfName() != object2.dxfName() || m_depth >= kDeepest)
        return false;
    ++m_depth;
    bool const haveSameOwner = same(owner1, owner2);
    --m_depth;
    if (!haveSameOwner)
        return false;
    if (m_isPairing)
        m_wasAssumed = true;
    else if (insert(stub1, stub2))
        m_entries.push_back({stub1, stub2, L"objects", {}, true});
    return true;
}

/// Counted from 1; the end mark behind the parts has 0.
unsigned DrawingBridge::placeOfPart(OdDbEntity const& whole, OdDbStub const* part) const
{
    auto const found = m_partPlaces.find(part);
    if (found != m_partPlaces.end())
        return found->second;
    unsigned place = 0;
    for (OdDbStub const* const each : whole.subentities())
        m_partPlaces.emplace(each, each->erased ? 0 : ++place);
    return m_partPlaces[part];
}

void DrawingBridge::pair(OdDbObject const& object1, OdDbObject const& object2)
{
    insert(object1.objectId().stub(), object2.objectId().stub());
}

bool DrawingBridge::insert(OdDbStub const* stub1, OdDbStub const* stub2) const
{
    if (m_partners.contains(stub1) || m_partners.contains(stub2))
        return false;
    m_partners.emplace(stub1, stub2);
    m_partners.emplace(stub2, stub1);
    return true;
}

bool DrawingBridge::isPlaced(OdDbStub const* stub) const
{
    pairNamedObjects();
    return m_partners.contains(stub);
}

bool DrawingBridge::hasPartner(OdDbStub const* stub) const
{
    auto const partner = m_partners.find(stub);
    return partner != m_partners.end() && partner->second;
}

std::vector<DrawingBridge::Entry> const& DrawingBridge::entries() const
{
    pairNamedObjects();
    return m_entries;
}

void DrawingBridge::pairNamedObjects() const
{
    if (m_hasNamedObjects)
        return;
    m_hasNamedObjects = true;
    OdDbObjectId const id1 = m_first.getNamedObjectsDictionaryId(), id2 = m_second.getNamedObjectsDictionaryId();
    if (!id1.isValid() || !id2.isValid() || !insert(id1.stub(), id2.stub()))
        return;
    m_entries.push_back({id1.stub(), id2.stub(), L"named objects", {}, true});
    pairBelow(m_entries.size() - 1);
}

void DrawingBridge::pairExtensions(OdDbObject const& object1, OdDbObject const& object2, OdString const& owner)
{
    OdDbObjectId const id1 = object1.extensionDictionary(), id2 = object2.extensionDictionary();
    if (id1.isNull() || id2.isNull())
        return;
    pairNamedObjects();
    addEntry(id1, id2, L"extension dictionary of " + owner, {});
    pairBelow(m_entries.size() - 1);
}

/// The list of entries is the list of what is still to be walked: dictionaries can be nested to any depth, and
/// contain themselves.
void DrawingBridge::pairBelow(std::size_t firstNew) const
{
    for (std::size_t i = firstNew; i < m_entries.size(); ++i) {
        Entry const entry = m_entries[i]; // the list grows
        if (!entry.first || !entry.second || !entry.isNew)
            continue;
        OdDbObject const &object1 = *entry.first->object, &object2 = *entry.second->object;
        auto const *const dictionary1 = odCast<OdDbDictionary>(&object1), *const dictionary2 =
                                                                              odCast<OdDbDictionary>(&object2);
        OdString const name = entry.key.isEmpty() ? entry.dictionary : L"dictionary " + entry.key;
        if (dictionary1 && dictionary2)
            pairKeys(*dictionary1, *dictionary2, name);
        OdDbObjectId const id1 = object1.extensionDictionary(), id2 = object2.extensionDictionary();
        if (!id1.isNull() && !id2.isNull())
            addEntry(id1, id2, L"extension dictionary of " + name, {});
    }
    // Only now: what one dictionary lacks may be found under another key.
    for (std::size_t i = firstNew; i < m_entries.size(); ++i)
        if (Entry const& entry = m_entries[i]; !entry.first || !entry.second)
            m_partners.emplace(entry.first ? entry.first : entry.second, nullptr);
}

void DrawingBridge::pairKeys(OdDbDictionary const& dictionary1, OdDbDictionary const& dictionary2,
                             OdString const& name) const
{
    for (OdDbDictionary::Entry const& entry : dictionary1.entries()) {
        if (entry.id.isErased())
            continue;
        OdDbObjectId const other = dictionary2.getAt(entry.name);
        if (other.isNull())
            m_entries.push_back({entry.id.stub(), nullptr, name, entry.name, true});
        else
            addEntry(entry.id, other, name, entry.name);
    }
    for (OdDbDictionary::Entry const& entry : dictionary2.entries())
        if (!entry.id.isErased() && !dictionary1.has(entry.name))
            m_entries.push_back({nullptr, entry.id.stub(), name, entry.name, true});
}

/// A dictionary may also name records and entities, which have their own ways to stand for each other.
void DrawingBridge::addEntry(OdDbObjectId id1, OdDbObjectId id2, OdString const& dictionary,
                             OdString const& key) const
{
    bool const isOther = objectAs<OdDbSymbolTableRecord>(id1) || objectAs<OdDbEntity>(id1);
    bool const isNew = !isOther && insert(id1.stub(), id2.stub());
    m_entries.push_back({id1.stub(), id2.stub(), dictionary, key, isNew});
}

} // namespace ta
