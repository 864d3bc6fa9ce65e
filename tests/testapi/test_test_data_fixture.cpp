#include "testapi/ta_data_file_observer.h"
#include "testapi/ta_test_data_fixture.h"
#include "tests/support/temp_folder.h"

#include "vorntest/vorn_test_bench.h"

#include <cppunit/TestCase.h>
#include <cppunit/TestSuite.h>
#include <cppunit/extensions/HelperMacros.h>

#include <sstream>

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
    CPPUNIT_TEST(notesWhatDataDoNotLookAt);
    CPPUNIT_TEST(attributesOfAllClasses);
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

    std::string notesOf(std::string const& element)
    {
        NoteTaker notes;
        readText(element);
        return notes.text();
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
            CPPUNIT_ASSERT_EQUAL(
                std::string("data.xml:3: TestOdGePoint3d could not be read, left out\n"
                            "data.xml:7: text between data, passed over\n"
                            "data.xml:7: no class of data is named Tset, left out\n"
                            "data.xml:8: TestOdGeLineSeg2d could not be read, left out: it has no end\n"
                            "data.xml:9: no class of data is named TestOdGeLinSeg2d, left out; "
                            "did you mean 'TestOdGeLineSeg2d'?\n"),
                notes.text());
        }
        readText(elements); // nobody listens any more
        CPPUNIT_ASSERT_EQUAL(std::size_t(3), m_data.size());
    }

    void notesWhatDataDoNotLookAt()
    {
        NoteTaker notes;
        read(m_folder.write("data.xml", R"(<Data>
<TestOdGeCircArc2d center='0,0' radius='1' startAng='0' endAng='1' clokwise='1' RefVec='0,1'/>
<TestOdGeSegmentChain2d Closed='1'>text<vertex pt='0,0'/>
 <vertex pt='5,0' buldge='1'/></TestOdGeSegmentChain2d>
<TestOdGeLineSeg2d start='0,0' end='3,4' end='5,6'><vertex/></TestOdGeLineSeg2d>
<TestOdGeRay3d base='0,0,0' direction='1,0,0'/>
<TestLineSeg2dArray><x start='0,0' end='1,1' w='1'/></TestLineSeg2dArray>
<TestLineSeg2dArray><x start='0,0'/></TestLineSeg2dArray>
<TestOdGeSegmentChain2d><vertx pt='0,0'/></TestOdGeSegmentChain2d>

  text
</Data>
<TestOdGePoint3dArray nPt='0' aPt=''/>)"));
        CPPUNIT_ASSERT_EQUAL(
            std::string(
                "data.xml:13: only the first element of a file is read, TestOdGePoint3dArray is left out\n"
                "data.xml:2: no attribute of TestOdGeCircArc2d is named clokwise; did you mean 'clockwise'?\n"
                "data.xml:2: no attribute of TestOdGeCircArc2d is named RefVec; did you mean 'refVec'?\n"
                "data.xml:3: no attribute of TestOdGeSegmentChain2d is named Closed; did you mean 'closed'?\n"
                "data.xml:3: text between elements, passed over\n"
                "data.xml:4: no attribute of TestOdGeSegmentChain2d is named buldge; did you mean 'bulge'?\n"
                "data.xml:5: end is given twice, the first one counts\n"
                "data.xml:5: no element is expected in TestOdGeLineSeg2d, vertex is passed over\n"
                "data.xml:6: TestOdGeRay3d could not be read, left out: it has no dir\n"
                "data.xml:6: no attribute of TestOdGeRay3d is named direction; known are 'base', 'dir'\n"
                "data.xml:7: no attribute of TestLineSeg2dArray is named w; known are 'start', 'end'\n"
                "data.xml:8: TestLineSeg2dArray could not be read, left out: x has no end\n"
                "data.xml:9: TestOdGeSegmentChain2d could not be read, left out: vertx stands where only vertex "
                "can\n"
                "data.xml:11: text between data, passed over\n"),
            notes.text());
        CPPUNIT_ASSERT_EQUAL(std::size_t(4), m_data.size());
    }

    /// What is noted agrees with what the classes read: each attribute is known, and missed where it is required.
    void attributesOfAllClasses()
    {
        char const* const elements[] = {
            "<TestOdGeLineSeg2d start='0,0' end='1,1'/>",
            "<TestOdGeLineSeg3d start='0,0' end='1,1'/>",
            "<TestOdGeRay3d base='1,2,3' dir='0,0,1'/>",
            "<TestOdGeLine3d base='1,2,3' dir='0,0,1'/>",
            "<TestOdGeCircArc2d center='1,5' radius='2' startAng='0' endAng='1' refVec='0,1' clockwise='1'/>",
            "<TestOdGeCircArc3d center='0,0' normal='0,0,1' refVec='1,0,0' radius='3' startAng='0' endAng='3'/>",
            "<TestOdGeEllipArc2d center='0,0' majorAxis='1,0' minorAxis='0,1' majorRadius='6' minorRadius='4' "
            "startAng='0' endAng='3'/>",
            "<TestOdGeEllipArc3d center='0,0' majorAxis='1,0,0' minorAxis='0,1,0' majorRadius='6' "
            "minorRadius='4' startAng='0' endAng='3'/>",
            "<TestOdGeNurbCurve3d degree='1' periodic='0' nKnot='4' aKnot='0 0 1 1' nPt='2' aPt='0,0 1,1' "
            "nWeight='2' aWeight='1 1'/>",
            "<TestOdGeSegmentChain2d closed='1'><vertex pt='0,0' bulge='1'/></TestOdGeSegmentChain2d>",
            "<TestOdGeSegmentChain2dOnPlane closed='1' normal='0,1,0' elev='2'><vertex pt='0,0' bulge='1'/>"
            "</TestOdGeSegmentChain2dOnPlane>",
            "<TestOdGePolyline3d nPt='1' aPt='0,0' closed='1'/>",
            "<TestOdGePoint3dArray nPt='1' aPt='0,0'/>",
            "<TestLineSeg2dArray><a start='0,0' end='1,1'/></TestLineSeg2dArray>",
            "<TestPgMesh mSize='1' nSize='1' aPt='0,0' MClosed='1' NClosed='1'/>",
            "<TestMTextData pos='1,2' width='5' text='a' rotAngDeg='3'/>",
            "<TestTextData pos='1,2' widthFactor='5' text='a' rotAngDeg='3'/>",
            "<TestHandleArray nHd='1' aHd='2A'/>",
        };
        for (char const* const element : elements) {
            CPPUNIT_ASSERT_EQUAL_MESSAGE(element, std::string(), notesOf(element));
            pugi::xml_document document;
            document.load_string(OdString::fromUtf8(element).c_str());
            for (pugi::xml_attribute const attribute : document.first_child().attributes()) {
                pugi::xml_document without;
                pugi::xml_node copy = without.append_copy(document.first_child());
                copy.remove_attribute(attribute.name());
                if (std::wstring_view(attribute.name()).ends_with(L"Weight"))
                    continue; // missing together only
                bool const isRead = ut::TestGeData::readObject(copy) != nullptr;
                std::wostringstream text;
                copy.print(text, L"", pugi::format_raw);
                std::string const missed =
                    std::string("left out: it has no ") + OdString(attribute.name()).toUtf8() + "\n";
                CPPUNIT_ASSERT_EQUAL_MESSAGE(
                    missed, !isRead, notesOf(OdString(text.str()).toUtf8()).find(missed) != std::string::npos);
            }
        }
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
