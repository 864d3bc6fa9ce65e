#include "host/xml/oa_xml.h"

#include "host/ut/ut_number.h"
#include "host/xml/xml_text.h"

#include <utility>

namespace oa {

namespace {

/// The text of an attribute that has one; false when it is absent.
bool attributeText(pugi::xml_node node, wchar_t const* name, std::wstring_view& text)
{
    pugi::xml_attribute const attribute = node.attribute(name);
    if (!attribute)
        return false;
    text = attribute.value();
    return true;
}

bool readCoordinates(pugi::xml_node node, wchar_t const* name, CoordinateCount count, Coordinates& coordinates)
{
    std::wstring_view text;
    return attributeText(node, name, text) && parseCoordinates(text, count, coordinates);
}

template <class T>
bool readInteger(pugi::xml_node node, wchar_t const* name, T& value)
{
    std::wstring_view text;
    return attributeText(node, name, text) && ut::parseInt(text, value);
}

bool writeText(pugi::xml_node node, wchar_t const* name, wchar_t const* text)
{
    pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute)
        attribute = node.append_attribute(name);
    return attribute && attribute.set_value(text);
}

bool writeCoordinates(pugi::xml_node node, wchar_t const* name, std::span<double const> values, int precision)
{
    OdString text;
    return appendCoordinates(text, values, precision) && writeText(node, name, text.c_str());
}

wchar_t const s_pointCount[] = L"nPt";
wchar_t const s_points[] = L"aPt";

} // namespace

bool readAttr(pugi::xml_node node, wchar_t const* name, OdString& value)
{
    std::wstring_view text;
    if (!attributeText(node, name, text))
        return false;
    value = OdString(text);
    return true;
}

bool readAttr(pugi::xml_node node, wchar_t const* name, int& value)
{
    return readInteger(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, unsigned& value)
{
    return readInteger(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, double& value)
{
    std::wstring_view text;
    return attributeText(node, name, text) && ut::parseReal(text, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, bool& value)
{
    static constexpr std::pair<wchar_t const*, bool> s_words[] = {
        {L"true", true}, {L"false", false}, {L"1", true}, {L"0", false}};
    std::wstring_view text;
    if (!attributeText(node, name, text))
        return false;
    OdString const given(text);
    for (auto const& [word, meaning] : s_words) {
        if (given.equalsNoCase(word)) {
            value = meaning;
            return true;
        }
    }
    return false;
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdGePoint2d& value)
{
    Coordinates read;
    if (!readCoordinates(node, name, {2, 2}, read))
        return false;
    value = OdGePoint2d(read[0], read[1]);
    return true;
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdGeVector2d& value)
{
    Coordinates read;
    if (!readCoordinates(node, name, {2, 2}, read))
        return false;
    value = OdGeVector2d(read[0], read[1]);
    return true;
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdGePoint3d& value)
{
    Coordinates read;
    if (!readCoordinates(node, name, {2, 3}, read))
        return false;
    value = OdGePoint3d(read[0], read[1], read[2]);
    return true;
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdGeVector3d& value)
{
    Coordinates read;
    if (!readCoordinates(node, name, {3, 3}, read))
        return false;
    value = OdGeVector3d(read[0], read[1], read[2]);
    return true;
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdDbHandle& value)
{
    std::wstring_view text;
    if (!attributeText(node, name, text))
        return false;
    OdDbHandle const handle{OdString(text)};
    bool const isZero = text.size() <= 16 && text.find_first_not_of(L'0') == std::wstring_view::npos;
    if (handle.isNull() && (text.empty() || !isZero))
        return false;
    value = handle;
    return true;
}

bool readAttr(pugi::xml_node node, OdGePoint3dArray& value)
{
    unsigned count = 0;
    std::wstring_view text;
    if (!readAttr(node, s_pointCount, count) || !attributeText(node, s_points, text))
        return false;
    OdGePoint3dArray points;
    for (std::wstring_view word = takeWord(text); !word.empty(); word = takeWord(text)) {
        Coordinates read;
        if (!parseCoordinates(word, {2, 3}, read))
            return false;
        points.append(OdGePoint3d(read[0], read[1], read[2]));
    }
    if (points.size() != count)
        return false;
    value = std::move(points);
    return true;
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdString const& value)
{
    return writeText(node, name, value.c_str());
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, wchar_t const* value)
{
    return writeText(node, name, value ? value : L"");
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, int value)
{
    return writeText(node, name, std::to_wstring(value).c_str());
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, unsigned value)
{
    return writeText(node, name, std::to_wstring(value).c_str());
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, double value, int precision)
{
    return writeCoordinates(node, name, {{value}}, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, bool value)
{
    return writeText(node, name, value ? L"true" : L"false");
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGePoint2d const& value, int precision)
{
    return writeCoordinates(node, name, {{value.x, value.y}}, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGeVector2d const& value, int precision)
{
    return writeCoordinates(node, name, {{value.x, value.y}}, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGePoint3d const& value, int precision)
{
    return writeCoordinates(node, name, {{value.x, value.y, value.z}}, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGeVector3d const& value, int precision)
{
    return writeCoordinates(node, name, {{value.x, value.y, value.z}}, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdDbHandle value)
{
    return writeText(node, name, value.ascii().c_str());
}

bool writeAttr(pugi::xml_node node, OdGePoint3dArray const& value, int precision)
{
    OdString text;
    for (OdGePoint3d const& point : value) {
        if (!text.isEmpty())
            text += L' ';
        double const coordinates[] = {point.x, point.y, point.z};
        if (!appendCoordinates(text, coordinates, precision))
            return false;
    }
    return writeText(node, s_pointCount, std::to_wstring(value.size()).c_str()) &&
           writeText(node, s_points, text.c_str());
}

} // namespace oa
