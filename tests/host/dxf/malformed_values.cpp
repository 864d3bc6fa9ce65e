#include "tests/host/dxf/dxf_text.h"
#include "tests/host/dxf/malformed_drawings.h"

namespace {

using namespace dxfText;
using namespace std::string_literals;

/// A sequence of vertices with these contents.
std::string vertices(std::initializer_list<std::string> contents)
{
    std::string records;
    for (std::string const& content : contents)
        records += "0\nVERTEX\n" + content;
    return records + "0\nSEQEND\n";
}

/// A drawing with one entity whose record begins in line 15 and holds handle A0 and these lines.
std::string entity(std::string const& name, std::string const& content)
{
    return entities("0\n" + name + "\n5\nA0\n" + content);
}

} // namespace

std::vector<MalformedDrawing> wrongValues()
{
    // clang-format off
    return {
        {"NaN", [] { return entity("POINT", "10\nnan\n20\n1\n30\n0\n"); },
            ":20: POINT: \"nan\" is not a number, which group 10 needs; it is left out", 1},
        {"infinity", [] { return entity("CIRCLE", "10\n0\n20\n0\n30\n0\n40\n-inf\n"); },
            ":26: CIRCLE: \"-inf\" is not a number, which group 40 needs; it is left out", 1},
        {"a number beyond measure", [] { return entity("CIRCLE", "40\n1e999\n"); },
            ":20: CIRCLE: \"1e999\" is not a number, which group 40 needs; it is left out", 1},
        {"the largest numbers", [] { return entity("LINE", "10\n1.7e308\n20\n-1.7e308\n30\n0\n11\n-1.7e308\n21\n4.9e-324\n31\n0\n"); },
            "", 1},
        {"a word for a number", [] { return entity("POINT", "10\nx\n"); },
            ":20: POINT: \"x\" is not a number, which group 10 needs; it is left out", 1},
        {"a broken integer", [] { return entity("POINT", "62\n1.5\n"); },
            ":20: POINT: \"1.5\" is not an integer, which group 62 needs; it is left out", 1},
        {"an integer beyond measure", [] { return entity("POINT", "62\n99999999999999999999\n"); },
            ":20: POINT: \"99999999999999999999\" is not an integer, which group 62 needs; it is left out", 1},
        {"an integer beyond its field", [] { return entity("INSERT", "2\nB\n70\n70000\n71\n-70000\n"); }, "", 1, 1},
        {"empty values", [] { return entity("LINE", "10\n\n8\n\n62\n\n"); },
            ":20: LINE: \"\" is not a number, which group 10 needs; it is left out", 1},
        {"an empty record", [] { return entities("0\nLINE\n0\nCIRCLE\n"); }, "", 2},
        {"a record without name", [] { return entities("0\nLINE\n0\nCIRCLE\n0\n\n40\n1\n0\nPOINT\n"); },
            ":20: CIRCLE: \"\" is not the name of a record; what stands up to line 22 is left out", 2},
        {"no group code", [] { return entity("POINT", "10x\n1\n0\nLINE\n5\nA1\n"); },
            ":19: POINT: \"10x\" is not a group code; what stands up to line 20 is left out", 1},
        {"a group code beyond all", [] { return entity("POINT", "99999999999\n1\n0\nLINE\n5\nA1\n"); },
            ":19: POINT: \"99999999999\" is not a group code; what stands up to line 20 is left out", 1},
        {"negative group codes", [] { return entity("POINT", "-1\nx\n-9999\nx\n-0\nx\n"); }, "", 2},
        {"the handle 0", [] { return entities("0\nPOINT\n5\n0\n0\nPOINT\n5\n0\n"); }, "", 2},
        {"the highest handle", [] { return entities("0\nPOINT\n5\nFFFFFFFFFFFFFFFF\n0\nPOINT\n5\n10\n0\nPOINT\n"); }, "", 3},
        {"handles near the highest free one", [] {
            return entities("0\nPOINT\n5\n3FFFFFFFFFFFFFFE\n0\nPOINT\n5\n4000000000000000\n0\nPOINT\n0\nPOINT\n"); },
            ":19: The handle 4000000000000000 is in use twice; this object has the handle ", 4},
        {"no handle", [] { return entity("POINT", "5\nnone\n330\nG\n"); }, "", 1},
        {"a handle twice", [] { return entities("0\nPOINT\n5\n10\n0\nPOINT\n5\n10\n"); },
            ":19: The handle 10 is in use twice; this object has the handle ", 2},
        {"a handle of a table", [] {
            return drawing(section("TABLES", "0\nTABLE\n2\nLAYER\n5\n2\n0\nLAYER\n5\n2\n2\nA\n0\nENDTAB\n") +
                           section("ENTITIES", "0\nPOINT\n5\n2\n8\nA\n")); },
            ":21: The handle 2 is in use twice; this object has the handle ", 1},
        {"references to wrong things", [] {
            return entities("0\nPOINT\n5\nA0\n330\nA1\n8\n0\n0\nINSERT\n5\nA1\n330\nA1\n2\n0\n"
                            "0\nTEXT\n5\nA2\n102\n{ACAD_XDICTIONARY\n360\nA2\n102\n}\n"); }, "", 3, 1},
        {"counts of billions", [] {
            return entities("0\nLWPOLYLINE\n5\nA0\n100\nAcDbEntity\n100\nAcDbPolyline\n90\n4000000000\n70\n0\n10\n1\n20\n1\n"
                            "0\nHATCH\n5\nA1\n91\n2000000000\n93\n2000000000\n"
                            "0\nSPLINE\n5\nA2\n72\n2000000000\n73\n2000000000\n74\n2000000000\n"); }, "", 3},
        {"a table of billions", [] {
            return drawing(section("TABLES", "0\nTABLE\n2\nLAYER\n5\n2\n70\n2000000000\n0\nENDTAB\n"
                                             "0\nTABLE\n2\nLTYPE\n5\n3\n70\n1\n0\nLTYPE\n5\n4\n2\nA\n73\n2000000000\n40\n1\n49\n1\n0\nENDTAB\n")); },
            "", 0},
        {"a grid of billions", [] {
            return drawing(section("BLOCKS", "0\nBLOCK\n2\nB\n0\nPOINT\n10\n0\n20\n0\n30\n0\n0\nENDBLK\n") +
                           section("ENTITIES", "0\nINSERT\n5\nA0\n100\nAcDbEntity\n100\nAcDbMInsertBlock\n2\nB\n"
                                               "70\n2000000000\n71\n2000000000\n44\n1\n45\n1\n")); },
            ":15: The block \"B\" had no block record; one is added", 1, 1},
        {"splines that are none", [] {
            return entities("0\nSPLINE\n5\nA0\n70\n-1\n71\n32767\n40\n1\n40\n0\n10\n0\n10\n1\n10\n2\n"          // no degree
                            "0\nSPLINE\n5\nA1\n71\n1\n40\n0\n40\n5\n40\n-5\n40\n9\n10\n0\n20\n1\n10\n4\n"        // knots go back
                            "0\nSPLINE\n5\nA2\n70\n6\n71\n1\n40\n0\n40\n0\n40\n1\n40\n1\n41\n0\n41\n-2\n10\n1\n10\n2\n" // weights
                            "0\nSPLINE\n5\nA3\n70\n3\n11\n1\n11\n1\n11\n1\n"                                  // one place
                            "0\nSPLINE\n5\nA4\n20\n1\n30\n2\n21\n3\n210\n0\n220\n0\n230\n0\n"); }, "", 5},
        {"a spline of the largest numbers", [] {
            return entity("SPLINE", "71\n1\n40\n-1e308\n40\n-1e308\n40\n1e308\n40\n1e308\n10\n1e308\n20\n-1e308\n"
                                    "10\n-1e308\n20\n1e308\n11\n1e308\n11\n-1e308\n"); }, "", 1},
        {"areas without corners", [] {
            return entities("0\nSOLID\n5\nA0\n0\nTRACE\n5\nA1\n13\n1\n39\n1e308\n210\n0\n220\n0\n230\n0\n"
                            "0\n3DFACE\n5\nA2\n12\n1e308\n22\n-1e308\n11\n1e308\n70\n99999\n33\n7\n"); }, "", 3},
        {"a degenerate arc", [] { return entity("ARC", "40\n-1\n210\n0\n220\n0\n230\n0\n50\n1e300\n51\n-1e300\n"); }, "", 1},
        {"an ellipse without axes", [] { return entity("ELLIPSE", "11\n0\n21\n0\n31\n0\n40\n0\n41\n1e300\n42\n-1e300\n"); }, "", 1},
        {"an ellipse of wrong ratios", [] {
            return entity("ELLIPSE", "40\n-7\n40\n1e308\n11\n0\n21\n1e300\n31\n0\n210\n1e-300\n220\n1\n230\n0\n41\n9\n41\nx\n"); },
            ":38: ELLIPSE: \"x\" is not a number, which group 41 needs; it is left out", 1},
        {"a ray without direction", [] {
            return entity("RAY", "10\n1\n20\n1\n30\n1\n11\n0\n21\n0\n31\n0\n0\nXLINE\n5\nA1\n11\n1e-200\n21\n0\n"); },
            "", 2},
        {"widths and bulges beyond measure", [] {
            return entity("LWPOLYLINE", "90\n-3\n70\n-1\n39\n1e300\n43\n-1\n10\n1e300\n20\n-1e300\n42\n1e300\n40\n-1\n41\n1e308\n"
                                        "10\n0\n20\n0\n42\n-1e-300\n10\n0\n20\n0\n42\n1\n"); }, "", 1},
        {"polylines without points", [] {
            return entities("0\nPOLYLINE\n5\nA0\n70\n4\n75\n9\n210\n0\n220\n0\n230\n0\n" + vertices({"", "70\n16\n", "70\n8\n40\n-1\n"}) +
                            "0\nPOLYLINE\n5\nA1\n66\n1\n70\n-1\n0\nPOLYLINE\n5\nA2\n70\n8\n" + vertices({})); },
            "", 3},
        {"a polyline of the largest numbers", [] {
            return entity("POLYLINE", "70\n1\n39\n1e308\n40\n-1\n" + vertices({"10\n1e308\n20\n-1e308\n42\n1e300\n40\n1e308\n41\n-1\n",
                                      "10\n-1e308\n42\n-1e-300\n50\n1e300\n70\n-32768\n", "42\n1\n", "42\n1\n"})); }, "", 1},
        {"vertices of another kind", [] {
            return entity("POLYLINE", "70\n8\n" + vertices({"100\nAcDbFaceRecord\n71\n1\n10\n1\n", "100\nAcDb2dVertex\n42\n1\n", "100\nAcDbX\n"})); }, "", 1},
        {"a mesh of millions", [] {
            return entity("POLYLINE", "70\n49\n71\n32767\n72\n32767\n" + vertices({"10\n1\n", "10\n2\n"})); },
            ":15: POLYLINE: it has 2 vertices instead of 32767 times 32767", 1},
        {"a mesh of negative size", [] {
            return entity("POLYLINE", "70\n20\n71\n-5\n72\n99999\n73\n-1\n74\n70000\n75\n6\n" + vertices({"70\n80\n", "70\n72\n", "70\n72\n"})); },
            ":15: POLYLINE: it has 2 vertices instead of 0 times 32767", 1},
        {"faces of vertices that are not there", [] {
            return entity("POLYLINE", "70\n64\n71\n2000000000\n72\n1\n" + vertices({"70\n192\n10\n1\n", "70\n128\n71\n-32768\n72\n32767\n73\n1\n74\n-1\n",
                                      "70\n128\n", "70\n192\n10\n2\n", "70\n128\n71\n1\n72\n2\n73\n1\n"})); },
            ":15: POLYLINE: its file said that it has 2000000000 vertices and 1 faces; it has 2 and 3", 1},
        {"braces without end", [] { return entity("POINT", "102\n{A\n102\n{B\n330\n1\n102\n{ACAD_REACTORS\n"); },
            ":15: POINT: A group in braces (102) has no end; it is closed at the end of the record", 1},
        {"ends of braces alone", [] { return entity("POINT", "102\n}\n102\n}\n100\nAcDbEntity\n102\n}\n"); }, "", 1},
        {"extended data without application", [] { return entity("POINT", "1000\nx\n1070\n1\n"); }, "", 1},
        {"unbalanced extended data", [] { return entity("POINT", "1001\nA\n1002\n{\n1002\n{\n1002\n}\n1002\nx\n1001\n\n1002\n}\n"); }, "", 1},
        {"a broken binary value", [] { return entity("PROXY", "310\nABC\n310\nXY\n310\n\n"); }, "", 1},
        {"NUL bytes", [] { return entity("TEXT", "1\na\0b\n7\n\0\n8\n\0\0\n"s); }, "", 1},
        {"broken UTF-8", [] { return entity("TEXT", "1\n\xC0\x80\xED\xA0\x80\xFF\n8\n\xF8\xFF\n"); }, "", 1},
        {"escapes of nothing", [] { return entity("TEXT", "1\n\\U+\\U+D800\\U+ZZZZ\\M+\\M+5\\M+1FFFF\n"); }, "", 1},
        {"dictionary entries without names", [] {
            return drawing(section("OBJECTS", "0\nDICTIONARY\n5\nC\n100\nAcDbDictionary\n350\nC\n3\n\n3\n\n350\nFF\n")); },
            "", 0},
        {"names of forbidden characters", [] { return entity("POINT", "8\n<>/\\\":;?,*|=`\n6\n*\n"); }, "", 1},
    };
    // clang-format on
}
