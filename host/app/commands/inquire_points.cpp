// ID and DIST: where points are, and how far they are from each other.
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/app/inquiry_results.h"
#include "host/app/unit_format.h"
#include "host/db/od_db_database.h"
#include "host/geom/od_ge_angle.h"

namespace ca {

namespace {

Task<> idCommand(Editor& editor)
{
    Answer const answer = co_await editor.point(Prompt(L"Specify point"));
    UnitFormat const format = unitFormatOf(editor.db());
    OdGePoint3d const p = editor.ucsToWorld().inverse() * answer.point;
    editor.message(L"X = " + distanceText(p.x, format) + L"     Y = " + distanceText(p.y, format) + L"     Z = " +
                   distanceText(p.z, format));
}

void reportDistance(Editor& editor, OdGeVector3d const& way)
{
    UnitFormat const format = unitFormatOf(editor.db());
    OdGeVector3d const v = editor.ucsToWorld().inverse() * way;
    double const length = way.length();
    double const rise = std::atan2(v.z, v.convert2d().length());
    rememberInquiry(editor, kDistance, length);
    editor.message(L"Distance = " + distanceText(length, format) + L",  Angle in XY Plane = " +
                   angleText(v.convert2d().angle(), format) + L",  Angle from XY Plane = " +
                   turnText(odgeFoldAngle(rise), format));
    editor.message(L"Delta X = " + distanceText(v.x, format) + L",  Delta Y = " + distanceText(v.y, format) +
                   L",  Delta Z = " + distanceText(v.z, format));
}

/// A point of a chain, and how long the chain is up to it.
struct Station
{
    OdGePoint3d point;
    double length;
};

void reportTotal(Editor& editor, double length)
{
    rememberInquiry(editor, kDistance, length);
    editor.message(L"Distance = " + distanceText(length, unitFormatOf(editor.db())));
}

void removeLast(Editor& editor, std::vector<Station>& chain)
{
    if (chain.size() == 1) {
        editor.message(L"All points already undone.");
        return;
    }
    chain.pop_back();
    editor.setLastPoint(chain.back().point);
}

/// The distance along a chain of points, which grows until the user has the total.
Task<> measureChain(Editor& editor, OdGePoint3d first)
{
    std::vector<Station> chain(1, Station{first, 0});
    for (;;) {
        Answer const next = co_await editor.point(Prompt(L"Specify next point or")
                                                      .keywords(L"Undo Total")
                                                      .defaultText(L"Total")
                                                      .base(chain.back().point));
        if (next.isValue())
            chain.push_back({next.point, chain.back().length + chain.back().point.distanceTo(next.point)});
        else if (next.isKeyword(L"Undo"))
            removeLast(editor, chain);
        reportTotal(editor, chain.back().length);
        if (next.isNone() || next.isKeyword(L"Total"))
            co_return;
    }
}

Task<> distCommand(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first point"));
    Answer const second =
        co_await editor.point(Prompt(L"Specify second point or").keywords(L"Multiple").base(first.point));
    if (second.isKeyword())
        co_await measureChain(editor, first.point);
    else
        reportDistance(editor, second.point - first.point);
}

constexpr CommandDef s_commands[] = {
    {L"ID", L"", kNoUndoRecord | kTransparent, &idCommand},
    {L"DIST", L"DI", kNoUndoRecord | kTransparent, &distCommand},
};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
