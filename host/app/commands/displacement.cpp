#include "host/app/commands/displacement.h"

namespace ca {

OdGeVector3d displacementOf(Editor const& editor, OdGePoint3d const& point)
{
    return point - editor.ucsToWorld() * OdGePoint3d();
}

Task<OdGeVector3d> askDisplacement(Editor& editor)
{
    Answer const answer = co_await editor.point(Prompt(L"Specify displacement").defaultText(L"0,0,0"));
    co_return answer.isNone() ? OdGeVector3d() : displacementOf(editor, answer.point);
}

Task<OdGeVector3d> askWay(Editor& editor)
{
    Answer const base = co_await editor.point(
        Prompt(L"Specify base point or").keywords(L"Displacement").defaultText(L"Displacement"));
    if (!base.isValue()) {
        OdGeVector3d const displacement = co_await askDisplacement(editor);
        co_return displacement;
    }
    Answer const second = co_await editor.point(
        Prompt(L"Specify second point or").defaultText(L"use first point as displacement").base(base.point));
    co_return second.isValue() ? second.point - base.point : displacementOf(editor, base.point);
}

} // namespace ca
