#include "host/xml/xml_value.h"

#include "host/ut/ut_number.h"
#include "host/xml/xml_text.h"

#include <utility>

namespace oa {

bool parseValue(std::wstring_view text, OdString& value)
{
    value = OdString(text);
    return true;
}

bool parseValue(std::wstring_view text, int& value)
{
    return ut::parseInt(text, value);
}

bool parseValue(std::wstring_view text, unsigned& value)
{
    return ut::parseInt(text, value);
}

bool parseValue(std::wstring_view text, double& value)
{
    return ut::parseReal(text, value);
}

bool parseValue(std::wstring_view text, bool& value)
{
    static constexpr std::pair<wchar_t const*, bool> s_words[] = {
        {L"true", true}, {L"false", false}, {L"1", true}, {L"0", false}};
    OdString const given(text);
    for (auto const& [word, meaning] : s_words) {
        if (given.equalsNoCase(word)) {
            value = meaning;
            return true;
        }
    }
    return false;
}

bool parseValue(std::wstring_view text, OdGePoint2d& value)
{
    Coordinates read;
    if (!parseCoordinates(text, {2, 2}, read))
        return false;
    value = OdGePoint2d(read[0], read[1]);
    return true;
}

bool parseValue(std::wstring_view text, OdGeVector2d& value)
{
    Coordinates read;
    if (!parseCoordinates(text, {2, 2}, read))
        return false;
    value = OdGeVector2d(read[0], read[1]);
    return true;
}

bool parseValue(std::wstring_view text, OdGePoint3d& value)
{
    Coordinates read;
    if (!parseCoordinates(text, {2, 3}, read))
        return false;
    value = OdGePoint3d(read[0], read[1], read[2]);
    return true;
}

bool parseValue(std::wstring_view text, OdGeVector3d& value)
{
    Coordinates read;
    if (!parseCoordinates(text, {3, 3}, read))
        return false;
    value = OdGeVector3d(read[0], read[1], read[2]);
    return true;
}

bool parseValue(std::wstring_view text, OdDbHandle& value)
{
    OdString const digits(text);
    if (!OdDbHandle::isHandle(digits))
        return false;
    value = OdDbHandle(digits);
    return true;
}

bool appendValue(OdString& text, OdString const& value, int)
{
    text += value;
    return value.str().find(L'\0') == std::wstring::npos; // where attributes end
}

bool appendValue(OdString& text, int value, int)
{
    text += std::to_wstring(value).c_str();
    return true;
}

bool appendValue(OdString& text, unsigned value, int)
{
    text += std::to_wstring(value).c_str();
    return true;
}

bool appendValue(OdString& text, double value, int precision)
{
    return appendCoordinates(text, {{value}}, precision);
}

bool appendValue(OdString& text, bool value, int)
{
    text += value ? L"true" : L"false";
    return true;
}

bool appendValue(OdString& text, OdGePoint2d const& value, int precision)
{
    return appendCoordinates(text, {{value.x, value.y}}, precision);
}

bool appendValue(OdString& text, OdGeVector2d const& value, int precision)
{
    return appendCoordinates(text, {{value.x, value.y}}, precision);
}

bool appendValue(OdString& text, OdGePoint3d const& value, int precision)
{
    return appendCoordinates(text, {{value.x, value.y, value.z}}, precision);
}

bool appendValue(OdString& text, OdGeVector3d const& value, int precision)
{
    return appendCoordinates(text, {{value.x, value.y, value.z}}, precision);
}

bool appendValue(OdString& text, OdDbHandle value, int)
{
    text += value.ascii();
    return true;
}

} // namespace oa
