#include "host/app/commands/ucs_named.h"

#include "host/app/ca_doc.h"
#include "host/app/ca_ucs_op.h"
#include "host/app/name_list.h"
#include "host/app/unit_format.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_ucs_table_record.h"

namespace ca {

namespace {

OdDbSymbolTable& ucsTable(Editor& editor)
{
    return editor.db().table(OdDbTableKind::kUcs);
}

OdString coordinatesText(OdGePoint3d const& p, UnitFormat const& format)
{
    return L"<" + distanceText(p.x, format) + L"," + distanceText(p.y, format) + L"," + distanceText(p.z, format) +
           L">";
}

void listOne(Editor& editor, OdDbUCSTableRecord const& record)
{
    UnitFormat const format = unitFormatOf(editor.db());
    OdGeMatrix3d const toUcs = editor.ucsToWorld().inverse();
    auto const direction = [&](OdGeVector3d const& axis) {
        return coordinatesText(OdGePoint3d::kOrigin + toUcs * axis, format);
    };
    editor.message(odFormat(L"\"%ls\"", record.getName().c_str()));
    editor.message(L"  Origin = " + coordinatesText(toUcs * record.origin(), format) + L", X Axis = " +
                   direction(record.xAxis()));
    editor.message(L"  Y Axis = " + direction(record.yAxis()) + L", Z Axis = " +
                   direction(record.xAxis().crossProduct(record.yAxis())));
}

Task<bool> mayReplace(Editor& editor, OdString name)
{
    Answer const answer =
        co_await editor.keyword(Prompt(odFormat(L"UCS \"%ls\" already exists. Replace it?", name.c_str()))
                                    .keywords(L"Yes No")
                                    .defaultText(L"No"));
    co_return answer.isKeyword(L"Yes");
}

OdDbUCSTableRecordPtr recordToSave(Editor& editor, OdString const& name)
{
    if (OdDbObjectId const id = ucsTable(editor).getAt(name); !id.isNull())
        return id.open<OdDbUCSTableRecord>(OdDb::kForWrite);
    OdDbUCSTableRecordPtr const record(new OdDbUCSTableRecord);
    record->setName(name);
    editor.db().getUCSTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(record);
    record->upgradeOpen();
    return record;
}

} // namespace

Task<> listUcs(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter UCS name(s) to list").defaultText(L"*"));
    OdString const list = answer.isNone() ? OdString(L"*") : answer.text;
    long long listed = 0;
    for (OdDbStub* const stub : ucsTable(editor).records()) {
        auto const& record = static_cast<OdDbUCSTableRecord const&>(*stub->object);
        if (stub->erased || !isInList(record.getName(), list))
            continue;
        listOne(editor, record);
        ++listed;
    }
    editor.message(odFormat(L"Named coordinate systems: %lld", listed));
}

Task<OdDbObjectId> askUcs(Editor& editor, OdString question)
{
    Answer const answer = co_await editor.text(Prompt(question).keywords(L"?"));
    if (answer.text == L"?") {
        co_await listUcs(editor);
        co_return OdDbObjectId();
    }
    OdDbObjectId const id = ucsTable(editor).getAt(answer.text);
    if (id.isNull())
        throw AnswerRejected(odFormat(L"UCS \"%ls\" does not exist.", answer.text.c_str()));
    co_return id;
}

Task<> restoreUcs(Editor& editor)
{
    OdDbObjectId const id = co_await askUcs(editor, L"Enter name of UCS to restore or");
    if (id.isNull())
        co_return;
    auto const record = id.open<OdDbUCSTableRecord>();
    UcsOp op(editor.doc());
    op.set(record->origin(), record->xAxis(), record->yAxis());
    op.setName(record->getName());
    op.commit();
}

Task<> saveUcs(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter name to save current UCS or").keywords(L"?"));
    if (answer.text == L"?") {
        co_await listUcs(editor);
        co_return;
    }
    OdString const name = answer.text;
    if (!OdDbSymbolTable::isValidName(name))
        throw AnswerRejected(odFormat(L"\"%ls\" is not a valid name.", name.c_str()));
    if (ucsTable(editor).has(name)) {
        bool const isAgreed = co_await mayReplace(editor, name);
        if (!isAgreed)
            co_return;
    }
    UcsOp op(editor.doc());
    OdDbUCSTableRecordPtr const record = recordToSave(editor, name);
    record->setOrigin(op.origin());
    record->setAxes(op.xAxis(), op.yAxis());
    op.setName(record->getName());
    op.commit();
}

Task<> deleteUcs(Editor& editor)
{
    Answer const answer = co_await editor.text(Prompt(L"Enter UCS name(s) to delete"));
    std::vector<OdDbObjectId> const ids = recordsOfList(ucsTable(editor), answer.text, L"UCS");
    for (OdDbObjectId const id : ids)
        id.safeOpenObject(OdDb::kForWrite)->erase();
    if (!ucsTable(editor).has(currentUcsName(editor.doc()))) {
        UcsOp op(editor.doc()); // the system stays, without its name
        op.setName({});
        op.commit();
    }
    editor.message(odFormat(ids.size() == 1 ? L"%lld UCS name was deleted." : L"%lld UCS names were deleted.",
                            static_cast<long long>(ids.size())));
}

Task<> namedUcs(Editor& editor)
{
    Answer const answer = co_await editor.keyword(Prompt(L"Enter an option").keywords(L"Restore Save Delete ?"));
    if (answer.isKeyword(L"Restore"))
        co_await restoreUcs(editor);
    else if (answer.isKeyword(L"Save"))
        co_await saveUcs(editor);
    else if (answer.isKeyword(L"Delete"))
        co_await deleteUcs(editor);
    else
        co_await listUcs(editor);
}

} // namespace ca
