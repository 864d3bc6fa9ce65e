#include "host/db/records/od_db_layout.h"

#include "host/db/audit/od_db_audit_info.h"

#include <limits>

OD_DB_DEFINE_CLASS(OdDbLayout, OdDbPlotSettings, "LAYOUT")

OdDbFieldTable const& OdDbLayout::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbLayout::m_layoutName>         (1, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_layoutFlags>        (70, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_tabOrder>           (71, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_limitsMin>          (10, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_limitsMax>          (11, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_insertionBase>      (12, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_extentsMin>         (14, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_extentsMax>         (15, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_elevation>          (146, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_ucsOrigin>          (13, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_ucsXAxis>           (16, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_ucsYAxis>           (17, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_ucsOrthographicView>(76, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_block>              (330, OdDbWriteRule::kAlways),
        odField<&OdDbLayout::m_lastViewport>       (331),
        odField<&OdDbLayout::m_namedUcs>           (345),
        odField<&OdDbLayout::m_baseUcs>            (346),
    };
    // clang-format on
    static OdDbFieldTable const s_table({plotSettingsSection(), {"AcDbLayout", s_fields}});
    return s_table;
}

void OdDbLayout::setLayoutName(OdString const& name)
{
    if (name.isEmpty())
        throw OdError(eInvalidName, L"A layout needs a name");
    assertWriteEnabled();
    m_layoutName = name;
}

void OdDbLayout::setTabOrder(int order)
{
    if (order < 0 || order > std::numeric_limits<std::int16_t>::max())
        throw OdError(eOutOfRange);
    assertWriteEnabled();
    m_tabOrder = static_cast<std::int16_t>(order);
}

void OdDbLayout::setBlockTableRecordId(OdDbObjectId block)
{
    if (block.isNull())
        throw OdError(eNullObjectId);
    if (isDBRO() && block.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    m_block = block;
}

void OdDbLayout::audit(OdDbAuditInfo& info) const
{
    OdDbPlotSettings::audit(info);
    if (m_block.isErased())
        info.report(*this, odFormat(L"the block of the layout \"%ls\" is missing", m_layoutName.c_str()));
}
