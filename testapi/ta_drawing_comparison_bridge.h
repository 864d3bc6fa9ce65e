#pragma once

// For the comparison of drawings: which object of the second drawing stands for which of the first.

#include "testapi/ta_comparison.h"

#include <array>
#include <unordered_map>
#include <vector>

namespace ta {

/// Records stand for each other by name, sheets by the name of their layout, objects by the keys under which
/// dictionaries hold them, parts of entities (vertices, attributes) by their place in the entity. Entities and
/// what no dictionary holds stand for each other by handle, unless pair() says otherwise.
class DrawingBridge : public ObjectIdBridge
{
public:
    /// What stands under one key of two dictionaries that stand for each other; null where there is nothing.
    struct Entry
    {
        OdDbStub const* first;
        OdDbStub const* second;
        OdString dictionary; ///< "dictionary ACAD_GROUP"
        OdString key;        ///< empty for an extension dictionary itself
        /// The pair stands here first: its contents belong here.
        bool isNew;
    };

    /// The drawings must not change while this object lives.
    DrawingBridge(OdDbDatabase const& first, OdDbDatabase const& second);

    bool same(OdDbObjectId id1, OdDbObjectId id2) const override;
    /// Handles of nothing stand for each other, whatever their numbers.
    bool sameHandles(OdDbHandle handle1, OdDbHandle handle2) const;

    /// Two objects stand for each other; of one that is paired already, the first pair counts.
    void pair(OdDbObject const& object1, OdDbObject const& object2);
    /// Pairs extension dictionaries and everything below them; `owner` is how differences name the object.
    void pairExtensions(OdDbObject const& object1, OdDbObject const& object2, OdString const& owner);

    /// Until all entities are paired, entities of one class can stand for each other; see wasAssumed().
    void beginPairing() { m_isPairing = true; }
    void endPairing() { m_isPairing = false; }
    /// Whether an answer since the last call was but an assumption.
    bool wasAssumed() const { return std::exchange(m_wasAssumed, false); }

    /// Everything that dictionaries hold, extension dictionaries as far as they were paired; and objects that were
    /// found to stand for each other by what owns them. Questions can make the list longer.
    std::vector<Entry> const& entries() const;
    /// The object stands under a key, or was paired, or has no counterpart.
    bool isPlaced(OdDbStub const* stub) const;
    bool hasPartner(OdDbStub const* stub) const;

    static OdDbObjectId find(OdDbDatabase const& database, OdDbHandle handle);
    /// How a record is recognised in the other drawing, whatever the case of its name.
    static OdString keyOf(OdDbSymbolTableRecord const& record);

private:
    bool sameRecords(OdDbSymbolTableRecord const& record1, OdDbSymbolTableRecord const& record2) const;
    bool sameEntities(OdDbStub* stub1, OdDbStub* stub2) const;
    bool sameObjects(OdDbStub const* stub1, OdDbStub const* stub2) const;
    bool sameOwned(OdDbStub const* stub1, OdDbStub const* stub2) const;
    unsigned placeOfPart(OdDbEntity const& whole, OdDbStub const* part) const;
    bool insert(OdDbStub const* stub1, OdDbStub const* stub2) const;
    void pairNamedObjects() const;
    void pairBelow(std::size_t firstNew) const;
    void pairKeys(OdDbDictionary const& dictionary1, OdDbDictionary const& dictionary2,
                  OdString const& name) const;
    void addEntry(OdDbObjectId id1, OdDbObjectId id2, OdString const& dictionary, OdString const& key) const;

    static constexpr std::size_t s_cacheSize = 1024;
    struct Known
    {
        OdDbStub const* first;
        OdDbStub const* second;
    };

    OdDbDatabase const& m_first;
    OdDbDatabase const& m_second;
    bool m_isPairing = false;
    mutable bool m_wasAssumed = false;
    mutable bool m_hasNamedObjects = false;
    mutable int m_depth = 0;                               ///< of owners that are being asked about
    mutable std::array<Known, s_cacheSize> m_records = {}; ///< records that were found to stand for each other
    /// Partners in both directions; null for an object that has none.
    mutable std::unordered_map<OdDbStub const*, OdDbStub const*> m_partners;
    mutable std::unordered_map<OdDbStub const*, unsigned> m_partPlaces;
    mutable std::vector<Entry> m_entries;
};

} // namespace ta
