#include "host/app/two_points.h"

namespace ca {

namespace {

/// From the first point, which is the answer so far, to a second one.
Task<OdGeVector3d> askWay(Editor& editor, Answer first)
{
    editor.setLastPoint(first.point);
    Answer const second = co_await editor.point(Prompt(L"Specify second point").base(first.point));
    co_return second.point - first.point;
}

void refuseBeyondLimits(Prompt const& prompt, double number)
{
    if (OdString const refusal = prompt.refusal(number); !refusal.isEmpty())
        throw AnswerRejected(refusal);
}

} // namespace

Task<Answer> askDistance(Editor& editor, Prompt prompt)
{
    Answer answer = co_await editor.distance(prompt.twoPoints());
    if (answer.isValue() && answer.hasPoint) {
        OdGeVector3d const way = co_await askWay(editor, answer);
        answer.real = way.length();
        refuseBeyondLimits(prompt, answer.real);
    }
    co_return answer;
}

Task<Answer> askAngle(Editor& editor, Prompt prompt)
{
    Answer answer = co_await editor.angle(prompt.twoPoints());
    if (answer.isValue() && answer.hasPoint) {
        OdGeVector3d const way = co_await askWay(editor, answer);
        OdGeVector2d const flat = (editor.ucsToWorld().inverse() * way).convert2d();
        if (flat.isZeroLength())
            throw AnswerRejected(L"The two points are the same.");
        answer.real = flat.angle();
        refuseBeyondLimits(prompt, answer.real);
    }
    co_return answer;
}

} // namespace ca
