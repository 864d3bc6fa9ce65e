// SOLID: filled triangles and quadrilaterals, each upon the last edge of the one before.
#include "host/app/command_registry.h"
#include "host/app/commands/drawing_plane.h"
#include "host/app/commands/new_entity.h"
#include "host/db/entities/od_db_solid.h"

namespace ca {

namespace {

/// All corners lie in the plane of the first one.
class SolidRow
{
public:
    SolidRow(Editor& editor, OdGePoint3d const& first, OdGePoint3d const& second)
        : m_editor(editor), m_plane(editor, first), m_first(onPlane(first)), m_second(onPlane(second))
    {
    }

    void add(OdGePoint3d const& third, OdGePoint3d const& fourth)
    {
        OdGePoint3d const nextFirst = onPlane(third);
        OdGePoint3d const nextSecond = onPlane(fourth);
        OdDbSolidPtr const solid = new OdDbSolid;
        solid->setNormal(m_plane.normal());
        int index = 0;
        for (OdGePoint3d const& corner : {m_first, m_second, nextFirst, nextSecond})
            solid->setPointAt(index++, corner);
        appendNew(m_editor, solid);
        m_first = nextFirst;
        m_second = nextSecond;
    }

private:
    OdGePoint3d onPlane(OdGePoint3d const& point) const { return m_plane.toWorld(m_plane.toPlane(point)); }

    Editor& m_editor;
    DrawingPlane m_plane;
    OdGePoint3d m_first;
    OdGePoint3d m_second;
};

Task<> solidCommand(Editor& editor)
{
    Answer const first = co_await editor.point(Prompt(L"Specify first point"));
    Answer const second = co_await editor.point(Prompt(L"Specify second point").base(first.point));
    SolidRow row(editor, first.point, second.point);
    for (;;) {
        Answer const third = co_await editor.point(Prompt(L"Specify third point").allowEnter());
        if (third.isNone())
            co_return;
        Answer const fourth = co_await editor.point(Prompt(L"Specify fourth point or").defaultText(L"exit"));
        OdGePoint3d const& last = fourth.isNone() ? third.point : fourth.point;
        row.add(third.point, last);
    }
}

constexpr CommandDef s_commands[] = {{L"SOLID", L"SO", kPlain, &solidCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
