#include "testapi/ta_drawing_comparison_facts.h"

#include "testapi/ta_comparison.h"

#include <array>
#include <cmath>

namespace ta {

namespace {

/// How a field (or the values of a tail) is called, and what the rows of the entity comparison say of it. Fields
/// that no fact is known of are called by their code, and no row speaks of them.
struct FieldFact
{
    std::string_view marker;
    int code;
    /// Bits of an integer, or coordinates of a point (1, 2, 4 for x, y, z), that rows speak of.
    int toldByRows;
    wchar_t const* name;
    /// Where it depends on other fields whether rows speak of it: whether they do. Null: they do.
    bool (*isTold)(OdDbObject const& object1, OdDbObject const& object2, double eps) = nullptr;
};

/// Below a marker, group codes of fields of which rows tell every difference.
struct ToldFields
{
    std::string_view marker;
    std::array<std::int16_t, 16> codes;
    /// Class for which this holds; null: any that has the marker.
    OdRxClass::DescFunction of = nullptr;
};

using IsTold = bool (*)(OdDbObject const&, OdDbObject const&, double);

/// Rows show what follows from the field together with others; they tell it where that differs.
template <class T, auto Property>
constexpr IsTold differs()
{
    return [](OdDbObject const& object1, OdDbObject const& object2, double) {
        auto const *const entity1 = odCast<T>(&object1), *const entity2 = odCast<T>(&object2);
        return entity1 && entity2 && (entity1->*Property)() != (entity2->*Property)();
    };
}

/// The same for a point or a vector.
template <class T, auto Property>
constexpr IsTold isOff()
{
    return [](OdDbObject const& object1, OdDbObject const& object2, double eps) {
        auto const *const entity1 = odCast<T>(&object1), *const entity2 = odCast<T>(&object2);
        if (!entity1 || !entity2)
            return false;
        auto const a = (entity1->*Property)(), b = (entity2->*Property)();
        return !(std::abs(a.x - b.x) <= eps && std::abs(a.y - b.y) <= eps && std::abs(a.z - b.z) <= eps);
    };
}

/// Vertices and faces of meshes are compared by their own properties alone.
bool hasCommonRows(OdDbObject const& object1, OdDbObject const&, double)
{
    return !odCast<OdDbPolyFaceMeshVertex>(&object1) && !odCast<OdDbPolygonMeshVertex>(&object1) &&
           !odCast<OdDbFaceRecord>(&object1);
}

/// Splines are compared by what they were drawn through where both know it, else by the curve.
bool isCurveTold(OdDbObject const& object1, OdDbObject const& object2, double)
{
    return !static_cast<OdDbSpline const&>(object1).hasFitData() &&
           !static_cast<OdDbSpline const&>(object2).hasFitData();
}

bool isFitDataTold(OdDbObject const& object1, OdDbObject const& object2, double eps)
{
    return !isCurveTold(object1, object2, eps);
}

bool isAttachmentOfAttributeTold(OdDbObject const& object1, OdDbObject const& object2, double)
{
    auto const *const attribute1 = odCast<OdDbAttributeBase>(&object1), *const attribute2 =
                                                                            odCast<OdDbAttributeBase>(&object2);
    return attribute1 && attribute2 && attribute1->isMTextAttribute() && attribute2->isMTextAttribute() &&
           attribute1->getMTextAttribute()->attachment() != attribute2->getMTextAttribute()->attachment();
}

constexpr int s_all = -1;
constexpr int s_x = 1, s_y = 2, s_z = 4;
constexpr std::string_view s_common = kEntityMarker;
constexpr std::string_view s_embedded = "Embedded Object";
constexpr std::string_view s_polyline2d = "AcDb2dPolyline", s_vertex2d = "AcDb2dVertex";
constexpr std::string_view s_polyline3d = "AcDb3dPolyline", s_vertex3d = "AcDb3dPolylineVertex";
constexpr std::string_view s_mesh = "AcDbPolygonMesh", s_polyFace = "AcDbPolyFaceMesh";
constexpr std::string_view s_insert = "AcDbBlockReference", s_minsert = "AcDbMInsertBlock";
constexpr std::string_view s_attribute = "AcDbAttribute", s_definition = "AcDbAttributeDefinition";
constexpr std::string_view s_layer = "AcDbLayerTableRecord", s_style = "AcDbTextStyleTableRecord";
constexpr std::string_view s_block = "AcDbBlockTableRecord", s_blockBegin = "AcDbBlockBegin";

constexpr IsTold polyType2d = differs<OdDb2dPolyline, &OdDb2dPolyline::polyType>();
constexpr IsTold vertexType2d = differs<OdDb2dVertex, &OdDb2dVertex::vertexType>();
constexpr IsTold polyType3d = differs<OdDb3dPolyline, &OdDb3dPolyline::polyType>();
constexpr IsTold vertexType3d = differs<OdDb3dPolylineVertex, &OdDb3dPolylineVertex::vertexType>();
constexpr IsTold meshType = differs<OdDbPolygonMesh, &OdDbPolygonMesh::polyMeshType>();
constexpr IsTold direction = isOff<OdDbEndlessCurve, &OdDbEndlessCurve::unitDir>();
constexpr IsTold alignmentPoint = isOff<OdDbText, &OdDbText::alignmentPoint>();
constexpr IsTold constantWidth = differs<OdDbPolyline, &OdDbPolyline::getConstantWidth>();
constexpr IsTold horizontalMode = differs<OdDbText, &OdDbText::horizontalMode>();
constexpr IsTold verticalMode = differs<OdDbText, &OdDbText::verticalMode>();
constexpr IsTold attachment = differs<OdDbMText, &OdDbMText::attachment>();
constexpr IsTold isLocked = differs<OdDbAttributeBase, &OdDbAttributeBase::lockPositionInBlock>();
constexpr OdRxClass::DescFunction s_attributes = &OdDbAttributeBase::desc;

// clang-format off
/// Fields that rows speak of entirely.
constexpr ToldFields s_toldFields[] = {
    {"AcDbPoint",               {10, 210}},
    {"AcDbLine",                {10, 11, 210}},
    {"AcDbCircle",              {10, 40, 210}},
    {"AcDbArc",                 {50, 51}},
    {"AcDbEllipse",             {10, 11, 40, 41, 42, 210}},
    {"AcDbRay",                 {10}},
    {"AcDbXline",               {10}},
    {"AcDbTrace",               {10, 11, 12, 13, 210}},
    {"AcDbPolyline",            {10, 38, 39, 40, 41, 42, 90, 210}},
    {s_polyline2d,              {39, 40, 41, 210}},
    {s_vertex2d,                {40, 41, 42}},
    {s_vertex3d,                {10}},
    {s_polyFace,                {71, 72}},
    {"AcDbPolyFaceMeshVertex",  {10}},
    {"AcDbFaceRecord",          {71, 72, 73, 74}},
    {s_mesh,                    {71, 73, 74}},
    {"AcDbPolygonMeshVertex",   {10}},
    {"AcDbSpline",              {71, 72, 73, 74}},
    {"AcDbText",                {1, 7, 10, 39, 40, 41, 50, 51, 210}},
    {s_attribute,               {2}},
    {s_definition,              {2, 3, 73}},
    {"AcDbMText",               {1, 3, 7, 10, 11, 40, 41, 50, 210}},
    {s_embedded,                {1, 3, 7, 10, 11, 40, 41, 50, 210}, s_attributes},
    {s_insert,                  {2, 10, 41, 42, 43, 50, 210}},
    {s_minsert,                 {2, 10, 41, 42, 43, 44, 45, 50, 70, 71, 210}},
};

/// Names, and fields that rows speak of in part or under a condition.
constexpr FieldFact s_facts[] = {
    {s_common,           8, s_all,       L"layerId",              &hasCommonRows},
    {s_common,           6, s_all,       L"linetypeId",           &hasCommonRows},
    {s_common,          62, s_all,       L"color",                &hasCommonRows},
    {s_common,         420, s_all,       L"true color",           &hasCommonRows},
    {s_common,         370, s_all,       L"lineWeight",           &hasCommonRows},
    {s_common,          48, s_all,       L"linetypeScale",        &hasCommonRows},
    {s_common,          60, 0,           L"visibility"},
    {"AcDbPoint",       39, 0,           L"thickness"},
    {"AcDbPoint",       50, 0,           L"symbol rotation"},
    {"AcDbLine",        39, 0,           L"thickness"},
    {"AcDbCircle",      39, 0,           L"thickness"},
    {"AcDbRay",         11, s_all,       L"direction",            direction},
    {"AcDbXline",       11, s_all,       L"direction",            direction},
    {"AcDbTrace",       10, 0,           L"corner 1"},
    {"AcDbTrace",       11, 0,           L"corner 2"},
    {"AcDbTrace",       12, 0,           L"corner 3"},
    {"AcDbTrace",       13, 0,           L"corner 4"},
    {"AcDbTrace",      210, 0,           L"normal"},
    {"AcDbTrace",       39, 0,           L"thickness"},
    {"AcDbFace",        10, 0,           L"corner 1"},
    {"AcDbFace",        11, 0,           L"corner 2"},
    {"AcDbFace",        12, 0,           L"corner 3"},
    {"AcDbFace",        13, 0,           L"corner 4"},
    {"AcDbFace",        70, 0,           L"hidden edges"},
    {"AcDbPolyline",    91, 0,           L"vertex identifier"},
    {"AcDbPolyline",    43, s_all,       L"constant width",       constantWidth},
    {"AcDbPolyline",    70, 1 | 128,     L"flags"},
    {s_polyline2d,      10, s_z,         L"origin"},
    {s_polyline2d,      70, 1 | 128,     L"flags"},
    {s_polyline2d,      70, 2 | 4,       L"flags",                polyType2d},
    {s_polyline2d,      75, s_all,       L"curve type",           polyType2d},
    {s_vertex2d,        10, s_x | s_y,   L"position"},
    {s_vertex2d,        70, 1 | 8 | 16,  L"flags",                vertexType2d},
    {s_vertex2d,        50, 0,           L"tangent"},
    {s_vertex2d,        91, 0,           L"vertex identifier"},
    {s_polyline3d,      10, 0,           L"origin"},
    {s_polyline3d,      70, 1,           L"flags"},
    {s_polyline3d,      70, 4,           L"flags",                polyType3d},
    {s_polyline3d,      75, s_all,       L"curve type",           polyType3d},
    {s_vertex3d,        70, 8 | 16,      L"flags",                vertexType3d},
    {s_polyFace,        10, 0,           L"origin"},
    {s_polyFace,        70, 0,           L"flags"},
    {"AcDbPolyFaceMeshVertex",   70, 0,           L"flags"},
    {"AcDbFaceRecord",   10, 0,           L"position"},
    {"AcDbFaceRecord",   70, 0,           L"flags"},
    {s_mesh,            10, 0,           L"origin"},
    {s_mesh,            70, 1 | 32,      L"flags"},
    {s_mesh,            70, 4,           L"flags",                meshType},
    {s_mesh,            72, 0,           L"nSize"},
    {s_mesh,            75, s_all,       L"surface type",         meshType},
    {"AcDbPolygonMeshVertex",   70, 0,           L"flags"},
    {"AcDbSpline",     210, 0,           L"normal"},
    {"AcDbSpline",      70, 4,           L"flags"},
    {"AcDbSpline",      70, 1 | 2,       L"flags",                &isCurveTold},
    {"AcDbSpline",      42, 0,           L"knot tolerance"},
    {"AcDbSpline",      43, 0,           L"control tolerance"},
    {"AcDbSpline",      44, s_all,       L"fit tolerance",        &isFitDataTold},
    {"AcDbSpline",      12, s_all,       L"start tangent",        &isFitDataTold},
    {"AcDbSpline",      13, s_all,       L"end tangent",          &isFitDataTold},
    {"AcDbSpline",      11, s_all,       L"fit point",            &isFitDataTold},
    {"AcDbSpline",      10, s_all,       L"control point",        &isCurveTold},
    {"AcDbSpline",      40, s_all,       L"knot",                 &isCurveTold},
    {"AcDbSpline",      41, s_all,       L"weight",               &isCurveTold},
    {"AcDbText",        71, 2 | 4,       L"flags"},
    {"AcDbText",        11, s_all,       L"alignmentPoint",       alignmentPoint},
    {"AcDbText",        72, s_all,       L"horizontalMode",       horizontalMode},
    {"AcDbText",        73, s_all,       L"verticalMode",         verticalMode},
    {s_attribute,       74, s_all,       L"verticalMode",         verticalMode},
    {s_definition,      74, s_all,       L"verticalMode",         verticalMode},
    {"AcDbMText",       71, s_all,       L"attachment",           attachment},
    {s_embedded,        71, s_all,       L"attachment",           &isAttachmentOfAttributeTold},
    {s_attribute,       70, 1|2|4|8,     L"flags"},
    {s_attribute,       73, 0,           L"fieldLength"},
    {s_attribute,      280, s_all,       L"lock",                 isLocked},
    {s_definition,      70, 1|2|4|8,     L"flags"},
    {s_definition,     280, s_all,       L"lock",                 isLocked},
    {"AcDbMText",       46, 0,           L"defined height"},
    {"AcDbMText",       72, 0,           L"flow direction"},
    {"AcDbMText",       73, 0,           L"line spacing style"},
    {"AcDbMText",       44, 0,           L"line spacing"},
    {"AcDbMText",       90, 0,           L"background fill"},
    {s_layer,           62, 0,           L"color (negative: off)"},
    {s_layer,          420, 0,           L"true color"},
    {s_layer,            6, 0,           L"linetype"},
    {s_layer,          290, 0,           L"plottable"},
    {s_layer,          370, 0,           L"lineWeight"},
    {s_layer,          390, 0,           L"plot style"},
    {s_layer,          347, 0,           L"material"},
    {s_style,           40, 0,           L"text size"},
    {s_style,           41, 0,           L"width factor"},
    {s_style,           50, 0,           L"oblique angle"},
    {s_style,           71, 0,           L"generation"},
    {s_style,           42, 0,           L"prior size"},
    {s_style,            3, 0,           L"font"},
    {s_style,            4, 0,           L"big font"},
    {s_block,          340, 0,           L"layout"},
    {s_block,           70, 0,           L"units"},
    {s_block,          280, 0,           L"explodable"},
    {s_block,          281, 0,           L"scaling"},
    {s_blockBegin,      70, 0,           L"flags"},
    {s_blockBegin,      10, 0,           L"origin"},
    {s_blockBegin,       1, 0,           L"external path"},
    {s_blockBegin,       4, 0,           L"description"},
    {"AcDbGroup",      300, 0,           L"description"},
    {"AcDbGroup",       70, 0,           L"isAnonymous"},
    {"AcDbGroup",       71, 0,           L"isSelectable"},
    {"AcDbGroup",      340, 0,           L"member"},
};
// clang-format on

constexpr OdRxClass::DescFunction s_classesWithAnnotativeRow[] = {
    &OdDbMText::desc, &OdDbEllipse::desc, &OdDbText::desc, &OdDbAttribute::desc, &OdDbAttributeDefinition::desc,
};

bool isAbout(FieldFact const& fact, std::string_view marker, int code)
{
    return fact.code == code && fact.marker == marker;
}

bool isTold(ToldFields const& fields, OdDbObject const& object, std::string_view marker, int code)
{
    return fields.marker == marker && std::ranges::find(fields.codes, code) != fields.codes.end() &&
           (!fields.of || object.isKindOf(fields.of()));
}

/// Records say their name and flags under the same codes in all tables.
wchar_t const* recordFieldName(OdDbObject const& object, int code)
{
    if (!odCast<OdDbSymbolTableRecord>(&object))
        return nullptr;
    return code == 2 ? L"name" : code == 70 ? L"flags" : nullptr;
}

} // namespace

OdString fieldName(OdDbObject const& object, std::string_view marker, int code)
{
    for (FieldFact const& fact : s_facts)
        if (isAbout(fact, marker, code))
            return fact.name;
    if (wchar_t const* const name = recordFieldName(object, code))
        return name;
    return odFormat(L"group %d of ", code) + (marker.empty() ? classNameOf(object) : OdString::fromUtf8(marker));
}

int toldByRows(std::string_view marker, int code, OdDbObject const& object1, OdDbObject const& object2, double eps)
{
    for (ToldFields const& fields : s_toldFields)
        if (isTold(fields, object1, marker, code))
            return s_all;
    int told = 0;
    for (FieldFact const& fact : s_facts)
        if (isAbout(fact, marker, code) && (!fact.isTold || fact.isTold(object1, object2, eps)))
            told |= fact.toldByRows;
    return told;
}

bool isAnnotativeTold(OdDbObject const& object1, OdDbObject const& object2)
{
    auto const hasClass = [&object1](OdRxClass::DescFunction desc) { return object1.isA() == desc(); };
    if (!std::ranges::any_of(s_classesWithAnnotativeRow, hasClass))
        return false;
    return OdDbAnnotativeObjectPE::isAnnotative(static_cast<OdDbEntity const*>(&object1)) !=
           OdDbAnnotativeObjectPE::isAnnotative(static_cast<OdDbEntity const*>(&object2));
}

} // namespace ta
