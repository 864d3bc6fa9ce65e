#include "apps/vornbench/data_file_warnings.h"

#include "apps/vornbench/failure_location.h"
#include "apps/vornbench/test_outcome.h"

#include <algorithm>
#include <utility>

std::vector<std::string> DataFileWarnings::take()
{
    return std::exchange(m_new, {});
}

void DataFileWarnings::noted(ta::DataFileNote const& note)
{
    FileLocation const location{shownPath(note.file.toUtf8()), std::max(note.line, 1)};
    std::string warning = location.text() + ": warning: " + note.text.toUtf8();
    if (m_told.insert(warning).second)
        m_new.push_back(std::move(warning));
}
