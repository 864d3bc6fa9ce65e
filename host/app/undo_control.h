#pragma once

namespace ca {

enum class EUndoLimit
{
    kAll,
    kNone, ///< commands start no records
    kOne   ///< the last command alone can be taken back
};

/// How much of what commands do can be taken back in a document.
struct UndoControl
{
    EUndoLimit limit = EUndoLimit::kAll;
    /// Commands in a row that change the view alone are one step for U.
    bool combinesViews = true;
};

} // namespace ca
