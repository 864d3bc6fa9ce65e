#include "testmodules/cmdtests/broken_node_test.h"

#include "testapi/ta_test_cmd.h"
#include "testapi/ta_utils.h"

#include <cppunit/Asserter.h>
#include <cppunit/SourceLine.h>

namespace {

std::string nameOf(pugi::xml_node node)
{
    std::wstring const name = node.attribute(L"name").value();
    return ta::wcstombs(name.empty() ? node.name() : name);
}

} // namespace

BrokenNodeTest::BrokenNodeTest(pugi::xml_node node, std::wstring file, std::wstring const& mistake)
    : CppUnit::TestCase(nameOf(node)), m_node(node), m_file(std::move(file)), m_mistake(ta::wcstombs(mistake))
{
}

void BrokenNodeTest::runTest()
{
    std::string const file = ta::wcstombs(m_file);
    long const line = ta::lineNumber(m_file, ta::byteOffset(m_file, m_node));
    CppUnit::Message message(m_mistake);
    message.addDetail("at " + file + (line > 0 ? ":" + std::to_string(line) : ""));
    CppUnit::Asserter::fail(message, CppUnit::SourceLine(file, static_cast<int>(line)));
}
