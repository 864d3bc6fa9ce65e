// Whole drawings that differ in one thing, and what is said of it.
#include "testapi/ta_drawing_comparison.h"
#include "tests/host/dxf/dxf_text.h"

#include <cppunit/extensions/HelperMacros.h>

#include <sstream>

namespace {

std::string record(std::string const& name, std::string const& handle, std::string const& owner,
                   std::string const& rest)
{
    return "0\n" + name + "\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbSymbolTableRecord\n" + rest;
}

std::string table(std::string const& name, std::string const& handle, std::string const& records)
{
    return "0\nTABLE\n2\n" + name + "\n5\n" + handle + "\n330\n0\n100\nAcDbSymbolTable\n70\n9\n" + records +
           "0\nENDTAB\n";
}

std::string entity(std::string const& name, std::string const& handle, std::string const& layer,
                   std::string const& rest)
{
    return "0\n" + name + "\n5\n" + handle + "\n330\n1F\n100\nAcDbEntity\n8\n" + layer + "\n" + rest;
}

std::string layerRecord(std::string const& handle, std::string const& name, std::string const& color)
{
    return record("LAYER", handle, "2",
                  "100\nAcDbLayerTableRecord\n2\n" + name + "\n70\n0\n62\n" + color + "\n6\nContinuous\n");
}

std::string header()
{
    return "9\n$LTSCALE\n40\n2.0\n9\n$CLAYER\n8\nWALLS\n9\n$INSBASE\n10\n1.0\n20\n2.0\n30\n3.0\n"
           "9\n$TDUPDATE\n40\n2460000.5\n9\n$HANDSEED\n5\n500\n9\n$LASTSAVEDBY\n1\nann\n";
}

std::string tables()
{
    auto const style = [](std::string const& handle, std::string const& name, std::string const& font) {
        return record("STYLE", handle, "3",
                      "100\nAcDbTextStyleTableRecord\n2\n" + name + "\n70\n0\n40\n0.0\n41\n1.0\n3\n" + font +
                          "\n4\n\n");
    };
    std::string const dimStyles = "0\nDIMSTYLE\n105\n41\n330\n4\n100\nAcDbSymbolTableRecord\n100\n"
                                  "AcDbDimStyleTableRecord\n2\nFINE\n70\n0\n41\n2.5\n";
    std::string const blocks =
        record("BLOCK_RECORD", "1F", "1", "100\nAcDbBlockTableRecord\n2\n*Model_Space\n340\n0\n") +
        record("BLOCK_RECORD", "51", "1", "100\nAcDbBlockTableRecord\n2\nDOOR\n340\n0\n");
    return table("LAYER", "2", layerRecord("21", "WALLS", "1") + layerRecord("22", "DOORS", "2")) +
           table("STYLE", "3", style("31", "NOTES", "txt") + style("32", "SIGNS", "gothic")) +
           table("DIMSTYLE", "4", dimStyles) + table("BLOCK_RECORD", "1", blocks);
}

std::string blocks()
{
    auto const frame = [](std::string const& type, std::string const& handle, std::string const& owner,
                          std::string const& marker) {
        return "0\n" + type + "\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbEntity\n8\n0\n100\n" + marker +
               "\n";
    };
    std::string const name = "70\n0\n10\n0.0\n20\n0.0\n30\n0.0\n3\n";
    return frame("BLOCK", "60", "1F", "AcDbBlockBegin") + "2\n*Model_Space\n" + name + "*Model_Space\n1\n\n" +
           frame("ENDBLK", "61", "1F", "AcDbBlockEnd") + frame("BLOCK", "62", "51", "AcDbBlockBegin") +
           "2\nDOOR\n" + name + "DOOR\n1\n\n" +
           "0\nCIRCLE\n5\n63\n330\n51\n100\nAcDbEntity\n8\nDOORS\n100\nAcDbCircle\n10\n0.0\n20\n0.0\n30\n0."
           "0\n40\n1.25\n" +
           frame("ENDBLK", "64", "51", "AcDbBlockEnd");
}

std::string entities()
{
    return entity("LINE", "70", "WALLS",
                  "100\nAcDbLine\n10\n0.0\n20\n0.0\n30\n0.0\n11\n10.5\n21\n0.0\n31\n0.0\n"
                  "1001\nMYAPP\n1070\n7\n") +
           entity("INSERT", "71", "DOORS", "100\nAcDbBlockReference\n2\nDOOR\n10\n5.0\n20\n5.0\n30\n0.0\n") +
           entity("TEXT", "72", "WALLS",
                  "100\nAcDbText\n10\n1.0\n20\n1.0\n30\n0.0\n40\n0.5\n1\nhello\n7\nNOTES\n100\nAcDbText\n") +
           entity("LEADER", "73", "WALLS", "100\nAcDbLeader\n3\nFINE\n71\n1\n40\n0.75\n340\n72\n360\n83\n") +
           entity(
               "3DFACE", "74", "WALLS",
               "100\nAcDbFace\n10\n0.0\n20\n0.0\n30\n0.0\n11\n1.0\n21\n0.0\n31\n0.0\n12\n1.0\n22\n1.0\n32\n0.0\n"
               "13\n0.0\n23\n1.0\n33\n0.0\n") +
           entity("POLYLINE", "75", "WALLS", "66\n1\n100\nAcDb3dPolyline\n10\n0.0\n20\n0.0\n30\n0.0\n70\n8\n") +
           "0\nVERTEX\n5\n76\n330\n75\n100\nAcDbEntity\n8\nWALLS\n100\nAcDbVertex\n100\nAcDb3dPolylineVertex\n"
           "10\n3.5\n20\n0.0\n30\n0.0\n70\n32\n" +
           "0\nSEQEND\n5\n77\n330\n75\n100\nAcDbEntity\n8\nWALLS\n";
}

std::string objects()
{
    auto const dictionary = [](std::string const& handle, std::string const& owner, std::string const& entries) {
        return "0\nDICTIONARY\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbDictionary\n281\n1\n" + entries;
    };
    return dictionary("C", "0", "3\nACAD_GROUP\n350\nD\n3\nNOTES\n350\nE\n") +
           dictionary("D", "C", "3\nPAIR\n350\n81\n") +
           dictionary("E", "C", "3\nDATA\n360\n82\n3\nSELF\n350\nC\n") +
           "0\nGROUP\n5\n81\n330\nD\n100\nAcDbGroup\n300\nboth\n70\n0\n71\n1\n340\n70\n340\n71\n" +
           "0\nXRECORD\n5\n82\n330\nE\n100\nAcDbXrecord\n280\n1\n40\n1.5\n1\nnote\n330\n72\n" +
           "0\nXRECORD\n5\n83\n330\n73\n100\nAcDbXrecord\n280\n1\n1\nheld\n";
}

std::string drawing()
{
    using dxfText::section;
    return section("HEADER", "9\n$ACADVER\n1\nAC1015\n" + header()) + section("TABLES", tables()) +
           section("BLOCKS", blocks()) + section("ENTITIES", entities()) + section("OBJECTS", objects()) +
           section("MYDATA", "1\nmine\n40\n8.5\n") + "0\nEOF\n";
}

std::string replaced(std::string text, std::string const& from, std::string const& to)
{
    std::size_t const at = text.find(from);
    CPPUNIT_ASSERT_MESSAGE("not in the drawing: " + from, at != std::string::npos);
    CPPUNIT_ASSERT_MESSAGE("more than once in the drawing: " + from, text.find(from, at + 1) == std::string::npos);
    return text.replace(at, from.size(), to);
}

/// The drawing with all handles raised, those of tables and spaces too.
std::string renumbered(std::string const& text)
{
    std::string result;
    std::istringstream lines(text);
    for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
        OdDbHandle const handle{std::string_view(value)};
        bool const isHandle = OdDxfCode::isHandleText(OdDxfCode::_getType(std::stoi(code))) && !handle.isNull();
        char buffer[16];
        result += code + "\n" +
                  (isHandle ? std::string(OdDbHandle(handle.value() + 0x1000).write(buffer)) : value) + "\n";
    }
    return result;
}

std::vector<std::string> differencesOf(OdDbDatabase const& first, OdDbDatabase const& second, double eps = 1e-6)
{
    std::vector<std::string> found;
    ta::DrawingComparison comparison(
        first, second, {.tolerance = eps, .relTolerance = eps, .eps = eps},
        [&found](ta::DrawingDifference const& difference) { found.push_back(difference.text().toUtf8()); });
    bool const areEqual = comparison.wholeDrawings();
    CPPUNIT_ASSERT_EQUAL(found.empty(), areEqual);
    CPPUNIT_ASSERT_EQUAL(static_cast<long>(found.size()), comparison.differences());
    return found;
}

void assertDifferences(std::vector<std::string> const& expected, std::vector<std::string> const& found,
                       std::string const& about)
{
    auto const lines = [](std::vector<std::string> const& texts) {
        std::string all;
        for (std::string const& text : texts)
            all += "\n  " + text;
        return all;
    };
    CPPUNIT_ASSERT_EQUAL_MESSAGE(about, lines(expected), lines(found));
}

struct Change
{
    std::string from, to;
    std::vector<std::string> differences;
};

class DrawingComparisonTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(DrawingComparisonTest);
    CPPUNIT_TEST(tellsEachChangeOnce);
    CPPUNIT_TEST(tellsWhatOnlyOneDrawingHas);
    CPPUNIT_TEST(takesNoNoticeOfHandles);
    CPPUNIT_TEST(knowsNamesThatAreLeftOut);
    CPPUNIT_TEST(findsObjectsOfUnknownOwners);
    CPPUNIT_TEST(equalsWhatIsSavedOfIt);
    CPPUNIT_TEST(toleratesSmallDifferencesOfReals);
    CPPUNIT_TEST(leavesOutWhatSavingChanges);
    CPPUNIT_TEST(followsEntitiesOfOtherHandles);
    CPPUNIT_TEST(comparesDimensionStylesByVariable);
    CPPUNIT_TEST(comparesAttributesByTag);
    CPPUNIT_TEST(ordersAndCountsPairs);
    CPPUNIT_TEST(comparesRecordsOfEqualName);
    CPPUNIT_TEST(comparesRecordsThatEntitiesUse);
    CPPUNIT_TEST(changesNothing);
    CPPUNIT_TEST_SUITE_END();

    void tellsEachChangeOnce()
    {
        Change const changes[] = {
            {"$LTSCALE\n40\n2.0", "$LTSCALE\n40\n3.0", {"header: LTSCALE: Incorrect value: 2 | 3"}},
            {"$INSBASE\n10\n1.0\n20\n2.0",
             "$INSBASE\n10\n1.0\n20\n2.5",
             {"header: INSBASE: Incorrect value: (1, 2, 3) | (1, 2.5, 3)"}},
            {"$CLAYER\n8\nWALLS", "$CLAYER\n8\nDOORS", {"header: CLAYER: Incorrect value: \"WALLS\" | \"DOORS\""}},
            {"WALLS\n70\n0\n62\n1",
             "WALLS\n70\n0\n62\n5",
             {"layer table: OdDbLayerTableRecord WALLS: color (negative: off): 1 | 5"}},
            {"3\ntxt\n",
             "3\nromans\n",
             {"text style table: OdDbTextStyleTableRecord NOTES: font: \"txt\" | \"romans\""}},
            {"FINE\n70\n0\n41\n2.5",
             "FINE\n70\n0\n41\n3.5",
             {"dimension style table: OdDbDimStyleTableRecord FINE: DIMASZ: 2.5 | 3.5, off by 1, allowed "
              "1e-06"}},
            {"2\nDOOR\n70\n0\n10\n0.0",
             "2\nDOOR\n70\n0\n10\n4.0",
             {"block table: OdDbBlockTableRecord DOOR: origin: (0, 0, 0) | (4, 0, 0), off by 4, allowed "
              "1e-06"}},
            {"40\n1.25", "40\n2.25", {"block DOOR: OdDbCircle 63: radius: 1.25 | 2.25, off by 1, allowed 1e-06"}},
            {"11\n10.5",
             "39\n0.25\n11\n10.5",
             {"model space: OdDbLine 70: thickness: 0 | 0.25, off by 0.25, allowed 1e-06"}},
            {"1001\nMYAPP\n1070\n7",
             "1001\nMYAPP\n1070\n8",
             {"model space: OdDbLine 70: extended data of MYAPP, group 1070: 7 | 8"}},
            {"1\nhello\n7\nNOTES",
             "1\nhello\n7\nSIGNS",
             {"model space: OdDbText 72: textStyle: \"NOTES\" | \"SIGNS\""}},
            {"71\n1\n40\n0.75",
             "71\n1\n40\n1.0",
             {"model space: LEADER 73: group 40 of AcDbLeader: 0.75 | 1, off by 0.25, allowed 1e-06"}},
            {"340\n72\n",
             "340\n74\n",
             {"model space: LEADER 73: group 340 of AcDbLeader: OdDbText 72 | OdDbFace 74"}},
            {"13\n0.0\n23\n1.0",
             "13\n0.0\n23\n2.0",
             {"model space: OdDbFace 74: corner 4: 1 | 2, off by 1, allowed 1e-06"}},
            {"10\n3.5",
             "10\n4.5",
             {"model space: OdDb3dPolyline 75, vertex 1: position: (3.5, 0, 0) | (4.5, 0, 0), off by 1, allowed "
              "1e-06"}},
            {"340\n70\n340\n71\n",
             "340\n70\n340\n74\n",
             {"dictionary ACAD_GROUP: OdDbGroup PAIR: member: OdDbBlockReference 71 | OdDbFace 74"}},
            {"1\nnote",
             "1\nNOTE",
             {"dictionary NOTES: XRECORD DATA: group 1 of AcDbXrecord: \"note\" | \"NOTE\""}},
            {"3\nSELF\n350\nC",
             "3\nSELF\n350\nD",
             {"dictionary NOTES: OdDbDictionary SELF: entry: OdDbDictionary C | OdDbDictionary D"}},
            {"1\nmine", "1\nyours", {"section MYDATA: group 1: \"mine\" | \"yours\""}},
        };
        OdDbDatabasePtr const first = dxfText::read(drawing());
        assertDifferences({}, differencesOf(*first, *dxfText::read(drawing())), "the same drawing");
        for (Change const& change : changes) {
            OdDbDatabasePtr const second = dxfText::read(replaced(drawing(), change.from, change.to));
            assertDifferences(change.differences, differencesOf(*first, *second), change.to);
        }
    }

    void tellsWhatOnlyOneDrawingHas()
    {
        std::string const line =
            entity("LINE", "7F", "0", "100\nAcDbLine\n10\n90.0\n20\n0.0\n30\n0.0\n11\n95.0\n");
        Change const additions[] = {
            {"0\nTEXT\n5\n72", line + "0\nTEXT\n5\n72", {"model space: OdDbLine 7F: only in the second drawing"}},
            {"9\n$TDUPDATE", "9\n$MINE\n70\n1\n9\n$TDUPDATE", {"header: MINE: only in the second drawing"}},
            {"0\nENDTAB\n0\nTABLE\n2\nSTYLE",
             layerRecord("29", "NEW", "1") + "0\nENDTAB\n0\nTABLE\n2\nSTYLE",
             {"layer table: OdDbLayerTableRecord NEW: only in the second drawing"}},
            {"0\nGROUP\n5\n81",
             "0\nXRECORD\n5\n89\n330\n0\n100\nAcDbXrecord\n0\nGROUP\n5\n81",
             {"objects: XRECORD 89: only in the second drawing"}},
            {"3\nPAIR\n350\n81\n",
             "3\nPAIR\n350\n81\n3\nOTHER\n350\n82\n",
             {"dictionary ACAD_GROUP: XRECORD OTHER: only in the second drawing"}},
        };
        OdDbDatabasePtr const first = dxfText::read(drawing());
        for (Change const& addition : additions) {
            OdDbDatabasePtr const second = dxfText::read(replaced(drawing(), addition.from, addition.to));
            assertDifferences(addition.differences, differencesOf(*first, *second), addition.to);
            std::string mirrored = addition.differences.front();
            mirrored = replaced(mirrored, "second", "first");
            assertDifferences({mirrored}, differencesOf(*second, *first), addition.to + " the other way round");
        }
    }

    void takesNoNoticeOfHandles()
    {
        OdDbDatabasePtr const first = dxfText::read(drawing());
        assertDifferences({}, differencesOf(*first, *dxfText::read(renumbered(drawing()))), "other handles");
        std::string const moved = replaced(drawing(), "11\n10.5", "11\n11.5");
        assertDifferences(
            {"model space: OdDbLine 70/1070: endPoint: (10.5, 0, 0) | (11.5, 0, 0), off by 1, allowed "
             "1e-06"},
            differencesOf(*first, *dxfText::read(renumbered(moved))), "other handles and a change");
    }

    /// Some programs write the linetype ByLayer and the text style Standard, others leave them out.
    void knowsNamesThatAreLeftOut()
    {
        std::string const base = replaced(drawing(), "2\nSIGNS", "2\nStandard");
        OdDbDatabasePtr const first = dxfText::read(replaced(base, "7\nNOTES\n", ""));
        std::string written = replaced(base, "7\nNOTES", "7\nStandard");
        for (std::string const marker : {"AcDbCircle", "AcDbLeader", "AcDbText\n10", "AcDbVertex"})
            written = replaced(written, "100\n" + marker, "6\nByLayer\n100\n" + marker);
        assertDifferences({}, differencesOf(*first, *dxfText::read(written)), "names written");
        assertDifferences({}, differencesOf(*dxfText::read(written), *first), "names left out");
        std::string const other = replaced(written, "6\nByLayer\n100\nAcDbCircle", "6\nByBlock\n100\nAcDbCircle");
        assertDifferences({"block DOOR: OdDbCircle 63: linetypeId: \"ByLayer\" | \"ByBlock\""},
                          differencesOf(*first, *dxfText::read(other)), "another name");
    }

    /// An object that no dictionary holds is found by what refers to it.
    void findsObjectsOfUnknownOwners()
    {
        OdDbDatabasePtr const first = dxfText::read(drawing());
        std::string const changed = replaced(drawing(), "1\nheld", "1\nHELD");
        std::string const what = ": group 1 of AcDbXrecord: \"held\" | \"HELD\"";
        assertDifferences({"objects: XRECORD 83" + what}, differencesOf(*first, *dxfText::read(changed)),
                          "a change");
        assertDifferences({"objects: XRECORD 83/1083" + what},
                          differencesOf(*first, *dxfText::read(renumbered(changed))),
                          "other handles and a change");
    }

    void equalsWhatIsSavedOfIt()
    {
        OdDbDatabasePtr const first = dxfText::read(drawing());
        for (bool const isBinary : {false, true}) {
            OdDbDatabasePtr const second =
                dxf::readBytes(L"saved.dxf", dxf::writeBytes(*first, {.isBinary = isBinary}));
            assertDifferences({}, differencesOf(*first, *second), isBinary ? "binary" : "text");
        }
    }

    void toleratesSmallDifferencesOfReals()
    {
        OdDbDatabasePtr const first = dxfText::read(drawing());
        Change const changes[] = {{"71\n1\n40\n0.75", "71\n1\n40\n0.751", {}},
                                  {"11\n10.5", "39\n0.001\n11\n10.501", {}},
                                  {"$LTSCALE\n40\n2.0", "$LTSCALE\n40\n2.001", {}},
                                  {"40\n1.5\n1\nnote", "40\n1.501\n1\nnote", {}},
                                  {"13\n0.0\n23\n1.0", "13\n0.0\n23\n1.001", {}}};
        for (Change const& change : changes) {
            OdDbDatabasePtr const second = dxfText::read(replaced(drawing(), change.from, change.to));
            assertDifferences({}, differencesOf(*first, *second, 0.01), change.to);
            CPPUNIT_ASSERT_MESSAGE(change.to, !differencesOf(*first, *second, 1e-4).empty());
        }
    }

    void leavesOutWhatSavingChanges()
    {
        std::string text = replaced(drawing(), "2460000.5", "2460001.5");
        text = replaced(text, "$HANDSEED\n5\n500", "$HANDSEED\n5\n900");
        text = replaced(text, "ann", "bob");
        text = replaced(text, "AC1015", "AC1018");
        assertDifferences({}, differencesOf(*dxfText::read(drawing()), *dxfText::read(text)), "saved again");
    }

    /// What refers to entities follows them to their other handles, also where another entity has the old one.
    void followsEntitiesOfOtherHandles()
    {
        std::string text = drawing();
        text = replaced(text, "0\nINSERT\n5\n71", "0\nINSERT\n5\n79");
        text = replaced(text, "0\n3DFACE\n5\n74", "0\n3DFACE\n5\n71");
        OdDbDatabasePtr const first = dxfText::read(drawing());
        assertDifferences({"dictionary ACAD_GROUP: OdDbGroup PAIR: member: OdDbBlockReference 71 | OdDbFace 71"},
                          differencesOf(*first, *dxfText::read(text)), "the group has the face now");
        text = replaced(text, "340\n70\n340\n71\n", "340\n70\n340\n79\n");
        assertDifferences({}, differencesOf(*first, *dxfText::read(text)), "the group has the block reference");
    }

    void comparesDimensionStylesByVariable()
    {
        OdDbDatabasePtr const first = dxfText::read(drawing());
        std::string const text =
            replaced(drawing(), "FINE\n70\n0\n41\n2.5", "FINE\n70\n0\n41\n2.5\n40\n1.0\n77\n1");
        assertDifferences({"dimension style table: OdDbDimStyleTableRecord FINE: DIMTAD: 0 | 1"},
                          differencesOf(*first, *dxfText::read(text)), "the default of DIMSCALE says nothing");
    }

    void comparesAttributesByTag()
    {
        auto const withAttributes = [](std::string const& first, std::string const& second) {
            auto const attribute = [](std::string const& handle, std::string const& tag) {
                return "0\nATTRIB\n5\n" + handle +
                       "\n330\n71\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n1.0\n20\n1.0\n30\n0.0\n40\n0.5\n1\n"
                       "value of " +
                       tag + "\n100\nAcDbAttribute\n2\n" + tag + "\n70\n0\n";
            };
            return replaced(drawing(), "5.0\n20\n5.0\n30\n0.0\n",
                            "5.0\n20\n5.0\n30\n0.0\n" + attribute("91", first) + attribute("92", second) +
                                "0\nSEQEND\n5\n93\n330\n71\n100\nAcDbEntity\n8\n0\n");
        };
        OdDbDatabasePtr const first = dxfText::read(withAttributes("A", "B"));
        assertDifferences({}, differencesOf(*first, *dxfText::read(withAttributes("B", "A"))), "another order");
        CPPUNIT_ASSERT(!differencesOf(*first, *dxfText::read(withAttributes("A", "C"))).empty());
    }

    void ordersAndCountsPairs()
    {
        OdDbDatabasePtr const first = dxfText::read(drawing()), second = dxfText::read(drawing());
        std::vector<std::string> found;
        ta::DrawingComparison comparison(*first, *second, {}, [&](ta::DrawingDifference const& difference) {
            found.push_back(difference.text().toUtf8());
        });
        CPPUNIT_ASSERT(comparison.entitiesInOrder(first->getModelSpaceId(), second->getModelSpaceId()));
        CPPUNIT_ASSERT_EQUAL(6L, comparison.comparedEntities());
        std::map<OdString, long> const byFields{{L"OdDbFace", 1}, {L"LEADER", 1}};
        CPPUNIT_ASSERT(byFields == comparison.comparedByFields());

        OdDbObjectId const line = second->getOdDbObjectId(OdDbHandle(0x70));
        line.safeOpenObject(OdDb::kForWrite)->erase();
        CPPUNIT_ASSERT(!comparison.entitiesInOrder(first->getModelSpaceId(), second->getModelSpaceId()));
        CPPUNIT_ASSERT_EQUAL(std::string("model space: OdDbLine 70/71: Wrong entity type"), found.front());
        CPPUNIT_ASSERT_EQUAL(std::string("model space: OdDb3dPolyline 75: only in the first drawing"),
                             found.back());
    }

    /// Entities are compared by rows alone then; what no row speaks of may differ.
    void comparesRecordsOfEqualName()
    {
        std::string text = replaced(drawing(), "40\n1.25", "39\n4.0\n40\n1.25");
        text = replaced(text, "11\n10.5", "11\n11.5"); // a space is no block
        OdDbDatabasePtr const first = dxfText::read(drawing());
        OdDbDatabasePtr const second = dxfText::read(text);
        ta::DrawingComparison rows(*first, *second, {}, {});
        CPPUNIT_ASSERT(rows.recordsOfEqualName());
        text = replaced(text, "40\n1.25", "40\n1.5");
        text = replaced(text, "WALLS\n70\n0\n62\n1", "WALLS\n70\n0\n62\n5");
        OdDbDatabasePtr const third = dxfText::read(text);
        ta::DrawingComparison changed(*first, *third, {}, {});
        CPPUNIT_ASSERT(!changed.recordsOfEqualName());
        CPPUNIT_ASSERT_EQUAL(2L, changed.differences());
    }

    /// In two drawings of which all records differ. The block holds itself, and a text; the dimension style, which
    /// an entity that is only kept names, has a text style.
    void comparesRecordsThatEntitiesUse()
    {
        auto const inBlock = [](std::string const& start, std::string const& rest) {
            return "0\n" + start + "\n330\n51\n100\nAcDbEntity\n8\nWALLS\n" + rest;
        };
        std::string text = replaced(
            drawing(), "0\nCIRCLE\n5\n63",
            inBlock("INSERT\n5\n65", "100\nAcDbBlockReference\n2\nDOOR\n10\n1.0\n20\n0.0\n30\n0.0\n") +
                inBlock("TEXT\n5\n66", "100\nAcDbText\n10\n1.0\n20\n1.0\n30\n0.0\n40\n0.5\n1\nin\n7\nSIGNS\n"
                                       "100\nAcDbText\n") +
                "0\nCIRCLE\n5\n63");
        text = replaced(text, "FINE\n70\n0\n41\n2.5", "FINE\n70\n0\n41\n2.5\n340\n31");
        OdDbDatabasePtr const first = dxfText::read(text);
        for (auto const& [from, to] : {std::pair("WALLS\n70\n0\n62\n1", "WALLS\n70\n0\n62\n5"),
                                       {"DOORS\n70\n0\n62\n2", "DOORS\n70\n0\n62\n6"},
                                       {"3\ntxt\n", "3\nromans\n"},
                                       {"3\ngothic\n", "3\nitalic\n"},
                                       {"FINE\n70\n0\n41\n2.5", "FINE\n70\n0\n41\n3.5"},
                                       {"40\n1.25", "40\n2.25"}})
            text = replaced(text, from, to);
        OdDbDatabasePtr const second = dxfText::read(text);

        constexpr std::uint64_t kLine = 0x70, kInsert = 0x71, kText = 0x72, kLeader = 0x73, kPolyline = 0x75;
        struct Row
        {
            std::vector<std::uint64_t> entities;
            bool skipCommonProps;
            std::vector<std::string> records;
        };
        Row const rows[] = {
            {{}, false, {}},
            {{kLine}, false, {"WALLS"}},
            {{kLine, kPolyline}, true, {}},
            {{kInsert}, false, {"WALLS", "DOORS", "SIGNS", "OdDbCircle"}},
            {{kInsert}, true, {"SIGNS", "OdDbCircle"}},
            {{kText, kText, kLine}, true, {"NOTES"}},
            {{kLeader}, false, {"WALLS", "NOTES", "FINE"}},
            {{kInsert, kLeader}, true, {"NOTES", "SIGNS", "FINE", "OdDbCircle"}},
        };
        for (Row const& row : rows) {
            std::vector<OdDbEntity const*> used;
            for (std::uint64_t const handle : row.entities)
                used.push_back(
                    static_cast<OdDbEntity const*>(first->getOdDbObjectId(OdDbHandle(handle)).stub()->object));
            std::vector<std::string> found;
            auto const receive = [&found](ta::DrawingDifference const& difference) {
                found.push_back((difference.name.isEmpty() ? difference.className : difference.name).toUtf8());
            };
            ta::DrawingComparison comparison(*first, *second, {.skipCommonProps = row.skipCommonProps}, receive);
            CPPUNIT_ASSERT_EQUAL(row.records.empty(), comparison.recordsUsedBy(used));
            assertDifferences(row.records, found, "row " + std::to_string(&row - rows));
        }
    }

    void changesNothing()
    {
        OdDbDatabasePtr const first = dxfText::read(drawing());
        OdDbDatabasePtr const second = dxfText::read(renumbered(replaced(drawing(), "11\n10.5", "11\n11.5")));
        std::uint64_t const changes1 = first->changeCount(), changes2 = second->changeCount();
        OdDbHandle const seed1 = first->handseed(), seed2 = second->handseed();
        CPPUNIT_ASSERT(!differencesOf(*first, *second).empty());
        CPPUNIT_ASSERT_EQUAL(changes1, first->changeCount());
        CPPUNIT_ASSERT_EQUAL(changes2, second->changeCount());
        CPPUNIT_ASSERT(seed1 == first->handseed() && seed2 == second->handseed());
        for (OdDbDatabasePtr const& drawingRead : {first, second})
            for (OdDbStub const* const stub :
                 drawingRead->getModelSpaceId().open<OdDbBlockTableRecord>()->entities())
                CPPUNIT_ASSERT(!stub->object->isWriteEnabled());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(DrawingComparisonTest);

} // namespace
