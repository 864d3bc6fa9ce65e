#include "vorntest/test_case_arg_base.h"

#include "host/ut/ut_text.h"

namespace vorntest {

TestCaseArgBase::TestCaseArgBase(std::wstring testArg) : m_testArg(std::move(testArg))
{
    ut::correctSlashes(m_testArg);
}

TestCaseArgBase::~TestCaseArgBase() = default;

std::wstring const& TestCaseArgBase::testArg() const
{
    return m_testArg;
}

} // namespace vorntest
