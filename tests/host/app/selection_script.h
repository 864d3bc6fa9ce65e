#pragma once

#include "tests/host/app/draw_script.h"

#include "host/db/od_db_object_id.h"

/// Object selections written as the answers of a drawer, and what they select: one letter for each entity, by its
/// place in model space; those of erased entities count too, so that others keep theirs.
class SelectionScriptTest : public DrawScriptTest
{
protected:
    struct SelectionCase
    {
        wchar_t const* answers;
        char const* selected; ///< in order of selection
    };

    static void check(std::vector<SelectionCase> const& cases);
    /// Letters of the previous selection.
    static std::string letters();
    /// Entities of model space that are not erased.
    static std::vector<OdDbObjectId> entities();
    /// The line above the open prompt.
    static std::string messageBefore();
};
