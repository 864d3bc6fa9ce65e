#pragma once

#include "host/db/records/od_db_symbol_table.h"

#include <vector>

namespace ca {

// Lists of names as commands ask for them: names and patterns with "*" and "?", separated by commas, in any case.

/// The names and patterns of a list, without blanks around them; empty ones are left out.
std::vector<OdString> namesOfList(OdString const& list);

/// The records that a list names, in its order, each once. Throws AnswerRejected when it names none at all, or
/// something that is not there; `what` says what kind of thing that is: "Layer".
std::vector<OdDbObjectId> recordsOfList(OdDbSymbolTable const& table, OdString const& list, wchar_t const* what);

/// Whether a list names this.
bool isInList(OdString const& name, OdString const& list);

} // namespace ca
