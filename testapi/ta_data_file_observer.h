#pragma once

// For programs that run tests and want to tell people what reading data files (ta_test_data_fixture.h) and
// parameters files (ta_test_case_arg.h) leaves out in silence.

#include "testapi/ta_host.h"

namespace ta {

/// One thing in a data or parameters file that was left out.
struct DataFileNote
{
    OdString file;
    int line = 0;  ///< 1-based; 0 for the file as a whole
    OdString text; ///< what and why, without full stop: "TestOdGeCircArc2d could not be read, left out"
};

/// Hears of each element of a data file that is left out because it is no known class of data or could not read
/// itself, of attributes, text and elements in data and parameters files that nobody looks at, and of files that
/// cannot be read at all; not of data that a filter rejects, since that is what the caller asked for. Put in place
/// with ut::ScopedReplacement<DataFileObserver>. No test sees any difference.
class DataFileObserver
{
public:
    virtual ~DataFileObserver() = default;
    virtual void noted(DataFileNote const& note) = 0;

    /// Null when nobody is interested.
    static DataFileObserver* current();
    /// Null is nobody; returns what was installed before.
    static DataFileObserver* install(DataFileObserver* observer);
};

} // namespace ta
