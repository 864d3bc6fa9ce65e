#pragma once

#include "host/root/od_error.h"

/// The code of the error that the call throws; eOk when it throws none.
template <class Call>
OdResult odResultOf(Call const& call)
{
    try {
        call();
    } catch (OdError const& error) {
        return error.code();
    }
    return eOk;
}
