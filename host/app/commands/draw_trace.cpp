// TRACE: a chain of wide line pieces with mitered joints.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/ask_number.h"
#include "host/app/commands/drawing_plane.h"
#include "host/app/commands/new_entity.h"
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_trace.h"

namespace ca {

namespace {

/// A piece can be drawn once it is known how the next one leaves its end, so the drawing lags one piece behind.
class TraceChain
{
public:
    TraceChain(Editor& editor, OdGePoint3d const& start, double width)
        : m_editor(editor), m_plane(editor, start), m_halfWidth(width / 2), m_end(m_plane.toPlane(start))
    {
    }

    void add(OdGePoint3d const& point)
    {
        OdGePoint2d const next = m_plane.toPlane(point);
        OdGeVector2d const direction = (next - m_end).normal();
        if (next.isEqualTo(m_end))
            throw AnswerRejected(L"The two points are the same.");
        OdGeVector2d const square = direction.perpVector() * m_halfWidth;
        if (m_hasPiece) {
            std::optional<OdGeVector2d> const miter = miterTo(direction);
            drawPiece(miter ? *miter : m_direction.perpVector() * m_halfWidth);
            m_startSide = miter ? *miter : square;
        } else {
            m_startSide = square;
        }
        m_hasPiece = true;
        m_start = m_end;
        m_end = next;
        m_direction = direction;
    }

    void finish()
    {
        if (m_hasPiece)
            drawPiece(m_direction.perpVector() * m_halfWidth);
    }

private:
    /// From the joint to the left corner of the mitered edge; nothing where the chain turns back so sharply that
    /// the corner would lie far out.
    std::optional<OdGeVector2d> miterTo(OdGeVector2d const& direction) const
    {
        constexpr double kLeastCosine = 0.1; // the corner lies up to ten half widths out
        OdGeVector2d const middle = (m_direction.perpVector() + direction.perpVector()).normal();
        double const cosine = middle.dotProduct(direction.perpVector());
        if (cosine < kLeastCosine)
            return std::nullopt;
        return middle * (m_halfWidth / cosine);
    }

    void drawPiece(OdGeVector2d const& endSide)
    {
        OdDbTracePtr const trace = new OdDbTrace;
        trace->setNormal(m_plane.normal());
        int index = 0;
        for (OdGePoint2d const& corner :
             {m_start + m_startSide, m_start - m_startSide, m_end + endSide, m_end - endSide})
            trace->setPointAt(index++, m_plane.toWorld(corner));
        appendNew(m_editor, trace);
    }

    Editor& m_editor;
    DrawingPlane m_plane;
    double m_halfWidth;
    bool m_hasPiece = false;
    OdGePoint2d m_start; ///< of the piece that is not drawn yet
    OdGePoint2d m_end;
    OdGeVector2d m_startSide; ///< from its start to its left corner there
    OdGeVector2d m_direction;
};

Task<double> askTraceWidth(Editor& editor)
{
    SysVar const& last = *SysVar::find(L"TRACEWID");
    double const present = std::get<double>(last.value(&editor.doc()));
    double const width = co_await askDistance(editor, Prompt(L"Specify trace width").atLeast(0, true), present);
    if (width != present)
        last.set(width, &editor.doc());
    co_return width;
}

Task<> traceCommand(Editor& editor)
{
    double const width = co_await askTraceWidth(editor);
    Answer const start = co_await editor.point(Prompt(L"Specify start point"));
    TraceChain chain(editor, start.point, width);
    OdGePoint3d end = start.point;
    for (;;) {
        Answer const next = co_await editor.point(Prompt(L"Specify next point").base(end).allowEnter());
        if (next.isNone())
            break;
        chain.add(next.point);
        end = next.point;
    }
    chain.finish();
}

constexpr CommandDef s_commands[] = {{L"TRACE", L"", kPlain, &traceCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
