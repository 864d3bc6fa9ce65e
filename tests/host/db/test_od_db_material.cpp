#include "host/db/filer/od_db_record_reader.h"
#include "host/db/filer/od_db_record_writer.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_material.h"
#include "host/db/records/od_db_symbol_table.h"
#include "tests/host/db/record_lines.h"
#include "tests/support/od_result_of.h"

#include <cppunit/extensions/HelperMacros.h>

#include <functional>
#include <limits>

namespace {

class TestOdDbMaterial : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestOdDbMaterial);
    CPPUNIT_TEST(filesTellByPlace);
    CPPUNIT_TEST(filesStayAsTheyWere);
    CPPUNIT_TEST(changesGoIntoTheirPlaces);
    CPPUNIT_TEST(whatIsWrittenReadsBack);
    CPPUNIT_TEST(settersCheckTheirValues);
    CPPUNIT_TEST(changesAreUndone);
    CPPUNIT_TEST(drawingsOwnTheirMaterials);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database = new OdDbDatabase;

    /// A material of a file that has these lines below the subclass marker.
    OdDbMaterialPtr read(std::string const& lines) const
    {
        OdDbMaterialPtr material(new OdDbMaterial);
        DatabaseResolver resolver(*m_database);
        OdDbRecordReader reader(*material, resolver);
        for (OdDbTag const tag : tagsOf("5 1F\n330 E\n100 AcDbMaterial\n" + lines))
            reader.put(tag);
        CPPUNIT_ASSERT(reader.finish());
        return material;
    }
    static std::string lines(OdDbMaterial const& material)
    {
        static constexpr std::string_view kMarker = "100 AcDbMaterial\n";
        OdDbTagList tags;
        odDbWriteRecord(material, tags);
        std::string const text = linesOf(tags);
        return text.substr(text.find(kMarker) + kMarker.size());
    }

    /// Everything that a file can say; the second 73 and the second 90 mean something else than the first.
    static constexpr char kWhole[] =
        "1 Steel\n2 dull\n70 1\n40 0.25\n90 -1040187137\n71 1\n41 0.5\n91 -1023410177\n"
        "42 1\n72 1\n3 a.png\n73 2\n74 1\n75 1\n43 1\n43 0\n43 0\n44 0.75\n73 1\n"
        "45 0.125\n92 -1040187392\n46 1\n77 1\n140 0.9\n145 1.5\n42 0.5\n72 2\n73 3\n"
        "460 3\n290 1\n148 0.3\n90 44\n468 0.2\n93 1\n94 127\n";

    void filesTellByPlace()
    {
        OdDbMaterialPtr const steel = read(kWhole);
        CPPUNIT_ASSERT(steel->name() == L"Steel" && steel->description() == L"dull");
        CPPUNIT_ASSERT(steel->ambient() == (OdDbMaterialColor{true, 0.25, -1040187137}));
        CPPUNIT_ASSERT(steel->diffuse() ==
                       (OdDbMaterialColor{true, 0.5, OdDbMaterialColor::ofRgb(255, 255, 255)}));
        CPPUNIT_ASSERT(steel->specular() == (OdDbMaterialColor{true, 0.125, OdDbMaterialColor::ofRgb(0, 0, 0)}));
        CPPUNIT_ASSERT_EQUAL(0.75, steel->gloss());
        CPPUNIT_ASSERT_EQUAL(0.9, steel->opacity());
        CPPUNIT_ASSERT_EQUAL(1.5, steel->refractionIndex());
        CPPUNIT_ASSERT_EQUAL(0.3, steel->translucence());
        CPPUNIT_ASSERT_EQUAL(0.2, steel->reflectivity());
        CPPUNIT_ASSERT_EQUAL(127, steel->channelFlags());

        // Defaults are left out, as most files do.
        OdDbMaterialPtr const plain = read("1 ByBlock\n71 1\n91 -1040187137\n72 1\n94 127\n");
        CPPUNIT_ASSERT(plain->diffuse() == (OdDbMaterialColor{true, 1, -1040187137}));
        CPPUNIT_ASSERT(plain->ambient() == OdDbMaterialColor() && plain->specular() == OdDbMaterialColor());
        CPPUNIT_ASSERT(plain->gloss() == 0.5 && plain->opacity() == 1 && plain->channelFlags() == 127);
    }

    void filesStayAsTheyWere()
    {
        std::string const files[] = {
            kWhole,
            "1 A\n1 B\n40 0.5\n40 0.25\n",          // twice
            "94 63\n140 0.5\n1 late\n999 remark\n", // in another order
            "1 A\n76 1\n45 0.5\n320 1F\n62 3\n",    // kinds and codes that are not expected
            "",
        };
        for (std::string const& file : files)
            CPPUNIT_ASSERT_EQUAL(file, lines(*read(file)));
        OdDbMaterialPtr const twice = read(files[1]);
        CPPUNIT_ASSERT(twice->name() == L"A" && twice->ambient().factor == 0.5);
    }

    void changesGoIntoTheirPlaces()
    {
        OdDbMaterialPtr const material = read("1 A\n71 1\n91 -1\n42 0.5\n43 1\n43 2\n46 0.5\n76 0\n94 63\n");
        material->setName(L"B");
        material->setGloss(0.25);
        material->setOpacity(0.5);
        material->setDescription(L"d");
        material->setDiffuse({false, 0.75, 9});
        CPPUNIT_ASSERT_EQUAL(
            std::string("1 B\n2 d\n71 0\n41 0.75\n91 9\n42 0.5\n43 1\n43 2\n44 0.25\n46 0.5\n76 0\n"
                        "140 0.5\n94 63\n"),
            lines(*material));
        OdDbMaterialPtr const other = read("1 A\n44 0.5\n76 0\n46 0.5\n");
        other->setSpecular({true, 1, 5});
        CPPUNIT_ASSERT_EQUAL_MESSAGE("the code of the file stays",
                                     std::string("1 A\n44 0.5\n76 1\n45 1\n92 5\n46 0.5\n"), lines(*other));
    }

    void whatIsWrittenReadsBack()
    {
        OdDbMaterialColor const red{true, 0.5, OdDbMaterialColor::ofRgb(255, 0, 0)};
        OdDbMaterialPtr const material(new OdDbMaterial);
        material->setSpecular(red);
        material->setTranslucence(0.125);
        material->setName(L"M");
        OdDbMaterialPtr const again = read(lines(*material));
        CPPUNIT_ASSERT(again->specular() == red && again->ambient() == OdDbMaterialColor());
        CPPUNIT_ASSERT(again->name() == L"M" && again->translucence() == 0.125 && again->gloss() == 0.5);
        CPPUNIT_ASSERT_EQUAL(std::int32_t(-1023475712), red.value); // 0xC2FF0000
    }

    void settersCheckTheirValues()
    {
        OdDbMaterialPtr const material(new OdDbMaterial);
        double const nan = std::numeric_limits<double>::quiet_NaN();
        std::pair<OdResult, std::function<void()>> const refused[] = {
            {eInvalidName, [&] { material->setName(L""); }},
            {eOutOfRange, [&] { material->setOpacity(1.5); }},
            {eOutOfRange, [&] { material->setGloss(nan); }},
            {eOutOfRange, [&] { material->setRefractionIndex(0); }},
            {eOutOfRange,
             [&] {
                 material->setDiffuse({true, -0.5, 0});
             }},
        };
        for (auto const& [code, call] : refused)
            CPPUNIT_ASSERT_EQUAL(code, odResultOf(call));
        CPPUNIT_ASSERT_EQUAL(std::string(), lines(*material));
    }

    void changesAreUndone()
    {
        OdDbObjectId const id = odDbAddMaterial(*m_database, read("1 M\n42 0.5\n").get());
        m_database->startUndoRecord();
        id.open<OdDbMaterial>(OdDb::kForWrite)->setOpacity(0.5);
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(std::string("1 M\n42 0.5\n"), lines(*id.open<OdDbMaterial>()));
        CPPUNIT_ASSERT_EQUAL(eNotOpenForWrite, odResultOf([&] { id.open<OdDbMaterial>()->setOpacity(0.5); }));
    }

    void drawingsOwnTheirMaterials()
    {
        OdDbObjectId const dictionary = odDbMaterialDictionary(*m_database);
        OdDbObjectId const global = dictionary.open<OdDbDictionary>()->getAt(L"Global");
        CPPUNIT_ASSERT(global.open<OdDbMaterial>()->name() == L"Global");
        OdDbMaterialPtr const named(new OdDbMaterial);
        CPPUNIT_ASSERT_EQUAL(eInvalidName, odResultOf([&] { odDbAddMaterial(*m_database, named); }));
        named->setName(L"GLOBAL");
        CPPUNIT_ASSERT_EQUAL(eDuplicateKey, odResultOf([&] { odDbAddMaterial(*m_database, named); }));
        dictionary.safeOpenObject(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT(odDbMaterialDictionary(*m_database).isNull());
        OdDbObjectId const added = odDbAddMaterial(*m_database, named);
        CPPUNIT_ASSERT(odDbMaterialDictionary(*m_database).open<OdDbDictionary>()->getAt(L"Global") == added);
        CPPUNIT_ASSERT_EQUAL(eAlreadyInDb, odResultOf([&] { odDbAddMaterial(*m_database, named); }));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestOdDbMaterial);

} // namespace
