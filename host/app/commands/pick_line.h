#pragma once

#include "host/app/editor.h"

namespace ca {

/// A straight line that the user pointed at: the whole of a line, ray or construction line, or a segment of a
/// polyline.
struct PickedLine
{
    OdGePoint3d point;      ///< on the line
    OdGeVector3d direction; ///< unit vector
};

/// Asks for one; nothing when Enter answered. Throws AnswerRejected for what is no line.
Task<std::optional<PickedLine>> pickLine(Editor& editor, Prompt prompt);

} // namespace ca
