// ROTATE: about the Z direction of the user coordinate system.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/select_objects.h"
#include "host/app/two_points.h"

namespace ca {

namespace {

/// What ROTATE offers the next time, in radians.
struct RotateMemory
{
    double angle = 0;
    double reference = 0;
};

OdString degreesText(double angle)
{
    return odFormat(L"%g", odgeToDegrees(angle));
}

Task<double> askNewAngle(Editor& editor, OdGePoint3d base)
{
    Answer answer = co_await editor.angle(
        Prompt(L"Specify the new angle or").keywords(L"Points").defaultText(L"0").base(base));
    if (answer.isKeyword())
        answer = co_await askAngle(editor, Prompt(L"Specify first point"));
    co_return answer.real;
}

/// From a direction that the objects have to the one that they are to get.
Task<double> askByReference(Editor& editor, OdGePoint3d base)
{
    auto& memory = editor.doc().commandMemory().get<RotateMemory>();
    Answer const reference = co_await askAngle(
        editor, Prompt(L"Specify the reference angle").defaultText(degreesText(memory.reference)));
    if (reference.isValue())
        memory.reference = reference.real;
    double const from = memory.reference;
    double const to = co_await askNewAngle(editor, base);
    co_return to - from;
}

struct Rotation
{
    double angle = 0;
    bool isCopying = false;
};

Task<Rotation> askRotation(Editor& editor, OdGePoint3d base)
{
    double& offered = editor.doc().commandMemory().get<RotateMemory>().angle;
    Rotation rotation;
    for (;;) {
        OdString const options = rotation.isCopying ? L"Reference" : L"Copy Reference";
        Answer const answer = co_await editor.angle(
            Prompt(L"Specify rotation angle or").keywords(options).defaultText(degreesText(offered)).base(base));
        if (answer.isKeyword(L"Copy")) {
            editor.message(L"Rotating a copy of the selected objects.");
            rotation.isCopying = true;
            continue;
        }
        if (answer.isKeyword())
            rotation.angle = co_await askByReference(editor, base);
        else
            rotation.angle = answer.isNone() ? offered : answer.real;
        offered = rotation.angle;
        co_return rotation;
    }
}

Task<> rotateCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    if (ids.empty())
        co_return;
    Answer const base = co_await editor.point(Prompt(L"Specify base point"));
    Rotation const rotation = co_await askRotation(editor, base.point);
    auto const turn = OdGeMatrix3d::rotation(rotation.angle, editor.ucsNormal(), base.point);
    transformOrCopy(editor, ids, turn, rotation.isCopying, L"rotated");
}

constexpr CommandDef s_commands[] = {{L"ROTATE", L"RO", kPlain, &rotateCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
