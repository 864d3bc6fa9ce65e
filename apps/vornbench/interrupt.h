#pragma once

/// While it lives, the first Ctrl+C (SIGINT, SIGTERM) asks for an orderly end, which isRequested() tells; the
/// second ends the program at once.
class InterruptGuard
{
public:
    InterruptGuard();
    ~InterruptGuard();
    InterruptGuard(InterruptGuard const&) = delete;
    InterruptGuard& operator=(InterruptGuard const&) = delete;

    static bool isRequested();
};
