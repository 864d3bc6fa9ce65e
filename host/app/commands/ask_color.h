#pragma once

#include "host/app/editor.h"

#include <optional>

namespace ca {

/// The parts of a true color. Throws AnswerRejected for anything else.
Task<OdCmColor> askTrueColor(Editor& editor);

/// A color that entities can have, by the question given; nothing for Enter. Throws AnswerRejected.
Task<std::optional<OdCmColor>> askEntityColor(Editor& editor, OdString question, OdString present);

} // namespace ca
