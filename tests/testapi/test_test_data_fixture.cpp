#include "testapi/ta_data_file_observer.h"
#include "testapi/ta_test_data_fixture.h"
#include "tests/support/temp_folder.h"

#include "vorntest/vorn_test_bench.h"

#include <cppunit/TestCase.h>
#include <cppunit/TestSuite.h>
#include <cppunit/extensions/HelperMacros.h>

namespace {

constexpr char const* s_line = "<TestOdGeLineSeg2d start='0,0' end='3,4'/>\n";
constexpr char const* s_chain =
    "<TestOdGeSegmentChain2d><vertex pt='0,0'/><vertex pt='5,0'/></TestOdGeSegmentChain2d>\n";
constexpr char const* s_chainOnPlane = "<TestOdGeSegmentChain2dOnPlane normal='0,1,0' elev='2'>"
                                       "<vertex pt='0,0'/><vertex pt='5,0'/></TestOdGeSegmentChain2dOnPlane>\n";

/// Collects notes as "file:line: text", with the file's name alone.
class NoteTaker : public ta::DataFileObserver
{
public:
    void noted(ta::DataFileNote const& note) override
    {
        m_notes.push_back(ut::FileName(note.file).getFullName().toUtf8() + ":" + std::to_string(note.line) + ": " +
                          note.text.toUtf8());
    }
    std::string text() const
    {
        std::string all;
        for (std::string const& note : m_notes)
            all += note + "\n";
        return all;
    }

private:
    std::vector<std::string> m_notes;
    ut::ScopedReplacement<ta::DataFileObserver> m_installed{*this};
};

/// What the command line shows while it lives.
class CommandLineText
{
public:
    CommandLineText()
    {
        ca::app()->commandLine().setListener([this](OdString const& line) { text += line.toUtf8() + "\n"; });
    }
    ~CommandLineText() { ca::app()->commandLine().setListener({}); }
    CommandLineText(CommandLineText const&) = delete;
    CommandLineText& operator=(CommandLineText const&) = delete;

    std::string text;
};

/// ASCII text in UTF-16, least significant byte first, with a byte-order mark.
std::string utf16(std::string const& text)
{
    std::string bytes = "\xFF\xFE";
    for (char const ch : text)
        bytes += {ch, '\0'};
    return bytes;
}

/// Names of the classes, in order.
std::string classesOf(ta::TestGeDataArray const& data)
{
    std::string names;
    for (auto const& datum : data)
        names += std::string(names.empty() ? "" : " ") + datum->isA()->name();
    return names;
}

class NumberedNamer : public ta::TestDataNamer
{
public:
    using TestDataNamer::TestDataNamer;
    std::wstring getBaseName() const override { return TestDataNamer::getBaseName() + L"2"; }
};

class TestDataFixtureTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestDataFixtureTest);
    CPPUNIT_TEST(appendsInOrder);
    CPPUNIT_TEST(filters);
    CPPUNIT_TEST(unreadableFiles);
    CPPUNIT_TEST(notesWhatIsLeftOut);
    CPPUNIT_TEST(linesInAllEncodings);
    CPPUNIT_TEST(namesOfFiles);
    CPPUNIT_TEST(names);
    CPPUNIT_TEST(builderContext);
    CPPUNIT_TEST_SUITE_END();

    TempFolder m_folder;
    ta::TestGeDataArray m_data;

    void read(OdString const& path, ut::CRtClass const* filter = nullptr)
    {
        ta::readDataFromXML(m_data, path.c_str(), ta::kReadDataDefault, filter);
    }
    void readText(std::string const& elements, ut::CRtClass const* filter = nullptr)
    {
        read(m_folder.write("data.xml", "<Data>\n" + elements + "</Data>\n"), filter);
    }

public:
    void setUp() override { m_data.clear(); }

    void appendsInOrder()
    {
        CommandLineText commandLine;
        readText(s_line);
        readText("");
        readText(std::string("text<!-- comment --><Unknown/>") + s_chain + "<TestOdGePoint3d pos='1,2,3'/>" +
                 "<TestOdGeLineSeg2d start='here' end='3,4'/><TestGeData/>" + s_line);
        CPPUNIT_ASSERT_EQUAL(std::string("TestOdGeLineSeg2d TestOdGeSegmentChain2d TestOdGeLineSeg2d"),
                             classesOf(m_data));
        auto const& last = dynamic_cast<ta::TestOdGeLineSeg2d const&>(*m_data.last());
        CPPUNIT_ASSERT(last.geometry()->endPoint() == OdGePoint2d(3, 4));
        CPPUNIT_ASSERT_EQUAL(std::string(), commandLine.text);
    }

    void filters()
    {
        readText(std::string(s_line) + s_chainOnPlane + s_chain, ta::TestOdGeSegmentChain2d::desc());
        CPPUNIT_ASSERT_EQUAL(std::string("TestOdGeSegmentChain2dOnPlane TestOdGeSegmentChain2d"),
                             classesOf(m_data));
        readText(std::string(s_chain) + s_chainOnPlane, ta::TestOdGeSegmentChain2dOnPlane::desc());
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), m_data.size());
    }

    void unreadableFiles()
    {
        readText(s_line);
        CommandLineText commandLine;
        NoteTaker notes;
        std::string const folder = m_folder.path().string();
        read(OdString::fromUtf8(folder + "\\missing.xml"));
        read(m_folder.write("broken.xml", std::string("<Data>\n") + s_line + "<Open>\n</Data>"));
        std::filesystem::create_directory(m_folder.path() / "folder.xml");
        read(m_folder / "folder.xml");
        CPPUNIT_ASSERT_EQUAL(std::string("TestOdGeLineSeg2d"), classesOf(m_data));

        std::string const begin = "Failed to read test params file " + folder;
        CPPUNIT_ASSERT_EQUAL(begin + "/missing.xml.\nError message: File was not found\n" + begin +
                                 "/broken.xml.\nError message: Start-end tags mismatch\n" + begin +
                                 "/folder.xml.\nError message: File was not found\n",
                             commandLine.text);
        CPPUNIT_ASSERT_EQUAL(std::string("missing.xml:0: no data are read: File was not found\n"
                                         "broken.xml:4: no data are read: Start-end tags mismatch\n"
                                         "folder.xml:0: no data are read: File was not found\n"),
                             notes.text());
    }

    void notesWhatIsLeftOut()
    {
        std::string const elements = std::string(s_line) + "<TestOdGePoint3d/>\r\n<!-- \n -->\n" + s_chain +
                                     "text <Tset/>\n<TestOdGeLineSeg2d\n start='1'/><TestOdGeLinSeg2d/>";
        {
            NoteTaker notes;
            readText(elements, ta::TestOdGeSegmentChain2d::desc());
            CPPUNIT_ASSERT_EQUAL(std::string("data.xml:3: TestOdGePoint3d could not be read, left out\n"
                                             "data.xml:7: no class of data is named Tset, left out\n"
                                             "data.xml:8: TestOdGeLineSeg2d could not be read, left out\n"
                                             "data.xml:9: no class of data is named TestOdGeLinSeg2d, left out; "
                                             "did you mean TestOdGeLineSeg2d?\n"),
                                 notes.text());
        }
        readText(elements); // nobody listens any more
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), m_data.size());
    }

    void linesInAllEncodings()
    {
        NoteTaker notes;
        std::string const ascii = "<Data>\n<A/>\n\n<B/></Data>";
        read(m_folder.write(
            "mark.xml",
            "\xEF\xBB\xBF<Data x='\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80'>\n<A/><!-- \xC3\xA4 -->\n<B/></Data>"));
        read(m_folder.write("utf16.xml", utf16(ascii)));
        read(m_folder.write("latin1.xml",
                            "<?xml version='1.0' encoding='iso-8859-1'?><Data x='\xE4\xE4\xE4'>\n<B/></Data>"));
        CPPUNIT_ASSERT_EQUAL(std::string("mark.xml:2: no class of data is named A, left out\n"
                                         "mark.xml:3: no class of data is named B, left out\n"
                                         "utf16.xml:2: no class of data is named A, left out\n"
                                         "utf16.xml:4: no class of data is named B, left out\n"
                                         "latin1.xml:2: no class of data is named B, left out\n"),
                             notes.text());
    }

    void namesOfFiles()
    {
        std::filesystem::create_directories(m_folder.path() / "base/data");
        m_folder.write("base/data/one.xml", std::string("<Data>") + s_line + "</Data>");
        m_folder.write("two.xml", std::string("<Data>") + s_chain + "</Data>");
        vorntest::TestsConfig config;
        config.load(m_folder.write("config.xml", "<testsConfig basePath='base'/>").str());
        vorntest::VornTestBench bench(config);
        ta::ReadDataFromXML(L"data\\one.xml")(m_data, &bench);
        ta::ReadDataFromXML((m_folder / "two.xml").str())(m_data, &bench);
        bench.makeCurrent();
        ta::ReadDataFromXML(L"../two.xml")(m_data, nullptr);
        CPPUNIT_ASSERT_EQUAL(std::string("TestOdGeLineSeg2d TestOdGeSegmentChain2d TestOdGeSegmentChain2d"),
                             classesOf(m_data));
    }

    void names()
    {
        ta::TestDataNamer const namer(L"ArcTests");
        CPPUNIT_ASSERT(namer.getBaseName() == L"ArcTests");
        CPPUNIT_ASSERT(namer.getTestNameFor(L"trim") == L"ArcTests::trim");
        CPPUNIT_ASSERT(namer.getSuiteNameFor(L"trim") == L"ArcTests.trim");
        CPPUNIT_ASSERT(namer.getTestNameFor(L"trim", 3) == L"ArcTests.trim.Data#3");
        CPPUNIT_ASSERT(namer.getTestNameFor(L"trim", 4294967295U) == L"ArcTests.trim.Data#4294967295");
        CPPUNIT_ASSERT(NumberedNamer(L"Arcs").getTestNameFor(L"trim", 0) == L"Arcs2.trim.Data#0");
    }

    void builderContext()
    {
        CppUnit::TestSuite suite("Arcs2.trim");
        NumberedNamer const namer(L"Arcs");
        vorntest::VornTestBench bench{vorntest::TestsConfig()};
        ta::TestDataSuiteBuilderContext const context(&suite, namer, &bench, &m_data);
        auto* const test = new CppUnit::TestCase("one");
        context.addTest(test);
        CPPUNIT_ASSERT(suite.getChildTestCount() == 1 && suite.getChildTestAt(0) == test);
        CPPUNIT_ASSERT(context.getTestNameFor(L"trim") == L"Arcs2::trim");
        CPPUNIT_ASSERT(context.suite() == &suite && &context.namer() == &namer);
        CPPUNIT_ASSERT(context.testBench() == &bench && context.testData() == &m_data);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestDataFixtureTest);

} // namespace
