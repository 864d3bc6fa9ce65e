#pragma once

#include "host/db/od_db_full_subent_path.h"
#include "host/root/od_rx_object.h"

#include <memory>
#include <unordered_map>
#include <vector>

class OdDbSelectionSet;
using OdDbSelectionSetPtr = OdSmartPtr<OdDbSelectionSet>;

/// Entities of one drawing in the order in which they were chosen, each as a whole or by parts of it. It holds
/// ids: members that are erased later stay, and commands skip them.
class OdDbSelectionSet : public OdRxObject
{
    OD_DECLARE_CLASS(OdDbSelectionSet)
public:
    OdDbSelectionSet() = default;

    /// An empty set. Without a drawing it takes that of its first member.
    static OdDbSelectionSetPtr create(OdDbDatabase* database = nullptr);
    OdDbDatabase* database() const { return m_database; }

    /// Adds an entity or a part of one. What is in the set already stays where it is; an entity that is a member
    /// as a whole takes no parts, and appended as a whole it loses them. Throws OdError: eNullObjectId (also for
    /// an empty path), eWrongDatabase.
    void append(OdDbFullSubentPath const& path);
    void append(OdDbObjectId entity);
    /// Takes the entity out with all its parts; the order of the others stays. False when it is no member.
    bool remove(OdDbObjectId entity);
    void clear();

    /// Number of entities; several parts of one entity count once.
    std::size_t numEntities() const { return m_positions.size(); }
    bool member(OdDbObjectId entity) const { return m_positions.contains(entity); }
    /// The entity at a position from 0. Throws OdError(eInvalidIndex).
    OdDbObjectId at(std::size_t index) const;
    /// In order, erased members included.
    std::vector<OdDbObjectId> objectIds() const;

    /// Walks the members in order; changing the set ends it.
    class Iterator
    {
    public:
        bool done() const { return m_at == m_end; }
        void next();
        OdDbObjectId objectId() const { return m_at->entity; }
        /// The parts that are selected; empty for the entity as a whole.
        std::vector<OdDbFullSubentPath> const& parts() const;

    private:
        friend class OdDbSelectionSet;
        struct Member
        {
            OdDbObjectId entity; // null: taken out
            std::unique_ptr<std::vector<OdDbFullSubentPath>> parts;
        };
        Iterator(Member const* at, Member const* end);
        void skipRemoved();

        Member const* m_at;
        Member const* m_end;
    };
    Iterator newIterator() const;

private:
    using Member = Iterator::Member;

    void checkDatabase(OdDbObjectId entity);
    Member& memberFor(OdDbObjectId entity, bool& isNew);
    void closeGaps() const;

    // Taking out leaves a gap, so that emptying a large set one by one stays cheap. Gaps at the front are skipped,
    // others are closed when a position is asked for or they outnumber the members.
    mutable std::vector<Member> m_members;
    mutable std::unordered_map<OdDbObjectId, std::size_t> m_positions;
    mutable std::size_t m_first = 0;
    OdDbDatabase* m_database = nullptr;
};
