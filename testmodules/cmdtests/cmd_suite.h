#pragma once

#include "testapi/ta_test_suite_arg.h"

/// A suite of command tests: each `TestCase name= file=` is a test made of that file, whose path counts from the
/// folder of the suite file; each `TestSuite name=` within is a suite of its own.
class CmdSuite : public TestSuiteArgBase
{
public:
    explicit CmdSuite(std::wstring const& name);
    void addTestSuite(CppUnit::TestBench* bench, pugi::xml_node const& node) override;
    void addTestCase(CppUnit::TestBench* bench, pugi::xml_node const& node) override;

private:
    CmdSuite(std::wstring const& name, std::wstring file, int depth);
    std::wstring fileOf(pugi::xml_node const& node) const;
    void addBroken(pugi::xml_node const& node, std::wstring const& mistake);

    std::wstring m_file; // of a nested suite, whose nodes belong to the outermost one
    int m_depth = 0;
};
