#include "host/app/commands/insert_placement.h"

#include "host/app/ca_doc.h"
#include "host/app/commands/block_names.h"
#include "host/app/commands/drawing_plane.h"
#include "host/app/sys_var.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

/// What is known so far. What was given as an option before the insertion point is not asked for after it.
struct KnownPlacement
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

// @name Options before the insertion point

Task<> presetBase(Editor& editor, KnownPlacement& known)
{
    Answer const answer = co_await editor.point(Prompt(L"Specify base point"));
    known.base = editor.ucsToWorld().inverse() * answer.point;
}

Task<> presetRotation(Editor& editor, KnownPlacement& known)
{
    Answer const answer = co_await editor.angle(Prompt(L"Specify rotation angle").defaultText(L"0"));
    known.rotation = answer.isNone() ? 0 : answer.real;
}

using Factors = std::vector<std::optional<double> KnownPlacement::*>;

Task<> presetFactors(Editor& editor, KnownPlacement& known, OdString axes, Factors factors)
{
    Answer const answer = co_await editor.real(Prompt(L"Specify " + axes).defaultText(L"1").notZero());
    for (auto const factor : factors)
        known.*factor = answer.isNone() ? 1 : answer.real;
}

Task<> presetAll(Editor& editor, KnownPlacement& known)
{
    return presetFactors(editor, known, L"scale factor for XYZ axes",
                         {&KnownPlacement::x, &KnownPlacement::y, &KnownPlacement::z});
}

Task<> presetX(Editor& editor, KnownPlacement& known)
{
    return presetFactors(editor, known, L"X scale factor", {&KnownPlacement::x});
}

Task<> presetY(Editor& editor, KnownPlacement& known)
{
    return presetFactors(editor, known, L"Y scale factor", {&KnownPlacement::y});
}

Task<> presetZ(Editor& editor, KnownPlacement& known)
{
    return presetFactors(editor, known, L"Z scale factor", {&KnownPlacement::z});
}

struct PresetOption
{
    wchar_t const* keyword;
    Task<> (*ask)(Editor&, KnownPlacement&);
};
constexpr PresetOption kPresets[] = {
    {L"Basepoint", &presetBase},  {L"Scale", &presetAll}, {L"X", &presetX}, {L"Y", &presetY}, {L"Z", &presetZ},
    {L"Rotate", &presetRotation},
};

Task<> askInsertionPoint(Editor& editor, KnownPlacement& known)
{
    for (;;) {
        Answer const answer =
            co_await editor.point(Prompt(L"Specify insertion point or").keywords(L"Basepoint Scale X Y Z Rotate"));
        if (answer.isValue()) {
            known.point = answer.point;
            co_return;
        }
        for (PresetOption const& option : kPresets)
            if (answer.isKeyword(option.keyword))
                co_await option.ask(editor, known);
    }
}

/// The rectangle from the insertion point to a corner gives the factors in X and Y.
void takeCorner(Editor& editor, KnownPlacement& known, OdGePoint3d const& corner)
{
    OdGeVector3d const diagonal = editor.ucsToWorld().inverse() * (corner - known.point);
    if (diagonal.x == 0 || diagonal.y == 0)
        throw AnswerRejected(L"The corner must differ from the insertion point in X and in Y.");
    known.x = diagonal.x;
    known.y = known.y.value_or(diagonal.y);
}

Task<> askCorner(Editor& editor, KnownPlacement& known)
{
    Answer const answer = co_await editor.point(Prompt(L"Specify opposite corner").base(known.point));
    takeCorner(editor, known, answer.point);
}

/// A factor that is the one in X unless the user wants another.
Task<> askFactorLikeX(Editor& editor, KnownPlacement const& known, OdString question,
                      std::optional<double>& factor)
{
    if (factor)
        co_return;
    Answer const answer =
        co_await editor.distance(Prompt(question).defaultText(L"use X scale factor").base(known.point).notZero());
    factor = answer.isNone() ? *known.x : answer.real;
}

Task<> askThreeFactors(Editor& editor, KnownPlacement& known)
{
    Answer const x = co_await editor.distance(
        Prompt(L"Specify X scale factor or").keywords(L"Corner").defaultText(L"1").base(known.point).notZero());
    if (x.hasPoint)
        takeCorner(editor, known, x.point);
    else if (x.isKeyword())
        co_await askCorner(editor, known);
    else
        known.x = x.isNone() ? 1 : x.real;
    co_await askFactorLikeX(editor, known, L"Specify Y scale factor", known.y);
    co_await askFactorLikeX(editor, known, L"Specify Z scale factor", known.z);
}

Task<> askFactors(Editor& editor, KnownPlacement& known)
{
    if (!known.x) {
        Answer const x = co_await editor.distance(Prompt(L"Enter X scale factor, specify opposite corner, or")
                                                      .keywords(L"Corner XYZ")
                                                      .defaultText(L"1")
                                                      .base(known.point)
                                                      .notZero());
        if (x.hasPoint)
            takeCorner(editor, known, x.point);
        else if (x.isKeyword(L"Corner"))
            co_await askCorner(editor, known);
        else if (x.isKeyword(L"XYZ"))
            co_await askThreeFactors(editor, known);
        else
            known.x = x.isNone() ? 1 : x.real;
    }
    co_await askFactorLikeX(editor, known, L"Enter Y scale factor", known.y);
    if (!known.z)
        known.z = std::abs(*known.x); // mirroring in the plane turns nothing upside down
}

Task<> askRotation(Editor& editor, KnownPlacement& known)
{
    if (known.rotation)
        co_return;
    Answer const answer =
        co_await editor.angle(Prompt(L"Specify rotation angle").defaultText(L"0").base(known.point));
    known.rotation = answer.isNone() ? 0 : answer.real;
}

} // namespace

Task<OdDbObjectId> askInsertBlock(Editor& editor)
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

Task<InsertPlacement> askInsertPlacement(Editor& editor)
{
    KnownPlacement known;
    co_await askInsertionPoint(editor, known);
    co_await askFactors(editor, known);
    co_await askRotation(editor, known);
    InsertPlacement placement;
    placement.point = known.point;
    placement.factors = OdGeScale3d(*known.x, *known.y, *known.z);
    placement.rotation = *known.rotation;
    placement.base = known.base;
    co_return placement;
}

void placeReference(Editor& editor, OdDbBlockReference& reference, OdDbObjectId block,
                    InsertPlacement const& placement)
{
    DrawingPlane const plane(editor, placement.point);
    reference.setBlockTableRecord(block);
    reference.setNormal(plane.normal());
    reference.setScaleFactors(placement.factors);
    reference.setRotation(plane.angleToPlane(placement.rotation));
    reference.setPosition(placement.point);
    if (placement.base)
        reference.setPosition(placement.point - (reference.blockTransform() * *placement.base - placement.point));
}

} // namespace ca
