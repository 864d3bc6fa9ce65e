#include "apps/vornbench/failure_location.h"

#include "host/root/od_string.h"

#include "vorntest/config_error.h"
#include "vorntest/xml_source.h"

#include <cppunit/Exception.h>

#include <algorithm>
#include <charconv>
#include <filesystem>

namespace {

/// A detail of a failure that ends in PATH:LINE.
struct PlaceForm
{
    std::string_view begin;
    std::string_view beforePath;
};

constexpr PlaceForm placeForms[] = {
    {"Operation '", "' at "}, // a command test adds its operation to each failure
    {"Compared at ", "at "},  // a comparison of entities adds where it was called
};

FileLocation locationIn(std::string_view detail, PlaceForm const& form)
{
    std::size_t const place = detail.find(form.beforePath);
    std::size_t const colon = detail.rfind(':');
    if (!detail.starts_with(form.begin) || place == std::string_view::npos || colon == std::string_view::npos ||
        colon < place + form.beforePath.size())
        return {};
    int line = 0;
    char const* const end = detail.data() + detail.size();
    auto const [stop, error] = std::from_chars(detail.data() + colon + 1, end, line);
    if (error != std::errc() || stop != end || line <= 0)
        return {};
    std::size_t const pathBegin = place + form.beforePath.size();
    return {shownPath(std::string(detail.substr(pathBegin, colon - pathBegin))), line};
}

// Nested operations add their lines from the inside out; the innermost is the one that failed.
FileLocation innermostLocation(std::vector<std::string> const& details)
{
    for (std::string const& detail : details)
        for (PlaceForm const& form : placeForms)
            if (FileLocation location = locationIn(detail, form); !location.file.empty())
                return location;
    return {};
}

std::string withoutLastLineEnd(std::string text)
{
    if (text.ends_with('\n'))
        text.pop_back();
    return text;
}

/// Line of the first fault of an XML file that is not well formed, else 1.
int faultLine(std::wstring const& path)
{
    try {
        vorntest::XmlSource const source(path);
    } catch (vorntest::ConfigError const& error) {
        return std::max(error.line(), 1);
    }
    return 1;
}

} // namespace

TestFailureRecord failureRecord(CppUnit::TestFailure const& failure, CatalogEntry const& entry)
{
    TestFailureRecord record;
    record.isError = failure.isError();
    CppUnit::Message const message = failure.thrownException()->message();
    record.summary = message.shortDescription();
    for (int i = 0; i < message.detailCount(); ++i)
        record.details.push_back(withoutLastLineEnd(message.detailAt(i)));
    if (CppUnit::SourceLine const line = failure.sourceLine(); line.isValid())
        record.source = {line.fileName(), line.lineNumber()};
    record.location = innermostLocation(record.details);
    if (record.location.file.empty()) {
        record.location = testLocation(entry);
        if (!record.location.file.empty())
            record.location.line = faultLine(*entry.argument);
    }
    if (record.location.file.empty())
        record.location = {shownPath(record.source.file), record.source.line};
    return record;
}

FileLocation testLocation(CatalogEntry const& entry)
{
    if (!entry.argument || entry.argument->empty())
        return {};
    return {shownPath(odWideToUtf8(*entry.argument)), 1};
}

std::string shownPath(std::string const& path)
{
    std::error_code error;
    std::string const folder = std::filesystem::current_path(error).string() + "/";
    bool const isBelow = !error && folder.size() > 1 && path.starts_with(folder);
    return isBelow ? path.substr(folder.size()) : path;
}
