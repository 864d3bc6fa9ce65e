#pragma once

#include <stdexcept>

/// What the command line asks for cannot be done; what() says why, for the user.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
