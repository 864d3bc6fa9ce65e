#include "host/db/records/od_db_table_kinds.h"

#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_dim_style_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/db/records/od_db_linetype_table_record.h"
#include "host/db/records/od_db_reg_app_table_record.h"
#include "host/db/records/od_db_text_style_table_record.h"
#include "host/db/records/od_db_ucs_table_record.h"
#include "host/db/records/od_db_view_table_record.h"
#include "host/db/records/od_db_viewport_table_record.h"

namespace {

// clang-format off
constexpr OdDbTableKindInfo kKinds[] = {
    {OdDbTableKind::kViewport,  "VPORT",        &OdDbSymbolTable::desc,   &OdDbViewportTableRecord::desc},
    {OdDbTableKind::kLinetype,  "LTYPE",        &OdDbSymbolTable::desc,   &OdDbLinetypeTableRecord::desc},
    {OdDbTableKind::kLayer,     "LAYER",        &OdDbSymbolTable::desc,   &OdDbLayerTableRecord::desc},
    {OdDbTableKind::kTextStyle, "STYLE",        &OdDbSymbolTable::desc,   &OdDbTextStyleTableRecord::desc},
    {OdDbTableKind::kView,      "VIEW",         &OdDbSymbolTable::desc,   &OdDbViewTableRecord::desc},
    {OdDbTableKind::kUcs,       "UCS",          &OdDbSymbolTable::desc,   &OdDbUCSTableRecord::desc},
    {OdDbTableKind::kRegApp,    "APPID",        &OdDbSymbolTable::desc,   &OdDbRegAppTableRecord::desc},
    {OdDbTableKind::kDimStyle,  "DIMSTYLE",     &OdDbDimStyleTable::desc, &OdDbDimStyleTableRecord::desc},
    {OdDbTableKind::kBlock,     "BLOCK_RECORD", &OdDbSymbolTable::desc,   &OdDbBlockTableRecord::desc},
};
// clang-format on

constexpr OdDbRequiredRecord kRequired[] = {
    {OdDbTableKind::kLayer, L"0"},
    {OdDbTableKind::kLinetype, L"ByBlock"},
    {OdDbTableKind::kLinetype, L"ByLayer"},
    {OdDbTableKind::kLinetype, L"Continuous"},
    {OdDbTableKind::kTextStyle, L"Standard"},
    {OdDbTableKind::kDimStyle, L"Standard"},
};
static_assert(std::size(kKinds) == kOdDbTableKinds);

} // namespace

std::span<OdDbTableKindInfo const> odDbTableKinds()
{
    return kKinds;
}

OdDbTableKindInfo const& odDbTableKind(OdDbTableKind kind)
{
    return *std::find_if(std::begin(kKinds), std::end(kKinds),
                         [kind](auto const& each) { return each.kind == kind; });
}

std::span<OdDbRequiredRecord const> odDbRequiredRecords()
{
    return kRequired;
}

OdDbTableKindInfo const* odDbFindTableKind(std::string_view fileName)
{
    auto const it = std::find_if(std::begin(kKinds), std::end(kKinds),
                                 [fileName](auto const& each) { return each.fileName == fileName; });
    return it == std::end(kKinds) ? nullptr : it;
}
