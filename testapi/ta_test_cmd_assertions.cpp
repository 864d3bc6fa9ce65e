// Assertions on the drawing under test, and reference drawings.
#include "testapi/ta_assert.h"
#include "testapi/ta_test_cmd.h"

#include <cstring>
#include <iostream>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_cmd";
constexpr int s_currentFormat = 60; // save-as code of the current drawing format

OdDbSymbolTable const& blockTable(OdDbDatabase* database)
{
    if (!database)
        throw OdError(eNoDocument);
    return database->table(OdDbTableKind::kBlock);
}

/// 8-bit text where wide text is expected: the bytes come four to a character, the last one padded with zeros.
std::wstring bytesAsWide(std::string_view bytes)
{
    std::wstring text((bytes.size() + sizeof(wchar_t) - 1) / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), bytes.size());
    return text;
}

bool isReferenceMode(pugi::xml_node node)
{
    pugi::xml_node const root = node.root().first_child();
    std::wstring_view const reference = L"ref";
    return node.attribute(L"mode").value() == reference || root.attribute(L"mode").value() == reference;
}

void saveAndSay(ca::CaDoc& doc, OdString const& path, char const* what)
{
    TA_CHECK(doc.saveAs(path, s_currentFormat), L"assertReference: failed to save %ls", path.c_str());
    if (!path.isEmpty())
        std::cout << what << " written: " << path.toUtf8() << std::endl;
}

/// Saving under another name renames the document, so it is saved under its own once more; that writes the
/// document's own file too. A document without file gets its missing name back and nothing is written for it.
void saveReference(OdString const& referencePath)
{
    ca::CaDoc* const pDoc = ca::curDoc();
    TA_CHECK(pDoc, L"assertReference: no current document");
    OdString const ownPath = pDoc->fileName();
    saveAndSay(*pDoc, referencePath, "reference");
    saveAndSay(*pDoc, ownPath, "drawing");
}

void compareWithReference(TestCmdArg& test, pugi::xml_node node, ut::FileName const& fileName)
{
    TA_CHECK(fileName.fileExists(), L"File not found: %ls", fileName.getFullPath().c_str());
    OdDbDatabasePtr const refDb = ca::app()->readFile(fileName.getFullPath());
    // Why a file is no drawing, reading it says on the command line.
    TA_CHECK(!refDb.isNull(), L"%ls", ca::app()->commandLine().lastPrompt().c_str());
    test.assertReference(TestCmdArg::ReferenceContext(node, refDb.get()));
}

} // namespace

void TestCmdArg::assertErased(pugi::xml_node node, bool expectErased) const
{
    for (OdString const& name : tokenizeNamesString(node.attribute(L"entities").value()))
        if (getObjectId(name).isErased() != expectErased)
            TA_CHECK(false, L"Expected %ls is %lserased", name.c_str(), expectErased ? L"" : L"not ");
}

void TestCmdArg::assertBlocksExist(pugi::xml_node node, bool expectExist) const
{
    OdArray<OdString> const names = tokenizeNamesString(node.attribute(L"names").value());
    OdDbSymbolTable const& blocks = blockTable(curDb());
    // Test reports are compared with older ones, in which this word went through as raw bytes.
    std::wstring const negation = expectExist ? bytesAsWide("doesn't ") : std::wstring();
    for (OdString const& name : names)
        if (blocks.has(name) != expectExist)
            TA_CHECK(false, L"Block %ls %ls exist", name.c_str(), negation.c_str());
}

void TestCmdArg::assertReference(ReferenceContext const&)
{
    failForced(L"Missing assertReference() implementation", {s_area, __LINE__});
}

void assert_erasedOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    test.assertErased(node, true);
}

void assert_not_erasedOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    test.assertErased(node, false);
}

void assert_blocks_existOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    test.assertBlocksExist(node, true);
}

void assert_blocks_dont_existOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    test.assertBlocksExist(node, false);
}

void assert_inserts_of_blockOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    OdArray<OdString> const inserts = TestCmdArg::tokenizeNamesString(node.attribute(L"inserts").value());
    wchar_t const* const blockName = node.attribute(L"blockName").value();
    OdDbObjectId const blockId = blockTable(test.curDb()).getAt(blockName);
    TA_CHECK(!blockId.isNull(), L"Block %ls doesn't exist", blockName);
    for (OdString const& name : inserts) {
        OdDbBlockReferencePtr const insert = test.getObjectId(name).open<OdDbBlockReference>();
        TA_CHECK(insert->blockTableRecord() == blockId, L"Insert %ls is not an instance of block %ls",
                 name.c_str(), blockName);
    }
}

void assertReferenceOpFunc(TestCmdArg& test, pugi::xml_node node)
{
    pugi::xml_attribute const dwgName = node.attribute(L"dwgName");
    if (!dwgName)
        return test.assertReference(TestCmdArg::ReferenceContext(node, nullptr));
    ut::FileName const fileName = test.resolvedFileName(dwgName.value());
    if (isReferenceMode(node))
        saveReference(fileName.getFullPath());
    else
        compareWithReference(test, node, fileName);
}

} // namespace ta
