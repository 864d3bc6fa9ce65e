#pragma once

#include "host/app/commands/pline_drawing.h"

namespace ca {

/// The next segment of a polyline.
struct PlineArc
{
    OdGePoint2d end;
    double bulge = 0;
};

/// The bulge of the arc that continues the polyline smoothly to a point. Throws AnswerRejected where none does.
double tangentBulge(PlineDrawing const& drawing, OdGePoint2d const& end);

/// The option of PLINE's arc mode that asks for an arc in its own way: "Angle", "CEnter", "Direction", "Radius" or
/// "Second". Answers that give no arc are refused.
Task<PlineArc> askPlineArc(Editor& editor, PlineDrawing const& drawing, OdString option);

} // namespace ca
