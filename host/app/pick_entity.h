#pragma once

#include "host/app/editor.h"

namespace ca {

/// One entity that the user points at, or gives by name or as a selection set.
struct PickedEntity
{
    OdDbObjectId id; ///< null where Enter or a keyword answered
    Answer answer;   ///< `point` is where it was picked, if `hasPoint`
};

/// Asks for one entity of the active space; "Last" answers too. Throws AnswerRejected where there is none.
Task<PickedEntity> pickEntity(Editor& editor, Prompt prompt);

/// Throws AnswerRejected for an entity that cannot be changed because of its layer.
void refuseLocked(OdDbObjectId entity);

} // namespace ca
