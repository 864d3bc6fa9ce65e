// Operations by name, and those of the engine itself.
#include "testapi/ta_assert.h"
#include "testapi/ta_test_cmd.h"

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_cmd";

using Operations = std::map<OdString, TestCmdArg::Operation const*>;

// Made on first use, so that modules may register operations while they are being loaded, in whatever order.
Operations& operations()
{
    static Operations s_operations;
    return s_operations;
}

} // namespace

TestCmdArg::Operation::Operation(OdString const& name, unsigned int flags) : m_name(name), m_flags(flags)
{
    Operation const*& latest = operations()[name];
    m_next = latest;
    latest = this;
}

TestCmdArg::Operation::~Operation()
{
    auto const entry = operations().find(m_name);
    if (entry == operations().end())
        return;
    // Usually this is the latest one. One that is shadowed itself is taken out from under the later ones.
    Operation const** link = &entry->second;
    while (*link && *link != this)
        link = &(*link)->m_next;
    if (*link)
        *link = m_next;
    if (!entry->second)
        operations().erase(entry);
}

TestCmdArg::Operation const* TestCmdArg::Operation::find(OdString const& name)
{
    auto const entry = operations().find(name);
    return entry == operations().end() ? nullptr : entry->second;
}

TestCmdArg::OperationFunc::OperationFunc(OdString const& name, void (*function)(TestCmdArg&, pugi::xml_node),
                                         unsigned int flags)
    : Operation(name, flags)
{
    if (function)
        m_function = function;
}

void TestCmdArg::OperationFunc::execute(TestCmdArg& test, pugi::xml_node node) const
{
    TA_CHECK(node.name() == name());
    m_function(test, node);
}

namespace {

using OperationFunc = TestCmdArg::OperationFunc;
constexpr unsigned int s_noDrawing = TestCmdArg::Operation::kNeedsNoDrawing;

// clang-format off
OperationFunc const s_commandOperation                 (L"command",                  commandOpFunc);
OperationFunc const s_openDocOperation                 (L"openDoc",                  openDocOpFunc);
OperationFunc const s_activateDocOperation             (L"activateDoc",              activateDocOpFunc);
OperationFunc const s_closeDocOperation                (L"closeDoc",                 closeDocOpFunc);
OperationFunc const s_saveResultFileOperation          (L"saveResultFile",           saveResultFileOpFunc);
OperationFunc const s_copyFileOperation                (L"copyFile",                 copyFileOpFunc, s_noDrawing);
OperationFunc const s_removeFileOperation              (L"removeFile",               removeFileOpFunc, s_noDrawing);
OperationFunc const s_lastPromptContainsOperation      (L"lastPromptContains",       lastPromptContainsOpFunc, s_noDrawing);
OperationFunc const s_assert_erasedOperation           (L"assert_erased",            assert_erasedOpFunc);
OperationFunc const s_assert_not_erasedOperation       (L"assert_not_erased",        assert_not_erasedOpFunc);
OperationFunc const s_assert_blocks_existOperation     (L"assert_blocks_exist",      assert_blocks_existOpFunc);
OperationFunc const s_assert_blocks_dont_existOperation(L"assert_blocks_dont_exist", assert_blocks_dont_existOpFunc);
OperationFunc const s_assert_inserts_of_blockOperation (L"assert_inserts_of_block",  assert_inserts_of_blockOpFunc);
OperationFunc const s_assertReferenceOperation         (L"assertReference",          assertReferenceOpFunc);
// clang-format on

} // namespace

} // namespace ta
