#include "apps/vornbench/result_log.h"

#include "apps/vornbench/json_object.h"
#include "apps/vornbench/usage_error.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <ctime>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace {

std::string numberText(double value)
{
    char text[32];
    auto const [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 6);
    return std::string(text, end);
}

JsonObject& addLocation(JsonObject& object, FileLocation const& place)
{
    return place.file.empty() ? object : object.text("file", place.file).raw("line", std::to_string(place.line));
}

std::string failureObject(TestFailureRecord const& failure)
{
    JsonObject record("kind", failure.isError ? "error" : "failure");
    addLocation(record, failure.location).text("message", failure.summary);
    record.raw("details", jsonArray(failure.details, jsonString));
    if (!failure.source.file.empty())
        record.text("source", failure.source.text());
    return record.object();
}

std::string nowText()
{
    std::time_t const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm parts{};
    gmtime_r(&now, &parts);
    char text[32];
    std::size_t const length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
    return std::string(text, length);
}

} // namespace

ResultLog::ResultLog(std::string path)
    : m_path(std::move(path)), m_file(open(m_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666))
{
    if (m_file < 0)
        throw UsageError("cannot write " + m_path + ": " + std::generic_category().message(errno));
}

ResultLog::~ResultLog()
{
    close(m_file);
}

void ResultLog::runStarted(RunPlan const& plan)
{
    m_buffer += JsonObject("event", "run")
                    .text("config", plan.config)
                    .text("time", nowText())
                    .count("selected", plan.selected)
                    .count("total", plan.total)
                    .object() +
                "\n";
    flush();
}

void ResultLog::testStarted(CatalogEntry const& entry)
{
    m_buffer += JsonObject("event", "start").text("test", entry.name).object() + "\n";
    flush();
}

void ResultLog::testEnded(TestOutcome const& outcome)
{
    JsonObject record("event", "end");
    record.text("test", outcome.entry->name)
        .text("result", outcome.word())
        .raw("seconds", numberText(outcome.seconds));
    if (outcome.body)
        record.raw("bodySeconds", numberText(outcome.body->wall))
            .raw("bodyCpuSeconds", numberText(outcome.body->cpu));
    if (!outcome.failures.empty())
        record.raw("failures", jsonArray(outcome.failures, failureObject));
    if (!outcome.commandLine.empty())
        record.raw("commandLine", jsonArray(outcome.commandLine, jsonString));
    if (!outcome.leftovers.empty())
        record.raw("leftovers", jsonArray(outcome.leftovers, jsonString));
    m_buffer += record.object() + "\n"; // goes out with the next start record
}

void ResultLog::runEnded(RunSummary const& summary)
{
    m_buffer += JsonObject("event", "summary")
                    .count("passed", summary.counts.passed)
                    .count("failed", summary.counts.failed)
                    .count("errors", summary.counts.errors)
                    .count("notRun", summary.notRun())
                    .raw("seconds", numberText(summary.seconds))
                    .flag("interrupted", summary.wasInterrupted)
                    .object() +
                "\n";
    flush();
}

void ResultLog::flush()
{
    std::string_view rest = m_buffer;
    while (!rest.empty() && m_error.empty()) {
        ssize_t const written = write(m_file, rest.data(), rest.size());
        if (written >= 0)
            rest.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            m_error = "cannot write " + m_path + ": " + std::generic_category().message(errno);
    }
    m_buffer.clear();
}
