#pragma once

#include "apps/vornbench/options.h"
#include "apps/vornbench/terminal.h"
#include "testapi/ta_drawing_comparison.h"

/// What a comparison of drawings finds, for people: one line for each difference, then a summary.
class PlainComparisonReport
{
public:
    /// On a terminal, the lines end after the first few.
    explicit PlainComparisonReport(Terminal const& terminal) : m_terminal(terminal) {}

    void begin(Options const& options);
    void add(ta::DrawingDifference const& difference);
    void end(ta::DrawingComparison const& comparison);

private:
    Terminal m_terminal;
    std::size_t m_numAdded = 0;
};

/// The same for other programs, complete: one JSON object in a file, which appears when the comparison ends.
class JsonComparisonReport
{
public:
    /// Throws OdError, like the functions below, when the file cannot be written.
    JsonComparisonReport(std::string const& path, Options const& options);

    void add(ta::DrawingDifference const& difference);
    void end(ta::DrawingComparison const& comparison);

private:
    ut::AtomicFile m_file;
    bool m_hasDifferences = false;
};
