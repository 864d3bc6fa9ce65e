#include "tests/host/app/selection_script.h"

#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/sds_cmd.h"
#include "host/db/od_db_selection_set.h"
#include "host/db/records/od_db_block_table_record.h"

#include <cppunit/TestAssert.h>

std::vector<OdDbObjectId> SelectionScriptTest::entities()
{
    std::vector<OdDbObjectId> ids;
    auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
    for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
        ids.push_back(it.objectId());
    return ids;
}

std::string SelectionScriptTest::letters()
{
    OdDbSelectionSetPtr const set = ca::curDoc()->previousSelection();
    auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
    std::vector<OdDbStub*> const& all = space->entities();
    std::string text;
    for (OdDbObjectId const id : set.isNull() ? std::vector<OdDbObjectId>() : set->objectIds())
        text += static_cast<char>('a' + (std::find(all.begin(), all.end(), id.stub()) - all.begin()));
    return text;
}

std::string SelectionScriptTest::messageBefore()
{
    return ca::app()->commandLine().lines().back().toUtf8();
}

void SelectionScriptTest::check(std::vector<SelectionCase> const& cases)
{
    for (SelectionCase const& each : cases) {
        OdDbSelectionSetPtr const before = ca::curDoc()->previousSelection();
        OdString const script = OdString(L"COPY|") + each.answers + L"|";
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8() + ": " + lastPrompt().toUtf8(), int(RTNORM), feed(script));
        bool const isFound = ca::curDoc()->previousSelection().get() != before.get();
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8(), std::string(each.selected),
                                     isFound ? letters() : std::string());
        sds_cmd(nullptr);
    }
}
