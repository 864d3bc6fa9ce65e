#include "tests/host/dxf/dxf_text.h"
#include "tests/host/dxf/malformed_drawings.h"

namespace {

using namespace dxfText;
using namespace std::string_literals;

constexpr int kRefused = MalformedDrawing::kRefused;

std::string const s_point = "0\nPOINT\n5\nA0\n10\n1\n20\n2\n30\n3\n"; // 10 lines

/// Header and the section ENTITIES, not closed; entities begin in line 15.
std::string open(std::string const& content)
{
    return header() + "0\nSECTION\n2\nENTITIES\n" + content;
}

std::string blocks(std::string const& content)
{
    return drawing(section("BLOCKS", content));
}

std::string tables(std::string const& content)
{
    return drawing(section("TABLES", content));
}

std::string objects(std::string const& content)
{
    return drawing(section("OBJECTS", content));
}

std::string replaced(std::string text, char from, std::string const& to)
{
    std::string result;
    for (char const ch : text)
        ch == from ? result += to : result += ch;
    return result;
}

std::string utf16(std::string const& text, bool hasMark)
{
    std::string result = hasMark ? "\xFF\xFE" : "";
    for (char const ch : text)
        result += {ch, '\0'};
    return result;
}

} // namespace

std::vector<MalformedDrawing> cutOffDrawings()
{
    // clang-format off
    return {
        {"behind the header", [] { return header(); },
            ":9: The file ends before the first entity; it is cut off", kRefused},
        {"in the header", [] { return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$INSB"s; },
            ":9: The file ends before the first entity; it is cut off", kRefused},
        {"in the tables", [] { return header() + "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n5\n"; },
            ":21: The file ends before the first entity; it is cut off", kRefused},
        {"in a block", [] { return header() + "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n5\n20\n2\nB\n" + s_point; },
            ":29: The file ends without its end mark EOF; it is cut off", 0, 1},
        {"behind a record", [] { return open(s_point + "0\nPOINT\n5\nA1\n10\n1\n20\n2\n30\n3\n"); },
            ":33: The file ends without its end mark EOF; it is cut off", 1},
        {"in a record", [] { return open(s_point + "0\nLINE\n5\nA1\n10\n1\n"); },
            ":25: LINE is damaged and left out", 1},
        {"in a tag", [] { return open(s_point + "0\nLINE\n5\nA1\n10\n"); },
            ":29: LINE: The file ends behind the group code 10; it is cut off", 1},
        {"in a group code", [] { return open(s_point + "0\nLINE\n5\nA1\n1"); },
            ":29: LINE: The file ends behind the group code 1; it is cut off", 1},
        {"in a number", [] { return open(s_point + "0\nLINE\n5\nA1\n10\n3.14"); },
            ":29: The file ends without its end mark EOF; it is cut off", 1},
        {"in an exponent", [] { return open(s_point + "0\nLINE\n5\nA1\n10\n3.14E"); },
            ":30: LINE: \"3.14E\" is not a number, which group 10 needs", 1},
        {"in a sequence", [] { return open("0\nPOLYLINE\n5\nA1\n0\nVERTEX\n5\nA2\n0\nVERTEX\n5\nA3\n"); },
            ":23: VERTEX is damaged and left out", 1},
        {"in the objects", [] { return header() + section("ENTITIES", s_point) + "0\nSECTION\n2\nOBJECTS\n0\nDICT"; },
            ":31: The file ends without its end mark EOF; it is cut off", 1},
        {"behind the last section", [] { return header() + section("ENTITIES", s_point); },
            ":25: The file ends without its end mark EOF; it is cut off", 1},
        {"in the end mark", [] { return header() + section("ENTITIES", s_point) + "0\nEO"; },
            ":27: A section or the end mark EOF is expected here; what stands up to the next section is left out", 1},
    };
    // clang-format on
}

std::vector<MalformedDrawing> wrongStructures()
{
    // clang-format off
    return {
        {"nothing", [] { return ""s; }, ":1: The file is empty", kRefused},
        {"blanks alone", [] { return " \r\n\t\n"s; }, ":1: The file is empty", kRefused},
        {"no drawing", [] { return "hello\n"s; },
            ":1: This is not a drawing: no group code 0 or 999 in the first line", kRefused},
        {"UTF-16", [] { return utf16(entities(s_point), true); },
            ":1: This is text in UTF-16; drawings are text in UTF-8 or in a code page", kRefused},
        {"UTF-16 without mark", [] { return utf16(entities(s_point), false); },
            ":1: This is not a drawing: no group code 0 or 999 in the first line", kRefused},
        {"comments alone", [] { return "999\nnothing\n999\nmore\n"s; },
            ":3: The file ends before the first entity; it is cut off", kRefused},
        {"an unknown release", [] { return header("AC9999") + "0\nEOF\n"; },
            ":7: \"AC9999\" is not a known release of drawing files", kRefused},
        {"tables behind entities", [] { return drawing(section("ENTITIES", s_point) + section("TABLES", "")); },
            ":29: The section TABLES comes behind ENTITIES; it has to come first", kRefused},
        {"a section without ENDSEC", [] { return open(s_point) + section("OBJECTS", "") + "0\nEOF\n"; },
            ":25: The section ENTITIES ends without ENDSEC", 1},
        {"a section without name", [] { return drawing("0\nSECTION\n0\nENDSEC\n" + section("ENTITIES", s_point)); },
            ":13: A section begins without its name (group 2); what stands up to the next section is left out", 1},
        {"a section in a section", [] { return open("0\nSECTION\n2\nENTITIES\n" + s_point + "0\nENDSEC\n0\nENDSEC\n0\nEOF\n"); },
            ":31: A section or the end mark EOF is expected here; what stands up to the next section is left out", 1},
        {"an entity between sections", [] { return drawing(s_point + section("ENTITIES", "")); },
            ":11: A section or the end mark EOF is expected here; what stands up to the next section is left out", 0},
        {"a table without name", [] { return tables("0\nTABLE\n0\nTABLE\n2\nLAYER\n0\nENDTAB\n"); },
            ":17: A table begins without its name (group 2); what stands up to the next table is left out", 0},
        {"a table in a table", [] { return tables("0\nTABLE\n2\nLAYER\n0\nTABLE\n2\nSTYLE\n0\nENDTAB\n0\nENDTAB\n"); },
            ":19: The table LAYER ends without ENDTAB", 0},
        {"a record outside a table", [] { return tables("0\nLAYER\n5\n10\n2\nA\n70\n0\n"); },
            ":15: A table or ENDSEC is expected here; what stands up to the next table is left out", 0},
        {"a record without name", [] { return tables("0\nTABLE\n2\nLAYER\n0\nLAYER\n5\n10\n2\n\n70\n0\n0\nENDTAB\n"); },
            ":19: A record of the table LAYER had no name; it is \"UNNAMED_1\" now", 0},
        {"no table of layers", [] { return entities("0\nPOINT\n5\n0\n8\nwalls\n"); }, "", 1},
        {"no layer 0", [] { return tables("0\nTABLE\n2\nLAYER\n5\n2\n0\nLAYER\n5\n10\n2\nA\n70\n0\n0\nENDTAB\n"); }, "", 0},
        {"a block without record", [] { return blocks("0\nBLOCK\n5\n20\n2\nB\n0\nENDBLK\n5\n21\n"); },
            ":15: The block \"B\" had no block record; one is added", 0, 1},
        {"a block without ENDBLK", [] { return blocks("0\nBLOCK\n5\n20\n2\nB\n" + s_point + "0\nBLOCK\n5\n21\n2\nC\n0\nENDBLK\n"); },
            ":31: The block \"B\" has no end mark ENDBLK; one is added", 0, 2},
        {"a block without name", [] { return blocks("0\nBLOCK\n5\n20\n2\n\n0\nENDBLK\n"); },
            ":15: A block had no name; it is \"UNNAMED_1\" now", 0, 1},
        {"two blocks of one name", [] { return blocks("0\nBLOCK\n2\nB\n" + s_point + "0\nENDBLK\n0\nBLOCK\n2\nb\n0\nENDBLK\n"); },
            ":31: The block \"B\" is there twice; its entities are joined", 0, 1},
        {"a block among entities", [] { return entities("0\nBLOCK\n2\nB\n" + s_point + "0\nENDBLK\n"); },
            ":15: BLOCK stands outside the section BLOCKS; it is left out", 1},
        {"an entity between blocks", [] { return blocks(s_point + "0\nBLOCK\n2\nB\n0\nENDBLK\n"); },
            ":15: BLOCK or ENDSEC is expected here; what stands up to the next block is left out", 0, 1},
        {"a layer among entities", [] { return entities("0\nLAYER\n5\nA0\n2\nA\n"); },
            ":15: LAYER is no entity; it is kept here as it is", 1},
        {"a sequence without end", [] { return entities("0\nPOLYLINE\n5\n30\n0\nVERTEX\n5\n31\n0\nPOINT\n5\n32\n"); },
            ":23: The end mark SEQEND was missing and is added", 2},
        {"parts without their entity", [] { return entities("0\nVERTEX\n5\n30\n0\nSEQEND\n5\n31\n0\nATTRIB\n5\n32\n1\nx\n2\nT\n"); },
            "", 3},
        {"wrong parts", [] { return entities("0\nINSERT\n5\n30\n66\n1\n2\nB\n0\nVERTEX\n5\n31\n0\nSEQEND\n5\n32\n"); },
            "", 3, 1},
        {"a block within itself", [] { return blocks("0\nBLOCK\n2\nB\n0\nINSERT\n5\n30\n2\nB\n0\nENDBLK\n"); },
            ":15: The block \"B\" had no block record; one is added", 0, 1},
        {"blocks within each other", [] {
            return drawing(section("BLOCKS", "0\nBLOCK\n2\nB\n0\nINSERT\n5\n30\n2\nC\n0\nENDBLK\n"
                                             "0\nBLOCK\n2\nC\n0\nINSERT\n5\n31\n2\nB\n0\nENDBLK\n") +
                           section("ENTITIES", "0\nINSERT\n5\n32\n2\nB\n")); },
            ":15: The block \"B\" had no block record; one is added", 1, 2},
        {"a dictionary within itself", [] {
            return objects("0\nDICTIONARY\n5\nC\n330\nC\n102\n{ACAD_XDICTIONARY\n360\nC\n102\n}\n100\nAcDbDictionary\n3\nself\n350\nC\n"); },
            "", 0},
        {"lines that lost step", [] { return entities(s_point + "0\nLINE\n5\nA1\n10\nstray\n1\n20\n2\n" "0\nCIRCLE\n5\nA2\n"); },
            ":35: LINE: \"CIRCLE\" is not a group code, but the name of a record; a line before it is missing or too much", 2},
        {"garbage between records", [] { return entities(s_point + "?!\n#\n0\nCIRCLE\n5\nA2\n"); },
            ":25: POINT: \"?!\" is not a group code; what stands up to line 26 is left out", 1},
        {"garbage behind the end", [] { return entities(s_point) + "more\n\xFF\xFE\n0\n"; }, "", 1},
        {"mixed line ends", [] { return replaced(entities(s_point), '3', "3\r\n").insert(0, "999\rold\r999\r\r\nodd\n"); },
            "", 1},
        {"CR alone", [] { return replaced(entities(s_point), '\n', "\r"); }, "", 1},
        {"a header variable without value", [] {
            return header("AC1015", "9\n$INSBASE\n9\n$CLAYER\n9\n\n40\n1\n") + section("ENTITIES", s_point) + "0\nEOF\n"; },
            ":13: A header variable (group 9) or ENDSEC is expected here; what stands up to the next one is left out", 1},
    };
    // clang-format on
}
