#pragma once

/// What the program returns to the shell.
enum class ExitCode
{
    AllPassed = 0,
    SomeFailed = 1,
    Interrupted = 2,
    InternalError = 3,
    Usage = 4, ///< command line or configuration
    NothingSelected = 5,

    // The same numbers for commands on drawings.
    FilesFine = 0,
    FilesDamaged = 1, ///< something was mended, left out or found
    DrawingsEqual = 0,
    DrawingsDiffer = 1,
    FileUnusable = 4 ///< could not be opened or saved
};
