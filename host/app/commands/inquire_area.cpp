// AREA: of a polygon given by points, or of entities; areas can be added and subtracted.
#include "host/app/command_registry.h"
#include "host/app/inquiry_results.h"
#include "host/app/pick_entity.h"
#include "host/app/unit_format.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_curve.h"
#include "host/db/od_db_database.h"

#include <cmath>

namespace ca {

namespace {

enum class EMode
{
    kOnce, ///< one area, and the command ends
    kAdd,
    kSubtract
};

struct ModeTexts
{
    wchar_t const* prefix;
    wchar_t const* options;
};
constexpr ModeTexts kModes[] = {
    {L"", L"Object Add Subtract"},
    {L"(ADD mode) ", L"Object Subtract"},
    {L"(SUBTRACT mode) ", L"Object Add"},
};

struct Measures
{
    double area = 0;
    double perimeter = 0;
    wchar_t const* perimeterName = L"Perimeter";
};

/// The present mode of the command and the sum of its areas.
class AreaSum
{
public:
    explicit AreaSum(Editor& editor) : m_editor(editor), m_format(unitFormatOf(editor.db())) {}

    Editor& editor() const { return m_editor; }
    bool isOnce() const { return m_mode == EMode::kOnce; }
    void setMode(EMode mode) { m_mode = mode; }
    OdString prompt(wchar_t const* text) const { return OdString(texts().prefix) + text; }
    wchar_t const* options() const { return texts().options; }

    void take(Measures const& measures)
    {
        m_editor.message(L"Area = " + areaText(measures.area, m_format) + L", " + measures.perimeterName + L" = " +
                         distanceText(measures.perimeter, m_format));
        rememberInquiry(m_editor, kPerimeter, measures.perimeter);
        m_total += m_mode == EMode::kSubtract ? -measures.area : measures.area;
        rememberInquiry(m_editor, kArea, m_total);
        if (!isOnce())
            m_editor.message(L"Total area = " + areaText(m_total, m_format));
    }

private:
    ModeTexts const& texts() const { return kModes[static_cast<std::size_t>(m_mode)]; }

    Editor& m_editor;
    UnitFormat m_format;
    EMode m_mode = EMode::kOnce;
    double m_total = 0;
};

/// Corners in the user coordinate system, all in one plane parallel to its XY plane.
class Polygon
{
public:
    Polygon(Editor const& editor, OdGePoint3d const& first)
        : m_worldToUcs(editor.ucsToWorld().inverse()), m_corners{first}
    {
    }

    bool hasArea() const { return m_corners.size() >= kLeastCorners; }
    OdGePoint3d const& last() const { return m_corners.back(); }
    void removeLast(Editor& editor)
    {
        if (m_corners.size() == 1) {
            editor.message(L"All points already undone.");
            return;
        }
        m_corners.pop_back();
        editor.setLastPoint(last());
    }

    void add(OdGePoint3d const& corner)
    {
        OdGeVector3d const offset = m_worldToUcs * (corner - m_corners.front());
        double const tolerance = OdGeContext::gTol.equalPoint() * std::max(1.0, offset.length());
        if (std::abs(offset.z) > tolerance)
            throw AnswerRejected(L"All points must lie in one plane parallel to the XY plane of the UCS.");
        m_corners.push_back(corner);
    }

    /// From the last corner back to the first one.
    Measures measures() const
    {
        Measures sum;
        OdGeVector2d previous = fromFirst(m_corners.back());
        double twice = 0;
        for (OdGePoint3d const& corner : m_corners) {
            OdGeVector2d const offset = fromFirst(corner);
            sum.perimeter += (offset - previous).length();
            twice += previous.x * offset.y - previous.y * offset.x;
            previous = offset;
        }
        sum.area = std::abs(twice) / 2;
        return sum;
    }

private:
    OdGeVector2d fromFirst(OdGePoint3d const& corner) const
    {
        return (m_worldToUcs * (corner - m_corners.front())).convert2d();
    }

    static constexpr std::size_t kLeastCorners = 3;

    OdGeMatrix3d m_worldToUcs;
    std::vector<OdGePoint3d> m_corners;
};

Task<> measurePoints(AreaSum& sum, OdGePoint3d first)
{
    Polygon polygon(sum.editor(), first);
    for (;;) {
        Prompt prompt(sum.prompt(L"Specify next point or"));
        prompt.keywords(L"Undo").base(polygon.last());
        if (polygon.hasArea())
            prompt.keywords(L"Undo Total").defaultText(L"Total");
        Answer const next = co_await sum.editor().point(prompt);
        if (next.isValue())
            polygon.add(next.point);
        else if (next.isKeyword(L"Undo"))
            polygon.removeLast(sum.editor());
        else
            break;
    }
    sum.take(polygon.measures());
}

/// Nothing for an entity without area.
std::optional<Measures> measuresOf(OdDbEntity const& entity)
{
    auto const* const curve = odCast<OdDbCurve>(&entity);
    Measures measures;
    if (!curve || curve->getArea(measures.area) != eOk || curve->getLength(measures.perimeter) != eOk)
        return std::nullopt;
    if (!curve->isClosed())
        measures.perimeterName = L"Length";
    else if (odCast<OdDbCircle>(&entity))
        measures.perimeterName = L"Circumference";
    return measures;
}

Task<> measureObjects(AreaSum& sum)
{
    do {
        Prompt prompt(sum.prompt(L"Select objects"));
        if (!sum.isOnce())
            prompt.allowEnter();
        PickedEntity const picked = co_await pickEntity(sum.editor(), prompt);
        if (picked.id.isNull())
            co_return;
        std::optional<Measures> const measures = measuresOf(*picked.id.open<OdDbEntity>());
        if (measures)
            sum.take(*measures);
        else if (sum.isOnce())
            throw AnswerRejected(L"Selected object does not have an area.");
        else
            sum.editor().message(L"Selected object does not have an area.");
    } while (!sum.isOnce());
}

Task<> areaCommand(Editor& editor)
{
    AreaSum sum(editor);
    for (;;) {
        Prompt prompt(L"Specify first corner point or");
        prompt.keywords(sum.options()).allowEnter();
        if (sum.isOnce())
            prompt.defaultText(L"Object");
        Answer const answer = co_await editor.point(prompt);
        if (answer.isKeyword(L"Add") || answer.isKeyword(L"Subtract")) {
            sum.setMode(answer.isKeyword(L"Add") ? EMode::kAdd : EMode::kSubtract);
            continue;
        }
        if (answer.isValue())
            co_await measurePoints(sum, answer.point);
        else if (answer.isKeyword(L"Object") || sum.isOnce())
            co_await measureObjects(sum);
        else
            co_return;
        if (sum.isOnce())
            co_return;
    }
}

constexpr CommandDef s_commands[] = {{L"AREA", L"AA", kNoUndoRecord, &areaCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
