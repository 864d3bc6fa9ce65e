// OFFSET: curves at a distance from others, or through a point.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/commands/new_entity.h"
#include "host/app/commands/offset_side.h"
#include "host/app/pick_entity.h"
#include "host/app/sys_var.h"
#include "host/app/two_points.h"
#include "host/db/entities/od_db_curve.h"

namespace ca {

namespace {

/// What OFFSET keeps until the document is closed.
struct OffsetMemory
{
    bool erasesSource = false;
    bool takesCurrentLayer = false;
};

OffsetMemory& memoryOf(Editor& editor)
{
    return editor.doc().commandMemory().get<OffsetMemory>();
}

/// The last distance; a negative one stands for "Through".
SysVar const& lastDistance()
{
    return *SysVar::find(L"OFFSETDIST");
}

OdDbCurvePtr openCurve(OdDbObjectId id)
{
    OdDbObjectPtr const object = id.safeOpenObject();
    if (!odCast<OdDbCurve>(object.get()))
        throw AnswerRejected(L"Cannot offset that object.");
    return object;
}

bool isStraight(OdGeCurve3d const& curve)
{
    using enum OdGeCurve3d::EType;
    return curve.type() == kLine || curve.type() == kRay || curve.type() == kLineSeg;
}

std::unique_ptr<OdGeCurve3d> curveOf(OdDbCurve const& entity)
{
    std::unique_ptr<OdGeCurve3d> curve = entity.getOdGeCurve();
    if (!curve)
        throw AnswerRejected(L"Cannot offset that object.");
    return curve;
}

/// The curves at a distance, positive to the right; none where nothing remains. Lines have no plane of their own,
/// so they go aside in that of the user.
std::vector<OdDbEntityPtr> offsetOf(Editor const& editor, OdDbCurve const& entity, double distance)
{
    std::vector<OdDbEntityPtr> curves;
    std::unique_ptr<OdGeCurve3d> const curve = curveOf(entity);
    if (!isStraight(*curve)) {
        if (entity.getOffsetCurves(distance, curves) != eOk)
            curves.clear();
        return curves;
    }
    OdGeVector3d const right = curve->derivative(0).crossProduct(editor.ucsNormal());
    if (right.isZeroLength())
        return curves;
    OdDbEntityPtr const copy(entity.clone());
    if (copy->transformBy(OdGeMatrix3d::translation(right.normal() * distance)) == eOk)
        curves.push_back(copy);
    return curves;
}

/// What one OFFSET did, so that Undo takes it back.
class OffsetRun
{
public:
    explicit OffsetRun(Editor& editor) : m_editor(editor) {}

    /// Draws the curve at a distance, positive to the right; its first piece.
    OdDbObjectId draw(OdDbObjectId source, double distance)
    {
        OdDbCurvePtr const entity = openCurve(source);
        std::vector<OdDbEntityPtr> const curves = offsetOf(m_editor, *entity, distance);
        if (curves.empty())
            throw AnswerRejected(L"Cannot offset that object to this side by this distance.");
        Step step;
        for (OdDbEntityPtr const& curve : curves) {
            if (memoryOf(m_editor).takesCurrentLayer)
                curve->setLayer(m_editor.db().getCLAYER());
            step.made.push_back(appendBeside(*entity, curve));
        }
        if (memoryOf(m_editor).erasesSource) {
            step.erased.push_back(source);
            eraseAll(step.erased);
        }
        m_steps.push_back(step);
        return step.made.front();
    }

    void undo()
    {
        if (m_steps.empty()) {
            m_editor.message(L"Command has been completely undone.");
            return;
        }
        eraseAll(m_steps.back().made);
        restoreAll(m_steps.back().erased);
        m_steps.pop_back();
    }

private:
    struct Step
    {
        Ids made;
        Ids erased;
    };

    Editor& m_editor;
    std::vector<Step> m_steps;
};

Task<> askErasing(Editor& editor)
{
    bool& erases = memoryOf(editor).erasesSource;
    Answer const answer = co_await editor.keyword(
        Prompt(L"Erase source object after offsetting?").keywords(L"Yes No").defaultText(erases ? L"Yes" : L"No"));
    if (answer.isKeyword())
        erases = answer.isKeyword(L"Yes");
}

Task<> askLayer(Editor& editor)
{
    bool& takesCurrent = memoryOf(editor).takesCurrentLayer;
    Answer const answer = co_await editor.keyword(Prompt(L"Enter layer option for offset objects")
                                                      .keywords(L"Current Source")
                                                      .defaultText(takesCurrent ? L"Current" : L"Source"));
    if (answer.isKeyword())
        takesCurrent = answer.isKeyword(L"Current");
}

void showSettings(Editor& editor)
{
    OffsetMemory const& memory = memoryOf(editor);
    int const gapType = std::get<int>(SysVar::find(L"OFFSETGAPTYPE")->value(&editor.doc()));
    editor.message(odFormat(L"Current settings: Erase source=%ls  Layer=%ls  OFFSETGAPTYPE=%d",
                            memory.erasesSource ? L"Yes" : L"No",
                            memory.takesCurrentLayer ? L"Current" : L"Source", gapType));
}

/// The distance of all curves of the run; nothing where each goes through a point.
Task<std::optional<double>> askOffset(Editor& editor)
{
    for (;;) {
        showSettings(editor);
        double const offered = std::get<double>(lastDistance().value(&editor.doc()));
        OdString const shown = offered > 0 ? odFormat(L"%g", offered) : OdString(L"Through");
        Answer const answer = co_await askDistance(editor, Prompt(L"Specify offset distance or")
                                                               .keywords(L"Through Erase Layer")
                                                               .defaultText(shown)
                                                               .atLeast(0, true));
        if (answer.isKeyword(L"Erase")) {
            co_await askErasing(editor);
            continue;
        }
        if (answer.isKeyword(L"Layer")) {
            co_await askLayer(editor);
            continue;
        }
        double const chosen = answer.isValue() ? answer.real : answer.isKeyword() ? -1 : offered;
        lastDistance().set(chosen, &editor.doc());
        co_return chosen > 0 ? std::optional<double>(chosen) : std::nullopt;
    }
}

/// The signed distance for a point on the side, or on the way, of the new curve.
double signedDistance(Editor const& editor, OdDbObjectId source, OdGePoint3d const& point,
                      std::optional<double> distance)
{
    OdDbCurvePtr const entity = openCurve(source);
    std::unique_ptr<OdGeCurve3d> const curve = curveOf(*entity);
    OdGeVector3d const normal = isStraight(*curve) ? editor.ucsNormal() : entity->planeNormal();
    double const toPoint =
        orRefuse(offsetThrough(*curve, normal, point), L"The point does not lie at a side of the object.");
    return distance ? std::copysign(*distance, toPoint) : toPoint;
}

enum class ENext
{
    kObject,
    kExit
};

Prompt sidePrompt(bool isThrough, wchar_t const* options, wchar_t const* enter)
{
    Prompt prompt(isThrough ? L"Specify through point or" : L"Specify point on side to offset or");
    return prompt.keywords(options).defaultText(enter);
}

/// Curve after curve, each from the one before.
Task<ENext> offsetRepeatedly(Editor& editor, OffsetRun& run, OdDbObjectId source, std::optional<double> distance)
{
    std::vector<OdDbObjectId> chain{source};
    for (;;) {
        Answer const side = co_await editor.point(sidePrompt(!distance, L"Exit Undo", L"next object"));
        if (side.isNone())
            co_return ENext::kObject;
        if (side.isKeyword(L"Exit"))
            co_return ENext::kExit;
        if (side.isValue()) {
            double const signedBy = signedDistance(editor, chain.back(), side.point, distance);
            chain.push_back(run.draw(chain.back(), signedBy));
        } else if (chain.size() > 1) {
            run.undo();
            chain.pop_back();
        } else {
            editor.message(L"All offsets of the object already undone.");
        }
    }
}

Task<ENext> offsetOne(Editor& editor, OffsetRun& run, OdDbObjectId source, std::optional<double> distance)
{
    Answer const side = co_await editor.point(sidePrompt(!distance, L"Exit Multiple Undo", L"Exit"));
    if (side.isNone() || side.isKeyword(L"Exit"))
        co_return ENext::kExit;
    if (side.isKeyword(L"Multiple")) {
        ENext const next = co_await offsetRepeatedly(editor, run, source, distance);
        co_return next;
    }
    if (side.isKeyword())
        run.undo();
    else
        run.draw(source, signedDistance(editor, source, side.point, distance));
    co_return ENext::kObject;
}

Task<> offsetCommand(Editor& editor)
{
    std::optional<double> const distance = co_await askOffset(editor);
    OffsetRun run(editor);
    for (;;) {
        PickedEntity const picked = co_await pickEntity(
            editor, Prompt(L"Select object to offset or").keywords(L"Exit Undo").defaultText(L"Exit"));
        if (picked.answer.isNone() || picked.answer.isKeyword(L"Exit"))
            co_return;
        if (picked.answer.isKeyword(L"Undo")) {
            run.undo();
            continue;
        }
        openCurve(picked.id); // refuses other objects before it asks for the side
        if (memoryOf(editor).erasesSource)
            refuseLocked(picked.id);
        ENext const next = co_await offsetOne(editor, run, picked.id, distance);
        if (next == ENext::kExit)
            co_return;
    }
}

constexpr CommandDef s_commands[] = {{L"OFFSET", L"O", kPlain, &offsetCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
