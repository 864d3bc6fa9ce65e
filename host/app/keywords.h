#pragma once

#include "host/root/od_string.h"

namespace ca {

/// Matches an answer with the keywords of a prompt, which stand in one text separated by blanks. The capital
/// letters of a keyword are its abbreviation ("LOck": LO). An answer counts when it is the abbreviation, or a
/// beginning of the keyword not shorter than an abbreviation that stands in front, or the whole word; case and a
/// leading "_" do not matter. Returns the keyword as it is spelled in the list, or an empty text.
OdString matchKeyword(OdString const& keywords, OdString const& answer);

/// The list as a prompt shows it: "[Close/Undo]"; empty for an empty list.
OdString keywordsForPrompt(OdString const& keywords);

} // namespace ca
