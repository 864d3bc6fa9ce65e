#include "testmodules/cmdtests/reference_test.h"
#include "tests/support/captured_output.h"
#include "tests/testapi/cmd_test_run.h"

#include <cppunit/extensions/HelperMacros.h>

#include <iostream>
#include <sstream>

namespace {

constexpr char s_rawEntity[] = "  0\nSECTION\n  2\nENTITIES\n  0\nBALLOON\n  5\nB0\n  8\n0\n100\nBalloon\n"
                               " 40\n1.5\n  0\nENDSEC\n  0\nEOF\n";

class ReferenceTestTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(ReferenceTestTest);
    CPPUNIT_TEST(equalDrawings);
    CPPUNIT_TEST(changedEntity);
    CPPUNIT_TEST(namedEntities);
    CPPUNIT_TEST(changedRecord);
    CPPUNIT_TEST(numbersOfEntities);
    CPPUNIT_TEST(manyDifferences);
    CPPUNIT_TEST(mistakesInAttributes);
    CPPUNIT_TEST(entitiesThatAreOnlyKept);
    CPPUNIT_TEST_SUITE_END();

    CmdTestFolder m_folder;
    std::string m_line; // handles
    std::string m_circle;

    static std::string add(OdDbEntity* entity)
    {
        auto const space = ca::curDb()->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        return space->appendOdDbEntity(entity).getHandle().ascii().toUtf8();
    }
    void save(wchar_t const* name)
    {
        CPPUNIT_ASSERT(ca::curDoc()->saveAs(m_folder / OdString(name).toUtf8(), 60));
    }

    /// Failure of a test of sample.dwg whose second line holds these operations.
    std::string run(std::string const& operations, std::string const& drawing = "sample.dwg")
    {
        return m_folder.runAs<ReferenceTest>("<t dwgName='" + drawing + "'>\n" + operations + "\n</t>");
    }
    std::string compare(std::string const& attributes)
    {
        return run("<assertReference dwgName='changed.dwg' " + attributes + "/>");
    }
    static std::string failure(std::string const& details)
    {
        return "assertion failed|" + details + "|Operation 'assertReference' at @/t.xml:2";
    }

public:
    /// sample.dwg with a line and a circle of radius 5; in changed.dwg its radius is 5.5.
    void setUp() override
    {
        CPPUNIT_ASSERT(ca::app()->openFile());
        OdDbLinePtr const line = new OdDbLine;
        line->setEndPoint(OdGePoint3d(3, 4, 0));
        m_line = add(line.get());
        OdDbCirclePtr const circle = new OdDbCircle;
        circle->setRadius(5);
        m_circle = add(circle.get());
        save(L"sample.dwg");
        circle->upgradeOpen();
        circle->setRadius(5.5);
        save(L"changed.dwg");
        ca::curDoc()->close();
    }
    void tearDown() override { CPPUNIT_ASSERT_EQUAL(0, ca::app()->getDocumentsCount()); }

    void equalDrawings()
    {
        std::string const before = m_folder.read("sample.dwg");
        CapturedOutput const output;
        CPPUNIT_ASSERT_EQUAL(std::string(), run("<assertReference dwgName='sample.dwg'/>"));
        CPPUNIT_ASSERT_EQUAL(std::string(), run("<assertReference dwgName='sample.dwg' entities='" + m_circle +
                                                "," + m_line + "'/><saveResultFile/>"));
        CPPUNIT_ASSERT_EQUAL(std::string(), output.text());
        CPPUNIT_ASSERT(before == m_folder.read("t_result.dwg"));
    }

    void changedEntity()
    {
        CPPUNIT_ASSERT_EQUAL(failure("Entity (OdDbCircle, handle " + m_circle +
                                     "): Incorrect radius value|Expected: 5.5|Actual  : 5|Off by  : 0.5, allowed "
                                     "1e-06|Reference: @/changed.dwg, handle " +
                                     m_circle),
                             compare(""));
        CPPUNIT_ASSERT(compare("tolerance='0.4'").starts_with("assertion failed"));
        CPPUNIT_ASSERT_EQUAL(std::string(), compare("tolerance='0.6'"));
        CPPUNIT_ASSERT_EQUAL(std::string(), compare("entities='" + m_line + "'"));
    }

    void namedEntities()
    {
        std::string const draw = "<command name='CIRCLE' nameEntities='hole'><point value='0,0'/>"
                                 "<real value='6'/></command>";
        std::string const attributes = "<assertReference dwgName='changed.dwg' entities='hole' references='REF_";
        CPPUNIT_ASSERT_EQUAL(std::string(),
                             run(draw + attributes + m_circle + "' tolerance='0.5' skipCommonProps='true'/>"));
        std::string const text = run(draw + attributes + m_circle + "' skipCommonProps='1'/>");
        CPPUNIT_ASSERT_MESSAGE(text, text.starts_with("assertion failed|Entity 'hole' (OdDbCircle, handle "));
        CPPUNIT_ASSERT_MESSAGE(text, text.find("|Expected: 5.5|Actual  : 6|") != std::string::npos);
        std::string const classes = run(draw + attributes + m_line + "'/>");
        CPPUNIT_ASSERT_MESSAGE(classes, classes.starts_with("assertion failed|Expression: pEnt1->isA() == "
                                                            "pEnt2->isA()|Entity 'hole' (OdDbCircle, handle "));
        // Of a new entity, the reference has no partner of equal handle.
        std::string const lost = run(draw + "<assertReference dwgName='changed.dwg' entities='hole'/>");
        CPPUNIT_ASSERT_MESSAGE(lost,
                               lost.starts_with("assertion failed|Expression: id.isValid()|Invalid handle: "));
    }

    void changedRecord()
    {
        std::string const change = "<command name='-LAYER'><string value='Color'/><string value='1'/>"
                                   "<string value='0'/><string_empty/></command>";
        std::string const text = run(change + "<assertReference dwgName='sample.dwg' entities='" + m_line + "'/>");
        CPPUNIT_ASSERT_MESSAGE(text, text.starts_with("assertion failed|layer table '0': "));
        CPPUNIT_ASSERT_MESSAGE(text, text.find("|Reference: @/sample.dwg, handle ") != std::string::npos);
        // Nothing uses the layer as far as it matters.
        CPPUNIT_ASSERT_EQUAL(std::string(), run(change + "<assertReference dwgName='sample.dwg' entities='" +
                                                m_line + "' skipCommonProps='true'/>"));
        CPPUNIT_ASSERT(run(change + "<assertReference dwgName='sample.dwg' skipCommonProps='true'/>")
                           .starts_with("assertion failed|layer table '0': "));
    }

    void numbersOfEntities()
    {
        std::string const erase =
            "<command name='ERASE'><sset><fullSubentPath entities='" + m_circle + "'/></sset></command>";
        CPPUNIT_ASSERT_EQUAL(failure("Entities in model space: 1, in the reference: 2|Reference: @/sample.dwg|"
                                     "model space: OdDbCircle " +
                                     m_circle + ": only in the reference"),
                             run(erase + "<assertReference dwgName='sample.dwg'/>"));
        CPPUNIT_ASSERT_EQUAL(failure("Expression: !id.isErased()|Entity " + m_circle + " is erased"),
                             run(erase + "<assertReference dwgName='sample.dwg' entities='" + m_circle + "'/>"));
        std::string const draw = "<command name='POINT'><point value='0,0'/></command>";
        std::string const text = run(draw + "<assertReference dwgName='sample.dwg'/>");
        CPPUNIT_ASSERT_MESSAGE(
            text, text.starts_with("assertion failed|Entities in model space: 3, in the reference: 2|Reference: "
                                   "@/sample.dwg|model space: OdDbPoint ") &&
                      text.find(": only in the tested drawing") != std::string::npos);
    }

    void manyDifferences()
    {
        std::string draw;
        for (int i = 0; i < 20; ++i)
            draw += "<command name='POINT'><point value='0,0'/></command>";
        m_folder.write("draw.xml", "<t dwgName='sample.dwg'>" + draw + "</t>");
        CapturedOutput const output;
        std::string const save = "<assertReference dwgName='many.dwg' mode='ref'/>";
        CPPUNIT_ASSERT_EQUAL(
            std::string(),
            run("<copyFile src='sample.dwg' dst='copy.dwg'/><openDoc name='copy.dwg'/>" + draw + save));
        std::string const move = "<command name='MOVE'><string value='ALL'/><string_empty/><point value='0,0'/>"
                                 "<point value='1,0'/></command>";
        std::string const text = run(move + "<assertReference dwgName='many.dwg'/>", "many.dwg");
        std::string const end = "|... and 13 more|Operation 'assertReference' at @/t.xml:2";
        CPPUNIT_ASSERT_MESSAGE(text, text.ends_with(end)); // 20 points, a circle, and two ends of a line
    }

    void mistakesInAttributes()
    {
        struct Row
        {
            std::string attributes;
            std::string details;
        };
        std::string const tolerance = "Expression: readOptional(node, name, value) && value >= 0|";
        std::string const rule = "' is not a number from 0 on";
        Row const rows[] = {
            {"tolerance='much'", tolerance + "tolerance: 'much" + rule},
            {"tolerance='-1'", tolerance + "tolerance: '-1" + rule},
            {"relTolerance=''", tolerance + "relTolerance: '" + rule},
            {"skipCommonProps='maybe'",
             "Expression: readOptional(node, L\"skipCommonProps\", options.skipCommonProps)|skipCommonProps is "
             "neither true nor false: 'maybe'"},
            {"entities='" + m_line + "' references='1,2'",
             "Expression: entities.size() == references.size()|entities lists 1, references 2"},
            {"references='" + m_line + "'",
             "Expression: node.attribute(L\"entities\") || !node.attribute(L\"references\")|references says what "
             "stands for entities, but entities is missing"},
            {"entities=''", "Expression: !names.empty()|Entity list cannot be empty"},
            {"entities='" + m_line + "' references='FFFF'", "Expression: id.isValid()|Invalid handle: FFFF"},
        };
        for (Row const& row : rows)
            CPPUNIT_ASSERT_EQUAL(failure(row.details), compare(row.attributes));
        CPPUNIT_ASSERT_EQUAL(failure("Expression: m_referenceDb"), run("<assertReference/>"));
    }

    void entitiesThatAreOnlyKept()
    {
        std::string changed = s_rawEntity;
        changed.replace(changed.find("1.5"), 3, "2.5");
        m_folder.write("raw.dxf", s_rawEntity);
        m_folder.write("raw2.dxf", changed);
        std::string const note = "compared by the fields of drawing files: ";
        CapturedOutput const output;
        CPPUNIT_ASSERT_EQUAL(std::string(), run("<assertReference dwgName='raw.dxf'/>", "raw.dxf"));
        CPPUNIT_ASSERT_EQUAL("@/t, raw.dxf: " + note + "BALLOON 1\n",
                             withoutFolder(output.text(), m_folder.path().string()));
        std::string const text = run("<assertReference dwgName='raw2.dxf'/>", "raw.dxf");
        CPPUNIT_ASSERT_MESSAGE(text, text.find("|Expected: 2.5|Actual  : 1.5|") != std::string::npos);
        CPPUNIT_ASSERT_MESSAGE(text, text.find("|" + note + "BALLOON 1|") != std::string::npos);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(ReferenceTestTest);

} // namespace
