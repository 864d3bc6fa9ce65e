#include "host/dxf/older/dxf_old_records.h"

#include <algorithm>
#include <unordered_map>

namespace dxf {

namespace {

// clang-format off
constexpr OldSection kEntity  {"AcDbEntity",   {8, 6, 62, 67}};
constexpr OldSection kRecord  {"AcDbSymbolTableRecord", {}};
constexpr OldSection kText    {"AcDbText",     {39, 10, 40, 1, 50, 41, 51, 7, 71, 72, 11, 210}};
constexpr OldSection kCircle  {"AcDbCircle",   {39, 10, 40, 210}};
constexpr OldSection kTrace   {"AcDbTrace",    {39, 10, 11, 12, 13, 210}};
constexpr OldSection kVertex  {"AcDbVertex",   {}};
constexpr OldSection kDimension {"AcDbDimension", {2, 10, 11, 70, 71, 72, 41, 42, 1, 3, 51, 53, 210}};
constexpr OldSection kAligned {"AcDbAlignedDimension", {12, 13, 14, 40, 50, 52}};
constexpr OldCodes   kInsert  {66, 2, 10, 41, 42, 43, 50, 70, 71, 44, 45, 210};
constexpr OldCodes   kMesh    {66, 39, 10, 70, 40, 41, 71, 72, 73, 74, 75, 210};
constexpr OldCodes   kPlace   {10, 70, 40, 41, 42, 50};
constexpr OldCodes   kCorners {10, 70, 40, 41, 42, 50, 71, 72, 73, 74};

constexpr OldSection kLineSections[]     = {kEntity, {"AcDbLine", {39, 10, 11, 210}}};
constexpr OldSection kPointSections[]    = {kEntity, {"AcDbPoint", {10, 39, 210, 50}}};
constexpr OldSection kCircleSections[]   = {kEntity, kCircle};
constexpr OldSection kArcSections[]      = {kEntity, kCircle, {"AcDbArc", {50, 51}}};
constexpr OldSection kTraceSections[]    = {kEntity, kTrace};
constexpr OldSection kFaceSections[]     = {kEntity, {"AcDbFace", {10, 11, 12, 13, 70}}};
constexpr OldSection kTextSections[]     = {kEntity, kText, {"AcDbText", {73}}};
constexpr OldSection kShapeSections[]    = {kEntity, {"AcDbShape", {39, 10, 40, 2, 50, 41, 51, 210}}};
constexpr OldSection kAttribSections[]   = {kEntity, kText, {"AcDbAttribute", {2, 70, 73, 74}}};
constexpr OldSection kAttdefSections[]   = {kEntity, kText, {"AcDbAttributeDefinition", {3, 2, 70, 73, 74}}};
constexpr OldSection kInsertSections[]   = {kEntity, {"AcDbBlockReference", kInsert}};
constexpr OldSection kGridSections[]     = {kEntity, {"AcDbMInsertBlock", kInsert}};
constexpr OldSection k2dSections[]       = {kEntity, {"AcDb2dPolyline", kMesh}};
constexpr OldSection k3dSections[]       = {kEntity, {"AcDb3dPolyline", kMesh}};
constexpr OldSection kMeshSections[]     = {kEntity, {"AcDbPolygonMesh", kMesh}};
constexpr OldSection kPolyFaceSections[] = {kEntity, {"AcDbPolyFaceMesh", kMesh}};
constexpr OldSection kVertex2dSections[] = {kEntity, kVertex, {"AcDb2dVertex", kPlace}};
constexpr OldSection kVertex3dSections[] = {kEntity, kVertex, {"AcDb3dPolylineVertex", kPlace}};
constexpr OldSection kMeshVertexSections[] = {kEntity, kVertex, {"AcDbPolygonMeshVertex", kPlace}};
constexpr OldSection kPolyFaceVertexSections[] = {kEntity, kVertex, {"AcDbPolyFaceMeshVertex", kPlace}};
constexpr OldSection kFaceRecordSections[] = {kEntity, {"AcDbFaceRecord", kCorners}};
constexpr OldSection kEntitySections[]   = {kEntity};
constexpr OldSection kViewportSections[] = {kEntity, {"AcDbViewport", {10, 40, 41, 68, 69}}};
constexpr OldSection kBlockSections[]    = {kEntity, {"AcDbBlockBegin", {2, 70, 10, 3, 1, 4}}};
constexpr OldSection kEndblkSections[]   = {kEntity, {"AcDbBlockEnd", {}}};

constexpr OldSection kRotatedSections[]  = {kEntity, kDimension, kAligned, {"AcDbRotatedDimension", {}}};
constexpr OldSection kAlignedSections[]  = {kEntity, kDimension, kAligned};
constexpr OldSection kAngularSections[]  = {kEntity, kDimension, {"AcDb2LineAngularDimension", {13, 14, 15, 16, 40}}};
constexpr OldSection kDiameterSections[] = {kEntity, kDimension, {"AcDbDiametricDimension", {15, 40}}};
constexpr OldSection kRadiusSections[]   = {kEntity, kDimension, {"AcDbRadialDimension", {15, 40}}};
constexpr OldSection k3PointSections[]   = {kEntity, kDimension, {"AcDb3PointAngularDimension", {13, 14, 15, 16, 40}}};
constexpr OldSection kOrdinateSections[] = {kEntity, kDimension, {"AcDbOrdinateDimension", {13, 14}}};

constexpr OldSection kHeadSections[]     = {{"AcDbSymbolTable", {2, 70}}};
constexpr OldSection kLtypeSections[]    = {kRecord, {"AcDbLinetypeTableRecord", {2, 70, 3, 72, 73, 40, 49}}};
constexpr OldSection kLayerSections[]    = {kRecord, {"AcDbLayerTableRecord", {2, 70, 62, 6}}};
constexpr OldSection kStyleSections[]    = {kRecord, {"AcDbTextStyleTableRecord", {2, 70, 40, 41, 50, 71, 42, 3, 4}}};
constexpr OldSection kAppidSections[]    = {kRecord, {"AcDbRegAppTableRecord", {2, 70}}};
constexpr OldSection kUcsSections[]      = {kRecord, {"AcDbUCSTableRecord", {2, 70, 10, 11, 12}}};
constexpr OldSection kBlockRecordSections[] = {kRecord, {"AcDbBlockTableRecord", {2}}};
constexpr OldSection kViewSections[]     = {kRecord, {"AcDbViewTableRecord",
    {2, 70, 40, 10, 41, 11, 12, 42, 43, 44, 50, 71}}};
constexpr OldSection kVportSections[]    = {kRecord, {"AcDbViewportTableRecord",
    {2, 70, 10, 11, 12, 13, 14, 15, 16, 17, 40, 41, 42, 43, 44, 50, 51, 68, 69, 71, 72, 73, 74, 75, 76, 77, 78}}};
constexpr OldSection kDimstyleSections[] = {kRecord, {"AcDbDimStyleTableRecord",
    {2, 70, 3, 4, 5, 6, 7, 40, 41, 42, 43, 44, 45, 46, 47, 48, 140, 141, 142, 143, 144, 145, 146, 147,
     71, 72, 73, 74, 75, 76, 77, 78, 170, 171, 172, 173, 174, 175, 176, 177, 178}}};

constexpr OldForm kForms[] = {
    {"LINE", kLineSections},         {"3DLINE", kLineSections},       {"POINT", kPointSections},
    {"CIRCLE", kCircleSections},     {"ARC", kArcSections},           {"TRACE", kTraceSections},
    {"SOLID", kTraceSections},       {"3DFACE", kFaceSections},       {"TEXT", kTextSections},
    {"SHAPE", kShapeSections},       {"ATTRIB", kAttribSections},     {"ATTDEF", kAttdefSections},
    {"INSERT", kInsertSections},     {"INSERT", kGridSections},
    {"POLYLINE", k2dSections},       {"POLYLINE", k3dSections},
    {"POLYLINE", kMeshSections},     {"POLYLINE", kPolyFaceSections},
    {"VERTEX", kVertex2dSections},   {"VERTEX", kVertex3dSections},   {"VERTEX", kMeshVertexSections},
    {"VERTEX", kPolyFaceVertexSections}, {"VERTEX", kFaceRecordSections},
    {"DIMENSION", kRotatedSections}, {"DIMENSION", kAlignedSections}, {"DIMENSION", kAngularSections},
    {"DIMENSION", kDiameterSections}, {"DIMENSION", kRadiusSections}, {"DIMENSION", k3PointSections},
    {"DIMENSION", kOrdinateSections},
    {"SEQEND", kEntitySections},     {"VIEWPORT", kViewportSections},
    {"BLOCK", kBlockSections},       {"ENDBLK", kEndblkSections},
    {"TABLE", kHeadSections},        {"LTYPE", kLtypeSections},       {"LAYER", kLayerSections},
    {"STYLE", kStyleSections},       {"APPID", kAppidSections},       {"UCS", kUcsSections},
    {"VIEW", kViewSections},         {"VPORT", kVportSections},       {"DIMSTYLE", kDimstyleSections},
    {"BLOCK_RECORD", kBlockRecordSections},
};
// clang-format on

std::span<OldForm const> formsOf(std::string_view type)
{
    static auto const s_byType = [] {
        std::unordered_map<std::string_view, std::span<OldForm const>> byType;
        for (OldForm const* form = kForms; form != std::end(kForms); ++form) {
            auto const [it, isNew] = byType.try_emplace(form->type, form, 1);
            if (!isNew)
                it->second = {it->second.data(), it->second.size() + 1};
        }
        return byType;
    }();
    auto const it = s_byType.find(type);
    return it == s_byType.end() ? std::span<OldForm const>() : it->second;
}

OldForm const& formOf(std::string_view type, std::size_t number)
{
    return formsOf(type)[number];
}

} // namespace

std::span<OldForm const> oldForms()
{
    return kForms;
}

OldForm const* findOldForm(std::string_view type)
{
    std::span<OldForm const> const forms = formsOf(type);
    return forms.empty() ? nullptr : forms.data();
}

OldForm const& oldPolylineForm(std::int64_t flags)
{
    constexpr std::int64_t k3d = 8, kMeshFlag = 16, kPolyFace = 64;
    std::size_t const number = (flags & kPolyFace) != 0 ? 3 : (flags & kMeshFlag) != 0 ? 2 : (flags & k3d) != 0;
    return formOf("POLYLINE", number);
}

OldForm const& oldVertexForm(std::int64_t flags, std::int64_t polylineFlags)
{
    constexpr std::int64_t k3d = 32, kMeshFlag = 64, kPolyFace = 128;
    switch (flags & (k3d | kMeshFlag | kPolyFace)) {
    case k3d: return formOf("VERTEX", 1);
    case kMeshFlag: return formOf("VERTEX", 2);
    case kMeshFlag | kPolyFace: return formOf("VERTEX", 3);
    case kPolyFace: return formOf("VERTEX", 4);
    default: break;
    }
    OldForm const& polyline = oldPolylineForm(polylineFlags);
    return formOf("VERTEX", static_cast<std::size_t>(&polyline - findOldForm("POLYLINE")));
}

std::int64_t oldKindFlags(std::string_view marker, std::int64_t flags)
{
    struct Kind
    {
        std::string_view marker;
        std::int64_t telling; ///< the flags that tell kinds apart
        std::int64_t own;
    };
    constexpr std::int64_t kPolylines = 8 | 16 | 64, kVertices = 32 | 64 | 128;
    constexpr Kind kKinds[] = {
        {"AcDb2dPolyline", kPolylines, 0},        {"AcDb3dPolyline", kPolylines, 8},
        {"AcDbPolygonMesh", kPolylines, 16},      {"AcDbPolyFaceMesh", kPolylines, 64},
        {"AcDb2dVertex", kVertices, 0},           {"AcDb3dPolylineVertex", kVertices, 32},
        {"AcDbPolygonMeshVertex", kVertices, 64}, {"AcDbPolyFaceMeshVertex", kVertices, 64 | 128},
        {"AcDbFaceRecord", kVertices, 128},
    };
    for (Kind const& kind : kKinds)
        if (kind.marker == marker)
            return (flags & ~kind.telling) | kind.own;
    return flags;
}

OldForm const& oldDimensionForm(std::int64_t flags)
{
    constexpr std::int64_t kTypeBits = 7;
    auto const number = static_cast<std::size_t>(flags & kTypeBits);
    std::span<OldForm const> const forms = formsOf("DIMENSION");
    return forms[number < forms.size() ? number : 0];
}

OldForm const& oldGridInsertForm()
{
    return formOf("INSERT", 1);
}

bool isOldGroup(std::string_view type, int code)
{
    std::span<OldForm const> const forms = formsOf(type);
    return std::any_of(forms.begin(), forms.end(), [code](OldForm const& form) {
        return std::any_of(form.sections.begin(), form.sections.end(),
                           [code](OldSection const& section) { return section.codes.contains(code); });
    });
}

} // namespace dxf
