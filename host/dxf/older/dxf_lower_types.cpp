#include "host/dxf/older/dxf_lower_types.h"

#include <algorithm>
#include <iterator>

namespace dxf {

namespace {

using enum ERelease;
using enum EReplacement;

// Both tables are in the order of their names.
// clang-format off
constexpr RecordType s_entities[] = {
    {"3DFACE",                 kR12},
    {"3DLINE",                 kR12},
    {"3DSOLID",                kR13},
    {"ACAD_PROXY_ENTITY",      kR13},
    {"ACAD_TABLE",             kR2004, kBlock},
    {"ARC",                    kR12},
    {"ARCALIGNEDTEXT",         kR14},
    {"ARC_DIMENSION",          kR2004, kBlock},
    {"ATTDEF",                 kR12},
    {"ATTRIB",                 kR12},
    {"BLOCK",                  kR12},
    {"BODY",                   kR13},
    {"CAMERA",                 kR2007},
    {"CIRCLE",                 kR12},
    {"COORDINATION MODEL",     kR2013},
    {"DGNUNDERLAY",            kR2007},
    {"DIMENSION",              kR12},
    {"DWFUNDERLAY",            kR2007},
    {"ELLIPSE",                kR13,   kEllipse},
    {"ENDBLK",                 kR12},
    {"EXTRUDEDSURFACE",        kR2007},
    {"GEOPOSITIONMARKER",      kR2013},
    {"HATCH",                  kR14},
    {"HELIX",                  kR2007, kHelix},
    {"IMAGE",                  kR14},
    {"INSERT",                 kR12},
    {"LARGE_RADIAL_DIMENSION", kR2004, kBlock},
    {"LEADER",                 kR13,   kLeader},
    {"LIGHT",                  kR2007},
    {"LINE",                   kR12},
    {"LOFTEDSURFACE",          kR2007},
    {"LWPOLYLINE",             kR14,   kLightPolyline},
    {"MESH",                   kR2010},
    {"MLEADER",                kR2007},
    {"MLINE",                  kR13},
    {"MPOLYGON",               kR2004},
    {"MTEXT",                  kR13,   kParagraphs},
    {"MULTILEADER",            kR2007},
    {"NURBSURFACE",            kR2010},
    {"OLE2FRAME",              kR14},
    {"OLEFRAME",               kR13},
    {"PDFUNDERLAY",            kR2010},
    {"PLANESURFACE",           kR2007},
    {"POINT",                  kR12},
    {"POINTCLOUD",             kR2010},
    {"POINTCLOUDEX",           kR2013},
    {"POLYLINE",               kR12},
    {"RAY",                    kR13,   kRay},
    {"REGION",                 kR13},
    {"REVOLVEDSURFACE",        kR2007},
    {"RTEXT",                  kR14},
    {"SECTIONOBJECT",          kR2007},
    {"SEQEND",                 kR12},
    {"SHAPE",                  kR12},
    {"SOLID",                  kR12},
    {"SPLINE",                 kR13,   kSpline},
    {"SURFACE",                kR2007},
    {"SWEPTSURFACE",           kR2007},
    {"TEXT",                   kR12},
    {"TOLERANCE",              kR13},
    {"TRACE",                  kR12},
    {"VERTEX",                 kR12},
    {"VIEWPORT",               kR12},
    {"WIPEOUT",                kR2000},
    {"XLINE",                  kR13,   kXLine},
};

constexpr RecordType s_objects[] = {
    {"ACAD_PROXY_OBJECT",        kR13},
    {"ACDBASSOCACTION",          kR2010},
    {"ACDBASSOCNETWORK",         kR2010},
    {"ACDBDETAILVIEWSTYLE",      kR2013},
    {"ACDBDICTIONARYWDFLT",      kR2000, kNone, false},
    {"ACDBPLACEHOLDER",          kR2000, kNone, false},
    {"ACDBSECTIONVIEWSTYLE",     kR2013},
    {"CELLSTYLEMAP",             kR2007},
    {"DBCOLOR",                  kR2004},
    {"DGNDEFINITION",            kR2007},
    {"DICTIONARY",               kR13,   kNone, false},
    {"DICTIONARYVAR",            kR14},
    {"DIMASSOC",                 kR2004},
    {"DWFDEFINITION",            kR2007},
    {"FIELD",                    kR2004},
    {"FIELDLIST",                kR2004},
    {"GEODATA",                  kR2010},
    {"GROUP",                    kR13},
    {"IDBUFFER",                 kR14},
    {"IMAGEDEF",                 kR14},
    {"IMAGEDEF_REACTOR",         kR14,   kNone, false},
    {"LAYER_FILTER",             kR14},
    {"LAYER_INDEX",              kR14},
    {"LAYOUT",                   kR2000},
    {"MATERIAL",                 kR2007},
    {"MENTALRAYRENDERSETTINGS",  kR2007},
    {"MLEADERSTYLE",             kR2007},
    {"MLINESTYLE",               kR13},
    {"OBJECT_PTR",               kR14},
    {"PDFDEFINITION",            kR2010},
    {"PLOTSETTINGS",             kR2000},
    {"POINTCLOUDDEF",            kR2010},
    {"RASTERVARIABLES",          kR14},
    {"RENDERENVIRONMENT",        kR2007},
    {"RENDERGLOBAL",             kR2007},
    {"SCALE",                    kR2007},
    {"SORTENTSTABLE",            kR14},
    {"SPATIAL_FILTER",           kR14},
    {"SPATIAL_INDEX",            kR14},
    {"SUN",                      kR2007},
    {"TABLECONTENT",             kR2007},
    {"TABLEGEOMETRY",            kR2007},
    {"TABLESTYLE",               kR2004},
    {"VBA_PROJECT",              kR2000},
    {"VISUALSTYLE",              kR2007},
    {"WIPEOUTVARIABLES",         kR2000},
    {"XRECORD",                  kR13},
};

constexpr RecordType s_sections[] = {
    {"ACDSDATA",       kR2013, kNone, false}, // holds bodies, which are told of one by one
    {"BLOCKS",         kR12},
    {"CLASSES",        kR13,   kNone, false},
    {"ENTITIES",       kR12},
    {"HEADER",         kR12},
    {"OBJECTS",        kR13,   kNone, false}, // its objects are told of one by one
    {"TABLES",         kR12},
    {"THUMBNAILIMAGE", kR2000},
};
// clang-format on

template <std::size_t N>
RecordType const* findIn(RecordType const (&types)[N], std::string_view name)
{
    auto const it =
        std::lower_bound(std::begin(types), std::end(types), name,
                         [](RecordType const& type, std::string_view text) { return type.name < text; });
    return it != std::end(types) && it->name == name ? it : nullptr;
}

constexpr bool before(RecordType const& a, RecordType const& b)
{
    return a.name < b.name;
}

static_assert(std::is_sorted(std::begin(s_entities), std::end(s_entities), &before));
static_assert(std::is_sorted(std::begin(s_objects), std::end(s_objects), &before));
static_assert(std::is_sorted(std::begin(s_sections), std::end(s_sections), &before));

} // namespace

RecordType const* findEntityType(std::string_view name)
{
    return findIn(s_entities, name);
}

RecordType const* findObjectType(std::string_view name)
{
    return findIn(s_objects, name);
}

RecordType const* findSectionType(std::string_view name)
{
    return findIn(s_sections, name);
}

} // namespace dxf
