#include "host/app/commands/pick_line.h"

#include "host/app/pick_entity.h"
#include "host/db/entities/od_db_curve.h"

namespace ca {

namespace {

/// The line of a straight curve, or of the straight segment of a chain that is nearest to the place.
std::optional<PickedLine> lineOf(OdGeCurve3d const& curve, Answer const& answer)
{
    bool const isChain = curve.type() == OdGeCurve3d::EType::kSegmentChain;
    if (!curve.isLinear() && !(isChain && answer.hasPoint))
        return std::nullopt;
    double const param = answer.hasPoint ? curve.closestParam(answer.point) : curve.getInterval().clamped(0);
    if (!curve.derivative(param, 2).isZeroLength())
        return std::nullopt;
    OdGeVector3d const direction = curve.derivative(param).normal();
    if (direction.isZeroLength())
        return std::nullopt;
    return PickedLine{curve.evalPoint(param), direction};
}

} // namespace

Task<std::optional<PickedLine>> pickLine(Editor& editor, Prompt prompt)
{
    PickedEntity const picked = co_await pickEntity(editor, prompt);
    if (picked.id.isNull())
        co_return std::nullopt;
    auto const* const entity = odCast<OdDbCurve>(picked.id.stub()->object);
    std::unique_ptr<OdGeCurve3d> const curve = entity ? entity->getOdGeCurve() : nullptr;
    std::optional<PickedLine> line;
    if (curve)
        line = lineOf(*curve, picked.answer);
    if (!line)
        throw AnswerRejected(L"The object is not a line.");
    co_return line;
}

} // namespace ca
