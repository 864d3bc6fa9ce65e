// The frame of a command test: set-up, running the operations of the file, and bringing the application back.
#include "testapi/ta_test_cmd.h"

#include "testapi/ta_assert.h"
#include "testapi/ta_utils.h"

#include "vorntest/vorn_test_bench.h"

#include <cppunit/Exception.h>

#include <fstream>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_cmd";

std::wstring nameOfTest(std::wstring const& path)
{
    vorntest::VornTestBench const* const bench = vorntest::VornTestBench::current();
    std::wstring const folder = (bench ? bench->parameter(BASE_PATH) : std::wstring()) + L"/";
    ut::FileName name(path);
    if (folder.size() > 1 && name.getFullPath().startsWith(folder))
        name = ut::FileName(name.getFullPath().mid(folder.size()));
    name.setExt(L"");
    return name.getFullPath().str();
}

void addPlaceOfOperation(CppUnit::Exception& failure, std::wstring const& path, pugi::xml_node node)
{
    long const line = lineNumber(path, byteOffset(path, node));
    if (line == 0)
        return;
    CppUnit::Message message = failure.message();
    message.addDetail("Operation '" + wcstombs(node.name()) + "' at " + wcstombs(path) + ":" +
                      std::to_string(line));
    failure.setMessage(message);
}

} // namespace

long lineNumber(std::wstring const& path, long offset)
{
    if (offset < 0)
        return 0;
    std::ifstream file(wcstombs(path), std::ios::binary);
    long position = 0;
    std::string text;
    for (long line = 1; std::getline(file, text); ++line) {
        position += static_cast<long>(text.size()) + (file.eof() ? 0 : 1);
        if (offset < position)
            return line;
    }
    return 0;
}

TestCmdArg::TestCmdArg(std::wstring const& path) : TestCmdArg(nameOfTest(path), path) {}

TestCmdArg::TestCmdArg(std::wstring const& name, std::wstring const& path)
    : PerformanceTestCase(name), TestCaseArgBase(path)
{
}

void TestCmdArg::setUp()
{
    setUpImp(true);
}

void TestCmdArg::setUpImp(bool createDocumentIfNoDrawing)
{
    for (int i = 0; i < ca::app()->getDocumentsCount(); ++i)
        if (ca::CaDoc* const pDoc = ca::app()->getDocument(i))
            m_docsBeforeTest.append(pDoc);

    pugi::xml_parse_result const parseResult = m_xmlDocument.load_file(testArg().c_str());
    std::wstring const description = odUtf8ToWide(parseResult.description());
    TA_CHECK(!!parseResult, L"Failed to load %ls file, %ls", testArg().c_str(), description.c_str());
    initFromXmlDoc();

    wchar_t const* const dwgName = m_xmlDocument.first_child().attribute(L"dwgName").value();
    if (!*dwgName) {
        if (createDocumentIfNoDrawing)
            ca::app()->openFile();
        return;
    }
    ut::FileName const fileName = resolvedFileName(dwgName);
    TA_CHECK(fileName.fileExists(), L"openFile: file not found: %ls", dwgName);
    TA_CHECK(ca::app()->openFile(fileName.getFullPath().c_str()), L"fileOpen: failed to open %ls",
             fileName.getFullPath().c_str());
}

ut::FileName TestCmdArg::resolvedFileName(wchar_t const* text) const
{
    ut::FileName fileName{OdString(text)};
    fileName.normalize(ut::FileName::kAllButCase, ut::FileName(testArg()).getPath(ut::FileName::kPlainFolder));
    return fileName;
}

void TestCmdArg::initFromXmlDoc() {}

void TestCmdArg::runTest()
{
    pugi::xml_node const rootNode = m_xmlDocument.first_child();
    TA_CHECK(rootNode.type() == pugi::xml_node_type::node_element, L"Root node not found");
    ut::StopWatch stopWatch;
    runOperations(rootNode);
    if (!rootNode.attribute(L"timeLimit"))
        return;
    double durationLimit = 0.0;
    oa::readAttr(rootNode, L"timeLimit", durationLimit);
    double const actualDuration = stopWatch.time() / 1000.0;
    TA_CHECK(OdGreater(durationLimit, actualDuration),
             L"Test succeeded, but specified timelimit is exceeded: %f < %f", durationLimit, actualDuration);
}

void TestCmdArg::runOperations(pugi::xml_node parent)
{
    for (pugi::xml_node const child : parent.children()) {
        try {
            Operation const* const op = Operation::find(child.name());
            TA_CHECK(!!op, L"Unknown operation '%ls' in .xml file", child.name());
            runOperation(op, child);
        } catch (CppUnit::Exception& failure) {
            addPlaceOfOperation(failure, testArg(), child);
            throw;
        }
    }
}

void TestCmdArg::runOperation(Operation const* op, pugi::xml_node node)
{
    op->execute(*this, node);
}

void TestCmdArg::tearDown()
{
    sds_cmd(nullptr);
    m_namedObjectIds.clear();
    m_namedDatabases.clear();
    m_xmlDocument.reset();
    closeNewDocuments();
    m_docsBeforeTest.clear();
}

void TestCmdArg::closeNewDocuments()
{
    for (int i = ca::app()->getDocumentsCount() - 1; i >= 0; --i) {
        ca::CaDoc* const pDoc = ca::app()->getDocument(i);
        if (!pDoc || m_docsBeforeTest.contains(pDoc))
            continue;
        try {
            pDoc->close();
        } catch (...) {
            // A document that cannot be closed is no fault of the test; the others are closed all the same.
        }
    }
}

} // namespace ta
