// BREAK: takes a piece out of a curve, or cuts it at a point.
#include "host/app/command_registry.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/pick_entity.h"
#include "host/db/entities/od_db_curve.h"

#include <algorithm>

namespace ca {

namespace {

OdDbCurvePtr openCurve(OdDbObjectId id, OdDb::OpenMode mode = OdDb::kForRead)
{
    OdDbObjectPtr const object = id.safeOpenObject(mode);
    if (!odCast<OdDbCurve>(object.get()))
        throw AnswerRejected(L"That object cannot be broken.");
    return object;
}

/// Where a curve is cut, and which of the pieces goes.
struct Cuts
{
    std::vector<double> params; ///< ascending
    std::optional<std::size_t> removed;
};

bool isRound(OdGeCurve3d const& curve)
{
    return curve.type() == OdGeCurve3d::EType::kCircArc || curve.type() == OdGeCurve3d::EType::kEllipArc;
}

/// From the first parameter on to the second, over the start if need be.
Cuts cutsOfClosed(OdGeCurve3d const& curve, double first, double second)
{
    if (!curve.evalPoint(first).isEqualTo(curve.evalPoint(second)))
        return {{std::min(first, second), std::max(first, second)}, first < second ? 0 : 1};
    if (isRound(curve))
        throw AnswerRejected(L"An arc cannot go all the way round.");
    return {{first}, std::nullopt};
}

Cuts cutsOfOpen(OdGeCurve3d const& curve, double first, double second)
{
    auto const isEnd = [&curve](double param) {
        OdGePoint3d end;
        return (curve.hasStartPoint(end) && end.isEqualTo(curve.evalPoint(param))) ||
               (curve.hasEndPoint(end) && end.isEqualTo(curve.evalPoint(param)));
    };
    auto const [low, high] = std::minmax({first, second});
    bool const isPoint = curve.evalPoint(low).isEqualTo(curve.evalPoint(high));
    Cuts cuts;
    if (!isEnd(low))
        cuts.params.push_back(low);
    if (!isPoint)
        cuts.removed = cuts.params.size();
    if (!isPoint && !isEnd(high))
        cuts.params.push_back(high);
    if (cuts.params.empty())
        throw AnswerRejected(isPoint ? L"The object ends at that point." : L"Nothing would remain of the object.");
    return cuts;
}

/// Counterclockwise for the user where a curve has no direction that he knows of.
Cuts cutsBetween(OdDbCurve const& entity, OdGePoint3d const& first, OdGePoint3d const& second,
                 OdGeVector3d const& viewedAgainst)
{
    std::unique_ptr<OdGeCurve3d> const curve = entity.getOdGeCurve();
    if (!curve)
        throw AnswerRejected(L"That object cannot be broken.");
    double from = curve->closestParam(first);
    double to = curve->closestParam(second);
    if (!curve->isClosed())
        return cutsOfOpen(*curve, from, to);
    if (isRound(*curve) && entity.planeNormal().dotProduct(viewedAgainst) < 0)
        std::swap(from, to);
    return cutsOfClosed(*curve, from, to);
}

/// The first piece becomes the entity itself where their class is the same, so that what refers to it stays valid.
void replaceByPieces(OdDbCurve& entity, std::vector<OdDbEntityPtr> const& pieces)
{
    bool const staysItself = pieces.front()->isA() == entity.isA() && !entity.partList();
    for (std::size_t i = staysItself ? 1 : 0; i < pieces.size(); ++i)
        appendBeside(entity, pieces[i]);
    if (staysItself)
        entity.takeFieldsOf(*pieces.front());
    else
        entity.erase();
}

void breakCurve(Editor& editor, OdDbObjectId id, OdGePoint3d const& first, OdGePoint3d const& second)
{
    OdDbCurvePtr const entity = openCurve(id, OdDb::kForWrite);
    Cuts const cuts = cutsBetween(*entity, first, second, editor.ucsNormal());
    std::vector<OdDbEntityPtr> pieces;
    if (entity->getSplitCurves(cuts.params, pieces) != eOk)
        throw AnswerRejected(L"That object cannot be broken there.");
    if (cuts.removed)
        pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(*cuts.removed));
    replaceByPieces(*entity, pieces);
}

Task<> breakCommand(Editor& editor)
{
    PickedEntity const picked = co_await pickEntity(editor, Prompt(L"Select object"));
    openCurve(picked.id); // refuses other objects before it asks for points
    refuseLocked(picked.id);
    OdGePoint3d first = picked.answer.point;
    Answer second;
    if (picked.answer.hasPoint) {
        editor.setLastPoint(first);
        second = co_await editor.point(
            Prompt(L"Specify second break point or [First point]").hiddenKeywords(L"First").base(first));
    }
    if (!second.isValue()) {
        Answer const chosen = co_await editor.point(Prompt(L"Specify first break point"));
        first = chosen.point;
        second = co_await editor.point(Prompt(L"Specify second break point").base(first));
    }
    breakCurve(editor, picked.id, first, second.point);
}

constexpr CommandDef s_commands[] = {{L"BREAK", L"BR", kPlain, &breakCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
