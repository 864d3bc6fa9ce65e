// PFACE: a polyface mesh: its vertices, then its faces by the numbers of their vertices.
#include "host/app/color_text.h"
#include "host/app/command_registry.h"
#include "host/app/commands/polyface_faces.h"
#include "host/app/editor.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_layer_table_record.h"

namespace ca {

namespace {

/// What the next faces get.
struct FaceProperties
{
    OdCmColor color;
    OdDbObjectId layer;
};

/// The mesh as far as it is known; it stands in the drawing once all is.
struct MeshDraft
{
    struct Face
    {
        std::vector<int> corners;
        FaceProperties properties;
    };
    std::vector<OdGePoint3d> vertices;
    std::vector<Face> faces;
};

Task<> askVertices(Editor& editor, MeshDraft& mesh)
{
    constexpr std::size_t kMost = 32767; // faces number them with 16 bits
    while (mesh.vertices.size() < kMost) {
        bool const isFirst = mesh.vertices.empty();
        Prompt prompt(odFormat(L"Specify location for vertex %d%ls", static_cast<int>(mesh.vertices.size()) + 1,
                               isFirst ? L"" : L" or"));
        if (!isFirst)
            prompt.defaultText(L"define faces");
        Answer const vertex = co_await editor.point(prompt);
        if (vertex.isNone())
            co_return;
        mesh.vertices.push_back(vertex.point);
    }
}

Task<> askColor(Editor& editor, FaceProperties& properties)
{
    Answer const answer = co_await editor.text(
        Prompt(L"Enter a color number or standard color name").defaultText(colorText(properties.color)));
    if (answer.isNone())
        co_return;
    std::optional<OdCmColor> const color = parseEntityColor(answer.text);
    if (!color)
        throw AnswerRejected(L"Requires a color: BYLAYER, BYBLOCK, a number between 1 and 255 or the name of one "
                             L"of the first seven.");
    properties.color = *color;
}

Task<> askLayer(Editor& editor, FaceProperties& properties)
{
    OdString const present = properties.layer.open<OdDbLayerTableRecord>()->getName();
    Answer const answer = co_await editor.text(Prompt(L"Enter a layer name").defaultText(present));
    if (answer.isNone())
        co_return;
    OdDbObjectId const layer = editor.db().table(OdDbTableKind::kLayer).getAt(answer.text);
    if (layer.isNull())
        throw AnswerRejected(odFormat(L"Layer \"%ls\" does not exist.", answer.text.c_str()));
    properties.layer = layer;
}

/// One face; false when Enter answered where it would begin.
Task<bool> askFace(Editor& editor, MeshDraft& mesh, FaceProperties& properties)
{
    std::vector<int> corners;
    int const count = static_cast<int>(mesh.vertices.size());
    int const number = static_cast<int>(mesh.faces.size()) + 1;
    for (;;) {
        Prompt prompt(odFormat(L"Face %d, vertex %d: Enter a vertex number or", number,
                               static_cast<int>(corners.size()) + 1));
        prompt.keywords(L"Color Layer");
        if (!corners.empty())
            prompt.defaultText(L"next face");
        else if (number > 1)
            prompt.allowEnter();
        Answer const answer = co_await editor.integer(prompt);
        if (answer.isKeyword(L"Color")) {
            co_await askColor(editor, properties);
        } else if (answer.isKeyword()) {
            co_await askLayer(editor, properties);
        } else if (answer.isValue()) {
            if (answer.integer == 0 || std::abs(answer.integer) > count)
                throw AnswerRejected(
                    odFormat(L"Requires the number of a vertex, 1 to %d, or its negative.", count));
            corners.push_back(static_cast<int>(answer.integer));
        } else {
            break;
        }
    }
    if (corners.empty())
        co_return false;
    mesh.faces.push_back({corners, properties});
    co_return true;
}

/// Faces are added to a mesh that stands in the drawing, since they keep their own colors and layers then.
void drawMesh(Editor& editor, MeshDraft const& draft)
{
    OdDbPolyFaceMeshPtr const mesh = new OdDbPolyFaceMesh;
    editor.append(mesh);
    mesh->upgradeOpen();
    for (OdGePoint3d const& vertex : draft.vertices)
        mesh->appendVertex(new OdDbPolyFaceMeshVertex(vertex));
    for (MeshDraft::Face const& face : draft.faces)
        for (OdDbFaceRecordPtr const& record : polyfaceRecords(face.corners)) {
            record->setPropertiesFrom(*mesh);
            record->setColor(face.properties.color);
            record->setLayer(face.properties.layer);
            mesh->appendFaceRecord(record);
        }
}

Task<> pfaceCommand(Editor& editor)
{
    MeshDraft mesh;
    co_await askVertices(editor, mesh);
    FaceProperties properties;
    properties.color = editor.db().getCECOLOR();
    properties.layer = editor.db().getCLAYER();
    for (bool goesOn = true; goesOn;)
        goesOn = co_await askFace(editor, mesh, properties);
    drawMesh(editor, mesh);
}

constexpr CommandDef s_commands[] = {{L"PFACE", L"", kPlain, &pfaceCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
