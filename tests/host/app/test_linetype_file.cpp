// Definitions of linetypes in files, and those that are there without one.
#include "host/app/linetype_file.h"

#include "host/geom/od_ge_angle.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class LinetypeFileTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LinetypeFileTest);
    CPPUNIT_TEST(patterns);
    CPPUNIT_TEST(textOnADash);
    CPPUNIT_TEST(refusesPatterns);
    CPPUNIT_TEST(files);
    CPPUNIT_TEST(refusesFiles);
    CPPUNIT_TEST(standardOnes);
    CPPUNIT_TEST_SUITE_END();

    static std::vector<ca::LinetypeDefinition> parse(std::vector<std::wstring_view> const& lines)
    {
        return ca::parseLinetypes(lines);
    }
    static std::vector<double> lengths(std::vector<ca::LinetypeDefinition::Dash> const& dashes)
    {
        std::vector<double> all;
        for (auto const& dash : dashes)
            all.push_back(dash.length);
        return all;
    }
    template <class Call>
    static std::string refusal(Call call)
    {
        try {
            call();
        } catch (OdError const& error) {
            return error.description().toUtf8();
        }
        return "taken";
    }

public:
    void patterns()
    {
        std::vector<double> const expected{0.5, -0.25, 0, -0.25};
        for (wchar_t const* pattern : {L".5,-.25,0,-.25", L"A,.5,-.25,0,-.25", L"  a, 0.5 ,-25e-2, 0,-.25 "})
            CPPUNIT_ASSERT(expected == lengths(ca::parseLinetypePattern(pattern)));
    }

    void textOnADash()
    {
        auto const dashes = ca::parseLinetypePattern(
            L"A,.5,-.2,[\"G, ]S\",Standard,S=.1,R=90d,x=-.1,Y=-.05],-.25,[\"B\",Other,A=100g]");
        CPPUNIT_ASSERT((lengths(dashes) == std::vector<double>{0.5, -0.2, -0.25}));
        CPPUNIT_ASSERT(dashes[0].text.isEmpty());
        CPPUNIT_ASSERT(dashes[1].text == L"G, ]S" && dashes[1].style == L"Standard" && dashes[1].scale == 0.1);
        CPPUNIT_ASSERT(dashes[1].offset.x == -0.1 && dashes[1].offset.y == -0.05);
        CPPUNIT_ASSERT(!dashes[1].isRotationAbsolute && dashes[2].isRotationAbsolute);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 2, dashes[1].rotation, 1e-15);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 2, dashes[2].rotation, 1e-15);
    }

    void refusesPatterns()
    {
        struct Case
        {
            wchar_t const* pattern;
            char const* reason;
        };
        Case const cases[] = {
            {L"", "A linetype requires 2 to 12 dashes, gaps and dots."},
            {L"A,1", "A linetype requires 2 to 12 dashes, gaps and dots."},
            {L"1,1,1,1,1,1,1,1,1,1,1,1,1", "A linetype requires 2 to 12 dashes, gaps and dots."},
            {L"-1,1", "A linetype begins with a dash or a dot."},
            {L"0,0", "A linetype requires a length."},
            {L"1,nan", "\"nan\" is not a number."},
            {L"1,,1", "\"\" is not a number."},
            {L"1,-1,[TRACK1,ltypeshp.shx,S=.25]", "Shapes are not supported in linetypes."},
            {L"[\"T\",Standard],1,-1", "A text stands behind the dash or gap to which it belongs."},
            {L"1,-1,[\"T\",Standard],[\"T\",Standard]",
             "A text stands behind the dash or gap to which it belongs."},
            {L"1,-1,[\"T\"]", "A text and a text style are required in brackets."},
            {L"1,-1,[\"T\",Standard,Q=1]", "\"Q=1\" is not known."},
            {L"1,-1,[\"T\",Standard,S]", "\"\" is not a number."},
            {L"1,-1,[\"T\",Standard", "A bracket is not closed."},
        };
        for (Case const& each : cases)
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(each.pattern).toUtf8(), std::string(each.reason),
                                         refusal([&] { ca::parseLinetypePattern(each.pattern); }));
    }

    void files()
    {
        auto const definitions = parse(
            {L";; comment", L"", L"*FENCE , Fence, wooden ---- . ", L"A,1,-.5", L"; more", L"*BARE", L"A,0,-1"});
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), definitions.size());
        CPPUNIT_ASSERT(definitions[0].name == L"FENCE" && definitions[0].description == L"Fence, wooden ---- .");
        CPPUNIT_ASSERT(definitions[1].name == L"BARE" && definitions[1].description.isEmpty());
        CPPUNIT_ASSERT((lengths(definitions[1].dashes) == std::vector<double>{0, -1}));
    }

    void refusesFiles()
    {
        CPPUNIT_ASSERT_EQUAL(std::string("Line 2: A line of dashes is missing."), refusal([] {
                                 parse({L"*A,a", L"*B,b", L"A,1,-1"});
                             }));
        CPPUNIT_ASSERT_EQUAL(std::string("Line 1: A line of name and description is missing."),
                             refusal([] { parse({L"A,1,-1"}); }));
        CPPUNIT_ASSERT_EQUAL(std::string("Line 3: \"x\" is not a number."), refusal([] {
                                 parse({L"*A,a", L"", L"A,1,x"});
                             }));
        CPPUNIT_ASSERT_EQUAL(std::string("The line of dashes of the last linetype is missing."),
                             refusal([] { parse({L"*A,a"}); }));
    }

    void standardOnes()
    {
        auto const inches = ca::standardLinetypes(false);
        auto const millimetres = ca::standardLinetypes(true);
        CPPUNIT_ASSERT_EQUAL(std::size_t(24), inches.size());
        for (std::size_t i = 0; i < inches.size(); ++i) {
            CPPUNIT_ASSERT(inches[i].name == millimetres[i].name);
            CPPUNIT_ASSERT_DOUBLES_EQUAL(25.4 * inches[i].dashes[1].length, millimetres[i].dashes[1].length,
                                         1e-12);
        }
        CPPUNIT_ASSERT(inches[9].name == L"DASHED" && inches[11].name == L"DASHEDX2");
        CPPUNIT_ASSERT((lengths(inches[11].dashes) == std::vector<double>{1, -0.5}));
        CPPUNIT_ASSERT_EQUAL(std::string("Dashed ____ ____ ____ "), inches[9].description.toUtf8());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(LinetypeFileTest);

} // namespace
