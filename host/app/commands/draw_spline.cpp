// SPLINE: a smooth curve through points, or made of fitted polylines. It is drawn when all is known.
#include "host/app/command_registry.h"
#include "host/app/commands/ask_number.h"
#include "host/app/commands/spline_conversion.h"
#include "host/db/entities/od_db_spline.h"

namespace ca {

namespace {

struct SplineDraft
{
    std::vector<OdGePoint3d> points;
    double fitTolerance = 0;
    bool isClosed = false;
};

/// Closing takes three points, an end two; the options have blanks in them, so the line is given whole.
Prompt nextPointPrompt(std::vector<OdGePoint3d> const& points)
{
    OdString line = L"Specify next point";
    OdString keywords = L"Undo";
    if (points.size() >= 2) {
        bool const canClose = points.size() >= 3;
        line += canClose ? L" or [Close/Fit tolerance] <start tangent>" : L" or [Fit tolerance] <start tangent>";
        keywords += canClose ? L" Close Fit" : L" Fit";
    }
    Prompt prompt(line);
    prompt.hiddenKeywords(keywords).base(points.back());
    if (points.size() >= 2)
        prompt.allowEnter();
    return prompt;
}

void undoPoint(Editor& editor, SplineDraft& draft)
{
    if (draft.points.size() == 1) {
        editor.message(L"All points already undone.");
        return;
    }
    draft.points.pop_back();
    editor.setLastPoint(draft.points.back());
}

Task<> askPoints(Editor& editor, SplineDraft& draft)
{
    for (;;) {
        Answer const next = co_await editor.point(nextPointPrompt(draft.points));
        if (next.isNone())
            co_return;
        if (next.isKeyword(L"Close")) {
            draft.isClosed = true;
            co_return;
        }
        if (next.isKeyword(L"Fit"))
            draft.fitTolerance =
                co_await askDistance(editor, Prompt(L"Specify fit tolerance").atLeast(0), draft.fitTolerance);
        else if (next.isKeyword())
            undoPoint(editor, draft);
        else if (next.point.isEqualTo(draft.points.back()))
            editor.message(L"The point is the last one again; it is left out.");
        else
            draft.points.push_back(next.point);
    }
}

/// Zero where Enter leaves the end as it comes.
Task<OdGeVector3d> askTangent(Editor& editor, OdString question, OdGePoint3d end)
{
    Answer const answer = co_await editor.point(Prompt(question).base(end).allowEnter());
    co_return answer.isNone() ? OdGeVector3d() : answer.point - end;
}

/// A closed curve comes back to its first point. Given a direction there, it does so as an open one, since a
/// periodic curve chooses its own.
Task<> drawClosed(Editor& editor, SplineDraft& draft)
{
    OdGeVector3d const tangent = co_await askTangent(editor, L"Specify tangent", draft.points.front());
    bool const isFree = tangent.isZeroLength();
    if (!isFree)
        draft.points.push_back(OdGePoint3d(draft.points.front()));
    OdDbSplinePtr const spline(new OdDbSpline);
    OdGePoint3dArray const points(draft.points.begin(), draft.points.end());
    spline->setFitData(points, tangent, tangent, 3, draft.fitTolerance, isFree);
    editor.append(spline);
}

Task<> drawOpen(Editor& editor, SplineDraft const& draft)
{
    OdGeVector3d const start = co_await askTangent(editor, L"Specify start tangent", draft.points.front());
    OdGeVector3d const end = co_await askTangent(editor, L"Specify end tangent", draft.points.back());
    OdDbSplinePtr const spline(new OdDbSpline);
    OdGePoint3dArray const points(draft.points.begin(), draft.points.end());
    spline->setFitData(points, start, end, 3, draft.fitTolerance);
    editor.append(spline);
}

Task<> splineCommand(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first point or").keywords(L"Object"));
    if (first.isKeyword()) {
        co_await convertToSplines(editor);
        co_return;
    }
    SplineDraft draft;
    draft.points.push_back(first.point);
    co_await askPoints(editor, draft);
    if (draft.isClosed)
        co_await drawClosed(editor, draft);
    else
        co_await drawOpen(editor, draft);
}

constexpr CommandDef s_commands[] = {{L"SPLINE", L"SPL", kPlain, &splineCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
