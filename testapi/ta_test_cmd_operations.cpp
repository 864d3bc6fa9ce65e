// Operations on documents and files, and on the last prompt.
#include "testapi/ta_assert.h"
#include "testapi/ta_test_cmd.h"

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_cmd";
constexpr int s_currentFormat = 60; // save-as code of the current drawing format

} // namespace

void openDocOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    std::wstring const fileNameAttr = node.attribute(L"name").value();
    TA_CHECK(!fileNameAttr.empty(), L"openFile: error reading file name");
    ut::FileName const fileName = test.resolvedFileName(fileNameAttr.c_str());
    TA_CHECK(fileName.fileExists(), L"openFile: file not found: %ls", fileNameAttr.c_str());
    TA_CHECK(ca::app()->openFile(fileName.getFullPath().c_str()), L"fileOpen: failed to open %ls",
             fileName.getFullPath().c_str());
}

void activateDocOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    std::wstring const fileNameAttr = node.attribute(L"name").value();
    TA_CHECK(!fileNameAttr.empty(), L"activateDoc: error reading file name");
    OdString const path = test.resolvedFileName(fileNameAttr.c_str()).getFullPath();
    ca::CaDoc* const pDoc = ca::app()->findDocument(path);
    TA_CHECK(pDoc, L"activateDoc: document not found: %ls", path.c_str());
    odapDocManager()->activate(pDoc, false);
    TA_CHECK(pDoc == ca::curDoc(), L"activateDoc: failed to activate %ls", path.c_str());
}

void closeDocOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    std::wstring const fileNameAttr = node.attribute(L"name").value();
    TA_CHECK(!fileNameAttr.empty(), L"closeDoc: error reading file name");
    OdString const path = test.resolvedFileName(fileNameAttr.c_str()).getFullPath();
    ca::CaDoc* pDoc = ca::app()->findDocument(path);
    TA_CHECK(pDoc, L"closeDoc: document not found: %ls", path.c_str());
    pDoc->setDbModified(0); // so that nobody asks whether to save
    odapDocManager()->close(pDoc);
    pDoc = ca::app()->findDocument(path);
    TA_CHECK(!pDoc, L"closeDoc: failed to close %ls", path.c_str());
}

void saveResultFileOpFunc(TestCmdArg& test, pugi::xml_node)
{
    OdString resultName = test.testArg();
    if (std::size_t const extension = resultName.find(L".xml"); extension != OdString::npos)
        resultName.deleteChars(extension, 4);
    resultName += L"_result.dwg";
    ca::CaDoc* const pDoc = ca::curDoc();
    TA_CHECK(pDoc, L"saveResultFile: no current document");
    // Result files help a person who looks into a failure; whether one could be written decides nothing.
    static_cast<void>(pDoc->saveAs(test.resolvedFileName(resultName.c_str()).getFullPath(), s_currentFormat));
}

void copyFileOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    std::wstring const srcAttr = node.attribute(L"src").value();
    TA_CHECK(!srcAttr.empty(), L"copyFile: error reading src file name");
    ut::FileName const srcFileName = test.resolvedFileName(srcAttr.c_str());
    TA_CHECK(srcFileName.fileExists(), L"copyFile: source file not found: %ls", srcAttr.c_str());
    std::wstring const dstAttr = node.attribute(L"dst").value();
    TA_CHECK(!dstAttr.empty(), L"copyFile: error reading dst file name");
    ut::FileName const dstFileName = test.resolvedFileName(dstAttr.c_str());
    TA_CHECK(ut::copyFile(srcFileName.getFullPath(), dstFileName.getFullPath()) && dstFileName.fileExists(),
             L"copyFile: file not found: %ls", dstAttr.c_str());
}

void removeFileOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    std::wstring const fileNameAttr = node.attribute(L"name").value();
    TA_CHECK(!fileNameAttr.empty(), L"removeFile: error reading file name");
    ut::FileName const fileName = test.resolvedFileName(fileNameAttr.c_str());
    if (!fileName.fileExists())
        return;
    TA_CHECK(ut::removeFile(fileName.getFullPath()) && !fileName.fileExists(),
             L"removeFile: failed to remove: %ls", fileName.getFullPath().c_str());
}

void lastPromptContainsOpFunc(TestCmdArg&, pugi::xml_node node)
{
    pugi::xml_attribute const valueAttr = node.attribute(L"value");
    TA_CHECK(valueAttr, L"lastPromptContains: error reading pattern string");
    OdString const value = OdString(valueAttr.value()).makeUpper();
    TA_CHECK(!value.isEmpty(), L"lastPromptContains: zero length pattern string");
    OdString const prompt = OdString(oa::SysVars::getLASTPROMPT()).makeUpper();
    if (prompt.find(value.str()) != OdString::npos)
        return;
    OdString const message =
        odFormat(L"LASTPROMPT: '%ls', expected contains: '%ls'. ", prompt.c_str(), value.c_str());
    failForced(message + node.attribute(L"msg").value(), {s_area, __LINE__});
}

} // namespace ta
