#pragma once

#include "host/app/editor.h"

namespace ca {

/// The end at which LINE and ARC draw on when Enter answers their first prompt.
struct DrawnEnd
{
    OdGePoint3d point;
    OdGeVector3d direction; ///< unit vector out of the curve; zero for a line without length
    bool isCurved = false;
};

/// The end of the last line, arc or open polyline of the active space. An arc ends where it was drawn to as long
/// as the last point lies there, else at its end point. Throws AnswerRejected when there is none.
DrawnEnd drawnEndToContinue(Editor& editor);

/// A curve was drawn up to this point: the last point and the last angle of the document.
void rememberEnd(Editor& editor, OdGePoint3d const& point, OdGeVector3d const& direction);

} // namespace ca
