#pragma once

#include "apps/vornbench/run_observer.h"

/// Writes what happens as it happens, one JSON object a line: "run", then "start" and "end" of each test, then
/// "summary". Each "start" is in the file before its test begins, so that after a crash the last line names the
/// test.
class ResultLog : public RunObserver
{
public:
    /// Empties the file; throws UsageError when it cannot be opened.
    explicit ResultLog(std::string path);
    ~ResultLog() override;
    ResultLog(ResultLog const&) = delete;
    ResultLog& operator=(ResultLog const&) = delete;

    void runStarted(RunPlan const& plan) override;
    void testStarted(CatalogEntry const& entry) override;
    void testEnded(TestOutcome const& outcome) override;
    void runEnded(RunSummary const& summary) override;
    std::string error() const override { return m_error; }

private:
    void flush();

    std::string m_path;
    int m_file;
    std::string m_buffer;
    std::string m_error;
};
