#include "host/xml/oa_xml.h"

#include "host/xml/xml_attributes.h"

namespace oa {

namespace {

template <class T>
bool readValue(pugi::xml_node node, wchar_t const* name, T& value)
{
    return AttributeReader(node).value(name, value);
}

template <class T>
bool writeValue(pugi::xml_node node, wchar_t const* name, T const& value, int precision = kXmlPrecision)
{
    AttributeWriter writer(precision);
    return writer.value(name, value) && writer.writeTo(node);
}

wchar_t const s_pointCount[] = L"nPt";
wchar_t const s_points[] = L"aPt";

} // namespace

bool readAttr(pugi::xml_node node, wchar_t const* name, OdString& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, int& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, unsigned& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, double& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, bool& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdGePoint2d& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdGeVector2d& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdGePoint3d& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdGeVector3d& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, wchar_t const* name, OdDbHandle& value)
{
    return readValue(node, name, value);
}

bool readAttr(pugi::xml_node node, OdGePoint3dArray& value)
{
    return AttributeReader(node).list(s_pointCount, s_points, value);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, wchar_t const* value)
{
    return writeValue(node, name, OdString(value ? value : L""));
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdString const& value)
{
    return writeValue(node, name, value);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, int value)
{
    return writeValue(node, name, value);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, unsigned value)
{
    return writeValue(node, name, value);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, double value, int precision)
{
    return writeValue(node, name, value, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, bool value)
{
    return writeValue(node, name, value);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGePoint2d const& value, int precision)
{
    return writeValue(node, name, value, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGeVector2d const& value, int precision)
{
    return writeValue(node, name, value, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGePoint3d const& value, int precision)
{
    return writeValue(node, name, value, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdGeVector3d const& value, int precision)
{
    return writeValue(node, name, value, precision);
}

bool writeAttr(pugi::xml_node node, wchar_t const* name, OdDbHandle value)
{
    return writeValue(node, name, value);
}

bool writeAttr(pugi::xml_node node, OdGePoint3dArray const& value, int precision)
{
    AttributeWriter writer(precision);
    return writer.list(s_pointCount, s_points, value) && writer.writeTo(node);
}

} // namespace oa
