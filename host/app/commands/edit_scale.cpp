// SCALE: by one factor in all directions.
#include "host/app/command_registry.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/select_objects.h"
#include "host/app/two_points.h"

namespace ca {

namespace {

Task<double> askNewLength(Editor& editor, OdGePoint3d base)
{
    Answer answer = co_await editor.distance(
        Prompt(L"Specify new length or").keywords(L"Points").defaultText(L"1").base(base).atLeast(0, true));
    if (answer.isKeyword())
        answer = co_await askDistance(editor, Prompt(L"Specify first point").atLeast(0, true));
    co_return answer.isNone() ? 1.0 : answer.real;
}

/// From a length that the objects have to the one that they are to get.
Task<double> askByReference(Editor& editor, OdGePoint3d base)
{
    Answer const reference =
        co_await askDistance(editor, Prompt(L"Specify reference length").defaultText(L"1").atLeast(0, true));
    double const from = reference.isNone() ? 1.0 : reference.real;
    double const to = co_await askNewLength(editor, base);
    co_return to / from;
}

struct Scaling
{
    double factor = 1;
    bool isCopying = false;
};

Task<Scaling> askScaling(Editor& editor, OdGePoint3d base)
{
    Scaling scaling;
    for (;;) {
        OdString const options = scaling.isCopying ? L"Reference" : L"Copy Reference";
        Answer const answer = co_await editor.distance(
            Prompt(L"Specify scale factor or").keywords(options).base(base).atLeast(0, true));
        if (answer.isKeyword(L"Copy")) {
            editor.message(L"Scaling a copy of the selected objects.");
            scaling.isCopying = true;
            continue;
        }
        scaling.factor = answer.real;
        if (answer.isKeyword())
            scaling.factor = co_await askByReference(editor, base);
        co_return scaling;
    }
}

Task<> scaleCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    if (ids.empty())
        co_return;
    Answer const base = co_await editor.point(Prompt(L"Specify base point"));
    Scaling const scaling = co_await askScaling(editor, base.point);
    transformOrCopy(editor, ids, OdGeMatrix3d::scaling(scaling.factor, base.point), scaling.isCopying, L"scaled");
}

constexpr CommandDef s_commands[] = {{L"SCALE", L"SC", kPlain, &scaleCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
