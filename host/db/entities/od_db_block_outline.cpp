#include "host/db/entities/od_db_block_outline.h"

#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/records/od_db_block_table_record.h"

namespace {

constexpr int kMaxDepth = 64;
constexpr long kMaxCount = 1'000'000;
constexpr long kBetweenQuestions = 64;

} // namespace

OdDbBlockOutline::OdDbBlockOutline(OdDbBlockTableRecord const& block, OdDbOutlineSink& sink)
    : OdDbTransformingSink(sink),
      m_block(block),
      m_outer(dynamic_cast<OdDbBlockOutline*>(&sink)),
      m_progress(m_outer ? m_outer->m_progress : m_ownProgress)
{
}

bool OdDbBlockOutline::goesOn()
{
    ++m_progress.count;
    if (m_progress.count >= kMaxCount ||
        (m_progress.count % kBetweenQuestions == 0 && OdDbTransformingSink::isSatisfied()))
        m_progress.isDone = true;
    return !m_progress.isDone;
}

bool OdDbBlockOutline::mayBeEntered() const
{
    int depth = 0;
    for (OdDbBlockOutline const* outer = m_outer; outer; outer = outer->m_outer)
        if (&outer->m_block == &m_block || ++depth >= kMaxDepth)
            return false;
    return true;
}

bool OdDbBlockOutline::give(OdGeMatrix3d const& placement)
{
    if (!mayBeEntered())
        return true;
    setTransformation(placement);
    bool isUnfinished = goesOn(); // blocks without entities count too, so that grids of them come to an end
    for (std::size_t i = 0; isUnfinished && i < m_block.entities().size(); ++i) {
        OdDbStub const* const stub = m_block.entities()[i];
        if (stub->erased)
            continue;
        giveEntity(*static_cast<OdDbEntity const*>(stub->object));
        isUnfinished = goesOn();
    }
    return isUnfinished;
}

void OdDbBlockOutline::giveEntity(OdDbEntity const& entity)
{
    if (!entity.isVisible())
        return;
    if (entity.isA() != OdDbAttributeDefinition::desc())
        entity.outline(*this);
    else if (auto const& definition = static_cast<OdDbAttributeDefinition const&>(entity); definition.isConstant())
        definition.outlineValue(*this);
}
