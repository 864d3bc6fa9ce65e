#include "tests/support/captured_output.h"
#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

#include <iostream>
#include <sstream>

namespace {

/// Counts what the hook is given, and compares a line with the reference's.
class ComparingTest : public ta::TestCmdArg
{
public:
    using TestCmdArg::TestCmdArg;
    int calls = 0;
    bool hadReference = false;

    void assertReference(ReferenceContext const& context) override
    {
        ++calls;
        hadReference = context.referenceDb() != nullptr;
        if (!hadReference)
            return;
        CPPUNIT_ASSERT(context.referenceDb() != curDb());
        auto const expected = context.getObjectId(context.node(), L"entity").open<OdDbLine>();
        auto const actual = getObjectId(context.node(), L"entity").open<OdDbLine>();
        CPPUNIT_ASSERT(expected->endPoint() == actual->endPoint());
    }
};

class CmdAssertionsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CmdAssertionsTest);
    CPPUNIT_TEST(passing);
    CPPUNIT_TEST(failures);
    CPPUNIT_TEST(entitiesOfOtherClasses);
    CPPUNIT_TEST(referenceHook);
    CPPUNIT_TEST(comparesWithAnotherDrawing);
    CPPUNIT_TEST(savesReferences);
    CPPUNIT_TEST(savesReferencesOfUnnamedDrawings);
    CPPUNIT_TEST(referenceThatCannotBeSaved);
    CPPUNIT_TEST_SUITE_END();

    CmdTestFolder m_folder;
    OdString m_line; // handles
    OdString m_insertOfA;

    static OdDbObjectId add(OdDbEntity* entity)
    {
        auto const space = ca::curDb()->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        return space->appendOdDbEntity(entity);
    }
    static OdDbObjectId addBlock(wchar_t const* name)
    {
        auto const block = OdSmartPtr<OdDbBlockTableRecord>(new OdDbBlockTableRecord);
        block->setName(name);
        auto const table = ca::curDb()->getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
        return table->add(block.get());
    }
    std::string operation(std::string const& text) const { return "<t dwgName='sample.dwg'>\n" + text + "\n</t>"; }

public:
    void setUp() override
    {
        CPPUNIT_ASSERT(ca::app()->openFile());
        OdDbObjectId const blockA = addBlock(L"A");
        addBlock(L"B");
        addBlock(L"gone").safeOpenObject(OdDb::kForWrite)->erase();
        OdDbBlockReferencePtr const insert = new OdDbBlockReference;
        OdDbObjectId const insertId = add(insert.get());
        insert->setBlockTableRecord(blockA);
        OdDbLinePtr const line = new OdDbLine;
        line->setEndPoint(OdGePoint3d(3, 4, 0));
        m_line = add(line.get()).getHandle().ascii();
        m_insertOfA = insertId.getHandle().ascii();
        CPPUNIT_ASSERT(ca::curDoc()->saveAs(m_folder / "sample.dwg", 60));
        ca::curDoc()->close();
    }
    void tearDown() override { CPPUNIT_ASSERT_EQUAL(0, ca::app()->getDocumentsCount()); }

    void passing()
    {
        std::string const line = m_line.toUtf8();
        CPPUNIT_ASSERT_EQUAL(
            std::string(),
            m_folder.run(operation("<assert_not_erased entities='" + line + "," + m_insertOfA.toUtf8() + "'/>" +
                                   "<assert_blocks_exist names='a,B'/><assert_blocks_dont_exist names='gone,C'/>"
                                   "<assert_inserts_of_block blockName='A' inserts='" +
                                   m_insertOfA.toUtf8() + "'/>" +
                                   "<command name='ERASE'><sset><fullSubentPath entities='" + line +
                                   "'/></sset></command><assert_erased entities='" + line + "'/>")));
    }

    void failures()
    {
        std::string const line = m_line.toUtf8();
        std::string const insert = m_insertOfA.toUtf8();
        struct Row
        {
            std::string operation;
            std::string failure;
        };
        Row const rows[] = {
            {"<assert_erased entities='" + line + "'/>", "Expression: false|Expected " + line + " is erased"},
            {"<assert_erased entities='none'/>", "Expression: id.isValid()|Invalid handle: none"},
            {"<assert_erased/>", "Expression: !names.empty()|Entity list cannot be empty"},
            {"<assert_not_erased entities='a,,b'/>", "Expression: !token.isEmpty()|Entity name cannot be empty"},
            // The word "doesn't " goes through as raw bytes, which no report can show.
            {"<assert_blocks_exist names='A,gone'/>",
             "Expression: false|Block gone \xEF\xBF\xBD\xEF\xBF\xBD exist"},
            {"<assert_blocks_dont_exist names='C,b'/>", "Expression: false|Block b  exist"},
            {"<assert_inserts_of_block blockName='C' inserts='" + insert + "'/>",
             "Expression: !blockId.isNull()|Block C doesn't exist"},
            {"<assert_inserts_of_block blockName='B' inserts='" + insert + "'/>",
             "Expression: insert->blockTableRecord() == blockId|Insert " + insert +
                 " is not an instance of block B"},
            {"<assertReference dwgName='no.dwg'/>", "Expression: fileName.fileExists()|File not found: @/no.dwg"},
            {"<assertReference dwgName='t.xml'/>", "Expression: !refDb.isNull()|@/t.xml:1: This is not a drawing: "
                                                   "no group code 0 or 999 in the first line"},
        };
        for (Row const& row : rows) {
            std::string const name = row.operation.substr(1, row.operation.find_first_of(" /") - 1);
            CPPUNIT_ASSERT_EQUAL("assertion failed|" + row.failure + "|Operation '" + name + "' at @/t.xml:2",
                                 m_folder.run(operation(row.operation)));
        }
        std::string const erase =
            "<command name='ERASE'><sset><fullSubentPath entities='" + line + "'/></sset></command>\n";
        CPPUNIT_ASSERT_EQUAL("assertion failed|Expression: false|Expected " + line +
                                 " is not erased|Operation 'assert_not_erased' at @/t.xml:3",
                             m_folder.run(operation(erase + "<assert_not_erased entities='" + line + "'/>")));
    }

    void entitiesOfOtherClasses()
    {
        CPPUNIT_ASSERT_EQUAL(
            std::string("OdError|Object of class OdDbLine is not of class OdDbBlockReference"),
            m_folder.run(operation("<assert_inserts_of_block blockName='A' inserts='" + m_line.toUtf8() + "'/>")));
    }

    void referenceHook()
    {
        std::string const place = "|Operation 'assertReference' at @/t.xml:2";
        for (std::string const attributes :
             {"", " dwgName='sample.dwg'", " mode='ref'", " dwgName='sample.dwg' mode='test'"})
            CPPUNIT_ASSERT_EQUAL("forced failure|Missing assertReference() implementation" + place,
                                 m_folder.run(operation("<assertReference" + attributes + "/>")));
        CPPUNIT_ASSERT_EQUAL(
            std::string(), m_folder.runAs<ComparingTest>(operation("<assertReference/>"), [](ComparingTest& test) {
                CPPUNIT_ASSERT(test.calls == 1 && !test.hadReference);
            }));
    }

    void comparesWithAnotherDrawing()
    {
        std::string const move = "<command name='MOVE'><sset><fullSubentPath entities='" + m_line.toUtf8() +
                                 "'/></sset><point value='0,0'/><point value='1,0'/></command>";
        std::string const compare = "<assertReference dwgName='sample.dwg' entity='" + m_line.toUtf8() + "'/>";
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.runAs<ComparingTest>(operation(compare)));
        CPPUNIT_ASSERT(m_folder.runAs<ComparingTest>(operation(move + compare)).starts_with("assertion failed"));
    }

    void savesReferences()
    {
        std::string const before = m_folder.read("sample.dwg");
        std::string const erase =
            "<command name='ERASE'><sset><fullSubentPath entities='" + m_line.toUtf8() + "'/></sset></command>";
        for (bool const isRootMode : {false, true}) {
            std::string const assertion =
                "<assertReference dwgName='new.dwg' mode='" + std::string(isRootMode ? "test" : "ref") + "'/>";
            std::string xml = operation(erase + assertion);
            if (isRootMode)
                xml.replace(0, 2, "<t mode='ref'");
            std::filesystem::remove(m_folder.path() / "new.dwg");
            m_folder.write("sample.dwg", before);
            CapturedOutput const output;
            CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run(xml, [&](ta::TestCmdArg&) {
                CPPUNIT_ASSERT(ca::curDoc()->fileName() == m_folder / "sample.dwg");
            }));
            CPPUNIT_ASSERT_EQUAL(std::string("reference written: @/new.dwg\ndrawing written: @/sample.dwg\n"),
                                 withoutFolder(output.text(), m_folder.path().string()));
            CPPUNIT_ASSERT(m_folder.read("new.dwg") == m_folder.read("sample.dwg"));
            CPPUNIT_ASSERT(m_folder.read("new.dwg") != before);
        }
    }

    void savesReferencesOfUnnamedDrawings()
    {
        CapturedOutput const output;
        CPPUNIT_ASSERT_EQUAL(std::string(), m_folder.run("<t mode='ref'><assertReference dwgName='new.dwg'/></t>",
                                                         [](ta::TestCmdArg&) {
                                                             CPPUNIT_ASSERT(ca::curDoc()->fileName().isEmpty());
                                                         }));
        CPPUNIT_ASSERT_EQUAL("reference written: " + m_folder.path().string() + "/new.dwg\n", output.text());
        CPPUNIT_ASSERT((m_folder.names() == std::set<std::string>{"new.dwg", "sample.dwg", "t.xml"}));
    }

    void referenceThatCannotBeSaved()
    {
        CapturedOutput const output;
        CPPUNIT_ASSERT_EQUAL(
            std::string(
                "assertion failed|Expression: doc.saveAs(path, s_currentFormat)|assertReference: failed to "
                "save @/no/new.dwg|Operation 'assertReference' at @/t.xml:2"),
            m_folder.run(operation("<assertReference dwgName='no/new.dwg' mode='ref'/>")));
        CPPUNIT_ASSERT_EQUAL(std::string(), output.text());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(CmdAssertionsTest);

} // namespace
