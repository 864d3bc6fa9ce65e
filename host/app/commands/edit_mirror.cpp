// MIRROR: at a line of the XY plane of the user coordinate system.
#include "host/app/command_registry.h"
#include "host/app/commands/entity_changes.h"
#include "host/app/select_objects.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

/// The plane stands upright on the user coordinate system.
Transformation mirrorAt(Editor const& editor, OdGePoint3d const& first, OdGePoint3d const& second)
{
    OdGeVector3d const across = editor.ucsNormal().crossProduct(second - first);
    if (across.isZeroLength())
        throw AnswerRejected(L"The mirror line has no direction in the XY plane.");
    Transformation mirror(OdGeMatrix3d::mirroringAtPlane(first, across));
    mirror.keepsTextsReadable = editor.db().header().integer("MIRRTEXT") == 0;
    return mirror;
}

Task<> mirrorCommand(Editor& editor)
{
    Ids const ids = co_await selectObjects(editor);
    if (ids.empty())
        co_return;
    Answer const first = co_await editor.point(Prompt(L"Specify first point of mirror line"));
    Answer const second = co_await editor.point(Prompt(L"Specify second point of mirror line").base(first.point));
    Transformation const mirror = mirrorAt(editor, first.point, second.point);
    Answer const erasing =
        co_await editor.keyword(Prompt(L"Erase source objects?").keywords(L"Yes No").defaultText(L"No"));
    transformOrCopy(editor, ids, mirror, !erasing.isKeyword(L"Yes"), L"mirrored");
}

constexpr CommandDef s_commands[] = {{L"MIRROR", L"MI", kPlain, &mirrorCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
