#include "vorntest/test_case_arg_base.h"

#include "host/ut/ut_text.h"
#include "vorntest/test_arg_suite_builder.h"

namespace vorntest {

TestCaseArgBase::TestCaseArgBase(std::wstring testArg)
{
    setTestArg(std::move(testArg));
}

TestCaseArgBase::~TestCaseArgBase() = default;

std::wstring const& TestCaseArgBase::testArg() const
{
    return m_testArg;
}

TypeDescriptor const* TestCaseArgBase::desc()
{
    static TypeDescriptor const s_desc(L"TestCaseArgBase", nullptr, nullptr, nullptr);
    return &s_desc;
}

void TestCaseArgBase::addTestsToSuite(TestArgSuiteBuilder& builder)
{
    builder.addTestsWith(*this);
}

void TestCaseArgBase::setTestArg(std::wstring testArg)
{
    m_testArg = std::move(testArg);
    ut::correctSlashes(m_testArg);
}

} // namespace vorntest
