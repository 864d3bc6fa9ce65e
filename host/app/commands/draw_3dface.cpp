// 3DFACE: triangles and quadrilaterals in space, each upon the last edge of the one before.
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/db/entities/od_db_face.h"

#include <array>
#include <optional>

namespace ca {

namespace {

struct FaceCorner
{
    std::optional<OdGePoint3d> point; ///< nothing where Enter answered
    bool hidesEdge = false;           ///< that to the next corner
};

/// `onEnter` is what Enter means, as the prompt shows it; empty where Enter is no answer.
Task<FaceCorner> askCorner(Editor& editor, OdString which, OdString onEnter)
{
    FaceCorner corner;
    for (;;) {
        Prompt prompt(L"Specify " + which + L" point or");
        prompt.keywords(L"Invisible");
        if (!onEnter.isEmpty())
            prompt.defaultText(onEnter);
        Answer const answer = co_await editor.point(prompt);
        if (answer.isKeyword()) {
            corner.hidesEdge = true;
            continue;
        }
        if (answer.isValue())
            corner.point = answer.point;
        co_return corner;
    }
}

void drawFace(Editor& editor, std::array<FaceCorner, 4> const& corners)
{
    OdDbFacePtr const face =
        new OdDbFace(*corners[0].point, *corners[1].point, *corners[2].point, *corners[3].point);
    for (int i = 0; i < 4; ++i)
        if (corners[static_cast<std::size_t>(i)].hidesEdge)
            face->makeEdgeInvisibleAt(i);
    editor.append(face);
}

Task<> faceCommand(Editor& editor)
{
    std::array<FaceCorner, 4> corners;
    corners[0] = co_await askCorner(editor, L"first", L"");
    corners[1] = co_await askCorner(editor, L"second", L"");
    for (;;) {
        corners[2] = co_await askCorner(editor, L"third", L"exit");
        if (!corners[2].point)
            co_return;
        corners[3] = co_await askCorner(editor, L"fourth", L"create three-sided face");
        if (!corners[3].point) { // the edge from the third corner back to the first leaves the fourth, too
            corners[3].point = corners[2].point;
            corners[3].hidesEdge = corners[3].hidesEdge || corners[2].hidesEdge;
        }
        drawFace(editor, corners);
        corners[0] = corners[2];
        corners[1] = corners[3];
    }
}

constexpr CommandDef s_commands[] = {{L"3DFACE", L"3F", kPlain, &faceCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
