#include "host/app/sys_var_snapshot.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "tests/host/app/document_fixture.h"

namespace {

using ca::SysVar;

std::string textOf(wchar_t const* name)
{
    return SysVar::find(name)->text().toUtf8();
}

class SysVarSnapshotTest : public DocumentFixture
{
    CPPUNIT_TEST_SUITE(SysVarSnapshotTest);
    CPPUNIT_TEST(namesWhatChanged);
    CPPUNIT_TEST(bringsEverythingBack);
    CPPUNIT_TEST(passesOverDocumentsThatComeAndGo);
    CPPUNIT_TEST(namesWhatCannotBeBroughtBack);
    CPPUNIT_TEST_SUITE_END();

    static std::string shown(std::vector<ca::SysVarDifference> const& differences)
    {
        OdString text;
        for (ca::SysVarDifference const& each : differences)
            text += each.name + L" " + each.before + L"->" + each.after + L";";
        return text.toUtf8();
    }

public:
    void namesWhatChanged()
    {
        ca::CaDoc& document = newDocument();
        ca::SysVarSnapshot snapshot;
        snapshot.take();
        CPPUNIT_ASSERT_EQUAL(std::string(), shown(snapshot.differences()));
        SysVar::find(L"OSMODE")->set(5);
        SysVar::find(L"LTSCALE")->set(3.5);
        SysVar::find(L"NAVVCUBEDISPLAY")->set(1);
        SysVar::find(L"CIRCLERAD")->set(9.0); // remembered by commands, not a difference
        SysVar::find(L"ATTREQ")->set(0);
        SysVar::find(L"ATTREQ")->set(1);
        std::vector<ca::SysVarDifference> const found = snapshot.differences();
        CPPUNIT_ASSERT_EQUAL(std::string("LTSCALE 1->3.5;NAVVCUBEDISPLAY 3->1;OSMODE 37->5;"), shown(found));
        CPPUNIT_ASSERT(found[0].document == document.title() && found[2].document.isEmpty());
        snapshot.take();
        CPPUNIT_ASSERT_EQUAL(std::string(), shown(snapshot.differences()));
        SysVar::find(L"LTSCALE")->set(1.0);
        CPPUNIT_ASSERT_EQUAL(std::string("LTSCALE 3.5->1;"), shown(snapshot.differences()));
    }

    void bringsEverythingBack()
    {
        newDocument();
        SysVar::find(L"SRCHPATH")->setText(L"/before");
        ca::SysVarSnapshot snapshot;
        snapshot.take();
        SysVar::find(L"SRCHPATH")->setText(L"/after");
        SysVar::find(L"CIRCLERAD")->set(9.0);
        SysVar::find(L"LASTPOINT")->setText(L"1,2,3");
        SysVar::find(L"GRIDMODE")->set(1);
        SysVar::find(L"CECOLOR")->setText(L"5");
        CPPUNIT_ASSERT_EQUAL(std::string(), shown(snapshot.restore()));
        CPPUNIT_ASSERT_EQUAL(std::string("/before 0 0,0,0 0 BYLAYER"),
                             textOf(L"SRCHPATH") + " " + textOf(L"CIRCLERAD") + " " + textOf(L"LASTPOINT") + " " +
                                 textOf(L"GRIDMODE") + " " + textOf(L"CECOLOR"));
    }

    void passesOverDocumentsThatComeAndGo()
    {
        ca::CaDoc& kept = newDocument();
        ca::CaDoc& closed = newDocument();
        ca::SysVarSnapshot snapshot;
        snapshot.take();
        SysVar::find(L"LTSCALE")->set(2.0, &closed);
        closed.close();
        SysVar::find(L"LTSCALE")->set(3.0, &newDocument());
        CPPUNIT_ASSERT_EQUAL(std::string(), shown(snapshot.differences()));
        SysVar::find(L"LTSCALE")->set(4.0, &kept);
        CPPUNIT_ASSERT_EQUAL(std::string("LTSCALE 1->4;"), shown(snapshot.differences()));
    }

    void namesWhatCannotBeBroughtBack()
    {
        OdDbDatabase& db = *newDocument().database();
        OdDbLayerTableRecordPtr const layer = new OdDbLayerTableRecord;
        layer->setName(L"Walls");
        db.getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(layer);
        SysVar::find(L"CLAYER")->setText(L"Walls");
        ca::SysVarSnapshot snapshot;
        snapshot.take();
        SysVar::find(L"CLAYER")->setText(L"0");
        layer->erase();
        CPPUNIT_ASSERT_EQUAL(std::string("CLAYER Walls->0;"), shown(snapshot.restore()));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SysVarSnapshotTest);

} // namespace
