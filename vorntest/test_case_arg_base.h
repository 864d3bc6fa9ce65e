#pragma once

#include <string>

namespace vorntest {

/// Mix-in of tests that are made from a file or another text: holds that test argument.
class TestCaseArgBase
{
public:
    /// Backslashes of the argument become "/".
    explicit TestCaseArgBase(std::wstring testArg);

    /// The argument, for file-driven tests the full path of the file. A test overrides it to give its own; the
    /// version here returns what the constructor was given.
    virtual std::wstring const& testArg() const = 0;
    virtual ~TestCaseArgBase();

private:
    std::wstring m_testArg;
};

} // namespace vorntest
