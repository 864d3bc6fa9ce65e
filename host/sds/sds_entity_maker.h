#pragma once

#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds_entity_reading.h"

namespace ca {

/// Makes the entities of one drawing from lists, one list after another. Entities with parts come as a sequence:
/// the head, its parts, SEQEND; a block as BLOCK, its entities, ENDBLK. Until the last list of a sequence came,
/// nothing of it is in the drawing.
class SdsEntityMaker
{
public:
    explicit SdsEntityMaker(OdDbDatabase& database) : m_database(&database) {}

    /// False, and nothing is made, for a list that nothing can be made of or that does not belong here. A SEQEND
    /// or ENDBLK that fails ends its sequence all the same.
    bool make(sds_resbuf const* list);
    /// Forgets sequences that have not ended.
    void cancel();

private:
    struct Part
    {
        OdDbEntityPtr entity;
        SdsNames names;
        bool isOnLayerOfWhole = false; ///< the list does not say a layer
    };
    /// An entity with its parts.
    struct Whole
    {
        Part head;
        std::vector<Part> parts;
        OdDbEntityPtr end;
        bool goesToPaperSpace = false;
    };
    struct Block
    {
        Part begin;
        OdString name;
        std::vector<Whole> entities;
    };

    bool makeEntity(SdsRecord const& record);
    bool makePart(SdsRecord const& record);
    bool endSequence(SdsRecord const& record);
    bool beginBlock(SdsRecord const& record);
    bool endBlock(SdsRecord const& record);

    std::optional<Part> read(SdsRecord const& record, OdDbEntityPtr const& entity);
    bool place(Whole&& whole);
    void append(Whole const& whole, OdDbBlockTableRecord& block);
    OdString freeBlockName(OdString const& name) const;
    bool mayDefine(Block const& block) const;
    OdDbBlockTableRecordPtr emptyBlock(OdString const& name);

    OdDbDatabase* m_database;
    std::optional<Whole> m_sequence;
    std::optional<Block> m_block;
};

} // namespace ca
