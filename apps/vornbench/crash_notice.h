#pragma once

/// While it lives, names the running test on standard error when the program crashes; the crash then takes its
/// usual course.
class CrashNotice
{
public:
    CrashNotice();
    ~CrashNotice();
    CrashNotice(CrashNotice const&) = delete;
    CrashNotice& operator=(CrashNotice const&) = delete;
};
