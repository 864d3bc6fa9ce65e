#pragma once

#include "host/db/od_db_object_id.h"

#include <memory>
#include <span>
#include <vector>

class OdDbEntity;
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;

/// Parts of an entity: entities that belong to it alone and follow it in files up to an end mark (the vertices of
/// a polyline, the attributes of a block reference). A class with parts holds one list; what can be done with
/// parts stands in OdDbEntity. Parts can be given before the entity is in a drawing; they go there with it. Copies
/// of the entity's fields leave the list alone.
class OdDbPartList
{
public:
    OdDbPartList() = default;
    OdDbPartList(OdDbPartList const&) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): copies nothing
    OdDbPartList& operator=(OdDbPartList const&) { return *this; }

    /// Those that are in a drawing, erased ones included.
    std::span<OdDbStub* const> stubs() const { return m_stubs; }
    OdDbObjectId sequenceEnd() const;
    /// Parts that are not erased.
    unsigned count() const;
    /// All parts, erased ones included.
    std::size_t size() const { return m_loose ? m_loose->size() : m_stubs.size(); }
    /// For reading only; index < size().
    OdDbEntity const& at(std::size_t index) const;

private:
    friend class OdDbEntity;
    friend class OdDbPartIterator;

    std::vector<OdDbStub*> m_stubs;
    OdDbStub* m_sequenceEnd = nullptr;
    std::unique_ptr<std::vector<OdDbEntityPtr>> m_loose; ///< parts of an entity that is in no drawing
};

/// Walks over the parts of an entity in order of appending, whether or not it is in a drawing; over nothing for an
/// entity that has none.
class OdDbPartIterator
{
public:
    explicit OdDbPartIterator(OdDbPartList const* parts, bool skipErased = true);

    bool done() const { return m_index >= count(); }
    void step(bool skipErased = true);
    /// Null for a part of an entity that is in no drawing.
    OdDbObjectId objectId() const;
    OdDbEntityPtr entity(OdDb::OpenMode mode = OdDb::kForRead) const;
    /// The part without opening it, for reading only.
    OdDbEntity const& peek() const;

private:
    std::size_t count() const { return m_parts ? m_parts->size() : 0; }
    void skip();

    OdDbPartList const* m_parts;
    std::size_t m_index = 0;
};
