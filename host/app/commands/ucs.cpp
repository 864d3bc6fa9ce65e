// UCS: the user coordinate system.
#include "host/app/ca_doc.h"
#include "host/app/ca_ucs_op.h"
#include "host/app/command_registry.h"
#include "host/app/commands/ucs_named.h"
#include "host/app/commands/ucs_of_entity.h"
#include "host/app/pick_entity.h"
#include "host/app/screen_view.h"
#include "host/app/sys_var.h"
#include "host/app/two_points.h"
#include "host/app/unit_format.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

void setAxes(Editor& editor, CoordinateAxes const& axes)
{
    UcsOp op(editor.doc());
    op.set(axes.origin, axes.xAxis, axes.yAxis);
    op.commit();
}

void setOrigin(Editor& editor, OdGePoint3d const& origin)
{
    UcsOp op(editor.doc());
    op.setOrigin(origin);
    op.commit();
}

OdGePoint3d ucsOrigin(Editor& editor)
{
    return editor.ucsToWorld() * OdGePoint3d::kOrigin;
}

/// The axes with X towards a point, turned as little as that needs.
CoordinateAxes axesTowards(Editor& editor, OdGePoint3d const& origin, OdGePoint3d const& onX)
{
    OdGeVector3d const direction = onX - origin;
    if (direction.isZeroLength())
        throw AnswerRejected(L"The point on the X axis must differ from the origin.");
    OdGeMatrix3d const toWorld = editor.ucsToWorld();
    std::optional<CoordinateAxes> const axes = axesAlong(origin, direction, toWorld * OdGeVector3d::kZAxis);
    // A new X axis along the old Z axis: the old X axis becomes the new Z axis.
    return axes ? *axes : axesAlong(origin, direction, toWorld * OdGeVector3d::kXAxis).value();
}

/// Origin, X axis and the side of the Y axis, of which the last two can be left as they are.
Task<> setByPoints(Editor& editor, OdGePoint3d origin)
{
    Answer const onX =
        co_await editor.point(Prompt(L"Specify point on X-axis or").defaultText(L"accept").base(origin));
    if (onX.isNone()) {
        setOrigin(editor, origin);
        co_return;
    }
    CoordinateAxes axes = axesTowards(editor, origin, onX.point);
    Answer const onPlane =
        co_await editor.point(Prompt(L"Specify point on the XY plane or").defaultText(L"accept").base(origin));
    if (onPlane.isValue()) {
        OdGeVector3d const side = onPlane.point - origin;
        std::optional<CoordinateAxes> const turned =
            axesAlong(origin, axes.xAxis, axes.xAxis.crossProduct(side).normal());
        if (!turned)
            throw AnswerRejected(L"The three points lie on one line.");
        axes = *turned;
    }
    setAxes(editor, axes);
}

Task<> setByThreePoints(Editor& editor)
{
    Answer const origin = co_await editor.point(Prompt(L"Specify new origin point").defaultText(L"0,0,0"));
    OdGePoint3d place = ucsOrigin(editor);
    if (origin.isValue())
        place = origin.point;
    co_await setByPoints(editor, place);
}

Task<> setNewOrigin(Editor& editor)
{
    Answer const origin = co_await editor.point(Prompt(L"Specify new origin point").defaultText(L"0,0,0"));
    if (origin.isValue())
        setOrigin(editor, origin.point);
}

Task<> move(Editor& editor)
{
    Answer const origin =
        co_await editor.point(Prompt(L"Specify new origin point or").keywords(L"Zdepth").defaultText(L"0,0,0"));
    if (origin.isValue())
        setOrigin(editor, origin.point);
    if (!origin.isKeyword())
        co_return;
    OdGePoint3d const present = ucsOrigin(editor);
    Answer const depth = co_await editor.distance(Prompt(L"Specify Zdepth").defaultText(L"0").base(present));
    if (depth.isValue())
        setOrigin(editor, present + editor.ucsNormal() * depth.real);
}

/// Origin and a point on the Z axis. A direction that differs from the present one turns X and Y as entities of
/// such planes have them.
Task<> setByZAxis(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify new origin point").defaultText(L"0,0,0"));
    OdGePoint3d const origin = first.isNone() ? ucsOrigin(editor) : OdGePoint3d(first.point);
    OdGePoint3d const above = origin + editor.ucsNormal();
    UnitFormat const format = unitFormatOf(editor.db());
    OdGePoint3d const shown = editor.ucsToWorld().inverse() * above;
    OdString const present = distanceText(shown.x, format) + L"," + distanceText(shown.y, format) + L"," +
                             distanceText(shown.z, format);
    Answer const onZ = co_await editor.point(
        Prompt(L"Specify point on positive portion of Z-axis").defaultText(present).base(origin));
    OdGeVector3d const direction = onZ.isNone() ? editor.ucsNormal() : OdGeVector3d(onZ.point - origin);
    if (direction.isZeroLength())
        throw AnswerRejected(L"The point on the Z axis must differ from the origin.");
    if (direction.normal() == editor.ucsNormal()) {
        setOrigin(editor, origin);
        co_return;
    }
    OdGeMatrix3d const plane = odDbPlaneToWorld(direction.normal());
    setAxes(editor, {origin, plane.column(0), plane.column(1)});
}

Task<> turn(Editor& editor, int axis)
{
    constexpr wchar_t const* kNames[] = {L"X", L"Y", L"Z"};
    double const usual = std::get<double>(SysVar::find(L"UCSAXISANG")->value(&editor.doc()));
    Answer const answer =
        co_await askAngle(editor, Prompt(odFormat(L"Specify rotation angle about %ls axis", kNames[axis]))
                                      .defaultText(turnText(odgeToRadians(usual), unitFormatOf(editor.db()))));
    UcsOp op(editor.doc());
    op.rotate(axis, answer.isNone() ? odgeToRadians(usual) : answer.real);
    op.commit();
}

Task<> turnX(Editor& editor)
{
    return turn(editor, 0);
}

Task<> turnY(Editor& editor)
{
    return turn(editor, 1);
}

Task<> turnZ(Editor& editor)
{
    return turn(editor, 2);
}

Task<> setByObject(Editor& editor)
{
    PickedEntity const picked = co_await pickEntity(editor, Prompt(L"Select object to align UCS"));
    OdDbEntityPtr const entity = picked.id.open<OdDbEntity>();
    std::optional<OdGePoint3d> const place =
        picked.answer.hasPoint ? std::optional(picked.answer.point) : std::nullopt;
    std::optional<CoordinateAxes> const axes = ucsOfEntity(*entity, place);
    if (!axes)
        throw AnswerRejected(L"This object defines no coordinate system.");
    setAxes(editor, *axes);
}

Task<> setByView(Editor& editor)
{
    OdGeMatrix3d const display = screenView(editor.db()).displayToWorld();
    setAxes(editor, {ucsOrigin(editor), display.column(0), display.column(1)});
    co_return;
}

Task<> setWorld(Editor& editor)
{
    UcsOp op(editor.doc());
    op.setWorld();
    op.commit();
    co_return;
}

Task<> restorePrevious(Editor& editor)
{
    if (!UcsOp::restorePrevious(editor.doc()))
        editor.message(L"No previous coordinate system is saved.");
    co_return;
}

struct Option
{
    wchar_t const* keyword;
    Task<> (*run)(Editor&);
};
// clang-format off
constexpr Option kOptions[] = {
    {L"NAmed",   &namedUcs},   {L"OBject",   &setByObject}, {L"Previous", &restorePrevious}, {L"View",   &setByView},
    {L"World",   &setWorld},   {L"X",        &turnX},       {L"Y",        &turnY},           {L"Z",      &turnZ},
    {L"ZAxis",   &setByZAxis}, {L"Move",     &move},        {L"ORigin",   &setNewOrigin},    {L"3point", &setByThreePoints},
    {L"Restore", &restoreUcs}, {L"Save",     &saveUcs},     {L"Delete",   &deleteUcs},       {L"?",      &listUcs},
};
// clang-format on

Task<> runOption(Editor& editor, Answer answer)
{
    for (Option const& option : kOptions)
        if (answer.isKeyword(option.keyword))
            co_await option.run(editor);
}

/// The older way to ask for the same.
Task<> askNew(Editor& editor)
{
    Answer const answer = co_await editor.point(
        Prompt(L"Specify origin of new UCS or").keywords(L"ZAxis 3point OBject View X Y Z").defaultText(L"0,0,0"));
    if (answer.isKeyword())
        co_await runOption(editor, answer);
    else if (answer.isValue())
        setOrigin(editor, answer.point);
}

void showCurrent(Editor& editor)
{
    OdString const name = currentUcsName(editor.doc());
    OdString shown = L"*NO NAME*";
    if (!name.isEmpty())
        shown = name;
    else if (UcsOp(editor.doc()).isWorld())
        shown = L"*WORLD*";
    editor.message(L"Current ucs name:  " + shown);
}

Task<> ucsCommand(Editor& editor)
{
    showCurrent(editor);
    Answer const answer =
        co_await editor.point(Prompt(L"Specify origin of UCS or")
                                  .keywords(L"NAmed OBject Previous View World X Y Z ZAxis")
                                  .hiddenKeywords(L"New Move ORigin 3point Restore Save Delete ?")
                                  .defaultText(L"World"));
    if (answer.isNone())
        co_await setWorld(editor);
    else if (answer.isKeyword(L"New"))
        co_await askNew(editor);
    else if (answer.isKeyword())
        co_await runOption(editor, answer);
    else
        co_await setByPoints(editor, answer.point);
}

constexpr CommandDef s_commands[] = {{L"UCS", L"", kPlain, &ucsCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
