#pragma once

// For authors of tests in C++ that make the same checks for each datum of a data file: reading the file, and names
// and suites for the tests that are made of it. The classes of data are in ta_test_data.h.

#include "testapi/ta_test_data.h"

#include <string>

namespace CppUnit {
class Test;
class TestSuite;
} // namespace CppUnit
namespace vorntest {
class VornTestBench;
}

namespace ta {

/// How readDataFromXML() reads. There is one way so far.
enum EReadDataFromXMLParam
{
    kReadDataDefault = 0
};

/// Appends the data of a file to the array, which owns them: one for each child of the root element, whose name is
/// the class of the datum ("TestOdGeCircArc2d"). Backslashes in the path count as "/". Left out are, in silence,
/// elements of unknown classes and those that cannot be read, and with a filter data of other classes than that
/// one and those derived from it. Where the file cannot be read, the application shows a warning and the array
/// stays as it is.
void readDataFromXML(TestGeDataArray& data, wchar_t const* path, EReadDataFromXMLParam param,
                     ut::CRtClass const* filter);

/// Reads one data file, wherever tests need its data.
class ReadDataFromXML
{
public:
    /// The file, absolute or relative to the configuration's basePath.
    explicit ReadDataFromXML(std::wstring fileName) : m_fileName(std::move(fileName)) {}

    /// Appends the file's data. The basePath is that of the bench, for null of the bench that runs; without one,
    /// relative names count from the current folder.
    void operator()(TestGeDataArray& data, vorntest::VornTestBench* bench) const;

private:
    std::wstring m_fileName;
};

/// Names for the tests and suites that are made from data, such as "ArcTests.trim.Data#3" for the base name
/// ArcTests, the name trim and the index 3.
class TestDataNamer
{
public:
    explicit TestDataNamer(std::wstring baseName) : m_baseName(std::move(baseName)) {}
    virtual ~TestDataNamer();

    virtual std::wstring getBaseName() const;
    /// "ArcTests::trim".
    virtual std::wstring getTestNameFor(std::wstring const& name) const;
    /// "ArcTests.trim".
    virtual std::wstring getSuiteNameFor(std::wstring const& name) const;
    /// "ArcTests.trim.Data#3".
    virtual std::wstring getTestNameFor(std::wstring const& name, unsigned index) const;

private:
    std::wstring m_baseName;
};

/// What a function that adds tests for data needs at hand. Owns nothing: all four live longer.
class TestDataSuiteBuilderContext
{
public:
    TestDataSuiteBuilderContext(CppUnit::TestSuite* suite, TestDataNamer const& namer,
                                vorntest::VornTestBench* testBench, TestGeDataArray const* testData)
        : m_suite(suite), m_namer(namer), m_testBench(testBench), m_testData(testData)
    {
    }

    /// Adds the test to the suite, which owns it from then on.
    void addTest(CppUnit::Test* test) const;

    CppUnit::TestSuite* suite() const { return m_suite; }
    TestDataNamer const& namer() const { return m_namer; }
    vorntest::VornTestBench* testBench() const { return m_testBench; }
    TestGeDataArray const* testData() const { return m_testData; }
    /// As the namer names it.
    std::wstring getTestNameFor(std::wstring const& name) const { return m_namer.getTestNameFor(name); }

private:
    CppUnit::TestSuite* m_suite;
    TestDataNamer const& m_namer;
    vorntest::VornTestBench* m_testBench;
    TestGeDataArray const* m_testData;
};

} // namespace ta
