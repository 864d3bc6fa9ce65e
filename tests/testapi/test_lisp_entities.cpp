// Entities from LISP texts: what tests write down as lists becomes a drawing, and lists change it.
#include "testapi/ta_rb_utils_lisp.h"

#include "host/db/records/od_db_linetype_table_record.h"
#include "tests/host/app/document_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace {

class LispEntitiesTest : public DocumentFixture
{
    CPPUNIT_TEST_SUITE(LispEntitiesTest);
    CPPUNIT_TEST(handlesBecomeNames);
    CPPUNIT_TEST(listsAsProgramsWriteThem);
    CPPUNIT_TEST(listsOfRealDrawings);
    CPPUNIT_TEST_SUITE_END();

    static ca::RbListPtr chainOf(std::wstring const& text)
    {
        sds_resbuf* list = nullptr;
        CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(text).toUtf8(), 0, ta::lspexpr2rb(text.c_str(), &list));
        ca::RbListPtr const owner(list);
        CPPUNIT_ASSERT_EQUAL(0, ta::nameHandles(list, *ca::curDb()));
        sds_resbuf* chain = nullptr;
        CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(text).toUtf8(), 0, ta::lisp2sds(list, &chain));
        return ca::RbListPtr(chain);
    }
    static bool make(std::wstring const& text) { return sds_entmake(chainOf(text).get()) == RTNORM; }
    static OdDbEntityPtr last()
    {
        SdsName name;
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entlast(name.words));
        return ca::objectIdOf(name.words).open<OdDbEntity>();
    }

    void handlesBecomeNames()
    {
        newDocument();
        CPPUNIT_ASSERT(make(L"((0 . \"LINE\") (10 1 2 0) (11 3 4 5))"));
        std::wstring const handle = last()->objectId().getHandle().ascii().str();
        ca::RbListPtr const chain =
            chainOf(L"((330 . \"" + handle + L"\") (340 . \"FFFFFF\") (350 . \"0\") (5 . \"1F\"))");
        CPPUNIT_ASSERT(ca::objectIdOf(chain->resval.rlname) == last()->objectId());
        sds_resbuf const* node = chain->rbnext;
        for (; node->restype != 5; node = node->rbnext)
            CPPUNIT_ASSERT(node->resval.rlname[0] == 0 && node->resval.rlname[1] == 0);
        CPPUNIT_ASSERT(std::wstring(L"1F") == node->resval.rstring);

        sds_resbuf* list = nullptr;
        std::wstring const others = L"((330 . \"LINE\") (330 \"1F\") (A . \"1F\") (330 . (\"1F\")) (330 .";
        CPPUNIT_ASSERT_EQUAL(0, ta::lspexpr2rb((others + L"))").c_str(), &list));
        ca::RbListPtr const owner(list);
        CPPUNIT_ASSERT_EQUAL(0, ta::nameHandles(list, *ca::curDb()));
        for (; list; list = list->rbnext)
            CPPUNIT_ASSERT(list->restype != RTENAME);
    }

    void listsAsProgramsWriteThem()
    {
        newDocument();
        CPPUNIT_ASSERT(make(L"((0 . \"LINE\") (10 1.0 2.0) (11 3 4 5) (8 . \"Walls\") (62 . 1))"));
        OdDbLinePtr const line(last());
        CPPUNIT_ASSERT(line->startPoint() == OdGePoint3d(1, 2, 0) && line->endPoint() == OdGePoint3d(3, 4, 5));
        CPPUNIT_ASSERT(make(L"((0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (40 . 0.3)"
                            L" (70 . 0) (90 . 2) (10 0 0) (10 4 0) (-3 (\"CENSUS\" (1000 . \"x\") (1070 . 2))))"));
        CPPUNIT_ASSERT_EQUAL(2u, OdDbPolylinePtr(last())->numVerts());
        CPPUNIT_ASSERT(!last()->extendedData(L"CENSUS").empty());
        CPPUNIT_ASSERT(make(L"((0 . \"POLYLINE\") (10 0 0 0))"));
        for (wchar_t const* const vertex : {L"(10 0 0 0)", L"(10 1 0 0)", L"(10 1 1 0)"})
            CPPUNIT_ASSERT(make(std::wstring(L"((0 . \"VERTEX\") ") + vertex + L")"));
        CPPUNIT_ASSERT(make(L"((0 . \"SEQEND\"))"));
        CPPUNIT_ASSERT_EQUAL(3u, last()->numParts());
        CPPUNIT_ASSERT(
            make(L"((0 . \"ATTDEF\") (1 . \"\") (2 . \"TAG\") (3 . \"Value?\") (10 0 0 0) (40 . 2.5) (70 . 0))"));
        CPPUNIT_ASSERT(!make(L"((0 . \"CIRCLE\") (10 0 0 0))"));

        ca::RbListPtr const change = chainOf(L"((0 . \"LINE\") (10 7 7 7))");
        ca::RbListPtr name(ca::allocRb(-1));
        std::ranges::copy(ca::nameOf(line->objectId()).words, name->resval.rlname);
        name->rbnext = change.get();
        CPPUNIT_ASSERT_EQUAL(int(RTNORM), sds_entmod(name.get()));
        name->rbnext = nullptr;
        CPPUNIT_ASSERT(line->startPoint() == OdGePoint3d(7, 7, 7) && line->endPoint() == OdGePoint3d(3, 4, 5));
    }

    template <class Record>
    static void addRecord(OdDbTableKind kind, wchar_t const* name)
    {
        OdSmartPtr<Record> const record(new Record);
        record->setName(name);
        ca::curDb()->getTableId(kind).open<OdDbSymbolTable>(OdDb::kForWrite)->add(record);
    }

    /// What the lists of the real drawings name and lists cannot make.
    void newDocumentWithRecords()
    {
        newDocument();
        addRecord<OdDbTextStyleTableRecord>(OdDbTableKind::kTextStyle, L"MyTextStyle");
        for (wchar_t const* const linetype : {L"DASHED", L"BATTING", L"GAS_LINE"})
            addRecord<OdDbLinetypeTableRecord>(OdDbTableKind::kLinetype, linetype);
        CPPUNIT_ASSERT(make(L"((0 . \"BLOCK\") (2 . \"MyBlock\") (70 . 0) (10 0 0 0))"));
        CPPUNIT_ASSERT(make(L"((0 . \"ENDBLK\"))"));
    }

    void listsOfRealDrawings()
    {
        char const* const corpus = std::getenv("VORN_CORPUS");
        if (!corpus) {
            std::cout << "skipped: VORN_CORPUS names no folder of LISP texts\n";
            return;
        }
        for (char const* const name : {"entity_lists_leader_mleader.lsp", "entity_lists_netdxf_sample.lsp"}) {
            newDocumentWithRecords();
            ut::TextFile file;
            CPPUNIT_ASSERT(
                file.open(OdString::fromUtf8((std::filesystem::path(corpus) / "lisp" / name).string())));
            int numLists = 0;
            for (std::wstring_view const line : ut::splitLines(file.text().str()))
                if (line.starts_with(L"((")) {
                    ++numLists;
                    CPPUNIT_ASSERT_MESSAGE(OdString(std::wstring(line)).toUtf8(), make(std::wstring(line)));
                }
            CPPUNIT_ASSERT(numLists > 0);
        }
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(LispEntitiesTest);

} // namespace
