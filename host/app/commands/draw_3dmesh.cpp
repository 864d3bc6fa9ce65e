// 3DMESH: a polygon mesh, vertex by vertex.
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/db/entities/od_db_polygon_mesh.h"

namespace ca {

namespace {

Task<int> askSize(Editor& editor, OdString direction)
{
    Answer const size = co_await editor.integer(
        Prompt(L"Enter size of mesh in " + direction + L" direction").atLeast(2).atMost(256));
    co_return static_cast<int>(size.integer);
}

Task<> meshCommand(Editor& editor)
{
    OdDbPolygonMeshPtr const mesh = new OdDbPolygonMesh;
    int const rows = co_await askSize(editor, L"M");
    int const columns = co_await askSize(editor, L"N");
    mesh->setMSize(rows);
    mesh->setNSize(columns);
    for (int m = 0; m < rows; ++m)
        for (int n = 0; n < columns; ++n) {
            Answer const vertex =
                co_await editor.point(Prompt(odFormat(L"Specify location for vertex (%d, %d)", m, n)));
            mesh->appendVertex(new OdDbPolygonMeshVertex(vertex.point));
        }
    editor.append(mesh);
}

constexpr CommandDef s_commands[] = {{L"3DMESH", L"", kPlain, &meshCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
