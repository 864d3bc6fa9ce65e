#include "apps/vornbench/result_log.h"

#include "apps/vornbench/legal_text.h"
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

/// One JSON object on a line of its own.
class Record
{
public:
    Record(std::string_view key, std::string_view value) { text(key, value); }

    Record& text(std::string_view name, std::string_view value) { return raw(name, jsonString(value)); }
    Record& count(std::string_view name, std::size_t value) { return raw(name, std::to_string(value)); }
    Record& seconds(std::string_view name, double value) { return raw(name, numberText(value)); }
    Record& raw(std::string_view name, std::string const& json)
    {
        m_json += m_json.empty() ? "{" : ",";
        m_json.append("\"").append(name).append("\":").append(json);
        return *this;
    }
    Record& location(FileLocation const& place)
    {
        if (!place.file.empty())
            text("file", place.file).raw("line", std::to_string(place.line));
        return *this;
    }
    std::string object() const { return m_json + "}"; }

private:
    std::string m_json;
};

template <typename Item, typename Render>
std::string jsonArray(std::vector<Item> const& items, Render render)
{
    std::string json;
    for (Item const& item : items)
        json += (json.empty() ? "[" : ",") + render(item);
    return json.empty() ? "[]" : json + "]";
}

std::string failureObject(TestFailureRecord const& failure)
{
    Record record("kind", failure.isError ? "error" : "failure");
    record.location(failure.location).text("message", failure.summary);
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
    m_buffer += Record("event", "run")
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
    m_buffer += Record("event", "start").text("test", entry.name).object() + "\n";
    flush();
}

void ResultLog::testEnded(TestOutcome const& outcome)
{
    Record record("event", "end");
    record.text("test", outcome.entry->name).text("result", outcome.word()).seconds("seconds", outcome.seconds);
    if (outcome.body)
        record.seconds("bodySeconds", outcome.body->wall).seconds("bodyCpuSeconds", outcome.body->cpu);
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
    m_buffer += Record("event", "summary")
                    .count("passed", summary.counts.passed)
                    .count("failed", summary.counts.failed)
                    .count("errors", summary.counts.errors)
                    .count("notRun", summary.notRun())
                    .seconds("seconds", summary.seconds)
                    .raw("interrupted", summary.wasInterrupted ? "true" : "false")
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
