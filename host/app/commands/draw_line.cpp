// LINE: a chain of separate lines. Each is in the drawing at once, so that a cancelled command leaves what was
// drawn.
#include "host/app/command_registry.h"
#include "host/app/commands/drawn_end.h"
#include "host/app/commands/new_entity.h"
#include "host/db/entities/od_db_line.h"

namespace ca {

namespace {

class LineChain
{
public:
    LineChain(Editor& editor, OdGePoint3d const& start) : m_editor(editor), m_points{start} {}

    OdGePoint3d const& end() const { return m_points.back(); }
    bool canClose() const { return m_lines.size() >= 2; }

    void add(OdGePoint3d const& point)
    {
        OdDbLinePtr const line = new OdDbLine(end(), point);
        line->setNormal(m_editor.ucsNormal());
        m_lines.push_back(appendNew(m_editor, line));
        rememberEnd(m_editor, point, point - end());
        m_points.push_back(point);
    }

    void close() { add(OdGePoint3d(m_points.front())); }

    void undo()
    {
        if (m_lines.empty()) {
            m_editor.message(L"All segments already undone.");
            return;
        }
        m_lines.back().safeOpenObject(OdDb::kForWrite)->erase();
        m_lines.pop_back();
        m_points.pop_back();
        m_editor.setLastPoint(end());
    }

private:
    Editor& m_editor;
    std::vector<OdGePoint3d> m_points;
    std::vector<OdDbObjectId> m_lines;
};

Task<> drawChain(Editor& editor, LineChain& chain)
{
    for (;;) {
        OdString const options = chain.canClose() ? L"Close Undo" : L"Undo";
        Answer const next = co_await editor.point(
            Prompt(L"Specify next point or").keywords(options).base(chain.end()).allowEnter());
        if (next.isNone())
            co_return;
        if (next.isKeyword(L"Close")) {
            chain.close();
            co_return;
        }
        if (next.isKeyword())
            chain.undo();
        else
            chain.add(next.point);
    }
}

/// Draws on where the last line or arc ended. Behind an arc the first line is tangent, so only its length is free.
Task<> continueLine(Editor& editor)
{
    DrawnEnd const from = drawnEndToContinue(editor);
    LineChain chain(editor, from.point);
    editor.setLastPoint(from.point);
    if (from.isCurved) {
        Answer const length = co_await editor.distance(Prompt(L"Length of line").base(from.point).notZero());
        chain.add(from.point + from.direction * length.real);
    }
    co_await drawChain(editor, chain);
}

Task<> lineCommand(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first point").allowEnter());
    if (first.isNone()) {
        co_await continueLine(editor);
        co_return;
    }
    LineChain chain(editor, first.point);
    co_await drawChain(editor, chain);
}

constexpr CommandDef s_commands[] = {{L"LINE", L"L", kPlain, &lineCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
