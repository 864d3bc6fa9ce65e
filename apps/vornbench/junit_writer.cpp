#include "apps/vornbench/junit_writer.h"

#include "apps/vornbench/failure_location.h"
#include "apps/vornbench/legal_text.h"
#include "apps/vornbench/usage_error.h"
#include "host/ut/ut_file.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <unordered_set>

namespace {

void attribute(std::string& xml, std::string_view name, std::string_view value)
{
    xml.append(" ").append(name).append("=\"").append(xmlText(value, true)).append("\"");
}

void attribute(std::string& xml, std::string_view name, std::size_t value)
{
    attribute(xml, name, std::to_string(value));
}

void seconds(std::string& xml, double value)
{
    char text[32];
    auto const [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 6);
    attribute(xml, "time", std::string_view(text, static_cast<std::size_t>(end - text)));
}

void totals(std::string& xml, OutcomeCounts const& counts, std::size_t notRun)
{
    attribute(xml, "tests", counts.done() + notRun);
    attribute(xml, "failures", counts.failed);
    attribute(xml, "errors", counts.errors);
    attribute(xml, "skipped", notRun);
}

void beginCase(std::string& xml, CatalogEntry const& entry, FileLocation const& place)
{
    std::string className(entry.suiteName());
    std::ranges::replace(className, '/', '.');
    xml += "    <testcase";
    attribute(xml, "name",
              std::string_view(entry.name).substr(std::min(entry.suiteNameLength + 1, entry.name.size())));
    attribute(xml, "classname", className);
    if (!place.file.empty()) {
        attribute(xml, "file", place.file);
        attribute(xml, "line", static_cast<std::size_t>(place.line));
    }
}

void failureElement(std::string& xml, TestFailureRecord const& failure)
{
    char const* const name = failure.isError ? "error" : "failure";
    xml.append("      <").append(name);
    attribute(xml, "message", failure.headline());
    attribute(xml, "type", failure.summary);
    xml += ">";
    std::string text = failure.location.file.empty() ? "" : failure.location.text() + ": ";
    text += failure.summary + "\n";
    for (std::string const& detail : failure.details)
        text += "- " + detail + "\n";
    xml += xmlText(text, false);
    xml.append("</").append(name).append(">\n");
}

void linesElement(std::string& xml, std::string_view name, std::string const& prefix,
                  std::vector<std::string> const& lines)
{
    if (lines.empty())
        return;
    xml.append("      <").append(name).append(">");
    for (std::string const& line : lines)
        xml += xmlText(prefix + line + "\n", false);
    xml.append("</").append(name).append(">\n");
}

void caseElement(std::string& xml, TestOutcome const& outcome)
{
    beginCase(xml, *outcome.entry,
              outcome.hasPassed() ? testLocation(*outcome.entry) : outcome.failures.front().location);
    seconds(xml, outcome.seconds);
    if (outcome.hasPassed() && outcome.leftovers.empty()) {
        xml += "/>\n";
        return;
    }
    xml += ">\n";
    for (TestFailureRecord const& failure : outcome.failures)
        failureElement(xml, failure);
    linesElement(xml, "system-out", "", outcome.commandLine);
    linesElement(xml, "system-err", "left behind: ", outcome.leftovers);
    xml += "    </testcase>\n";
}

void notRunElement(std::string& xml, CatalogEntry const& entry)
{
    beginCase(xml, entry, testLocation(entry));
    xml += "><skipped message=\"not run\"/></testcase>\n";
}

} // namespace

struct JunitWriter::Suite
{
    std::string_view name;
    OutcomeCounts counts;
    double seconds = 0.0;
    std::vector<TestOutcome const*> outcomes;
    std::vector<CatalogEntry const*> notRun;
};

JunitWriter::JunitWriter(std::string path) : m_path(std::move(path))
{
    try {
        ut::AtomicFile const probe(OdString::fromUtf8(m_path));
    } catch (OdError const& error) {
        throw UsageError(error.what());
    }
}

void JunitWriter::runStarted(RunPlan const& plan)
{
    m_planned = plan.entries;
    m_outcomes.reserve(plan.entries.size());
}

std::vector<JunitWriter::Suite> JunitWriter::suites() const
{
    std::vector<Suite> suites;
    std::unordered_map<std::string_view, std::size_t> indices;
    auto const suiteOf = [&](CatalogEntry const& entry) -> Suite& {
        auto const [it, isNew] = indices.try_emplace(entry.suiteName(), suites.size());
        if (isNew)
            suites.push_back(
                {.name = entry.suiteName(), .counts = {}, .seconds = 0.0, .outcomes = {}, .notRun = {}});
        return suites[it->second];
    };
    std::unordered_set<CatalogEntry const*> done;
    for (TestOutcome const& outcome : m_outcomes) {
        Suite& suite = suiteOf(*outcome.entry);
        suite.counts.add(outcome);
        suite.seconds += outcome.seconds;
        suite.outcomes.push_back(&outcome);
        done.insert(outcome.entry);
    }
    for (CatalogEntry const* const entry : m_planned)
        if (!done.contains(entry))
            suiteOf(*entry).notRun.push_back(entry);
    return suites;
}

std::string JunitWriter::report(RunSummary const& summary) const
{
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites name=\"vornbench\"";
    totals(xml, summary.counts, summary.notRun());
    seconds(xml, summary.seconds);
    xml += ">\n";
    for (Suite const& suite : suites()) {
        xml += "  <testsuite";
        attribute(xml, "name", suite.name);
        totals(xml, suite.counts, suite.notRun.size());
        seconds(xml, suite.seconds);
        xml += ">\n";
        for (TestOutcome const* const outcome : suite.outcomes)
            caseElement(xml, *outcome);
        for (CatalogEntry const* const entry : suite.notRun)
            notRunElement(xml, *entry);
        xml += "  </testsuite>\n";
    }
    return xml + "</testsuites>\n";
}

void JunitWriter::runEnded(RunSummary const& summary)
{
    try {
        ut::AtomicFile file(OdString::fromUtf8(m_path));
        file.write(report(summary));
        file.commit();
    } catch (OdError const& error) {
        m_error = error.what();
    }
}
