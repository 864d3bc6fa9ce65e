// PLAN: looks straight down on a coordinate system, and shows the whole drawing.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/ucs_named.h"
#include "host/app/commands/view_space.h"
#include "host/app/screen_view.h"
#include "host/app/view_extents.h"
#include "host/db/records/od_db_ucs_table_record.h"

namespace ca {

namespace {

void showPlan(Editor& editor, OdGeMatrix3d const& ucsToWorld)
{
    ScreenView view = screenView(editor.db());
    view.lookAtPlan(ucsToWorld);
    view.showBox(drawingInView(editor.doc(), view));
    setScreenView(editor.doc(), view);
}

Task<> showPlanOfNamed(Editor& editor)
{
    OdDbObjectId const id = co_await askUcs(editor, L"Enter name of UCS or");
    if (id.isNull())
        co_return;
    auto const record = id.open<OdDbUCSTableRecord>();
    OdGeVector3d const zAxis = record->xAxis().crossProduct(record->yAxis());
    OdGeMatrix3d toWorld;
    toWorld.setCoordSystem(record->origin(), record->xAxis(), record->yAxis(), zAxis);
    showPlan(editor, toWorld);
}

Task<> planCommand(Editor& editor)
{
    refuseOnSheet(editor);
    Answer const answer =
        co_await editor.keyword(Prompt(L"Enter an option").keywords(L"Current Ucs World").defaultText(L"Current"));
    if (answer.isKeyword(L"Ucs"))
        co_await showPlanOfNamed(editor);
    else if (answer.isKeyword(L"World"))
        showPlan(editor, OdGeMatrix3d::kIdentity);
    else
        showPlan(editor, editor.ucsToWorld());
}

constexpr CommandDef s_commands[] = {{L"PLAN", L"", kPlain, &planCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
