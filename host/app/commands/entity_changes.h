#pragma once

#include "host/app/editor.h"

#include <vector>

namespace ca {

using Ids = std::vector<OdDbObjectId>;

/// What an editing command does to each of its entities.
struct Transformation
{
    OdGeMatrix3d matrix;
    bool keepsTextsReadable = false; ///< texts that would come out mirrored read as before, in the same place

    Transformation(OdGeMatrix3d const& map) : matrix(map) {}

    /// As OdDbEntity::transformBy.
    OdResult applyTo(OdDbEntity& entity) const;
};

/// Says how many entities could not be `done` ("moved"); nothing for none.
void reportLeft(Editor& editor, std::size_t count, wchar_t const* done);

/// Changes the entities and says how many could not be `done`.
void transformAll(Editor& editor, Ids const& ids, Transformation const& transformation, wchar_t const* done);
/// Appends changed copies to the active space and says how many could not be made; the copies.
Ids copyAll(Editor& editor, Ids const& ids, Transformation const& transformation);
/// Copies at each of the places, the message for all together.
void copyToPlaces(Editor& editor, Ids const& ids, std::vector<OdGeMatrix3d> const& places);
/// The one or the other, for commands with the option Copy.
void transformOrCopy(Editor& editor, Ids const& ids, Transformation const& transformation, bool isCopying,
                     wchar_t const* done);

/// Appends an entity to the block of another one that it comes from, with the properties that it has.
OdDbObjectId appendBeside(OdDbEntity const& source, OdDbEntityPtr const& entity);

void eraseAll(Ids const& ids);
/// Brings back what was erased.
void restoreAll(Ids const& ids);

} // namespace ca
