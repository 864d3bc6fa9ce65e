#pragma once

#include "host/dxf/dxf_file.h"

namespace dxf {

/// What a drawing is made of, as audits show it. Erased objects do not count, nor do records that are only implied
/// by the use of their names.
struct DrawingSummary
{
    struct Count
    {
        std::string name;
        std::size_t count = 0;
    };
    /// In the order of the names.
    using Counts = std::vector<Count>;

    /// What the host keeps as it came, without understanding it.
    struct Raw
    {
        Counts classes;                           ///< entities and objects by class
        Counts groups;                            ///< groups within records of classes that are known, by class
        Counts sections;                          ///< groups by section
        Counts tables;                            ///< records by table
        std::vector<std::string> headerVariables; ///< with "$", in the order of the file
        bool isEmpty() const;
    };

    OdString release; ///< of the file, such as "R2000"; of a new drawing the current one
    bool isBinary = false;
    bool isNew = false; ///< does not come from a file

    /// Entities by class, parts such as attributes and vertices included.
    /// @{
    Counts modelSpace;
    Counts paperSpace; ///< of all sheets
    Counts blocks;     ///< of all other blocks
    /// @}
    Counts objects; ///< outside tables and blocks, by class
    Counts tables;  ///< records by table
    Raw raw;
};

/// The summary of a drawing that was opened with this report, or of a new one with an empty report.
DrawingSummary summaryOf(OdDbDatabase const& database, ReadReport const& report);

/// A line for people: a label, and items with ", " between them.
struct SummaryRow
{
    std::wstring_view label;
    OdString text;
};
/// All that there is to say; empty parts are left out.
std::vector<SummaryRow> rowsOf(DrawingSummary const& summary);

} // namespace dxf
