#include "host/xml/oa_xml.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>
#include <sstream>

namespace {

/// A node with one attribute `a`; null: without it.
class Sample
{
public:
    explicit Sample(wchar_t const* text = nullptr) : m_node(m_document.append_child(L"node"))
    {
        if (text)
            m_node.append_attribute(L"a") = text;
    }
    pugi::xml_node node() const { return m_node; }
    std::wstring written() const
    {
        std::wstringstream out;
        m_document.print(out, L"", pugi::format_raw | pugi::format_no_declaration);
        return out.str();
    }

private:
    pugi::xml_document m_document;
    pugi::xml_node m_node;
};

/// What a reader makes of a text: its value written back, or "-" with the target untouched.
template <class T>
std::wstring readBack(wchar_t const* text, T const& untouched)
{
    Sample const source(text);
    T value = untouched;
    Sample target;
    bool const isRead = oa::readAttr(source.node(), L"a", value);
    CPPUNIT_ASSERT(oa::writeAttr(target.node(), L"v", value));
    Sample unchanged;
    oa::writeAttr(unchanged.node(), L"v", untouched);
    if (!isRead) {
        CPPUNIT_ASSERT(unchanged.written() == target.written());
        return L"-";
    }
    return target.node().attribute(L"v").value();
}

struct Row
{
    wchar_t const* text;
    wchar_t const* expected;
};

template <class T>
void checkRows(std::initializer_list<Row> rows, T const& untouched)
{
    for (Row const& row : rows) {
        OdString const where = odFormat(L"\"%ls\"", row.text ? row.text : L"absent");
        CPPUNIT_ASSERT_EQUAL_MESSAGE(where.toUtf8(), OdString(row.expected).toUtf8(),
                                     OdString(readBack(row.text, untouched)).toUtf8());
    }
}

class OaXmlTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(OaXmlTest);
    CPPUNIT_TEST(plainValues);
    CPPUNIT_TEST(coordinates);
    CPPUNIT_TEST(handles);
    CPPUNIT_TEST(pointArrays);
    CPPUNIT_TEST(writingReplacesAndRefuses);
    CPPUNIT_TEST_SUITE_END();

    void plainValues()
    {
        checkRows<OdString>({{nullptr, L"-"}, {L"", L""}, {L" a b ", L" a b "}}, L"untouched");
        checkRows<int>({{nullptr, L"-"},
                        {L"", L"-"},
                        {L"-12", L"-12"},
                        {L" +7 ", L"7"},
                        {L"2147483647", L"2147483647"},
                        {L"2147483648", L"-"},
                        {L"1e3", L"-"},
                        {L"1.0", L"-"},
                        {L"0x10", L"-"},
                        {L"1 2", L"-"}},
                       99);
        checkRows<unsigned>({{L"4294967295", L"4294967295"}, {L"4294967296", L"-"}, {L"-1", L"-"}}, 99u);
        checkRows<double>({{L"1e3", L"1000"},
                           {L" -.5 ", L"-0.5"},
                           {L"0.1", L"0.1"},
                           {L"", L"-"},
                           {L"1,5", L"-"},
                           {L"inf", L"-"},
                           {L"nan", L"-"},
                           {L"1e999", L"-"},
                           {L"1x", L"-"}},
                          99.0);
        checkRows<bool>({{L"true", L"true"}, {L"TRUE", L"true"}, {L"1", L"true"}, {L"yes", L"-"}, {L"", L"-"}},
                        false);
        checkRows<bool>({{L"False", L"false"}, {L"0", L"false"}, {L"2", L"-"}}, true);
    }

    void coordinates()
    {
        checkRows<OdGePoint3d>({{L"1,2,3", L"1,2,3"},
                                {L" 1 , -2.5 , 3e1 ", L"1,-2.5,30"},
                                {L"1,2", L"1,2,0"},
                                {L"1", L"-"},
                                {L"1,2,3,4", L"-"},
                                {L"1,,3", L"-"},
                                {L"1,2,", L"-"},
                                {L"1;2;3", L"-"},
                                {L"", L"-"}},
                               OdGePoint3d(9, 9, 9));
        checkRows<OdGeVector3d>({{L"0,0,1", L"0,0,1"}, {L"0,1", L"-"}}, OdGeVector3d(9, 9, 9));
        checkRows<OdGePoint2d>({{L"1,2", L"1,2"}, {L"1,2,3", L"-"}, {L"1", L"-"}}, OdGePoint2d(9, 9));
        checkRows<OdGeVector2d>({{L"1,2", L"1,2"}, {L"1,2,3", L"-"}}, OdGeVector2d(9, 9));
    }

    void handles()
    {
        checkRows<OdDbHandle>({{L"2a", L"2A"},
                               {L"FFFFFFFFFFFFFFFF", L"FFFFFFFFFFFFFFFF"},
                               {L"0", L"0"},
                               {L"10000000000000000", L"-"},
                               {L"0x1F", L"-"},
                               {L" 1F", L"-"},
                               {L"G", L"-"},
                               {L"", L"-"}},
                              OdDbHandle(9));
    }

    void pointArrays()
    {
        struct ArrayRow
        {
            wchar_t const* count;
            wchar_t const* points;
            std::size_t expected; // 9: refused
        };
        ArrayRow const rows[] = {
            {L"2", L"1,2,3 4,5,6", 2}, {L"2", L"  1,2,3   4,5 ", 2}, {L"0", L"", 0},
            {L"3", L"1,2,3 4,5,6", 9}, {L"1", L"1,2,3 4,5,6", 9},    {L"1", L"1,2,x", 9},
            {L"-1", L"", 9},           {L"4000000000", L"1,2,3", 9}, {nullptr, L"1,2,3", 9},
            {L"1", nullptr, 9},        {L"2", L"1, 2, 3 4", 9},
        };
        for (ArrayRow const& row : rows) {
            Sample const sample;
            pugi::xml_node node = sample.node();
            if (row.count)
                node.append_attribute(L"nPt") = row.count;
            if (row.points)
                node.append_attribute(L"aPt") = row.points;
            OdGePoint3dArray points(9);
            CPPUNIT_ASSERT_EQUAL(row.expected != 9, oa::readAttr(node, points));
            CPPUNIT_ASSERT_EQUAL(row.expected, points.size());
        }
        OdGePoint3dArray const points{OdGePoint3d(1, 2, 0), OdGePoint3d(0.1, 0, -3)};
        Sample const target;
        CPPUNIT_ASSERT(oa::writeAttr(target.node(), points));
        CPPUNIT_ASSERT(L"<node nPt=\"2\" aPt=\"1,2,0 0.1,0,-3\"/>" == target.written());
        OdGePoint3dArray back;
        CPPUNIT_ASSERT(oa::readAttr(target.node(), back));
        CPPUNIT_ASSERT(back == points);
    }

    void writingReplacesAndRefuses()
    {
        Sample const target(L"old");
        CPPUNIT_ASSERT(oa::writeAttr(target.node(), L"a", 1.0 / 3));
        CPPUNIT_ASSERT(oa::writeAttr(target.node(), L"b", OdGePoint3d(1.0 / 3, 0, 0), 3));
        CPPUNIT_ASSERT(L"<node a=\"0.333333333333333\" b=\"0.333,0,0\"/>" == target.written());

        double const infinite = std::numeric_limits<double>::infinity();
        CPPUNIT_ASSERT(!oa::writeAttr(target.node(), L"c", infinite));
        CPPUNIT_ASSERT(!oa::writeAttr(target.node(), L"a", OdGePoint3d(0, std::nan(""), 0)));
        CPPUNIT_ASSERT(!oa::writeAttr(target.node(), {OdGePoint3d(), OdGePoint3d(0, 0, infinite)}));
        CPPUNIT_ASSERT(!oa::writeAttr(pugi::xml_node(), L"a", 1));
        CPPUNIT_ASSERT(L"<node a=\"0.333333333333333\" b=\"0.333,0,0\"/>" == target.written());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(OaXmlTest);

} // namespace
