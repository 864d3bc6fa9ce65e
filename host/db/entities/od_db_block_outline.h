#pragma once

#include "host/db/entities/od_db_transforming_sink.h"

class OdDbBlockTableRecord;
class OdDbEntity;

/// Looks through a block: gives the outlines of its entities, placed by a transformation, to a receiver.
/// References within the block are looked through in turn. A block within itself is left out, and drawings that
/// multiply blocks beyond measure are given in part.
class OdDbBlockOutline : public OdDbTransformingSink
{
public:
    OdDbBlockOutline(OdDbBlockTableRecord const& block, OdDbOutlineSink& sink);

    /// Gives the block once. False when the receiver needs no more, or when too much was given.
    bool give(OdGeMatrix3d const& placement);
    bool isSatisfied() const override { return m_progress.isDone || OdDbTransformingSink::isSatisfied(); }

private:
    bool mayBeEntered() const;
    void giveEntity(OdDbEntity const& entity);

    /// What all levels share.
    struct Progress
    {
        long count = 0; ///< of entities and blocks given so far
        bool isDone = false;
    };
    /// Counts one more and says whether to go on. The receiver is asked now and then only.
    bool goesOn();

    OdDbBlockTableRecord const& m_block;
    OdDbBlockOutline* const m_outer; ///< the block within which this one is referred to, if any
    Progress m_ownProgress;
    Progress& m_progress;
};
