// Test data other than geometry: texts and handles.
#include "testapi/ta_test_data.h"
#include "testapi/ta_xml_restore_point.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace ta {

namespace {

/// What texts and multiline texts have in common; the name of their width differs.
struct TextAttributes
{
    OdGePoint3d position;
    double width = 0;
    OdString text;
    double rotation = 0;

    bool read(pugi::xml_node node, wchar_t const* widthName)
    {
        return oa::readAttr(node, L"pos", position) && oa::readAttr(node, widthName, width) &&
               oa::readAttr(node, L"text", text) && oa::readAttr(node, L"rotAngDeg", rotation);
    }
    bool write(pugi::xml_node node, wchar_t const* widthName) const
    {
        XmlRestorePoint before(node);
        return before.keepIf(oa::writeAttr(node, L"pos", position) && oa::writeAttr(node, widthName, width) &&
                             oa::writeAttr(node, L"text", text) && oa::writeAttr(node, L"rotAngDeg", rotation));
    }
};

wchar_t const s_width[] = L"width";
wchar_t const s_widthFactor[] = L"widthFactor";

/// Takes the first word from the front of a text; only spaces separate. Empty when there is none.
std::wstring_view takeToken(std::wstring_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(L' '), text.size()));
    std::wstring_view const token = text.substr(0, text.find(L' '));
    text.remove_prefix(token.size());
    return token;
}

} // namespace

bool TestMTextData::readFromXml(pugi::xml_node const& node)
{
    TextAttributes read;
    if (!read.read(node, s_width))
        return false;
    position = read.position;
    width = read.width;
    text = std::move(read.text);
    rotAngDeg = read.rotation;
    return true;
}

bool TestMTextData::writeToXml(pugi::xml_node& node) const
{
    return TextAttributes{position, width, text, rotAngDeg}.write(node, s_width);
}

bool TestTextData::readFromXml(pugi::xml_node const& node)
{
    TextAttributes read;
    if (!read.read(node, s_widthFactor))
        return false;
    position = read.position;
    widthFactor = read.width;
    text = std::move(read.text);
    rotAngDeg = read.rotation;
    return true;
}

bool TestTextData::writeToXml(pugi::xml_node& node) const
{
    return TextAttributes{position, widthFactor, text, rotAngDeg}.write(node, s_widthFactor);
}

bool TestHandleArray::readFromXml(pugi::xml_node const& node)
{
    handles.clear();
    int count = 0;
    pugi::xml_attribute const list = node.attribute(L"aHd");
    if (!oa::readAttr(node, L"nHd", count) || count < 0 || !list)
        return false;
    OdArray<OdDbHandle> read;
    std::wstring_view rest = list.value();
    for (std::wstring_view token = takeToken(rest); !token.empty(); token = takeToken(rest))
        read.append(OdDbHandle(OdString(token)));
    if (read.size() != static_cast<std::size_t>(count))
        return false;
    handles = std::move(read);
    return true;
}

} // namespace ta
