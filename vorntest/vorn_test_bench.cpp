#include "vorntest/vorn_test_bench.h"

namespace CppUnit {

TestBench::~TestBench() = default;

} // namespace CppUnit

namespace vorntest {

VornTestBench* VornTestBench::s_current = nullptr;

VornTestBench::~VornTestBench()
{
    if (s_current == this)
        s_current = nullptr;
}

std::wstring VornTestBench::parameter(std::wstring_view name) const
{
    wchar_t const* const value = m_config.root().parameter(name);
    return value ? value : L"";
}

} // namespace vorntest
