#include "host/app/command_line.h"
#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class CmdOperationsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(CmdOperationsTest);
    CPPUNIT_TEST(failures);
    CPPUNIT_TEST(documents);
    CPPUNIT_TEST(closingLosesChanges);
    CPPUNIT_TEST(resultFiles);
    CPPUNIT_TEST(filesAreCopiedAndRemoved);
    CPPUNIT_TEST(lastPrompt);
    CPPUNIT_TEST_SUITE_END();

    CmdTestFolder m_folder;

    void writeDrawing(std::string const& name) const
    {
        CPPUNIT_ASSERT(ca::app()->openFile());
        CPPUNIT_ASSERT(ca::curDoc()->saveAs(m_folder / name, 60));
        ca::curDoc()->close();
    }
    void checkPasses(std::string const& operations, std::function<void()> const& afterwards) const
    {
        CPPUNIT_ASSERT_EQUAL(std::string(),
                             m_folder.run("<t>" + operations + "</t>", [&](ta::TestCmdArg&) { afterwards(); }));
    }

public:
    void tearDown() override { CPPUNIT_ASSERT_EQUAL(0, ca::app()->getDocumentsCount()); }

    void failures()
    {
        struct Row
        {
            char const* operation;
            char const* failure;
        };
        Row const rows[] = {
            {"<openDoc/>", "Expression: !fileNameAttr.empty()|openFile: error reading file name"},
            {"<openDoc name=''/>", "Expression: !fileNameAttr.empty()|openFile: error reading file name"},
            {"<openDoc name='no.dwg'/>", "Expression: fileName.fileExists()|openFile: file not found: no.dwg"},
            {"<openDoc name='t.xml'/>",
             "Expression: ca::app()->openFile(fileName.getFullPath().c_str())|fileOpen: failed to open @/t.xml"},
            {"<activateDoc/>", "Expression: !fileNameAttr.empty()|activateDoc: error reading file name"},
            {"<activateDoc name='no.dwg'/>", "Expression: pDoc|activateDoc: document not found: @/no.dwg"},
            {"<closeDoc name=''/>", "Expression: !fileNameAttr.empty()|closeDoc: error reading file name"},
            {"<closeDoc name='no.dwg'/>", "Expression: pDoc|closeDoc: document not found: @/no.dwg"},
            {"<copyFile dst='a'/>", "Expression: !srcAttr.empty()|copyFile: error reading src file name"},
            {"<copyFile src='no' dst='a'/>",
             "Expression: srcFileName.fileExists()|copyFile: source file not found: no"},
            {"<copyFile src='t.xml'/>", "Expression: !dstAttr.empty()|copyFile: error reading dst file name"},
            {"<copyFile src='t.xml' dst='no/a'/>",
             "Expression: ut::copyFile(srcFileName.getFullPath(), dstFileName.getFullPath()) && "
             "dstFileName.fileExists()|copyFile: file not found: no/a"},
            {"<removeFile/>", "Expression: !fileNameAttr.empty()|removeFile: error reading file name"},
            {"<lastPromptContains/>", "Expression: valueAttr|lastPromptContains: error reading pattern string"},
            {"<lastPromptContains value=''/>",
             "Expression: !value.isEmpty()|lastPromptContains: zero length pattern string"},
        };
        for (Row const& row : rows) {
            std::string const operation = row.operation;
            std::string const name = operation.substr(1, operation.find_first_of(" /") - 1);
            CPPUNIT_ASSERT_EQUAL("assertion failed|" + std::string(row.failure) + "|Operation '" + name +
                                     "' at @/t.xml:2",
                                 m_folder.run("<t>\n" + operation + "</t>"));
        }
    }

    void documents()
    {
        writeDrawing("a.dwg");
        writeDrawing("b.dwg");
        checkPasses("<openDoc name='a.dwg'/><openDoc name='b.dwg'/><activateDoc name='./a.dwg'/>", [&] {
            CPPUNIT_ASSERT_EQUAL(3, ca::app()->getDocumentsCount());
            CPPUNIT_ASSERT(ca::curDoc()->fileName() == m_folder / "a.dwg");
        });
        checkPasses("<openDoc name='a.dwg'/><openDoc name='b.dwg'/><closeDoc name='a.dwg'/>", [&] {
            CPPUNIT_ASSERT_EQUAL(2, ca::app()->getDocumentsCount());
            CPPUNIT_ASSERT(ca::curDoc()->fileName() == m_folder / "b.dwg");
        });
    }

    void closingLosesChanges()
    {
        writeDrawing("a.dwg");
        std::string const before = m_folder.read("a.dwg");
        CPPUNIT_ASSERT(ca::app()->openFile((m_folder / "a.dwg").c_str()));
        ca::curDb()->setTILEMODE(false);
        CPPUNIT_ASSERT(ca::curDoc()->isModified());
        checkPasses("<closeDoc name='a.dwg'/>", [] {});
        CPPUNIT_ASSERT(before == m_folder.read("a.dwg"));
    }

    void resultFiles()
    {
        checkPasses("<saveResultFile/>", [&] {
            CPPUNIT_ASSERT(ca::curDoc()->fileName() == m_folder / "t_result.dwg");
            CPPUNIT_ASSERT(m_folder.names().contains("t_result.dwg"));
        });
        // The first ".xml" goes, wherever it stands.
        std::filesystem::create_directory(m_folder.path() / "my.xmls");
        std::filesystem::create_directory(m_folder.path() / "mys");
        ta::TestCmdArg test(m_folder.write("my.xmls/case", "<t><saveResultFile/></t>").str());
        test.setUp();
        test.runTest();
        test.tearDown();
        CPPUNIT_ASSERT(std::filesystem::exists(m_folder.path() / "mys/case_result.dwg"));
        // A result that cannot be written fails nothing.
        std::filesystem::remove(m_folder.path() / "t_result.dwg");
        std::filesystem::create_directory(m_folder.path() / "t_result.dwg");
        checkPasses("<saveResultFile/>", [] { CPPUNIT_ASSERT(ca::curDoc()->fileName().isEmpty()); });
    }

    void filesAreCopiedAndRemoved()
    {
        m_folder.write("a.txt", "content");
        m_folder.write("old.txt", "old");
        checkPasses("<copyFile src='a.txt' dst='b.txt'/><copyFile src='sub/../b.txt' dst='old.txt'/>",
                    [&] { CPPUNIT_ASSERT_EQUAL(std::string("content"), m_folder.read("old.txt")); });
        checkPasses("<removeFile name='a.txt'/><removeFile name='a.txt'/><removeFile name='no/such.txt'/>",
                    [&] { CPPUNIT_ASSERT(!m_folder.names().contains("a.txt")); });
    }

    void lastPrompt()
    {
        ca::app()->commandLine().message(L"Select objects: 1 found");
        checkPasses("<lastPromptContains value='select OBJ'/>", [] {});
        CPPUNIT_ASSERT_EQUAL(
            std::string("forced failure|LASTPROMPT: 'SELECT OBJECTS: 1 FOUND', expected contains: "
                        "'POINT'. |Operation 'lastPromptContains' at @/t.xml:1"),
            m_folder.run("<t><lastPromptContains value='point'/></t>"));
        CPPUNIT_ASSERT_EQUAL(
            std::string("forced failure|LASTPROMPT: 'SELECT OBJECTS: 1 FOUND', expected contains: "
                        "'POINT'. Asks for a point|Operation 'lastPromptContains' at @/t.xml:1"),
            m_folder.run("<t><lastPromptContains value='point' msg='Asks for a point'/></t>"));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(CmdOperationsTest);

} // namespace
