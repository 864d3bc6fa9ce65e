// TEXT, fed with text answers.
#include "host/app/command_line.h"
#include "host/app/sds_cmd.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_text_style_table_record.h"
#include "tests/host/app/draw_script.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>

namespace {

class TestDrawText : public DrawScriptTest
{
    CPPUNIT_TEST_SUITE(TestDrawText);
    CPPUNIT_TEST(lines);
    CPPUNIT_TEST(justifications);
    CPPUNIT_TEST(textsBetweenTwoPoints);
    CPPUNIT_TEST(continuesBelowTheLastText);
    CPPUNIT_TEST(styleGivesHeightAndShape);
    CPPUNIT_TEST(listsStyles);
    CPPUNIT_TEST(refusals);
    CPPUNIT_TEST(prompts);
    CPPUNIT_TEST_SUITE_END();

public:
    void lines()
    {
        DrawnCase const cases[] = {
            {L"TEXT|1,2,3|5|0|hello, world|", L"TEXT hello, world 1,2,3 h5 r0"},
            {L"DT|0,0|3|0|a|b|c|", L"TEXT a 0,0 h3 r0; TEXT b 0,-5 h3 r0; TEXT c 0,-10 h3 r0"},
            {L"TEXT|0,0|3|90|a|b|", L"TEXT a 0,0 h3 r90; TEXT b 5,0 h3 r90"},
            {L"TEXT|0,0|0,4|0|a||TEXT|9,9||45|b|", L"TEXT a 0,0 h4 r0; TEXT b 9,9 h4 r45", 2},
            // Words that would mean something elsewhere are text here.
            {L"TEXT|0,0|3||'LINE|U|", L"TEXT 'LINE 0,0 h3 r0; TEXT U 0,-5 h3 r0"},
        };
        checkDrawn(cases);
        OdString const before = drawn();
        feed(L"TEXT|0,0|3|0|");
        CPPUNIT_ASSERT_EQUAL(before.toUtf8(), drawn().toUtf8());
    }

    void justifications()
    {
        struct
        {
            wchar_t const* option;
            wchar_t const* question;
            wchar_t const* drawn;
        } const cases[] = {
            {L"L", L"Specify start point of text: ", L"TEXT a 5,6 h3 r0"},
            {L"C", L"Specify center point of text: ", L"TEXT a 5,6 h3 r0 j1/0"},
            {L"R", L"Specify right endpoint of text baseline: ", L"TEXT a 5,6 h3 r0 j2/0"},
            {L"M", L"Specify middle point of text: ", L"TEXT a 5,6 h3 r0 j4/0"},
            {L"TL", L"Specify top-left point of text: ", L"TEXT a 5,6 h3 r0 j0/3"},
            {L"TC", L"Specify top-center point of text: ", L"TEXT a 5,6 h3 r0 j1/3"},
            {L"TR", L"Specify top-right point of text: ", L"TEXT a 5,6 h3 r0 j2/3"},
            {L"ML", L"Specify middle-left point of text: ", L"TEXT a 5,6 h3 r0 j0/2"},
            {L"MC", L"Specify middle point of text: ", L"TEXT a 5,6 h3 r0 j1/2"},
            {L"MR", L"Specify middle-right point of text: ", L"TEXT a 5,6 h3 r0 j2/2"},
            {L"BL", L"Specify bottom-left point of text: ", L"TEXT a 5,6 h3 r0 j0/1"},
            {L"BC", L"Specify bottom-center point of text: ", L"TEXT a 5,6 h3 r0 j1/1"},
            {L"BR", L"Specify bottom-right point of text: ", L"TEXT a 5,6 h3 r0 j2/1"},
        };
        for (OdString const& way : {OdString(L"TEXT|J|"), OdString(L"TEXT|")})
            for (auto const& each : cases) {
                OdString const script = way + each.option;
                PromptCase const prompt[] = {{script.c_str(), each.question}};
                checkPrompts(prompt);
                OdString const whole = script + L"|5,6|3|0|a|";
                DrawnCase const drawn[] = {{whole.c_str(), each.drawn}};
                checkDrawn(drawn);
            }
    }

    /// The text is estimated to be 0.85 wide for each character and unit of height.
    void textsBetweenTwoPoints()
    {
        DrawnCase const cases[] = {
            {L"TEXT|J|A|0,0|34,0|abcd|", L"TEXT abcd 0,0 to 34,0 h10 r0 j3/0"},
            {L"TEXT|J|A|0,0|0,34|abcd|ab|",
             L"TEXT abcd 0,0 to 0,34 h10 r90 j3/0; TEXT ab 16.6667,0 to 16.6667,34 h20 r90 j3/0"},
            {L"TEXT|J|F|0,0|34,0|3|abcd|abcd|",
             L"TEXT abcd 0,0 to 34,0 h3 r0 j5/0 x3.3333; TEXT abcd 0,-5 to 34,-5 h3 r0 j5/0 x3.3333"},
        };
        checkDrawn(cases);
    }

    void continuesBelowTheLastText()
    {
        DrawnCase const cases[] = {
            {L"TEXT|0,0|3|0|a||TEXT||b|", L"TEXT a 0,0 h3 r0; TEXT b 0,-5 h3 r0", 2},
            {L"TEXT|MC|7,7|3|90|a||POINT|1,1|TEXT||b|",
             L"TEXT a 7,7 h3 r90 j1/2; POINT 1,1; TEXT b 12,7 h3 r90 j1/2", 3},
            {L"TEXT|F|0,0|34,0|3|abcd||TEXT||abcd|",
             L"TEXT abcd 0,0 to 34,0 h3 r0 j5/0 x3.3333; TEXT abcd 0,-5 to 34,-5 h3 r0 j5/0 x3.3333", 2},
        };
        checkDrawn(cases);
    }

    void styleGivesHeightAndShape()
    {
        addStyle(L"Narrow", 7, 0.5);
        feed(L"TEXT|S|narrow|0,0|0|a|");
        CPPUNIT_ASSERT_EQUAL(std::string("TEXT a 0,0 h7 r0 x0.5"), drawn().toUtf8());
        CPPUNIT_ASSERT(currentStyle() == L"Narrow");
        // A text that continues another one keeps that one's style.
        feed(L"TEXT|S|Standard");
        sds_cmd(nullptr);
        feed(L"TEXT||c|");
        CPPUNIT_ASSERT_EQUAL(std::string("TEXT a 0,0 h7 r0 x0.5; TEXT c 0,-11.6667 h7 r0 x0.5"), drawn().toUtf8());
        CPPUNIT_ASSERT(currentStyle() == L"Standard");
        feed(L"U|U|U");
        CPPUNIT_ASSERT(currentStyle() == L"Standard");
        CPPUNIT_ASSERT_EQUAL(std::string(), drawn().toUtf8());
    }

    void listsStyles()
    {
        addStyle(L"Narrow", 7, 0.5);
        feed(L"TEXT|S|?|n*||0,0");
        auto const& lines = ca::app()->commandLine().lines();
        auto const count = [&](wchar_t const* beginning) {
            return std::count_if(lines.begin(), lines.end(),
                                 [&](OdString const& line) { return line.startsWith(beginning); });
        };
        CPPUNIT_ASSERT_EQUAL(std::ptrdiff_t(1), std::ptrdiff_t(count(L"Style name: \"Narrow\"")));
        CPPUNIT_ASSERT_EQUAL(std::ptrdiff_t(0), std::ptrdiff_t(count(L"Style name: \"Standard\"")));
        CPPUNIT_ASSERT_EQUAL(std::string("Specify height <2.5>: "), lastPrompt().toUtf8());
    }

    void refusals()
    {
        RefusedCase const cases[] = {
            {L"TEXT|", L"There is no text to continue."},
            {L"TEXT|S|nothing", L"There is no text style \"nothing\"."},
            {L"TEXT|J|X", L"Invalid option keyword."},
            {L"TEXT|J|A|1,1|1,1", L"The two points are the same."},
            {L"TEXT|0,0|0", L"Value must be positive and nonzero."},
        };
        checkRefused(cases);
    }

    void prompts()
    {
        PromptCase const cases[] = {
            {L"TEXT", L"Specify start point of text or [Justify/Style]: "},
            {L"TEXT|J", L"Enter an option [Left/Center/Right/Align/Middle/Fit/TL/TC/TR/ML/MC/MR/BL/BC/BR]: "},
            {L"TEXT|S", L"Enter style name or [?] <Standard>: "},
            {L"TEXT|J|F|0,0", L"Specify second endpoint of text baseline: "},
            {L"TEXT|J|F|0,0|9,0", L"Specify height <2.5>: "},
            {L"TEXT|J|A|0,0|9,0", L"Enter text: "},
            {L"TEXT|0,0|3", L"Specify rotation angle of text <0>: "},
        };
        checkPrompts(cases);
        auto const& lines = ca::app()->commandLine().lines();
        CPPUNIT_ASSERT(std::find(lines.begin(), lines.end(),
                                 L"Current text style:  \"Standard\"  Text height:  2.5000") != lines.end());
    }

private:
    static void addStyle(OdString const& name, double height, double widthFactor)
    {
        OdDbTextStyleTableRecordPtr const style = new OdDbTextStyleTableRecord;
        style->setName(name);
        style->setTextSize(height);
        style->setXScale(widthFactor);
        db().getTextStyleTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(style);
    }

    static OdString currentStyle() { return db().getTEXTSTYLE().open<OdDbTextStyleTableRecord>()->getName(); }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestDrawText);

} // namespace
