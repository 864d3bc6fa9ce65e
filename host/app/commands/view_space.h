#pragma once

#include "host/app/editor.h"
#include "host/db/od_db_database.h"

namespace ca {

/// Throws AnswerRejected while a sheet is the active space: views belong to model space.
inline void refuseOnSheet(Editor& editor)
{
    if (!editor.db().getTILEMODE())
        throw AnswerRejected(L"The view can be changed in model space only.");
}

} // namespace ca
