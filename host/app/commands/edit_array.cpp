// -ARRAY: copies in rows and columns, or around a center.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/array_polar.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/select_objects.h"
#include "host/app/sys_var.h"

namespace ca {

namespace {

/// Way from one row or column to the next, in the user coordinate system.
struct Spacing
{
    double rows = 0;
    double columns = 0;
};

Task<std::int64_t> askCount(Editor& editor, OdString question)
{
    Answer const answer = co_await editor.integer(Prompt(question).defaultText(L"1").atLeast(1));
    co_return answer.isNone() ? 1 : answer.integer;
}

/// The angle at which rectangular arrays stand: that of the snap grid.
double gridAngle(Editor const& editor)
{
    return odgeToRadians(std::get<double>(SysVar::find(L"SNAPANG")->value(&editor.doc())));
}

/// The unit cell between two opposite corners.
Task<Spacing> askCell(Editor& editor, OdGePoint3d first)
{
    editor.setLastPoint(first);
    Answer const opposite = co_await editor.point(Prompt(L"Specify opposite corner").base(first));
    OdGeMatrix3d const turnBack = OdGeMatrix3d::rotation(-gridAngle(editor), OdGeVector3d::kZAxis);
    OdGeVector3d const way = turnBack * (editor.ucsToWorld().inverse() * (opposite.point - first));
    if (way.x == 0 || way.y == 0)
        throw AnswerRejected(L"The unit cell has no width or no height.");
    co_return Spacing{way.y, way.x};
}

Task<Spacing> askSpacing(Editor& editor, std::int64_t rows, std::int64_t columns)
{
    Spacing spacing;
    if (rows > 1) {
        bool const takesCell = columns > 1;
        OdString const question = takesCell ? L"Enter the distance between rows or specify unit cell (---)"
                                            : L"Specify the distance between rows (---)";
        Prompt prompt(question);
        prompt.notZero();
        if (takesCell)
            prompt.twoPoints();
        Answer const answer = co_await editor.distance(prompt);
        if (answer.hasPoint) {
            spacing = co_await askCell(editor, answer.point);
            co_return spacing;
        }
        spacing.rows = answer.real;
    }
    if (columns > 1) {
        Answer const answer =
            co_await editor.distance(Prompt(L"Specify the distance between columns (|||)").notZero());
        spacing.columns = answer.real;
    }
    co_return spacing;
}

Task<> arrayRectangular(Editor& editor, Ids ids)
{
    std::int64_t const rows = co_await askCount(editor, L"Enter the number of rows (---)");
    std::int64_t const columns = co_await askCount(editor, L"Enter the number of columns (|||)");
    if (rows == 1 && columns == 1)
        throw AnswerRejected(L"An array of one element: nothing to do.");
    refuseLargeArray(editor, static_cast<double>(rows) * static_cast<double>(columns), ids.size());
    Spacing const spacing = co_await askSpacing(editor, rows, columns);
    OdGeMatrix3d const toWorld =
        editor.ucsToWorld() * OdGeMatrix3d::rotation(gridAngle(editor), OdGeVector3d::kZAxis);
    OdGeVector3d const up = toWorld * OdGeVector3d(0, spacing.rows, 0);
    OdGeVector3d const right = toWorld * OdGeVector3d(spacing.columns, 0, 0);
    std::vector<OdGeMatrix3d> places;
    for (std::int64_t row = 0; row < rows; ++row)
        for (std::int64_t column = row == 0 ? 1 : 0; column < columns; ++column)
            places.push_back(
                OdGeMatrix3d::translation(up * static_cast<double>(row) + right * static_cast<double>(column)));
    copyToPlaces(editor, ids, places);
}

Task<> arrayCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor, L"Select objects", ELockedLayers::kIncluded);
    if (ids.empty())
        co_return;
    struct LastType
    {
        bool isPolar = false;
    };
    auto& last = editor.doc().commandMemory().get<LastType>();
    Answer const type = co_await editor.keyword(
        Prompt(L"Enter the type of array").keywords(L"Rectangular Polar").defaultText(last.isPolar ? L"P" : L"R"));
    if (type.isKeyword())
        last.isPolar = type.isKeyword(L"Polar");
    if (last.isPolar)
        co_await arrayPolar(editor, ids);
    else
        co_await arrayRectangular(editor, ids);
}

constexpr CommandDef s_commands[] = {{L"-ARRAY", L"-AR", kPlain, &arrayCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
