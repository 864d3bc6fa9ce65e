#include "host/app/commands/pline_arc.h"

#include "host/app/commands/arc_bulges.h"
#include "host/app/commands/new_entity.h"
#include "host/geom/od_ge_circle_build.h"

namespace ca {

namespace {

constexpr wchar_t const* kNoSweep = L"The included angle must not be zero or a full turn.";
constexpr wchar_t const* kNoSegment = L"No arc segment ends there.";

using Drawing = PlineDrawing const;

Task<double> askSweep(Editor& editor, Drawing& drawing)
{
    Answer const sweep =
        co_await editor.angle(Prompt(L"Specify included angle").base(drawing.worldEnd()).notZero());
    co_return orRefuse(bulgeOfSweep(sweep.real), kNoSweep);
}

Task<double> askRadius(Editor& editor, Drawing& drawing)
{
    Answer const radius =
        co_await editor.distance(Prompt(L"Specify radius of arc").base(drawing.worldEnd()).notZero());
    co_return radius.real;
}

Task<OdGePoint2d> askCenter(Editor& editor, Drawing& drawing)
{
    Answer const center = co_await editor.point(Prompt(L"Specify center point of arc").base(drawing.worldEnd()));
    OdGePoint2d const about = drawing.plane().toPlane(center.point);
    if (about.isEqualTo(drawing.end()))
        throw AnswerRejected(L"The center lies at the start of the arc.");
    co_return about;
}

PlineArc arcAbout(Drawing& drawing, OdGePoint2d const& center, double bulge)
{
    return {center + turned(drawing.end() - center, odgeSweepFromBulge(bulge)), bulge};
}

/// A segment cannot be a full circle: it ends where it begins.
PlineArc segmentOf(OdGeArcData2d const& arc)
{
    double const sweep = arc.isClockwise ? -arc.sweep() : arc.sweep();
    return {arc.endPoint(), orRefuse(bulgeOfSweep(sweep), kNoSegment)};
}

/// Sweep and radius leave open where the chord points; it goes on in the current direction unless told otherwise.
Task<PlineArc> askChordDirection(Editor& editor, Drawing& drawing, double bulge, double radius)
{
    double const current = drawing.plane().angleToUser(drawing.direction());
    Answer const answer = co_await editor.angle(Prompt(L"Specify direction of chord for arc")
                                                    .base(drawing.worldEnd())
                                                    .defaultText(odFormat(L"%g", odgeToDegrees(current))));
    OdGeVector2d const direction = drawing.plane().directionOf(answer.isNone() ? current : answer.real);
    double const chord = 2 * std::abs(radius * std::sin(odgeSweepFromBulge(bulge) / 2));
    PlineArc const arc{drawing.end() + direction * chord, bulge};
    co_return arc;
}

Task<PlineArc> askByAngle(Editor& editor, Drawing& drawing)
{
    double const bulge = co_await askSweep(editor, drawing);
    Answer const end = co_await editor.point(
        Prompt(L"Specify endpoint of arc or").keywords(L"CEnter Radius").base(drawing.worldEnd()));
    if (end.isKeyword(L"Radius")) {
        double const radius = co_await askRadius(editor, drawing);
        co_return co_await askChordDirection(editor, drawing, bulge, radius);
    }
    if (end.isKeyword()) {
        OdGePoint2d const center = co_await askCenter(editor, drawing);
        co_return arcAbout(drawing, center, bulge);
    }
    PlineArc const arc{drawing.plane().toPlane(end.point), bulge};
    co_return arc;
}

Task<PlineArc> askByCenter(Editor& editor, Drawing& drawing)
{
    OdGePoint2d const center = co_await askCenter(editor, drawing);
    Answer const end = co_await editor.point(
        Prompt(L"Specify endpoint of arc or").keywords(L"Angle Length").base(drawing.plane().toWorld(center)));
    if (end.isKeyword(L"Angle")) {
        double const bulge = co_await askSweep(editor, drawing);
        co_return arcAbout(drawing, center, bulge);
    }
    if (end.isKeyword()) {
        Answer const chord =
            co_await editor.distance(Prompt(L"Specify length of chord").base(drawing.worldEnd()).notZero());
        co_return segmentOf(orRefuse(odgeArcStartCenterChord(drawing.end(), center, chord.real),
                                     L"The chord is longer than the diameter of the arc."));
    }
    OdGePoint2d const to = drawing.plane().toPlane(end.point);
    co_return segmentOf(orRefuse(odgeArcStartCenterEnd(drawing.end(), center, to), kNoSegment));
}

Task<PlineArc> askByDirection(Editor& editor, Drawing& drawing)
{
    Answer const direction = co_await editor.angle(
        Prompt(L"Specify the tangent direction for the start point of arc").base(drawing.worldEnd()));
    Answer const end = co_await editor.point(Prompt(L"Specify endpoint of the arc").base(drawing.worldEnd()));
    OdGePoint2d const to = drawing.plane().toPlane(end.point);
    OdGeVector2d const tangent = drawing.plane().directionOf(direction.real);
    PlineArc const arc{to, orRefuse(odgeBulgeFromTangent(drawing.end(), tangent, to), kNoSegment)};
    co_return arc;
}

Task<PlineArc> askByRadius(Editor& editor, Drawing& drawing)
{
    double const radius = co_await askRadius(editor, drawing);
    Answer const end =
        co_await editor.point(Prompt(L"Specify endpoint of arc or").keywords(L"Angle").base(drawing.worldEnd()));
    if (end.isKeyword()) {
        double const bulge = co_await askSweep(editor, drawing);
        co_return co_await askChordDirection(editor, drawing, bulge, radius);
    }
    OdGePoint2d const to = drawing.plane().toPlane(end.point);
    PlineArc const arc{to, orRefuse(bulgeOfRadius(drawing.end(), to, radius),
                                    L"The points are farther apart than the diameter.")};
    co_return arc;
}

Task<PlineArc> askBySecondPoint(Editor& editor, Drawing& drawing)
{
    Answer const second = co_await editor.point(Prompt(L"Specify second point on arc").base(drawing.worldEnd()));
    Answer const end = co_await editor.point(Prompt(L"Specify end point of arc").base(second.point));
    OdGePoint2d const to = drawing.plane().toPlane(end.point);
    auto const bulge = odgeBulgeThroughPoint(drawing.end(), drawing.plane().toPlane(second.point), to);
    PlineArc const arc{to, orRefuse(bulge, L"The three points lie on a line.")};
    co_return arc;
}

struct ArcOption
{
    wchar_t const* keyword;
    Task<PlineArc> (*ask)(Editor&, Drawing&);
};
constexpr ArcOption kOptions[] = {{L"Angle", &askByAngle},
                                  {L"CEnter", &askByCenter},
                                  {L"Direction", &askByDirection},
                                  {L"Radius", &askByRadius},
                                  {L"Second", &askBySecondPoint}};

} // namespace

double tangentBulge(PlineDrawing const& drawing, OdGePoint2d const& end)
{
    return orRefuse(odgeBulgeFromTangent(drawing.end(), drawing.direction(), end), kNoSegment);
}

Task<PlineArc> askPlineArc(Editor& editor, PlineDrawing const& drawing, OdString option)
{
    for (ArcOption const& each : kOptions)
        if (option == each.keyword)
            co_return co_await each.ask(editor, drawing);
    throw OdError(eInvalidInput, L"Unknown option of an arc segment: " + option);
}

} // namespace ca
