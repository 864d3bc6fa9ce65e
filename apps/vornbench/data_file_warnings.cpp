#include "apps/vornbench/data_file_warnings.h"

#include "apps/vornbench/failure_location.h"
#include "apps/vornbench/test_outcome.h"

#include <algorithm>

namespace {

constexpr std::size_t mostLines = 10;

std::string warning(FileLocation const& location, std::string const& text)
{
    return location.text() + ": warning: " + text;
}

} // namespace

std::vector<std::string> DataFileWarnings::take()
{
    for (auto& [key, lines] : m_lines)
        if (std::size_t const more = std::exchange(lines.countedOnly, 0); more > 0)
            m_new.push_back(warning({key.first, *lines.told.rbegin()},
                                    key.second + " (and " + std::to_string(more) + " more)"));
    return std::exchange(m_new, {});
}

void DataFileWarnings::noted(ta::DataFileNote const& note)
{
    FileLocation const location{shownPath(note.file.toUtf8()), std::max(note.line, 1)};
    std::string const text = note.text.toUtf8();
    Lines& lines = m_lines[{location.file, text}];
    if (!lines.told.insert(location.line).second)
        return;
    if (lines.told.size() <= mostLines)
        m_new.push_back(warning(location, text));
    else
        ++lines.countedOnly;
}
