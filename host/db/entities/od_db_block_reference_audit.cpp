// What an audit says of a block reference. Blocks within themselves are found by odDbAudit, which sees all of
// them.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/records/od_db_block_table_record.h"

/// A block that a file uses without defining it has a record, but an implied one.
bool OdDbBlockReference::lacksBlock() const
{
    OdDbBlockTableRecord const* const record = block();
    return !record || record->isErased() || record->isImplied();
}

void OdDbBlockReference::audit(OdDbAuditInfo& info) const
{
    constexpr int kAbsurdGrid = 1'000'000;
    OdDbEntity::audit(info);
    if (lacksBlock()) {
        OdDbBlockTableRecord const* const record = block();
        info.reportUseless(*this, record ? odFormat(L"its block \"%ls\" is missing", record->getName().c_str())
                                         : OdString(L"its block is missing"));
    }
    if (m_scale.sx == 0 || m_scale.sy == 0 || m_scale.sz == 0)
        info.report(*this, L"one of its scale factors is 0", L"1 taken", [](OdDbObject& object) {
            auto& reference = static_cast<OdDbBlockReference&>(object);
            OdGeScale3d const scale = reference.scaleFactors();
            auto const mended = [](double factor) { return factor == 0 ? 1.0 : factor; };
            reference.setScaleFactors({mended(scale.sx), mended(scale.sy), mended(scale.sz)});
        });
    if (Grid const cells = grid(); cells.columns * cells.rows > kAbsurdGrid)
        info.report(*this, odFormat(L"it repeats its block %d times (%d columns, %d rows)",
                                    cells.columns * cells.rows, cells.columns, cells.rows));
}
