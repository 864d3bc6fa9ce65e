// MINSERT: places a block in a grid, as one reference.
#include "host/app/command_registry.h"
#include "host/app/commands/ask_number.h"
#include "host/app/commands/insert_attributes.h"
#include "host/app/commands/insert_placement.h"
#include "host/db/entities/od_db_minsert_block.h"

namespace ca {

namespace {

using Grid = OdDbBlockReference::Grid;

/// The rectangle between two points gives both distances.
Task<> askUnitCell(Editor& editor, Grid& grid, OdGePoint3d first)
{
    Answer const opposite = co_await editor.point(Prompt(L"Specify opposite corner").base(first));
    OdGeVector3d const cell = editor.ucsToWorld().inverse() * (opposite.point - first);
    grid.columnSpacing = cell.x;
    grid.rowSpacing = cell.y;
}

Task<> askRowSpacing(Editor& editor, Grid& grid)
{
    // A point is the corner of a unit cell, and numbers are distances; a base makes both an answer.
    Answer const answer = co_await editor.distance(
        Prompt(L"Enter distance between rows or specify unit cell (---)").base(OdGePoint3d()));
    if (answer.hasPoint) {
        co_await askUnitCell(editor, grid, answer.point);
        co_return;
    }
    grid.rowSpacing = answer.real;
    if (grid.columns > 1) {
        Answer const columns = co_await editor.distance(Prompt(L"Specify distance between columns (|||)"));
        grid.columnSpacing = columns.real;
    }
}

Task<Grid> askGrid(Editor& editor)
{
    constexpr int kMost = 32767;
    Grid grid;
    Prompt const rows = Prompt(L"Enter number of rows (---)").atLeast(1).atMost(kMost);
    grid.rows = co_await askInteger(editor, rows, 1);
    Prompt const columns = Prompt(L"Enter number of columns (|||)").atLeast(1).atMost(kMost);
    grid.columns = co_await askInteger(editor, columns, 1);
    if (grid.rows > 1) {
        co_await askRowSpacing(editor, grid);
    } else if (grid.columns > 1) {
        Answer const spacing = co_await editor.distance(Prompt(L"Specify distance between columns (|||)"));
        grid.columnSpacing = spacing.real;
    }
    co_return grid;
}

Task<> gridCommand(Editor& editor)
{
    OdDbObjectId const block = co_await askInsertBlock(editor);
    if (block.isNull())
        co_return;
    InsertPlacement const placement = co_await askInsertPlacement(editor);
    Grid const grid = co_await askGrid(editor);
    std::vector<AttributeValue> const values = co_await askAttributes(editor, block);
    OdDbMInsertBlockPtr const reference(new OdDbMInsertBlock);
    placeReference(editor, *reference, block, placement);
    reference->setRows(grid.rows);
    reference->setColumns(grid.columns);
    reference->setRowSpacing(grid.rowSpacing);
    reference->setColumnSpacing(grid.columnSpacing);
    editor.append(reference);
    reference->upgradeOpen();
    appendAttributes(*reference, values);
}

constexpr CommandDef s_commands[] = {{L"MINSERT", L"", kPlain, &gridCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
