// Entities of blocks, spaces and sheets. All of them are paired before anything is told, because entities and
// dictionaries refer to entities of other blocks.
#include "testapi/ta_drawing_comparison_fields.h"
#include "testapi/ta_drawing_comparison_teller.h"
#include "testapi/ta_entity_matching.h"

namespace ta {

namespace {

/// Walks over the entities of a block that are not erased.
class EntityCursor
{
public:
    explicit EntityCursor(OdDbBlockTableRecord const& block)
        : m_at(block.entities().begin()), m_end(block.entities().end())
    {
        skip();
    }
    bool done() const { return m_at == m_end; }
    void step()
    {
        ++m_at;
        skip();
    }
    OdDbHandle handle() const { return (*m_at)->handle; }
    OdDbEntity const& entity() const { return static_cast<OdDbEntity const&>(*(*m_at)->object); }

private:
    void skip()
    {
        while (m_at != m_end && (*m_at)->erased)
            ++m_at;
    }

    std::vector<OdDbStub*>::const_iterator m_at, m_end;
};

std::vector<OdDbEntity const*> entitiesOf(OdDbBlockTableRecord const& block)
{
    std::vector<OdDbEntity const*> entities;
    for (EntityCursor it(block); !it.done(); it.step())
        entities.push_back(&it.entity());
    return entities;
}

OdString nameOf(OdDbEntity const& entity)
{
    return classNameOf(entity) + L" " + entity.getDbHandle().ascii();
}

} // namespace

void DrawingComparison::matchBlocks()
{
    m_blocks.clear();
    m_bridge->beginPairing();
    for (OdDbTableKindInfo const& kind : odDbTableKinds()) {
        for (RecordPair const& pair : pairRecords(kind.kind)) {
            if (!pair.first || !pair.second)
                continue;
            m_bridge->pairExtensions(*pair.first, *pair.second, pair.first->getName());
            if (auto const* const block = odCast<OdDbBlockTableRecord>(pair.first))
                matchBlock(*block, static_cast<OdDbBlockTableRecord const&>(*pair.second));
        }
    }
    m_bridge->endPairing();
}

void DrawingComparison::matchBlock(OdDbBlockTableRecord const& block1, OdDbBlockTableRecord const& block2)
{
    BlockPair rest;
    matchInStep(block1, block2, rest);
    if (!rest.onlyInFirst.empty() && !rest.onlyInSecond.empty())
        matchRest(rest);
    if (rest.pairs.empty() && rest.onlyInFirst.empty() && rest.onlyInSecond.empty())
        return;
    rest.place = placeOf(block1);
    m_blocks.push_back(std::move(rest));
}

/// Pairs equal entities of one handle that stand in the same order, which are most of them, without any table.
void DrawingComparison::matchInStep(OdDbBlockTableRecord const& block1, OdDbBlockTableRecord const& block2,
                                    BlockPair& rest)
{
    EntityCursor it1(block1), it2(block2);
    while (!it1.done() && !it2.done()) {
        OdDbEntity const &entity1 = it1.entity(), &entity2 = it2.entity();
        auto const order = it1.handle() <=> it2.handle();
        if (order == 0 && agree(entity1, entity2, kEverything)) {
            notePair(entity1, entity2);
            if (m_bridge->wasAssumed())
                rest.pairs.push_back({&entity1, &entity2});
        } else {
            if (order <= 0)
                rest.onlyInFirst.push_back(&entity1);
            if (order >= 0)
                rest.onlyInSecond.push_back(&entity2);
        }
        if (order <= 0)
            it1.step();
        if (order >= 0)
            it2.step();
    }
    for (; !it1.done(); it1.step())
        rest.onlyInFirst.push_back(&it1.entity());
    for (; !it2.done(); it2.step())
        rest.onlyInSecond.push_back(&it2.entity());
}

void DrawingComparison::matchRest(BlockPair& rest)
{
    m_bridge->wasAssumed(); // what was assumed so far has been dealt with
    EntityMatches matches = matchEntities(rest.onlyInFirst, rest.onlyInSecond, m_options.eps,
                                          [this](OdDbEntity const& entity1, OdDbEntity const& entity2) {
                                              return agree(entity1, entity2, kEverything);
                                          });
    bool const wasAssumed = m_bridge->wasAssumed();
    for (EntityMatches::Match const& match : matches.pairs) {
        notePair(*match.entities.first, *match.entities.second);
        if (!match.areEqual || wasAssumed)
            rest.pairs.push_back({match.entities.first, match.entities.second});
    }
    rest.onlyInFirst = std::move(matches.onlyInFirst);
    rest.onlyInSecond = std::move(matches.onlyInSecond);
}

bool DrawingComparison::entitiesMatched(OdDbObjectId block1, OdDbObjectId block2)
{
    long const before = m_differences;
    auto const first = block1.open<OdDbBlockTableRecord>(), second = block2.open<OdDbBlockTableRecord>();
    EntityMatches const matches = matchEntities(entitiesOf(*first), entitiesOf(*second), m_options.eps,
                                                [this](OdDbEntity const& entity1, OdDbEntity const& entity2) {
                                                    return agree(entity1, entity2, kRowsOnly);
                                                });
    OdString const place = placeOf(*first);
    for (OdDbEntity const* const entity : matches.onlyInFirst)
        tellOnly(place, *entity, {}, true);
    for (OdDbEntity const* const entity : matches.onlyInSecond)
        tellOnly(place, *entity, {}, false);
    for (EntityMatches::Match const& match : matches.pairs) {
        countPair(*match.entities.first);
        if (!match.areEqual)
            comparePair(place, *match.entities.first, *match.entities.second, kRowsOnly);
    }
    return m_differences == before;
}

void DrawingComparison::notePair(OdDbEntity const& entity1, OdDbEntity const& entity2)
{
    countPair(entity1);
    if (entity1.getDbHandle() != entity2.getDbHandle())
        m_bridge->pair(entity1, entity2);
    if (entity1.extras() && entity2.extras() && !entity1.extensionDictionary().isNull())
        m_bridge->pairExtensions(entity1, entity2, nameOf(entity1));
}

void DrawingComparison::tellBlock(BlockPair const& block)
{
    for (EntityPair const& pair : block.pairs)
        comparePair(block.place, *pair.first, *pair.second, kEverything);
    for (OdDbEntity const* const entity : block.onlyInFirst)
        tellOnly(block.place, *entity, {}, true);
    for (OdDbEntity const* const entity : block.onlyInSecond)
        tellOnly(block.place, *entity, {}, false);
}

} // namespace ta
