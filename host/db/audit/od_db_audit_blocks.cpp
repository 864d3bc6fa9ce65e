// Blocks and the references between them are walked as a graph, depth first with a stack of its own: each block
// and each reference is seen once, however deep and however often blocks stand within one another.
#include "host/db/audit/od_db_audit_blocks.h"

#include "host/db/entities/od_db_block_reference.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

#include <limits>

namespace {

constexpr std::uint64_t kAbsurdCount = 100'000'000;

std::uint64_t saturatingAdd(std::uint64_t a, std::uint64_t b)
{
    std::uint64_t sum = 0;
    return __builtin_add_overflow(a, b, &sum) ? std::numeric_limits<std::uint64_t>::max() : sum;
}

std::uint64_t saturatingMultiply(std::uint64_t a, std::uint64_t b)
{
    std::uint64_t product = 0;
    return __builtin_mul_overflow(a, b, &product) ? std::numeric_limits<std::uint64_t>::max() : product;
}

class BlockGraph
{
public:
    BlockGraph(OdDbDatabase const& database, OdDbAuditInfo& info);
    void audit();

private:
    struct Reference
    {
        OdDbBlockReference const* entity;
        std::size_t target;
    };
    struct Block
    {
        OdDbBlockTableRecord const* record;
        std::size_t nextReference = 0; ///< that is to be followed
        std::size_t endReference = 0;
        std::uint64_t numEntities = 0; ///< with those of the blocks referred to, once those are done
        std::size_t depth = kNotBegun; ///< on the stack
        bool hasAbsurdPart = false;
        bool isDone = false;
    };
    static constexpr std::size_t kNotBegun = static_cast<std::size_t>(-1);

    void addReferences(Block& block);
    void walk(std::size_t first);
    void enter(std::size_t number);
    void followNext(Block& block);
    void leave();
    static void addTo(Block& block, Block const& part, OdDbBlockReference const& reference);
    void reportCycle(Reference const& reference);
    OdString cycleText(std::size_t first) const;

    OdDbAuditInfo& m_info;
    std::vector<Block> m_blocks;
    std::unordered_map<OdDbObjectId, std::size_t> m_numbers;
    std::vector<Reference> m_references; ///< of one block after the other
    std::vector<std::size_t> m_stack;    ///< numbers of blocks, each within the one before
};

BlockGraph::BlockGraph(OdDbDatabase const& database, OdDbAuditInfo& info) : m_info(info)
{
    for (OdDbStub const* const stub : database.table(OdDbTableKind::kBlock).records()) {
        if (stub->erased)
            continue;
        m_numbers.emplace(stub->object->objectId(), m_blocks.size());
        m_blocks.push_back({static_cast<OdDbBlockTableRecord const*>(stub->object)});
    }
    for (Block& block : m_blocks)
        addReferences(block);
}

void BlockGraph::addReferences(Block& block)
{
    block.nextReference = m_references.size();
    for (OdDbStub const* const stub : block.record->entities()) {
        if (stub->erased)
            continue;
        ++block.numEntities;
        auto const* const reference = odCast<OdDbBlockReference>(static_cast<OdRxObject const*>(stub->object));
        if (!reference)
            continue;
        if (auto const target = m_numbers.find(reference->blockTableRecord()); target != m_numbers.end())
            m_references.push_back({reference, target->second});
    }
    block.endReference = m_references.size();
}

void BlockGraph::audit()
{
    for (std::size_t i = 0; i < m_blocks.size(); ++i)
        if (!m_blocks[i].isDone)
            walk(i);
}

void BlockGraph::walk(std::size_t first)
{
    enter(first);
    while (!m_stack.empty()) {
        Block& block = m_blocks[m_stack.back()];
        if (block.nextReference == block.endReference)
            leave();
        else
            followNext(block);
    }
}

void BlockGraph::enter(std::size_t number)
{
    m_blocks[number].depth = m_stack.size();
    m_stack.push_back(number);
}

/// A block that is not done yet is entered, and its reference is looked at again when it is left.
void BlockGraph::followNext(Block& block)
{
    Reference const& reference = m_references[block.nextReference];
    Block const& target = m_blocks[reference.target];
    if (target.depth == kNotBegun) {
        enter(reference.target);
        return;
    }
    ++block.nextReference;
    if (target.isDone)
        addTo(block, target, *reference.entity);
    else
        reportCycle(reference);
}

void BlockGraph::addTo(Block& block, Block const& part, OdDbBlockReference const& reference)
{
    auto const grid = reference.grid();
    auto const copies = static_cast<std::uint64_t>(grid.columns) * static_cast<std::uint64_t>(grid.rows);
    block.numEntities = saturatingAdd(block.numEntities, saturatingMultiply(copies, part.numEntities));
    block.hasAbsurdPart = block.hasAbsurdPart || part.hasAbsurdPart;
}

/// Of blocks within one another only the innermost that holds too much is named.
void BlockGraph::leave()
{
    Block& block = m_blocks[m_stack.back()];
    m_stack.pop_back();
    block.isDone = true;
    if (block.hasAbsurdPart || block.numEntities <= kAbsurdCount)
        return;
    block.hasAbsurdPart = true;
    m_info.report(*block.record, odFormat(L"its references multiply to more than %lld entities",
                                          static_cast<long long>(kAbsurdCount)));
}

void BlockGraph::reportCycle(Reference const& reference)
{
    m_info.reportUseless(*reference.entity, odFormat(L"it makes a block contain itself: %ls",
                                                     cycleText(m_blocks[reference.target].depth).c_str()));
}

/// The names of the blocks on the stack from this depth on, each containing the next, and the first once more. Of
/// a long cycle the beginning only: there can be as many cycles as references.
OdString BlockGraph::cycleText(std::size_t first) const
{
    constexpr std::size_t kShown = 8;
    OdString text;
    for (std::size_t i = first; i < m_stack.size() && i < first + kShown; ++i)
        text += m_blocks[m_stack[i]].record->getName() + L" > ";
    if (m_stack.size() > first + kShown)
        text += odFormat(L"%lld more > ", static_cast<long long>(m_stack.size() - first - kShown));
    return text + m_blocks[m_stack[first]].record->getName();
}

} // namespace

void odDbAuditBlocks(OdDbDatabase& database, OdDbAuditInfo& info)
{
    BlockGraph(database, info).audit();
}
