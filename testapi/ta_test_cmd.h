#pragma once

// Command tests: one XML file is one test. Its child elements are operations, which run in the order of the file
// in the running application. To write such files see docs/user-guide.md; to add an operation, make a static
// object of ta::TestCmdArg::OperationFunc (or derive from Operation) in a test module.

#include "testapi/ta_host.h"

#include "vorntest/performance_test_case.h"
#include "vorntest/test_case_arg_base.h"

#include <pugixml.hpp>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace ta {

/// The 1-based line of a text file in which the byte at `offset` stands, an unterminated last line included. 0 for
/// a negative offset, one behind the end, and a file that cannot be read.
long lineNumber(std::wstring const& path, long offset);

/// The test that one XML file describes.
class TestCmdArg : public vorntest::PerformanceTestCase, public vorntest::TestCaseArgBase
{
public:
    class Operation;
    class OperationFunc;
    class ReferenceContext;

    /// Named by its path relative to the basePath of the tests configuration, without extension.
    explicit TestCmdArg(std::wstring const& path);
    TestCmdArg(std::wstring const& name, std::wstring const& path);

    /// Runs the operations, then checks the time limit.
    void runTest() override;
    /// setUpImp(true)
    void setUp() override;
    /// Cancels what still waits for input, forgets names, and closes the documents that were not open before.
    void tearDown() override;
    /// Compares the drawing with a reference drawing. The version here fails: derived tests say what to compare.
    virtual void assertReference(ReferenceContext const& context);
    /// Runs all children of a node as operations. To failures it adds the line of the operation.
    virtual void runOperations(pugi::xml_node parent);
    /// Runs one operation.
    virtual void runOperation(Operation const* op, pugi::xml_node node);
    /// Called once the file is parsed, before its drawing is opened; does nothing.
    virtual void initFromXmlDoc();

    std::wstring const& testArg() const override { return TestCaseArgBase::testArg(); }

    /// Parses the file and opens the drawing that it names. Without one, a new drawing is made or, with false, the
    /// current one stays.
    void setUpImp(bool createDocumentIfNoDrawing);

    /// The current drawing, null when there is none.
    OdDbDatabase* curDb() const { return ca::curDb(); }
    pugi::xml_document const& xmlDocument() const { return m_xmlDocument; }
    /// Resolves the name of a file as test files give them: environment variables are expanded, relative names
    /// count from the folder of the test file.
    ut::FileName resolvedFileName(wchar_t const* text) const;

    /// @name Names of entities
    /// @{
    std::map<OdString, OdDbObjectId> const& namedObjectIds() const { return m_namedObjectIds; }
    /// The names of a list, separated by ","; blanks belong to names. Fails on an empty list or name and on
    /// doubles.
    static OdArray<OdString> tokenizeNamesString(OdString const& list);
    /// Names the last entities of model space, the last name for the last one.
    void nameAddedEntities(OdArray<OdString> const& names);
    void nameAddedEntities(OdString const& list);
    /// The entity of a name or else of a hexadecimal handle; fails when there is none.
    OdDbObjectId getObjectId(OdString const& nameOrHandle) const;
    /// The same with the text of an attribute.
    OdDbObjectId getObjectId(pugi::xml_node node, wchar_t const* handleAttr) const;
    /// @}

    /// Fails unless each entity of the attribute `entities` is erased, or is not.
    void assertErased(pugi::xml_node node, bool expectErased) const;
    /// Fails unless each block of the attribute `names` exists, or does not.
    void assertBlocksExist(pugi::xml_node node, bool expectExist) const;

private:
    void closeNewDocuments();

    OdArray<ca::CaDoc*> m_docsBeforeTest;
    pugi::xml_document m_xmlDocument;
    std::map<OdString, OdDbObjectId> m_namedObjectIds;
    std::vector<OdDbDatabasePtr> m_namedDatabases; // keep the ids above valid when a test closes its drawing
};

/// What an element of a test file does. Registers itself under its name on construction, shadowing an older
/// operation of that name until it is destroyed.
class TestCmdArg::Operation
{
public:
    Operation(OdString const& name, unsigned int flags);
    virtual ~Operation();
    virtual void execute(TestCmdArg& test, pugi::xml_node node) const = 0;
    Operation(Operation const&) = delete;
    Operation& operator=(Operation const&) = delete;

    OdString const& name() const { return m_name; }
    /// kNeedsNoDrawing for operations that neither need nor touch a drawing.
    unsigned int flags() const { return m_flags; }
    static constexpr unsigned int kNeedsNoDrawing = 1;

    /// The latest operation of that name, null when there is none. Names are case-sensitive.
    static Operation const* find(OdString const& name);

private:
    OdString m_name;
    unsigned int m_flags;
    mutable Operation const* m_next = nullptr; // shadowed by this one
};

/// An operation that is a function.
class TestCmdArg::OperationFunc : public Operation
{
public:
    OperationFunc(OdString const& name, void (*function)(TestCmdArg&, pugi::xml_node), unsigned int flags = 0);
    void execute(TestCmdArg& test, pugi::xml_node node) const override;

private:
    std::function<void(TestCmdArg&, pugi::xml_node)> m_function;
};

/// The operation's node and the reference drawing, for the comparison with it.
class TestCmdArg::ReferenceContext
{
public:
    ReferenceContext(pugi::xml_node node, OdDbDatabase const* referenceDb)
        : m_node(node), m_referenceDb(referenceDb)
    {
    }

    pugi::xml_node node() const { return m_node; }
    /// Null when the operation names no reference drawing.
    OdDbDatabase const* referenceDb() const { return m_referenceDb; }

    /// The entity of a hexadecimal handle in the reference drawing, which may stand behind "REF_". Fails when
    /// there is none; names that the test gave are not consulted.
    OdDbObjectId getObjectId(OdString const& handle) const;
    OdDbObjectId getObjectId(pugi::xml_node node, wchar_t const* handleAttr) const;

private:
    pugi::xml_node m_node;
    OdDbDatabase const* m_referenceDb;
};

/// @name The operations of the engine
/// @{
void commandOpFunc(TestCmdArg& test, pugi::xml_node node);
void openDocOpFunc(TestCmdArg& test, pugi::xml_node node);
void activateDocOpFunc(TestCmdArg& test, pugi::xml_node node);
void closeDocOpFunc(TestCmdArg& test, pugi::xml_node node);
void saveResultFileOpFunc(TestCmdArg& test, pugi::xml_node node);
void copyFileOpFunc(TestCmdArg& test, pugi::xml_node node);
void removeFileOpFunc(TestCmdArg& test, pugi::xml_node node);
void lastPromptContainsOpFunc(TestCmdArg& test, pugi::xml_node node);
void assert_erasedOpFunc(TestCmdArg& test, pugi::xml_node node);
void assert_not_erasedOpFunc(TestCmdArg& test, pugi::xml_node node);
void assert_blocks_existOpFunc(TestCmdArg& test, pugi::xml_node node);
void assert_blocks_dont_existOpFunc(TestCmdArg& test, pugi::xml_node node);
void assert_inserts_of_blockOpFunc(TestCmdArg& test, pugi::xml_node node);
void assertReferenceOpFunc(TestCmdArg& test, pugi::xml_node node);
/// @}

} // namespace ta
