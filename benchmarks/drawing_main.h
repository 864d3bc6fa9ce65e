#pragma once

#include "host/root/od_string.h"

#include <cstdio>
#include <exception>

/// The main function of a program that measures one drawing; the exit code.
inline int measureDrawing(int argc, char** argv, char const* program, void (*measure)(OdString const& path))
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DRAWING\n", program);
        return 2;
    }
    try {
        measure(OdString::fromUtf8(argv[1]));
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
