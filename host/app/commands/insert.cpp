// -INSERT: places a reference to a block.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/block_names.h"
#include "host/app/commands/drawing_plane.h"
#include "host/app/commands/insert_attributes.h"
#include "host/app/sys_var.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

/// Answers about the placement. Those given as options before the insertion point are not asked for after it.
struct Placement
{
    OdGePoint3d point;
    std::optional<double> x, y, z;
    std::optional<double> rotation;
    std::optional<OdGePoint3d> base; ///< in the block, comes to the insertion point instead of the block's own
};

SysVar const& lastName()
{
    return *SysVar::find(L"INSNAME");
}

OdDbObjectId blockNamed(Editor& editor, OdString const& name)
{
    OdDbObjectId const id = editor.db().table(OdDbTableKind::kBlock).getAt(name);
    if (id.isNull())
        throw AnswerRejected(odFormat(L"Block \"%ls\" does not exist.", name.c_str()));
    auto const block = id.open<OdDbBlockTableRecord>();
    if (block->isLayout())
        throw AnswerRejected(odFormat(L"\"%ls\" is no block that can be inserted.", name.c_str()));
    lastName().set(block->getName(), &editor.doc());
    return id;
}

/// Null when the user had the blocks listed.
Task<OdDbObjectId> askBlock(Editor& editor)
{
    OdString const last = lastName().text(&editor.doc());
    Prompt prompt(L"Enter block name or");
    prompt.keywords(L"?");
    if (!last.isEmpty())
        prompt.defaultText(last);
    Answer const answer = co_await editor.text(prompt);
    if (answer.text == L"?") {
        co_await listBlocks(editor);
        co_return OdDbObjectId();
    }
    OdString const name = answer.isNone() ? last : answer.text;
    if (name.isEmpty())
        throw AnswerRejected(L"A block name is required.");
    co_return blockNamed(editor, name);
}

// @name Options before the insertion point

Task<> presetBase(Editor& editor, Placement& placement)
{
    Answer const answer = co_await editor.point(Prompt(L"Specify base point"));
    placement.base = editor.ucsToWorld().inverse() * answer.point;
}

Task<> presetRotation(Editor& editor, Placement& placement)
{
    Answer const answer = co_await editor.angle(Prompt(L"Specify rotation angle").defaultText(L"0"));
    placement.rotation = answer.isNone() ? 0 : answer.real;
}

using Factors = std::vector<std::optional<double> Placement::*>;

Task<> presetFactors(Editor& editor, Placement& placement, OdString axes, Factors factors)
{
    Answer const answer = co_await editor.real(Prompt(L"Specify " + axes).defaultText(L"1").notZero());
    for (auto const factor : factors)
        placement.*factor = answer.isNone() ? 1 : answer.real;
}

Task<> presetAll(Editor& editor, Placement& placement)
{
    return presetFactors(editor, placement, L"scale factor for XYZ axes",
                         {&Placement::x, &Placement::y, &Placement::z});
}

Task<> presetX(Editor& editor, Placement& placement)
{
    return presetFactors(editor, placement, L"X scale factor", {&Placement::x});
}

Task<> presetY(Editor& editor, Placement& placement)
{
    return presetFactors(editor, placement, L"Y scale factor", {&Placement::y});
}

Task<> presetZ(Editor& editor, Placement& placement)
{
    return presetFactors(editor, placement, L"Z scale factor", {&Placement::z});
}

struct PresetOption
{
    wchar_t const* keyword;
    Task<> (*ask)(Editor&, Placement&);
};
constexpr PresetOption kPresets[] = {
    {L"Basepoint", &presetBase},  {L"Scale", &presetAll}, {L"X", &presetX}, {L"Y", &presetY}, {L"Z", &presetZ},
    {L"Rotate", &presetRotation},
};

Task<> askInsertionPoint(Editor& editor, Placement& placement)
{
    for (;;) {
        Answer const answer =
            co_await editor.point(Prompt(L"Specify insertion point or").keywords(L"Basepoint Scale X Y Z Rotate"));
        if (answer.isValue()) {
            placement.point = answer.point;
            co_return;
        }
        for (PresetOption const& option : kPresets)
            if (answer.isKeyword(option.keyword))
                co_await option.ask(editor, placement);
    }
}

/// The rectangle from the insertion point to a corner gives the factors in X and Y.
void takeCorner(Editor& editor, Placement& placement, OdGePoint3d const& corner)
{
    OdGeVector3d const diagonal = editor.ucsToWorld().inverse() * (corner - placement.point);
    if (diagonal.x == 0 || diagonal.y == 0)
        throw AnswerRejected(L"The corner must differ from the insertion point in X and in Y.");
    placement.x = diagonal.x;
    placement.y = placement.y.value_or(diagonal.y);
}

Task<> askCorner(Editor& editor, Placement& placement)
{
    Answer const answer = co_await editor.point(Prompt(L"Specify opposite corner").base(placement.point));
    takeCorner(editor, placement, answer.point);
}

/// A factor that is the one in X unless the user wants another.
Task<> askFactorLikeX(Editor& editor, Placement const& placement, OdString question, std::optional<double>& factor)
{
    if (factor)
        co_return;
    Answer const answer = co_await editor.distance(
        Prompt(question).defaultText(L"use X scale factor").base(placement.point).notZero());
    factor = answer.isNone() ? *placement.x : answer.real;
}

Task<> askThreeFactors(Editor& editor, Placement& placement)
{
    Answer const x = co_await editor.distance(Prompt(L"Specify X scale factor or")
                                                  .keywords(L"Corner")
                                                  .defaultText(L"1")
                                                  .base(placement.point)
                                                  .notZero());
    if (x.hasPoint)
        takeCorner(editor, placement, x.point);
    else if (x.isKeyword())
        co_await askCorner(editor, placement);
    else
        placement.x = x.isNone() ? 1 : x.real;
    co_await askFactorLikeX(editor, placement, L"Specify Y scale factor", placement.y);
    co_await askFactorLikeX(editor, placement, L"Specify Z scale factor", placement.z);
}

Task<> askFactors(Editor& editor, Placement& placement)
{
    if (!placement.x) {
        Answer const x = co_await editor.distance(Prompt(L"Enter X scale factor, specify opposite corner, or")
                                                      .keywords(L"Corner XYZ")
                                                      .defaultText(L"1")
                                                      .base(placement.point)
                                                      .notZero());
        if (x.hasPoint)
            takeCorner(editor, placement, x.point);
        else if (x.isKeyword(L"Corner"))
            co_await askCorner(editor, placement);
        else if (x.isKeyword(L"XYZ"))
            co_await askThreeFactors(editor, placement);
        else
            placement.x = x.isNone() ? 1 : x.real;
    }
    co_await askFactorLikeX(editor, placement, L"Enter Y scale factor", placement.y);
    if (!placement.z)
        placement.z = std::abs(*placement.x); // mirroring in the plane turns nothing upside down
}

Task<> askRotation(Editor& editor, Placement& placement)
{
    if (placement.rotation)
        co_return;
    Answer const answer =
        co_await editor.angle(Prompt(L"Specify rotation angle").defaultText(L"0").base(placement.point));
    placement.rotation = answer.isNone() ? 0 : answer.real;
}

OdDbBlockReferencePtr makeReference(Editor& editor, OdDbObjectId block, Placement const& placement)
{
    DrawingPlane const plane(editor, placement.point);
    OdDbBlockReferencePtr reference(new OdDbBlockReference);
    reference->setBlockTableRecord(block);
    reference->setNormal(plane.normal());
    reference->setScaleFactors({*placement.x, *placement.y, *placement.z});
    reference->setRotation(plane.angleToPlane(*placement.rotation));
    reference->setPosition(placement.point);
    if (placement.base)
        reference->setPosition(placement.point -
                               (reference->blockTransform() * *placement.base - placement.point));
    return reference;
}

Task<> insertCommand(Editor& editor)
{
    OdDbObjectId const block = co_await askBlock(editor);
    if (block.isNull())
        co_return;
    Placement placement;
    co_await askInsertionPoint(editor, placement);
    co_await askFactors(editor, placement);
    co_await askRotation(editor, placement);
    std::vector<AttributeValue> const values = co_await askAttributes(editor, block);
    OdDbBlockReferencePtr const reference = makeReference(editor, block, placement);
    editor.append(reference);
    reference->upgradeOpen();
    appendAttributes(*reference, values);
}

constexpr CommandDef s_commands[] = {{L"-INSERT", L"-I", kPlain, &insertCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
