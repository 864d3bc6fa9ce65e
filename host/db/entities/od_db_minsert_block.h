#pragma once

#include "host/db/entities/od_db_block_reference.h"

/// A block reference that shows its block in a grid of columns and rows, at least one of each. Spacings go along
/// the turned axes of the reference and may be negative.
class OdDbMInsertBlock : public OdDbBlockReference
{
    OD_DB_DECLARE_CLASS(OdDbMInsertBlock)
public:
    OdDbMInsertBlock() = default;

    int columns() const { return std::max<int>(m_columns, 1); }
    int rows() const { return std::max<int>(m_rows, 1); }
    /// Throw OdError(eOutOfRange) for less than one column or row, or more than 32767.
    void setColumns(int columns);
    void setRows(int rows);
    double columnSpacing() const { return m_columnSpacing; }
    void setColumnSpacing(double spacing);
    double rowSpacing() const { return m_rowSpacing; }
    void setRowSpacing(double spacing);

    Grid grid() const override { return {columns(), rows(), m_columnSpacing, m_rowSpacing}; }
    /// Grids stay together.
    bool isExplodable() const override { return false; }

protected:
    void scaleGrid(double xFactor, double yFactor) override;
    void listGrid(OdDbPropertySink& sink) const override;

private:
    std::int16_t m_columns = 1;
    std::int16_t m_rows = 1;
    double m_columnSpacing = 0.0;
    double m_rowSpacing = 0.0;
};
using OdDbMInsertBlockPtr = OdSmartPtr<OdDbMInsertBlock>;
