#include "tests/support/temp_folder.h"
#include "vorntest/test_arg_suite.h"

#include <cppunit/TestResult.h>
#include <cppunit/TestResultCollector.h>
#include <cppunit/extensions/HelperMacros.h>

#include <stdexcept>

namespace {

using vorntest::TestCaseArgBase;
using vorntest::TypeDescriptor;

/// An argument with two properties, of which the second is never set by masks.
class Gear : public TestCaseArgBase
{
public:
    explicit Gear(std::wstring const& file) : TestCaseArgBase(file) { ++s_alive; }
    ~Gear() override { --s_alive; }

    static TypeDescriptor const* desc()
    {
        static TypeDescriptor const s_desc(
            L"Gear", TestCaseArgBase::desc(),
            []() -> std::unique_ptr<TestCaseArgBase> { return std::make_unique<Gear>(std::wstring()); },
            [](TypeDescriptor& descriptor) {
                descriptor.addProperty({L"file", [](TestCaseArgBase& argument, std::wstring const& text) {
                                            dynamic_cast<Gear&>(argument).setTestArg(text);
                                        }});
                descriptor.addProperty({L"teeth", [](TestCaseArgBase& argument, std::wstring const& text) {
                                            dynamic_cast<Gear&>(argument).m_teeth = text;
                                        }});
            });
        return &s_desc;
    }
    TypeDescriptor const* isA() const override { return desc(); }
    std::wstring const& testArg() const override { return TestCaseArgBase::testArg(); }
    std::wstring const& teeth() const { return m_teeth; }

    static inline int s_alive = 0;

private:
    std::wstring m_teeth;
};

/// Inherits all properties and adds its tests twice.
class Worm : public Gear
{
public:
    using Gear::Gear;
    static TypeDescriptor const* desc()
    {
        static TypeDescriptor const s_desc(
            L"Worm", Gear::desc(),
            []() -> std::unique_ptr<TestCaseArgBase> { return std::make_unique<Worm>(std::wstring()); }, nullptr);
        return &s_desc;
    }
    TypeDescriptor const* isA() const override { return desc(); }
    void addTestsToSuite(vorntest::TestArgSuiteBuilder& builder) override
    {
        builder.addTestsWith(*this);
        builder.addTestsWith(*this);
    }
};

/// Writes down what is called.
class GearTest : public CppUnit::TestFixture
{
public:
    explicit GearTest(Gear& gear) : m_gear(gear) {}
    void setUp() override { s_calls += "setUp "; }
    void tearDown() override { s_calls += "tearDown "; }
    void turns() { s_calls += "turns:" + std::filesystem::path(m_gear.testArg()).filename().string() + " "; }
    void fails() { CPPUNIT_FAIL("stuck"); }

    static inline std::string s_calls;

private:
    Gear& m_gear;
};

std::string pathsBelow(CppUnit::Test const& test, std::string const& above = "")
{
    std::string const name = above + test.getName();
    if (test.getChildTestCount() == 0)
        return test.countTestCases() > 0 ? name + "\n" : "";
    std::string text;
    for (int i = 0; i < test.getChildTestCount(); ++i)
        text += pathsBelow(*test.getChildTestAt(i), name + "/");
    return text;
}

class TestArgSuiteTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestArgSuiteTest);
    CPPUNIT_TEST(descriptors);
    CPPUNIT_TEST(oneArgumentForEachFile);
    CPPUNIT_TEST(argumentsDecideOnTheirTests);
    CPPUNIT_TEST(testsRunWithTheirArgument);
    CPPUNIT_TEST(withoutABench);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;

    vorntest::TestsConfig configOf(std::string const& suites) const
    {
        m_folder.write("tests.cfg", "<testsConfig>" + suites + "</testsConfig>");
        vorntest::TestsConfig config;
        config.load((m_folder / "tests.cfg").str());
        return config;
    }

    template <class Argument>
    static std::unique_ptr<CppUnit::Test> built()
    {
        vorntest::TestArgSuiteRegistration<Argument, GearTest> registration{
            L"Gears", {{"turns", &GearTest::turns}, {"fails", &GearTest::fails}}};
        return std::unique_ptr<CppUnit::Test>(registration.makeTest());
    }

public:
    void descriptors()
    {
        TypeDescriptor const& gear = *Gear::desc();
        TypeDescriptor const& worm = *Worm::desc();
        CPPUNIT_ASSERT(worm.isKindOf(&gear) && worm.isKindOf(TestCaseArgBase::desc()) && !gear.isKindOf(&worm));
        CPPUNIT_ASSERT(worm.property(L"teeth") && !worm.property(L"tooth"));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), worm.properties().size());

        std::unique_ptr<TestCaseArgBase> const made = worm.create(L"C:\\gears\\a.xml");
        CPPUNIT_ASSERT(made->testArg() == L"C:/gears/a.xml" && made->isA() == &worm);
        worm.property(L"teeth")->set(*made, L"12");
        CPPUNIT_ASSERT(dynamic_cast<Worm&>(*made).teeth() == L"12");

        CPPUNIT_ASSERT_THROW(TestCaseArgBase::desc()->create(L"a.xml"), std::logic_error);
        auto const addsAgain = [](TypeDescriptor& descriptor) { descriptor.addProperty({L"teeth", nullptr}); };
        CPPUNIT_ASSERT_THROW(TypeDescriptor(L"Double", &gear, nullptr, addsAgain), std::logic_error);
    }

    void oneArgumentForEachFile()
    {
        std::filesystem::create_directories(m_folder.path() / "g/sub.xml");
        for (char const* const file : {"g/b.xml", "g/a.big.xml", "g/c.txt", "h.xml"})
            m_folder.write(file, "<any/>");
        vorntest::VornTestBench bench(configOf("<suite name='Other'><mask>h.xml</mask></suite>"
                                               "<suite name='Gears'><mask>g/*.xml</mask><mask>none/*</mask>"
                                               "<mask>h.xml</mask><mask>h.*</mask></suite>"));
        bench.makeCurrent();
        std::unique_ptr<CppUnit::Test> suite = built<Gear>();
        CPPUNIT_ASSERT_EQUAL(std::string("Gears/a.big/turns\nGears/a.big/fails\nGears/b/turns\nGears/b/fails\n"
                                         "Gears/h/turns\nGears/h/fails\nGears/h/turns\nGears/h/fails\n"),
                             pathsBelow(*suite));
        CPPUNIT_ASSERT_EQUAL(4, Gear::s_alive);
        auto const* const test = suite->getChildTestAt(2)->getChildTestAt(1);
        CPPUNIT_ASSERT(dynamic_cast<TestCaseArgBase const&>(*test).testArg() == (m_folder / "h.xml").str());
        suite.reset();
        CPPUNIT_ASSERT_EQUAL(0, Gear::s_alive);
    }

    void argumentsDecideOnTheirTests()
    {
        m_folder.write("a.xml", "");
        vorntest::VornTestBench bench(configOf("<suite name='Gears'><mask>a.xml</mask></suite>"));
        bench.makeCurrent();
        CPPUNIT_ASSERT_EQUAL(std::string("Gears/a/turns\nGears/a/fails\nGears/a/turns\nGears/a/fails\n"),
                             pathsBelow(*built<Worm>()));
    }

    void testsRunWithTheirArgument()
    {
        m_folder.write("a.xml", "");
        m_folder.write("b.xml", "");
        vorntest::VornTestBench bench(configOf("<suite name='Gears'><mask>?.xml</mask></suite>"));
        bench.makeCurrent();
        GearTest::s_calls.clear();
        CppUnit::TestResult result;
        CppUnit::TestResultCollector collector;
        result.addListener(&collector);
        built<Gear>()->run(&result);
        CPPUNIT_ASSERT_EQUAL(std::string("setUp turns:a.xml tearDown setUp tearDown "
                                         "setUp turns:b.xml tearDown setUp tearDown "),
                             GearTest::s_calls);
        CPPUNIT_ASSERT_EQUAL(4, collector.runTests());
        CPPUNIT_ASSERT_EQUAL(2, collector.testFailures());
    }

    void withoutABench() { CPPUNIT_ASSERT_EQUAL(std::string(), pathsBelow(*built<Gear>())); }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestArgSuiteTest);

} // namespace
