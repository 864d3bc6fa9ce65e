#include "host/app/commands/array_polar.h"

#include "host/app/commands/base_point.h"
#include "host/app/sys_var.h"

#include <cmath>

namespace ca {

namespace {

struct PolarArray
{
    OdGePoint3d center;
    OdGePoint3d base; ///< goes round where objects keep their direction
    std::int64_t items = 0;
    double step = 0; ///< from one item to the next, counterclockwise
    bool rotates = true;
};

Task<PolarArray> askCenter(Editor& editor, Ids const& ids)
{
    PolarArray array;
    Answer const center = co_await editor.point(Prompt(L"Specify center point of array or").keywords(L"Base"));
    if (center.isKeyword()) {
        Answer const base = co_await editor.point(Prompt(L"Specify the base point of objects"));
        array.base = base.point;
        Answer const second = co_await editor.point(Prompt(L"Specify center point of array").base(base.point));
        array.center = second.point;
    } else {
        array.center = center.point;
        array.base = basePointOf(*ids.back().open<OdDbEntity>());
    }
    co_return array;
}

/// How many items fill an angle; of a full circle the last one would lie on the first.
std::int64_t itemsWithin(double fill, double between)
{
    constexpr double kRounding = 1e-9;
    bool const isFull = std::abs(fill) >= Oda2PI - kRounding;
    double const steps = std::floor(std::abs(fill / between) + kRounding);
    constexpr double kMost = 1e9;
    return static_cast<std::int64_t>(std::min(steps, kMost)) + (isFull ? 0 : 1);
}

Task<double> askBetween(Editor& editor, OdGePoint3d center)
{
    Answer const answer = co_await editor.angle(Prompt(L"Specify angle between items").base(center).notZero());
    co_return answer.real;
}

/// Two of number, angle to fill and angle between items say the third.
Task<> askSteps(Editor& editor, PolarArray& array)
{
    Answer const number =
        co_await editor.integer(Prompt(L"Enter the number of items in the array").allowEnter().atLeast(2));
    Prompt prompt(L"Specify the angle to fill (+=ccw, -=cw)");
    prompt.defaultText(L"360").base(array.center).atLeast(-Oda2PI).atMost(Oda2PI);
    if (number.isNone())
        prompt.notZero();
    Answer const answer = co_await editor.angle(prompt);
    double const fill = answer.isNone() ? Oda2PI : answer.real;
    array.items = number.integer;
    if (number.isNone() || fill == 0) {
        double const between = co_await askBetween(editor, array.center);
        array.step = std::copysign(between, fill == 0 ? between : fill);
        if (number.isNone())
            array.items = itemsWithin(fill, between);
        co_return;
    }
    bool const isFull = std::abs(fill) == Oda2PI;
    array.step = fill / static_cast<double>(isFull ? array.items : array.items - 1);
}

Task<bool> askRotating(Editor& editor)
{
    Answer const answer =
        co_await editor.keyword(Prompt(L"Rotate arrayed objects?").keywords(L"Yes No").defaultText(L"Y"));
    co_return !answer.isKeyword(L"No");
}

} // namespace

void refuseLargeArray(Editor& editor, double elements, std::size_t objects)
{
    int const most = std::get<int>(SysVar::find(L"MAXARRAY")->value(&editor.doc()));
    if ((elements - 1) * static_cast<double>(objects) > most)
        throw AnswerRejected(odFormat(L"The array would have more than %d objects (MAXARRAY).", most));
}

Task<> arrayPolar(Editor& editor, Ids ids)
{
    PolarArray array = co_await askCenter(editor, ids);
    co_await askSteps(editor, array);
    if (array.items < 2)
        throw AnswerRejected(L"An array of one element: nothing to do.");
    refuseLargeArray(editor, static_cast<double>(array.items), ids.size());
    array.rotates = co_await askRotating(editor);
    OdGeVector3d const axis = editor.ucsNormal();
    std::vector<OdGeMatrix3d> places;
    for (std::int64_t i = 1; i < array.items; ++i) {
        OdGeMatrix3d const turn = OdGeMatrix3d::rotation(array.step * static_cast<double>(i), axis, array.center);
        places.push_back(array.rotates ? turn : OdGeMatrix3d::translation(turn * array.base - array.base));
    }
    copyToPlaces(editor, ids, places);
}

} // namespace ca
