#pragma once

#include "host/ut/ut_scoped_replacement.h"
#include "testapi/ta_data_file_observer.h"

#include <string>
#include <unordered_set>
#include <vector>

/// Hears, as long as it lives, what tests leave out of their data files in silence, and makes warnings of it.
class DataFileWarnings : private ta::DataFileObserver
{
public:
    DataFileWarnings() : m_installed(*this) {}
    DataFileWarnings(DataFileWarnings const&) = delete;
    DataFileWarnings& operator=(DataFileWarnings const&) = delete;

    /// What came up since the last call, each "file:line: warning: text" in UTF-8. A file that is read several
    /// times is warned of once.
    std::vector<std::string> take();

private:
    void noted(ta::DataFileNote const& note) override;

    std::vector<std::string> m_new;
    std::unordered_set<std::string> m_told;
    ut::ScopedReplacement<ta::DataFileObserver> m_installed;
};
