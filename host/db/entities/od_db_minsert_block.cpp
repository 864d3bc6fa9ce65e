#include "host/db/entities/od_db_minsert_block.h"

#include "host/db/od_db_property_sink.h"

#include <limits>

namespace {

constexpr std::string_view kMarker = "AcDbMInsertBlock";
constexpr int kColumns = 70;
constexpr int kRows = 71;

constexpr std::string_view kOtherMarkers[] = {"AcDbBlockReference"};

/// Files without markers have grids as INSERT with more than one column or row; so have some with markers.
bool isGrid(OdDbTagList const& tags, OdDbObject const*)
{
    constexpr int kMarkerCode = 100;
    constexpr int kBraces = 102;
    constexpr int kExtendedData = 1001;
    bool isOwnSection = true; // not one of a class that the host does not know
    bool isInBraces = false;  // nor what another application keeps in the record
    for (OdDbTag const tag : tags) {
        if (tag.is(kMarkerCode, kMarker))
            return true;
        if (tag.code == kExtendedData)
            return false;
        if (tag.code == kMarkerCode)
            isOwnSection = tag.text == kOtherMarkers[0];
        else if (tag.code == kBraces)
            isInBraces = tag.text.starts_with('{');
        bool const isCount = tag.kind == OdDbTagKind::kInteger && (tag.code == kColumns || tag.code == kRows);
        if (isOwnSection && !isInBraces && isCount && tag.integer > 1)
            return true;
    }
    return false;
}

std::int16_t checkedCount(int count)
{
    if (count < 1 || count > std::numeric_limits<std::int16_t>::max())
        throw OdError(eOutOfRange, odFormat(L"%d is no number of columns or rows", count));
    return static_cast<std::int16_t>(count);
}

} // namespace

OD_DB_DEFINE_VARIANT_CLASS(OdDbMInsertBlock, OdDbBlockReference, "INSERT", &isGrid)

OdDbFieldTable const& OdDbMInsertBlock::fields()
{
    // clang-format off
    static constexpr OdDbField s_grid[] = {
        odField<&OdDbMInsertBlock::m_columns>      (kColumns),
        odField<&OdDbMInsertBlock::m_rows>         (kRows),
        odField<&OdDbMInsertBlock::m_columnSpacing>(44),
        odField<&OdDbMInsertBlock::m_rowSpacing>   (45),
    };
    // clang-format on
    static OdDbFieldTable const s_table = tableWith(kMarker, s_grid, kOtherMarkers);
    return s_table;
}

void OdDbMInsertBlock::setColumns(int columns)
{
    std::int16_t const count = checkedCount(columns);
    assertWriteEnabled();
    m_columns = count;
}

void OdDbMInsertBlock::setRows(int rows)
{
    std::int16_t const count = checkedCount(rows);
    assertWriteEnabled();
    m_rows = count;
}

void OdDbMInsertBlock::setColumnSpacing(double spacing)
{
    assertWriteEnabled();
    m_columnSpacing = spacing;
}

void OdDbMInsertBlock::setRowSpacing(double spacing)
{
    assertWriteEnabled();
    m_rowSpacing = spacing;
}

void OdDbMInsertBlock::scaleGrid(double xFactor, double yFactor)
{
    m_columnSpacing *= xFactor;
    m_rowSpacing *= yFactor;
}

void OdDbMInsertBlock::listGrid(OdDbPropertySink& sink) const
{
    sink.count(L"columns", columns());
    sink.count(L"rows", rows());
    sink.distance(L"column spacing", m_columnSpacing);
    sink.distance(L"row spacing", m_rowSpacing);
}
