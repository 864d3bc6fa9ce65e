#include "host/dxf/older/dxf_lower_header.h"

#include "host/db/records/od_db_dim_variable.h"
#include "host/db/template/od_db_template_header.h"
#include "host/dxf/older/dxf_lower_dim_variables.h"
#include "host/dxf/older/dxf_old_dimensions.h"

#include <algorithm>

namespace dxf {

namespace {

using enum ERelease;

constexpr int kComment = 999;

/// The release that brought a variable. Variables that all releases have stand in no table, and neither do those
/// that newer releases forgot: they are kept like all that nobody knows.
struct LateVariable
{
    std::string_view name;
    ERelease first;
};

// clang-format off
constexpr LateVariable s_late[] = {
    {"DIMUNIT", kR13},      {"DIMFIT", kR13},    {"PICKSTYLE", kR13}, {"DELOBJ", kR13},  {"SAVEIMAGES", kR13},
    {"ACADMAINTVER", kR13}, {"CELTSCALE", kR13}, {"DISPSILH", kR13}, {"DIMJUST", kR13},  {"DIMSD1", kR13},
    {"DIMSD2", kR13},       {"DIMTOLJ", kR13},   {"DIMTZIN", kR13},  {"DIMALTZ", kR13},  {"DIMALTTZ", kR13},
    {"DIMUPT", kR13},       {"DIMDEC", kR13},    {"DIMTDEC", kR13},  {"DIMALTU", kR13},  {"DIMALTTD", kR13},
    {"DIMTXSTY", kR13},     {"DIMAUNIT", kR13},  {"CHAMFERC", kR13}, {"CHAMFERD", kR13}, {"PINSBASE", kR13},
    {"TREEDEPTH", kR13},    {"CMLSTYLE", kR13},  {"CMLJUST", kR13},  {"CMLSCALE", kR13},
    {"PROXYGRAPHICS", kR14}, {"MEASUREMENT", kR14},

    {"DIMADEC", kR2000},    {"DIMALTRND", kR2000}, {"DIMAZIN", kR2000},   {"DIMDSEP", kR2000},  {"DIMATFIT", kR2000},
    {"DIMFRAC", kR2000},    {"DIMLDRBLK", kR2000}, {"DIMLUNIT", kR2000},  {"DIMLWD", kR2000},   {"DIMLWE", kR2000},
    {"DIMTMOVE", kR2000},   {"TDUCREATE", kR2000}, {"TDUUPDATE", kR2000}, {"UCSBASE", kR2000},
    {"UCSORTHOREF", kR2000}, {"UCSORTHOVIEW", kR2000}, {"UCSORGTOP", kR2000}, {"UCSORGBOTTOM", kR2000},
    {"UCSORGLEFT", kR2000}, {"UCSORGRIGHT", kR2000}, {"UCSORGFRONT", kR2000}, {"UCSORGBACK", kR2000},
    {"PUCSBASE", kR2000},   {"PUCSORTHOREF", kR2000}, {"PUCSORTHOVIEW", kR2000}, {"PUCSORGTOP", kR2000},
    {"PUCSORGBOTTOM", kR2000}, {"PUCSORGLEFT", kR2000}, {"PUCSORGRIGHT", kR2000}, {"PUCSORGFRONT", kR2000},
    {"PUCSORGBACK", kR2000}, {"CELWEIGHT", kR2000}, {"ENDCAPS", kR2000},  {"JOINSTYLE", kR2000},
    {"LWDISPLAY", kR2000},  {"INSUNITS", kR2000},  {"HYPERLINKBASE", kR2000}, {"STYLESHEET", kR2000},
    {"XEDIT", kR2000},      {"CEPSNTYPE", kR2000}, {"CEPSNID", kR2000},   {"PSTYLEMODE", kR2000},
    {"FINGERPRINTGUID", kR2000}, {"VERSIONGUID", kR2000}, {"EXTNAMES", kR2000}, {"PSVPSCALE", kR2000},
    {"OLESTARTUP", kR2000},

    {"LASTSAVEDBY", kR2004}, {"SORTENTS", kR2004}, {"INDEXCTL", kR2004},  {"HIDETEXT", kR2004},
    {"XCLIPFRAME", kR2004}, {"HALOGAP", kR2004},   {"OBSCOLOR", kR2004},  {"OBSLTYPE", kR2004},
    {"INTERSECTIONDISPLAY", kR2004}, {"INTERSECTIONCOLOR", kR2004}, {"DIMASSOC", kR2004}, {"PROJECTNAME", kR2004},

    {"DIMFXL", kR2007},     {"DIMFXLON", kR2007},  {"DIMJOGANG", kR2007}, {"DIMTFILL", kR2007},
    {"DIMTFILLCLR", kR2007}, {"DIMARCSYM", kR2007}, {"DIMLTYPE", kR2007}, {"DIMLTEX1", kR2007},
    {"DIMLTEX2", kR2007},   {"CAMERADISPLAY", kR2007}, {"LENSLENGTH", kR2007}, {"CAMERAHEIGHT", kR2007},
    {"STEPSPERSEC", kR2007}, {"STEPSIZE", kR2007}, {"3DDWFPREC", kR2007}, {"PSOLWIDTH", kR2007},
    {"PSOLHEIGHT", kR2007}, {"LOFTANG1", kR2007},  {"LOFTANG2", kR2007},  {"LOFTMAG1", kR2007},
    {"LOFTMAG2", kR2007},   {"LOFTPARAM", kR2007}, {"LOFTNORMALS", kR2007}, {"LATITUDE", kR2007},
    {"LONGITUDE", kR2007},  {"NORTHDIRECTION", kR2007}, {"TIMEZONE", kR2007}, {"LIGHTGLYPHDISPLAY", kR2007},
    {"TILEMODELIGHTSYNCH", kR2007}, {"CMATERIAL", kR2007}, {"SOLIDHIST", kR2007}, {"SHOWHIST", kR2007},
    {"DWFFRAME", kR2007},   {"DGNFRAME", kR2007},  {"REALWORLDSCALE", kR2007}, {"INTERFERECOLOR", kR2007},
    {"INTERFEREOBJVS", kR2007}, {"INTERFEREVPVS", kR2007}, {"DRAGVS", kR2007}, {"CSHADOW", kR2007},
    {"SHADOWPLANELOCATION", kR2007},

    {"DIMTXTDIRECTION", kR2010},
    {"REQUIREDVERSIONS", kR2013},
};
// clang-format on

LateVariable const* findLate(std::string_view name, ERelease release)
{
    auto const it = std::find_if(std::begin(s_late), std::end(s_late), [name, release](LateVariable const& late) {
        return late.name == name && late.first > release;
    });
    return it == std::end(s_late) ? nullptr : it;
}

/// The value is one that a new drawing does not have: somebody chose it.
bool isChosen(std::string_view name, TagSpan value)
{
    OdDbHeader::Variable const* const usual = odDbTemplateHeader().find(name);
    if (!usual)
        return false;
    OdDbTagList tags;
    for (OdDbTag const& tag : value)
        if (tag.code != kComment)
            tags.put(tag);
    return !(tags == usual->tags);
}

/// The variable says of dimensions what the drawing says in general, which is what R12 takes for dimensions.
bool isDrawingUnit(std::string_view name, TagSpan value, LowerContext const& context)
{
    OdDbDimVariable const* const variable = odDbFindDimVariable(name);
    std::optional<std::int64_t> const unit =
        variable && context.target == kR12 ? drawingUnit(context.database, variable->code) : std::nullopt;
    return unit && unit == integerOf(value, 70);
}

void noteLeftOut(LateVariable const& late, TagSpan value, LowerContext const& context)
{
    if (isChosen(late.name, value) && !isDrawingUnit(late.name, value, context))
        context.noteLeftOut('$' + std::string(late.name), L"the variable", late.first, {});
}

void putVariable(std::string_view name, OdDbTag const& value, OdDbTagSink& sink)
{
    sink.text(9, '$' + std::string(name));
    sink.put(value);
}

/// What R13 and R14 say in one variable and today's releases in two. An old drawing has all three: then the old
/// one keeps its place.
struct JoinedVariable
{
    std::string_view oldName;
    std::string_view first;
    std::int64_t usualFirst;
    std::string_view second;
    int (*join)(std::int64_t first, std::int64_t second);
};
constexpr JoinedVariable s_joined[] = {
    {"DIMUNIT", "DIMLUNIT", 2, "DIMFRAC", &oldDimUnitOf},
    {"DIMFIT", "DIMATFIT", 3, "DIMTMOVE", &oldDimFitOf},
};

/// True for all of these: they are written here, or with the one that they belong to.
bool putJoined(std::string_view name, LowerContext const& context, OdDbTagSink& sink)
{
    if (context.target < kR13 || context.target >= kR2000)
        return false;
    OdDbHeader const& header = context.database.header();
    for (JoinedVariable const& joined : s_joined) {
        if (name != joined.oldName && name != joined.first && name != joined.second)
            continue;
        bool const hasNew = header.find(joined.first) != nullptr;
        if (name == joined.oldName && !hasNew)
            return false; // stays as it is
        if (name == (header.find(joined.oldName) ? joined.oldName : joined.first)) {
            std::int64_t const first = header.integer(joined.first, joined.usualFirst);
            putVariable(joined.oldName, OdDbTag::ofInteger(70, joined.join(first, header.integer(joined.second))),
                        sink);
        }
        return true;
    }
    return false;
}

void putValue(std::string_view name, TagSpan value, LowerContext const& context, LegacyNames const& names,
              OdDbHandle seed, OdDbTagSink& sink)
{
    constexpr int kMaintenanceCode = 70; // 90 in the current release
    std::optional<OdDbTableKind> const table = namedTableOfVariable(name);
    for (OdDbTag const& tag : value) {
        if (name == "ACADVER" && tag.code == 1)
            sink.text(1, releaseOf(context.target).code);
        else if (name == "ACADMAINTVER" && tag.code == 90)
            sink.integer(kMaintenanceCode, tag.integer);
        else if (name == "HANDSEED" && tag.code == 5 && !seed.isNull())
            sink.handle(5, seed);
        else if (name == "HANDLING" && tag.code == 70)
            sink.integer(70, 1);
        else if (table && tag.kind == OdDbTagKind::kText && tag.code != kComment)
            sink.text(tag.code, names.of(*table, tag.text));
        else
            sink.put(tag);
    }
}

} // namespace

void putOldVariable(TagSpan variable, LowerContext const& context, LegacyNames const& names, OdDbHandle seed,
                    OdDbTagSink& sink)
{
    std::string_view name = typeOf(variable);
    if (name.starts_with('$'))
        name.remove_prefix(1);
    TagSpan const value = variable.subspan(1);
    bool const isJoined = putJoined(name, context, sink);
    LateVariable const* const late = findLate(name, context.target);
    if (isJoined || late) {
        if (!isJoined)
            noteLeftOut(*late, value, context);
        for (OdDbTag const& tag : value)
            if (tag.code == kComment)
                sink.put(tag);
        return;
    }
    // Handles of R12 are to be read only where this variable says so.
    if (name == "HANDSEED" && context.target == kR12 && !context.database.header().find("HANDLING"))
        putVariable("HANDLING", OdDbTag::ofInteger(70, 1), sink);
    sink.put(variable.front());
    putValue(name, value, context, names, seed, sink);
}

} // namespace dxf
