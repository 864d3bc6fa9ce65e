#include "tests/host/dxf/dxf_text.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cstring>

namespace {

using namespace std::string_literals;

class MalformedDrawingTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(MalformedDrawingTest);
    CPPUNIT_TEST(refused);
    CPPUNIT_TEST(mended);
    CPPUNIT_TEST(missingFile);
    CPPUNIT_TEST_SUITE_END();

    void refused()
    {
        struct Row
        {
            std::string text;
            OdResult code;
            char const* message; // behind the path
        };
        std::string const head = dxfText::header(); // 10 lines
        Row const rows[] = {
            {"", eInvalidFile, ":1: The file is empty"},
            {" \r\n\n", eInvalidFile, ":1: The file is empty"},
            {"hello\n", eInvalidFile, ":1: This is not a drawing: no group code 0 or 999 in the first line"},
            {"AutoCAD Binary DXF\r\n\x1A\0\0\0"s, eUnsupportedFormat,
             ":1: This is binary DXF; reading it is not supported yet"},
            {"AC1032\0\0\0"s, eUnsupportedFormat,
             ":1: This is a DWG file; only drawings as DXF text are read, whatever their extension"},
            {"\xFF\xFE\x30\0"s, eUnsupportedFormat,
             ":1: This is text in UTF-16; drawings are text in UTF-8 or in a code page"},
            {dxfText::header("AC1009") + "0\nEOF\n", eUnsupportedFormat,
             ":8: The drawing is of release R12; reading releases before R2000 is not supported yet"},
            {dxfText::header("AC9999") + "0\nEOF\n", eInvalidFile,
             ":8: \"AC9999\" is not a known release of drawing files"},
            {"0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n", eUnsupportedFormat,
             ":1: The drawing does not name its release ($ACADVER), as those before R2000 may do; reading them is "
             "not "
             "supported yet"},
            {head, eInvalidFile, ":9: The file ends without its end mark EOF; it is cut off"},
            {head + "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\nA\n", eInvalidFile,
             ":17: The file ends without its end mark EOF; it is cut off"},
            {head + "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\nx\n", eInvalidFile,
             ":18: \"x\" is not a number, which group 10 needs"},
            {head + "0\nLINE\n0\nEOF\n", eInvalidFile, ":11: A section or the end mark EOF is expected here"},
            {head + "0\nSECTION\n0\nENDSEC\n0\nEOF\n", eInvalidFile,
             ":13: A section begins without its name (group 2)"},
            {head + "0\nSECTION\n2\nENTITIES\n0\nEOF\n", eInvalidFile,
             ":15: The section ENTITIES ends without ENDSEC"},
            {head + "0\nSECTION\n2\nOBJECTS\n0\nEOF\n", eInvalidFile,
             ":15: The section OBJECTS ends without ENDSEC"},
            {head + "0\nSECTION\n2\nNEWS\n1\nx\n0\nEOF\n", eInvalidFile, ":17: The file ends before ENDSEC"},
            {head + "0\nSECTION\n2\nBLOCKS\n0\nLINE\n0\nENDSEC\n0\nEOF\n", eInvalidFile,
             ":15: BLOCK or ENDSEC is expected here"},
            {head + "0\nSECTION\n2\nENTITIES\n0\nBLOCK\n0\nENDSEC\n0\nEOF\n", eInvalidFile,
             ":15: A block stands outside the section BLOCKS"},
            {head + "0\nSECTION\n2\nENTITIES\n0\nLAYER\n0\nENDSEC\n0\nEOF\n", eInvalidFile,
             ":15: LAYER is no entity"},
            {head + "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n5\n10\n2\nA\n0\nENDSEC\n0\nEOF\n",
             eInvalidFile, ":25: A table ends without ENDTAB"},
            {head + dxfText::section("ENTITIES", "") + dxfText::section("TABLES", "") + "0\nEOF\n", eInvalidFile,
             ":19: The section TABLES comes behind ENTITIES; it has to come first"},
        };
        TempFolder const folder;
        for (Row const& row : rows) {
            OdString const path = folder.write("a.dxf", row.text);
            try {
                dxf::readFile(path);
                CPPUNIT_FAIL("was read; expected " + std::string(row.message));
            } catch (OdError const& error) {
                CPPUNIT_ASSERT_EQUAL(path.toUtf8() + row.message, std::string(error.what()));
                CPPUNIT_ASSERT_EQUAL(row.code, error.code());
            }
        }
    }

    void mended()
    {
        struct Row
        {
            std::string text;
            std::size_t line;
            char const* note; // its beginning: new handles depend on what else the drawing lacked
        };
        Row const rows[] = {
            {dxfText::entities("0\nPOINT\n5\n10\n0\nPOINT\n5\n10\n"), 19,
             "The handle 10 is in use twice; this object has the handle "},
            {dxfText::drawing(dxfText::section("BLOCKS", "0\nBLOCK\n5\n20\n2\nB\n0\nENDBLK\n5\n21\n")), 15,
             "The block \"B\" had no block record; one is added"},
            {dxfText::entities("0\nPOLYLINE\n5\n30\n0\nVERTEX\n5\n31\n0\nPOINT\n5\n32\n"), 23,
             "The end mark SEQEND was missing and is added"},
        };
        for (Row const& row : rows) {
            dxf::ReadReport report;
            std::string const saved = dxfText::written(*dxfText::read(row.text, &report));
            CPPUNIT_ASSERT_EQUAL(std::size_t{1}, report.notes.size());
            CPPUNIT_ASSERT_EQUAL(std::string(row.note),
                                 report.notes[0].text.toUtf8().substr(0, std::strlen(row.note)));
            CPPUNIT_ASSERT(!report.notes[0].handle.isNull());
            CPPUNIT_ASSERT_EQUAL(row.line, report.notes[0].line);
            dxf::ReadReport second;
            dxfText::read(saved, &second);
            CPPUNIT_ASSERT(second.notes.empty());
        }
    }

    void missingFile() { CPPUNIT_ASSERT_THROW(dxf::readFile(L"/no/such/drawing.dxf"), OdError); }
};
CPPUNIT_TEST_SUITE_REGISTRATION(MalformedDrawingTest);

} // namespace
