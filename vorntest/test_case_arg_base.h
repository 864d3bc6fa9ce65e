#pragma once

#include "vorntest/type_descriptor.h"

#include <string>

namespace vorntest {

class TestArgSuiteBuilder;

/// Mix-in of tests that are made from a file or another text, and base of arguments that are handed to tests:
/// holds that test argument.
class TestCaseArgBase
{
public:
    /// Backslashes of the argument become "/".
    explicit TestCaseArgBase(std::wstring testArg);

    /// The argument, for file-driven tests the full path of the file. A test overrides it to give its own; the
    /// version here returns what the constructor was given.
    virtual std::wstring const& testArg() const = 0;
    virtual ~TestCaseArgBase();

    static TypeDescriptor const* desc();
    /// The exact class of the argument.
    virtual TypeDescriptor const* isA() const { return desc(); }
    /// Adds the tests that run with this argument: the version here, all that the builder's suite has.
    virtual void addTestsToSuite(TestArgSuiteBuilder& builder);

protected:
    /// Backslashes become "/".
    void setTestArg(std::wstring testArg);

private:
    std::wstring m_testArg;
};

} // namespace vorntest
