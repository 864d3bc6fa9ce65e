#include "apps/vornbench/progress_reporter.h"

#include "apps/vornbench/notices.h"
#include "apps/vornbench/text_width.h"

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds terminalInterval(100);
constexpr std::chrono::seconds plainInterval(10);
constexpr std::size_t maxNameWidth = 40;
constexpr char const* eraseLine = "\r\x1b[K";

std::string indented(std::string_view text, std::string_view first, std::string_view rest)
{
    std::string result(first);
    for (char const ch : printable(text)) {
        result += ch;
        if (ch == '\n')
            result += rest;
    }
    return result;
}

std::string joined(std::vector<std::string> const& texts)
{
    std::string result;
    for (std::string const& text : texts)
        result += (result.empty() ? "" : ", ") + text;
    return result;
}

} // namespace

void ProgressReporter::line(std::string const& text)
{
    eraseProgress();
    m_terminal.out() << text << '\n';
}

void ProgressReporter::runStarted(RunPlan const& plan)
{
    m_selected = plan.selected;
    m_start = Clock::now();
    m_nextProgress = m_terminal.isInteractive() ? m_start : m_start + plainInterval;
    for (CatalogEntry const* const entry : plan.entries)
        m_suiteWidth = std::max(m_suiteWidth, std::min(textWidth(entry->topName()), maxNameWidth));
    if (isQuiet())
        return;
    line(selectedText(plan.selected, plan.total, plan.explicitSuites));
    m_terminal.out().flush();
}

void ProgressReporter::testStarted(CatalogEntry const& entry)
{
    if (entry.topName() != m_suite) {
        endSuite();
        m_suite = entry.topName();
    }
    if (Clock::now() >= m_nextProgress)
        showProgress(entry.name);
}

void ProgressReporter::testEnded(TestOutcome const& outcome)
{
    m_counts.add(outcome);
    m_suiteCounts.add(outcome);
    m_suiteSeconds += outcome.seconds;
    for (TestFailureRecord const& failure : outcome.failures)
        writeFailure(outcome, failure);
    for (std::string const& text : outcome.commandLine)
        line(m_terminal.painted(Paint::Faint, indented(text, "    | ", "    | ")));
    if (!outcome.hasPassed())
        m_failedTests.push_back({outcome.entry->name, outcome.failures.front().location.text()});
    if (!outcome.leftovers.empty())
        writeLeftovers(outcome);
    if (isVerbose())
        writeTest(outcome);
}

void ProgressReporter::writeFailure(TestOutcome const& outcome, TestFailureRecord const& failure)
{
    std::string const word = failure.isError ? "error" : "failed";
    std::string const place = failure.location.file.empty() ? "" : failure.location.text() + ": ";
    line(place + m_terminal.painted(Paint::Bad, word + ":") + " " + outcome.entry->name);
    line(indented(failure.summary, "    ", "    "));
    for (std::string const& detail : failure.details)
        line(indented(detail, "    - ", "      "));
    if (isVerbose() && !failure.source.file.empty())
        line(m_terminal.painted(Paint::Faint, "    checked at " + failure.source.text()));
    m_terminal.out().flush();
}

void ProgressReporter::writeLeftovers(TestOutcome const& outcome)
{
    for (std::string const& leftover : outcome.leftovers)
        line(m_terminal.painted(Paint::Note, "warning:") + " " + outcome.entry->name +
             " left behind: " + printable(leftover));
}

void ProgressReporter::writeTest(TestOutcome const& outcome)
{
    std::string times = durationText(outcome.seconds);
    if (outcome.body)
        times +=
            " (body " + durationText(outcome.body->wall) + ", processor " + durationText(outcome.body->cpu) + ")";
    std::string const word = padded(outcome.word(), 6);
    line("  " + m_terminal.painted(outcome.hasPassed() ? Paint::Good : Paint::Bad, word) + "  " +
         outcome.entry->name + "  " + m_terminal.painted(Paint::Faint, times));
}

std::string ProgressReporter::countsText(OutcomeCounts const& counts) const
{
    std::vector<std::string> parts;
    if (counts.passed || !counts.bad())
        parts.push_back(m_terminal.painted(Paint::Good, std::to_string(counts.passed) + " passed"));
    if (counts.failed)
        parts.push_back(m_terminal.painted(Paint::Bad, std::to_string(counts.failed) + " failed"));
    if (counts.errors)
        parts.push_back(m_terminal.painted(Paint::Bad, counted(counts.errors, "error")));
    return joined(parts);
}

void ProgressReporter::endSuite()
{
    if (m_suiteCounts.done() > 0 && !isQuiet()) {
        std::string const name = padded(shortened(m_suite, maxNameWidth), m_suiteWidth);
        line("  " + name + "  " + countsText(m_suiteCounts) + "  " +
             m_terminal.painted(Paint::Faint, durationText(m_suiteSeconds)));
        m_terminal.out().flush();
    }
    m_suiteCounts = {};
    m_suiteSeconds = 0.0;
}

void ProgressReporter::runEnded(RunSummary const& summary)
{
    endSuite();
    if (!m_failedTests.empty())
        writeFailedTests();
    std::string totals = counted(summary.counts.done(), "test") + ": " + countsText(summary.counts);
    if (summary.notRun() > 0)
        totals += ", " + m_terminal.painted(Paint::Note, std::to_string(summary.notRun()) + " not run");
    line(totals + " in " + durationText(summary.seconds) + (summary.wasInterrupted ? " (interrupted)" : ""));
    m_terminal.out().flush();
}

void ProgressReporter::writeFailedTests()
{
    std::size_t width = 0;
    for (FailedTest const& test : m_failedTests)
        width = std::max(width, textWidth(test.name));
    line(m_terminal.painted(Paint::Bad, "failed tests:"));
    for (FailedTest const& test : m_failedTests)
        line("  " + (test.place.empty() ? test.name : padded(test.name, width) + "  " + test.place));
}

void ProgressReporter::showProgress(std::string_view running)
{
    auto const now = Clock::now();
    double const elapsed = std::chrono::duration<double>(now - m_start).count();
    std::string const status = std::to_string(m_counts.done()) + "/" + std::to_string(m_selected) +
                               (m_counts.bad() ? ", " + std::to_string(m_counts.bad()) + " not passed" : "") +
                               timeLeft(elapsed);
    if (m_terminal.isInteractive()) {
        std::string const text = shortened(status + "  " + printable(running), m_terminal.width() - 1);
        m_terminal.out() << eraseLine << m_terminal.painted(Paint::Faint, text);
        m_hasProgressLine = true;
        m_nextProgress = now + terminalInterval;
    } else {
        if (!isQuiet())
            line("  " + status + "  " + printable(running));
        m_nextProgress = now + plainInterval;
    }
    m_terminal.out().flush();
}

std::string ProgressReporter::timeLeft(double elapsed) const
{
    if (m_counts.done() == 0)
        return {};
    std::size_t const remaining = m_selected > m_counts.done() ? m_selected - m_counts.done() : 0;
    double const seconds = elapsed / static_cast<double>(m_counts.done()) * static_cast<double>(remaining);
    return ", " + durationText(seconds) + " left";
}

void ProgressReporter::eraseProgress()
{
    if (!m_hasProgressLine)
        return;
    m_terminal.out() << eraseLine;
    m_hasProgressLine = false;
}
