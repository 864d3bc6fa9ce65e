#include "host/db/entities/od_db_line.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "tests/host/app/document_fixture.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace {

using ca::SysVar;

std::string textOf(wchar_t const* name, ca::CaDoc const* doc = nullptr)
{
    return SysVar::find(name)->text(doc).toUtf8();
}

class SysVarTest : public DocumentFixture
{
    CPPUNIT_TEST_SUITE(SysVarTest);
    CPPUNIT_TEST(everyVariableTakesBackItsValue);
    CPPUNIT_TEST(newDrawingsHaveTheDefaults);
    CPPUNIT_TEST(findsWithoutRegardToCase);
    CPPUNIT_TEST(takesTextInRangeAndRefusesOther);
    CPPUNIT_TEST(refusedValuesChangeNothing);
    CPPUNIT_TEST(withoutADocument);
    CPPUNIT_TEST(typedAccess);
    CPPUNIT_TEST(drawingKeepsItsOwnVariables);
    CPPUNIT_TEST(changesOfDrawingVariablesAreUndone);
    CPPUNIT_TEST(currentRecordsAreSetByName);
    CPPUNIT_TEST(tellsOfTheDocument);
    CPPUNIT_TEST(tellsTheExtents);
    CPPUNIT_TEST(datesAgreeWithEachOther);
    CPPUNIT_TEST_SUITE_END();

public:
    void everyVariableTakesBackItsValue()
    {
        ca::CaDoc& document = newDocument();
        for (SysVar const& variable : SysVar::list()) {
            std::string const name = variable.name().toUtf8();
            ca::SysVarValue const value = variable.value();
            CPPUNIT_ASSERT_EQUAL_MESSAGE(name, variable.defaultValue().index(), value.index());
            OdString reason;
            bool const isTaken = variable.setText(variable.text(), nullptr, &reason);
            CPPUNIT_ASSERT_EQUAL_MESSAGE(name + ": " + reason.toUtf8(), !variable.isReadOnly(), isTaken);
            if (!variable.isReadOnly())
                CPPUNIT_ASSERT_MESSAGE(name, variable.set(variable.defaultValue()));
        }
        CPPUNIT_ASSERT(!SysVar::list().empty() && m_app.hasDocument(&document));
    }

    void newDrawingsHaveTheDefaults()
    {
        newDocument();
        for (SysVar const& variable : SysVar::list())
            if (variable.keeper() == ca::ESysVarKeeper::kDrawing && !variable.isReadOnly())
                CPPUNIT_ASSERT_EQUAL_MESSAGE(variable.name().toUtf8(),
                                             SysVar::toText(variable.defaultValue()).toUtf8(),
                                             variable.text().toUtf8());
    }

    void findsWithoutRegardToCase()
    {
        CPPUNIT_ASSERT(SysVar::find(L"osMode") == SysVar::find(L"OSMODE") && SysVar::find(L"osmode"));
        CPPUNIT_ASSERT(!SysVar::find(L"OSMODES") && !SysVar::find(L"") && !SysVar::find(L"ZZZ"));
        std::span<SysVar const> const all = SysVar::list();
        for (std::size_t i = 1; i < all.size(); ++i)
            CPPUNIT_ASSERT_MESSAGE(all[i].name().toUtf8(), all[i - 1].name() < all[i].name());
    }

    struct TextCase
    {
        wchar_t const* name;
        wchar_t const* typed;
        char const* kept; ///< null: refused
        char const* reason;
    };

    void takesTextInRangeAndRefusesOther()
    {
        constexpr char const* kOffOn = "Requires an integer between 0 and 1 only.";
        // clang-format off
        constexpr TextCase cases[] = {
            {L"ATTREQ",      L"0",           "0",              ""},
            {L"ATTREQ",      L"On",          "1",              ""},
            {L"ATTREQ",      L"2",           nullptr,          kOffOn},
            {L"ATTREQ",      L"yes",         nullptr,          kOffOn},
            {L"OSMODE",      L"32767",       "32767",          ""},
            {L"OSMODE",      L"-1",          nullptr,          "Requires an integer between 0 and 32767 only."},
            {L"OSMODE",      L"1.5",         nullptr,          "Requires an integer between 0 and 32767 only."},
            {L"USERI1",      L"-32768",      "-32768",         ""},
            {L"USERI1",      L"32768",       nullptr,          "Requires an integer between -32768 and 32767 only."},
            {L"LTSCALE",     L"1e-3",        "0.001",          ""},
            {L"LTSCALE",     L"0",           nullptr,          "Requires a number above 0."},
            {L"CIRCLERAD",   L"0",           "0",              ""},
            {L"CIRCLERAD",   L"-1",          nullptr,          "Requires a number not below 0."},
            {L"ELEVATION",   L"-12.25",      "-12.25",         ""},
            {L"ELEVATION",   L"nan",         nullptr,          "Requires a number."},
            {L"ELEVATION",   L"1e999",       nullptr,          "Requires a number."},
            {L"SNAPBASE",    L"1,-2",        "1,-2",           ""},
            {L"SNAPBASE",    L"1,2,3",       "1,2",            ""},
            {L"SNAPBASE",    L"1",           nullptr,          "Requires a point."},
            {L"SNAPBASE",    L"1,2,3,4",     nullptr,          "Requires a point."},
            {L"SNAPBASE",    L"1,,2",        nullptr,          "Requires a point."},
            {L"SNAPUNIT",    L"10,0",        nullptr,          "Requires a point with coordinates above 0."},
            {L"GRIDUNIT",    L"0,5",         "0,5",            ""},
            {L"INSBASE",     L"1,2,3",       "1,2,3",          ""},
            {L"LASTPOINT",   L"4,5",         "4,5,0",          ""},
            {L"SNAPANG",     L"30",          "30",             ""},
            {L"SNAPANG",     L"-17.3",       "-17.3",          ""},
            {L"CELWEIGHT",   L"211",         "211",            ""},
            {L"CELWEIGHT",   L"-3",          "-3",             ""},
            {L"CELWEIGHT",   L"210",         nullptr,          nullptr},
            {L"PDMODE",      L"98",          "98",             ""},
            {L"PDMODE",      L"5",           nullptr,          nullptr},
            {L"PDMODE",      L"8",           nullptr,          nullptr},
            {L"CECOLOR",     L"bylayer",     "BYLAYER",        ""},
            {L"CECOLOR",     L"ByBlock",     "BYBLOCK",        ""},
            {L"CECOLOR",     L"red",         "1",              ""},
            {L"CECOLOR",     L"255",         "255",            ""},
            {L"CECOLOR",     L"0",           nullptr,          nullptr},
            {L"CECOLOR",     L"256",         nullptr,          nullptr},
            {L"POLARADDANG", L"15;22.5;-3",  "15;22.5;-3",     ""},
            {L"POLARADDANG", L"",            "",               ""},
            {L"POLARADDANG", L"15,5",        nullptr,          nullptr},
            {L"POLARADDANG", L"1;2;3;4;5;6;7;8;9;10;11", nullptr, nullptr},
            {L"SRCHPATH",    L"/a b;/c",     "/a b;/c",        ""},
            {L"DWGNAME",     L"x",           nullptr,          "DWGNAME is read-only."},
        };
        // clang-format on
        newDocument();
        for (TextCase const& each : cases) {
            SysVar const& variable = *SysVar::find(each.name);
            std::string const label = (variable.name() + L" " + each.typed).toUtf8();
            OdString reason;
            CPPUNIT_ASSERT_EQUAL_MESSAGE(label, each.kept != nullptr,
                                         variable.setText(each.typed, nullptr, &reason));
            if (each.reason)
                CPPUNIT_ASSERT_EQUAL_MESSAGE(label, std::string(each.reason), reason.toUtf8());
            else
                CPPUNIT_ASSERT_MESSAGE(label, reason.startsWith(L"Requires "));
            if (each.kept)
                CPPUNIT_ASSERT_EQUAL_MESSAGE(label, std::string(each.kept), variable.text().toUtf8());
        }
    }

    void refusedValuesChangeNothing()
    {
        ca::CaDoc& document = newDocument();
        CPPUNIT_ASSERT(SysVar::find(L"LTSCALE")->set(2.0));
        document.setDbModified(0);
        CPPUNIT_ASSERT(!SysVar::find(L"LTSCALE")->set(-2.0));
        CPPUNIT_ASSERT(!SysVar::find(L"LTSCALE")->set(OdString(L"3")));
        CPPUNIT_ASSERT(!SysVar::find(L"CLAYER")->setText(L"nowhere"));
        CPPUNIT_ASSERT(!SysVar::find(L"OSMODE")->set(2.5));
        CPPUNIT_ASSERT_MESSAGE("the same value again", SysVar::find(L"LTSCALE")->set(2));
        CPPUNIT_ASSERT_EQUAL(std::string("2"), textOf(L"LTSCALE"));
        CPPUNIT_ASSERT(!document.isModified());
    }

    void withoutADocument()
    {
        OdString reason;
        CPPUNIT_ASSERT(!SysVar::find(L"LTSCALE")->set(2.0, nullptr, &reason));
        CPPUNIT_ASSERT_EQUAL(std::string("No drawing is open."), reason.toUtf8());
        CPPUNIT_ASSERT_EQUAL(std::string("1"), textOf(L"LTSCALE"));
        CPPUNIT_ASSERT(!oa::SysVars::setGRIDMODE(true) && !oa::SysVars::getGRIDMODE());
        CPPUNIT_ASSERT_EQUAL(short(127), oa::SysVars::getSORTENTS());
        CPPUNIT_ASSERT(oa::SysVars::setAUTOCOMPLETEMODE(0));
        CPPUNIT_ASSERT_EQUAL(short(0), oa::SysVars::getAUTOCOMPLETEMODE());
    }

    void typedAccess()
    {
        ca::CaDoc& document = newDocument();
        ca::CaDoc& other = newDocument();
        CPPUNIT_ASSERT(oa::SysVars::setSNAPUNIT(OdGePoint2d(2, 3), &document));
        CPPUNIT_ASSERT(oa::SysVars::getSNAPUNIT(&document) == OdGePoint2d(2, 3));
        CPPUNIT_ASSERT(oa::SysVars::getSNAPUNIT() == OdGePoint2d(0.5, 0.5));
        CPPUNIT_ASSERT(!oa::SysVars::setOSMODE(-1) && oa::SysVars::getOSMODE() == 37);
        CPPUNIT_ASSERT(oa::SysVars::set3DOSMODE(511) && !oa::SysVars::set3DOSMODE(512));
        CPPUNIT_ASSERT_EQUAL(511, oa::SysVars::get3DOSMODE());
        CPPUNIT_ASSERT(oa::SysVars::setSNAPMODE(true) && oa::SysVars::getSNAPMODE());
        CPPUNIT_ASSERT(oa::SysVars::setNAVVCUBEDISPLAY(0, &other));
        CPPUNIT_ASSERT_EQUAL(short(3), oa::SysVars::getNAVVCUBEDISPLAY(&document));
        CPPUNIT_ASSERT_EQUAL(short(0), oa::SysVars::getNAVVCUBEDISPLAY(&other));
        CPPUNIT_ASSERT(oa::SysVars::getWNDSMAIN() == OdGePoint2d(1024, 768));
        m_app.commandLine().message(L"first\nlast line\n");
        CPPUNIT_ASSERT(oa::SysVars::getLASTPROMPT() == L"last line");
    }

    void drawingKeepsItsOwnVariables()
    {
        struct
        {
            wchar_t const* name;
            wchar_t const* value;
        } constexpr settings[] = {{L"LTSCALE", L"0.1"},          {L"CECOLOR", L"3"},
                                  {L"SNAPANG", L"33.3"},         {L"GRIDUNIT", L"2.5,0"},
                                  {L"GRIDMODE", L"1"},           {L"LIMMAX", L"841,594"},
                                  {L"INSBASE", L"1.5,-2,0.25"},  {L"USERR1", L"1e-300"},
                                  {L"CELWEIGHT", L"-2"},         {L"CELTYPE", L"Continuous"},
                                  {L"PROJECTNAME", L"Tür \"7\""}};
        ca::CaDoc& document = newDocument();
        for (auto const& each : settings)
            CPPUNIT_ASSERT(SysVar::find(each.name)->setText(each.value));
        CPPUNIT_ASSERT(document.saveAs(m_folder / "a.dwg", 60));
        document.close();
        newDocument();
        CPPUNIT_ASSERT_EQUAL(std::string("BYLAYER"), textOf(L"CECOLOR"));
        CPPUNIT_ASSERT(m_app.openFile((m_folder / "a.dwg").c_str()));
        for (auto const& each : settings)
            CPPUNIT_ASSERT_EQUAL(OdString(each.value).toUtf8(), textOf(each.name));
    }

    void changesOfDrawingVariablesAreUndone()
    {
        constexpr wchar_t const* changes[][2] = {
            {L"LTSCALE", L"5"},  {L"CELTYPE", L"Continuous"}, {L"SNAPBASE", L"1,1"}, {L"CECOLOR", L"7"},
            {L"TILEMODE", L"0"}, {L"PROJECTNAME", L"x"},      {L"LIMMIN", L"-1,-1"}};
        OdDbDatabase& db = *newDocument().database();
        std::vector<std::string> before;
        for (auto const& change : changes)
            before.push_back(textOf(change[0]));
        db.startUndoRecord();
        for (auto const& change : changes)
            CPPUNIT_ASSERT(SysVar::find(change[0])->setText(change[1]));
        CPPUNIT_ASSERT_EQUAL(std::string("Layout1"), textOf(L"CTAB"));
        db.undo();
        for (std::size_t i = 0; i < before.size(); ++i)
            CPPUNIT_ASSERT_EQUAL(before[i], textOf(changes[i][0]));
        CPPUNIT_ASSERT_EQUAL(std::string("Model"), textOf(L"CTAB"));
    }

    void currentRecordsAreSetByName()
    {
        OdDbDatabase& db = *newDocument().database();
        OdDbLayerTableRecordPtr const layer = new OdDbLayerTableRecord;
        layer->setName(L"Walls");
        OdDbObjectId const id = db.getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(layer);
        CPPUNIT_ASSERT(SysVar::find(L"CLAYER")->setText(L"WALLS"));
        CPPUNIT_ASSERT(db.getCLAYER() == id);
        CPPUNIT_ASSERT_EQUAL(std::string("Walls"), textOf(L"CLAYER"));
        CPPUNIT_ASSERT(SysVar::find(L"CLAYER")->setText(L"0"));
        layer->setIsFrozen(true);
        OdString reason;
        CPPUNIT_ASSERT(!SysVar::find(L"CLAYER")->setText(L"Walls", nullptr, &reason));
        CPPUNIT_ASSERT_EQUAL(std::string("The layer \"Walls\" is frozen."), reason.toUtf8());
        CPPUNIT_ASSERT(!SysVar::find(L"TEXTSTYLE")->setText(L"", nullptr, &reason));
    }

    void tellsOfTheDocument()
    {
        ca::CaDoc& document = newDocument();
        CPPUNIT_ASSERT_EQUAL(document.title().toUtf8(), textOf(L"DWGNAME"));
        CPPUNIT_ASSERT_EQUAL(std::string("0 0"), textOf(L"DWGTITLED") + " " + textOf(L"DBMOD"));
        document.setModified(true);
        CPPUNIT_ASSERT_EQUAL(std::string("1"), textOf(L"DBMOD"));
        CPPUNIT_ASSERT(document.saveAs(m_folder / "part.x.dwg", 60));
        CPPUNIT_ASSERT_EQUAL(std::string("part.x.dwg"), textOf(L"DWGNAME"));
        CPPUNIT_ASSERT_EQUAL(m_folder.path().string() + "/", textOf(L"DWGPREFIX"));
        CPPUNIT_ASSERT_EQUAL(std::string("1 1 0"),
                             textOf(L"DWGTITLED") + " " + textOf(L"WRITESTAT") + " " + textOf(L"DBMOD"));
    }

    void tellsTheExtents()
    {
        OdDbDatabase& db = *newDocument().database();
        CPPUNIT_ASSERT_EQUAL(std::string("1e+20,1e+20,1e+20"), textOf(L"EXTMIN"));
        CPPUNIT_ASSERT_EQUAL(std::string("-1e+20,-1e+20,-1e+20"), textOf(L"EXTMAX"));
        auto const space = db.getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
        OdDbLinePtr const line = new OdDbLine, erased = new OdDbLine;
        line->setStartPoint({1, 5, 0});
        line->setEndPoint({4, 2, -1});
        erased->setEndPoint({100, 100, 100});
        space->appendOdDbEntity(line);
        space->appendOdDbEntity(erased);
        erased->erase();
        CPPUNIT_ASSERT_EQUAL(std::string("1,2,-1"), textOf(L"EXTMIN"));
        CPPUNIT_ASSERT_EQUAL(std::string("4,5,0"), textOf(L"EXTMAX"));
    }

    void datesAgreeWithEachOther()
    {
        namespace ch = std::chrono;
        double const date = std::get<double>(SysVar::find(L"DATE")->value());
        double const calendar = std::get<double>(SysVar::find(L"CDATE")->value());
        auto const ymd = static_cast<int>(calendar);
        ch::sys_days const day = ch::year(ymd / 10000) / (ymd / 100 % 100) / (ymd % 100);
        double const time = (calendar - ymd) * 1e6;
        double const hours = std::floor(time / 10000);
        double const minutes = std::floor(std::fmod(time, 10000) / 100);
        double const seconds = hours * 3600 + minutes * 60 + std::fmod(time, 100);
        // 1 January 2000 has the number 2451545.
        ch::sys_days const millennium = ch::year(2000) / 1 / 1;
        double const expected = 2451545 + static_cast<double>((day - millennium).count()) + seconds / 86400;
        CPPUNIT_ASSERT_DOUBLES_EQUAL(expected, date, 2.0 / 86400);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(SysVarTest);

} // namespace
