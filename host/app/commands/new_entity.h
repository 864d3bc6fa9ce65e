#pragma once

#include "host/app/editor.h"
#include "host/db/od_db_database.h"

#include <optional>

namespace ca {

/// The value, or the refusal of the answers that led to none.
template <class T>
T orRefuse(std::optional<T> const& value, wchar_t const* reason)
{
    if (!value)
        throw AnswerRejected(reason);
    return *value;
}

/// Appends a new entity that the current thickness extrudes.
template <class T>
OdDbObjectId appendNew(Editor& editor, OdSmartPtr<T> const& entity)
{
    if (double const thickness = editor.db().header().real("THICKNESS"); thickness != 0)
        entity->setThickness(thickness);
    return editor.append(entity);
}

} // namespace ca
