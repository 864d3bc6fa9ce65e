#pragma once

#include <cppunit/TestCase.h>
#include <pugixml.hpp>

#include <string>

/// Stands for a node of a suite file that gives no test, and fails when it is run, so that the mistake shows among
/// the results, at its place in the file.
class BrokenNodeTest : public CppUnit::TestCase
{
public:
    /// Named by the node's attribute `name`, or by the node itself.
    BrokenNodeTest(pugi::xml_node node, std::wstring file, std::wstring const& mistake);
    void runTest() override;

private:
    pugi::xml_node m_node;
    std::wstring m_file;
    std::string m_mistake;
};
