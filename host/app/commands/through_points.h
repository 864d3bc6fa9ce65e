#pragma once

#include "host/app/editor.h"

namespace ca {

/// Draws an endless curve from `base` through each point that the user gives until Enter: Curve is OdDbRay or
/// OdDbXline. A point at the base is refused.
template <class Curve>
Task<> drawThroughPoints(Editor& editor, OdGePoint3d base)
{
    for (;;) {
        Answer const through = co_await editor.point(Prompt(L"Specify through point").base(base).allowEnter());
        if (through.isNone())
            co_return;
        if (through.point.isEqualTo(base))
            throw AnswerRejected(L"The two points are the same.");
        editor.append(OdSmartPtr<Curve>(new Curve(base, through.point - base)));
    }
}

} // namespace ca
