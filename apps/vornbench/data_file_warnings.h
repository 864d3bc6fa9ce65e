#pragma once

#include "host/ut/ut_scoped_replacement.h"
#include "testapi/ta_data_file_observer.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// Hears, as long as it lives, what tests leave out of their data files in silence, and makes warnings of it.
class DataFileWarnings : private ta::DataFileObserver
{
public:
    DataFileWarnings() : m_installed(*this) {}
    DataFileWarnings(DataFileWarnings const&) = delete;
    DataFileWarnings& operator=(DataFileWarnings const&) = delete;

    /// What came up since the last call, each "file:line: warning: text" in UTF-8. A file that is read several
    /// times is warned of once; of what one file says over and over again some lines are told and the rest
    /// counted.
    std::vector<std::string> take();

private:
    /// The lines of one text in one file.
    struct Lines
    {
        std::set<int> told;
        std::size_t countedOnly = 0;
    };
    using Key = std::pair<std::string, std::string>; ///< file and text

    void noted(ta::DataFileNote const& note) override;

    std::vector<std::string> m_new;
    std::map<Key, Lines> m_lines;
    ut::ScopedReplacement<ta::DataFileObserver> m_installed;
};
