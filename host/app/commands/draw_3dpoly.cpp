// 3DPOLY: straight segments in space as one polyline. It stands in the drawing from its first segment on, so that
// a cancelled command leaves what was drawn.
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/db/entities/od_db_3d_polyline.h"

namespace ca {

namespace {

class Polyline3dDrawing
{
public:
    Polyline3dDrawing(Editor& editor, OdGePoint3d const& start) : m_editor(editor), m_points{start} {}

    OdGePoint3d const& end() const { return m_points.back(); }
    bool canClose() const { return m_vertices.size() >= 2; }

    void add(OdGePoint3d const& point)
    {
        if (m_vertices.empty())
            begin();
        m_vertices.push_back(open()->appendVertex(new OdDb3dPolylineVertex(point)));
        m_points.push_back(point);
    }

    void close() { open()->setClosed(true); }

    void undo()
    {
        if (m_vertices.empty()) {
            m_editor.message(L"All segments already undone.");
            return;
        }
        OdDbObjectId const gone = m_vertices.size() > 1 ? m_vertices.back() : m_polyline;
        gone.safeOpenObject(OdDb::kForWrite)->erase();
        m_vertices.pop_back();
        m_points.pop_back();
        m_editor.setLastPoint(end());
    }

private:
    OdDb3dPolylinePtr open() const { return m_polyline.open<OdDb3dPolyline>(OdDb::kForWrite); }
    void begin()
    {
        OdDb3dPolylinePtr const polyline = new OdDb3dPolyline;
        polyline->appendVertex(new OdDb3dPolylineVertex(m_points.front()));
        m_polyline = m_editor.append(polyline);
    }

    Editor& m_editor;
    std::vector<OdGePoint3d> m_points;
    std::vector<OdDbObjectId> m_vertices; ///< without the first
    OdDbObjectId m_polyline;              ///< while there are vertices
};

Task<> polyline3dCommand(Editor& editor)
{
    Answer const start = co_await editor.point(Prompt(L"Specify start point of polyline"));
    Polyline3dDrawing drawing(editor, start.point);
    for (;;) {
        OdString const options = drawing.canClose() ? L"Close Undo" : L"Undo";
        Answer const next = co_await editor.point(
            Prompt(L"Specify endpoint of line or").keywords(options).base(drawing.end()).allowEnter());
        if (next.isNone())
            co_return;
        if (next.isKeyword(L"Close")) {
            drawing.close();
            co_return;
        }
        if (next.isKeyword())
            drawing.undo();
        else
            drawing.add(next.point);
    }
}

constexpr CommandDef s_commands[] = {{L"3DPOLY", L"3P", kPlain, &polyline3dCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
