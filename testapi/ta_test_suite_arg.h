#pragma once

// For authors of test modules whose tests are described in XML files: derive from TestSuiteArgBase and make tests
// of the nodes that it hands over.

#include <cppunit/TestSuite.h>
#include <pugixml.hpp>

#include <list>
#include <memory>
#include <string>

namespace CppUnit {
class TestBench;
}
namespace vorntest {
class ConfigNode;
}

/// A suite that fills itself from the suite files that the tests configuration names for it by masks. A suite file
/// is an XML file with a document element TestSuite whose `name` is the suite's own; its children TestCase,
/// TestFixture and TestSuite go to the handlers below. Everything else is passed over in silence: files of other
/// suites, files that cannot be read, other elements.
class TestSuiteArgBase : public CppUnit::TestSuite
{
public:
    explicit TestSuiteArgBase(std::wstring const& name);
    ~TestSuiteArgBase() override;

    /// Deletes the tests, then the suite files that they were made from.
    void deleteContents() override;
    /// Called for each node TestSuite.
    virtual void addTestSuite(CppUnit::TestBench* bench, pugi::xml_node const& node) = 0;
    /// Called for each node TestCase; does nothing.
    virtual void addTestCase(CppUnit::TestBench* bench, pugi::xml_node const& node);
    /// Called for each node TestFixture; does nothing.
    virtual void addTestFixture(CppUnit::TestBench* bench, pugi::xml_node const& node);

    /// Fills the suite. The configuration is that of the bench; with a bench of another kind there is none.
    void init(CppUnit::TestBench* bench);
    /// Adds the tests of one mask: a path whose name may hold wildcards. Environment variables are expanded, a
    /// relative path counts from the configuration's basePath.
    void createTests(CppUnit::TestBench* bench, vorntest::ConfigNode const* node);
    /// Adds the tests of one file.
    void addTests(CppUnit::TestBench* bench, std::wstring const& path, vorntest::ConfigNode const* node);
    /// Hands the children of an element TestSuite to the handlers, in order.
    void addTests(CppUnit::TestBench* bench, pugi::xml_node const& suiteNode);

protected:
    /// The file that a node handed over comes from; empty for other nodes.
    std::wstring suiteFile(pugi::xml_node const& node) const;

private:
    struct SuiteDocument : pugi::xml_document
    {
        std::wstring path;
    };
    std::list<std::unique_ptr<SuiteDocument>> m_documents; // tests keep nodes of them
};
