#include "host/app/sys_var_table.h"

#include "host/app/line_weight.h"
#include "host/app/sys_var_access.h"
#include "host/root/od_error.h"
#include "host/ut/ut_number.h"

namespace ca {

namespace {

using namespace sysVarAccess;
using enum ESysVarType;
using enum ESysVarKeeper;

constexpr SysVarRow number(std::string_view name, ESysVarType type, double initial)
{
    return {.name = name, .type = type, .x = initial};
}

constexpr SysVarRow toggle(std::string_view name, int initial)
{
    return number(name, kBool, initial);
}

constexpr SysVarRow point(std::string_view name, ESysVarType type, double x = 0, double y = 0)
{
    return {.name = name, .type = type, .x = x, .y = y};
}

constexpr SysVarRow string(std::string_view name, wchar_t const* initial = L"")
{
    return {.name = name, .type = kString, .text = initial};
}

/// Found out when asked for.
constexpr SysVarRow computed(SysVarRow row, ESysVarKeeper keeper, SysVarRow::Getter getter)
{
    row.keeper = keeper;
    row.getter = getter;
    row.isReadOnly = true;
    return row;
}

/// Kept in an object of the drawing, or in a member of the document.
constexpr SysVarRow elsewhere(SysVarRow row, ESysVarKeeper keeper, SysVarRow::Getter getter,
                              SysVarRow::Setter setter)
{
    row.keeper = keeper;
    row.getter = getter;
    row.setter = setter;
    return row;
}

template <OdDbTableKind Kind>
constexpr SysVarRow current(SysVarRow row)
{
    return elsewhere(row, kDrawing, &currentRecord<Kind>, &setCurrentRecord<Kind>);
}

void checkLineweight(SysVarValue const& value)
{
    constexpr int kLowest = kDefaultLineWeight; // then by block and by layer
    int const weight = std::get<int>(value);
    if (weight >= kLowest && weight < 0)
        return;
    if (std::ranges::find(lineWeights(), weight) != lineWeights().end())
        return;
    OdString allowed;
    for (int const each : lineWeights())
        allowed += odFormat(L", %d", each);
    throw OdError(eOutOfRange,
                  L"Requires a lineweight: -3 (default), -2 (by block), -1 (by layer)" + allowed + L".");
}

void checkPointShape(SysVarValue const& value)
{
    constexpr int kCircle = 32, kSquare = 64, kShapes = 4;
    if ((std::get<int>(value) & ~(kCircle | kSquare)) > kShapes)
        throw OdError(eOutOfRange, L"Requires an integer of 0 to 4, plus 32 for a circle, plus 64 for a square.");
}

void checkAngles(SysVarValue const& value)
{
    constexpr int kAngles = 10;
    auto const& text = std::get<OdString>(value);
    int count = 0;
    for (OdString rest = text; !rest.isEmpty(); ++count) {
        OdString const angle = rest.spanExcluding(L";");
        double degrees = 0;
        if (count == kAngles || !ut::parseReal(angle.str(), degrees))
            throw OdError(eOutOfRange, L"Requires up to 10 angles in degrees, separated by semicolons.");
        rest.deleteChars(0, angle.getLength() + 1);
    }
}

// clang-format off
constexpr SysVarRow kTable[] = {
    // Documents and commands
    computed(string("LASTPROMPT"),            kApplication, &lastPrompt),
    computed(string("CMDNAMES"),              kApplication, &commandNames),
    computed(number("CMDACTIVE", kShort, 0),  kApplication, &isCommandActive),
    computed(number("DATE", kReal, 0),        kApplication, &julianDate),
    computed(number("CDATE", kReal, 0),       kApplication, &calendarDate),
    computed(string("TEMPPREFIX"),            kApplication, &temporaryFolder),
    computed(string("DWGNAME"),               kDocument,    &drawingName),
    computed(string("DWGPREFIX"),             kDocument,    &drawingFolder),
    computed(toggle("DWGTITLED", 0),          kDocument,    &hasFileName),
    computed(toggle("WRITESTAT", 0),          kDocument,    &isWritable),
    computed(number("DBMOD", kShort, 0),      kDocument,    &isModified),
    computed(number("UNDOCTL", kShort, 0),    kDocument,    &undoControl),
    computed(number("UNDOMARKS", kInt, 0),    kDocument,    &undoMarks),
    string("SRCHPATH"),
    toggle("CMDECHO", 1),
    toggle("FILEDIA", 1),
    toggle("CMDDIA", 1),
    number("EXPERT", kShort, 0).from(0, 5),
    toggle("MENUECHO", 0),
    toggle("HIGHLIGHT", 1),
    toggle("BLIPMODE", 0),
    number("DRAGMODE", kShort, 2).from(0, 2),
    number("AUTOCOMPLETEMODE", kShort, 1).from(0, 255),
    number("MTFLAGS", kInt, 0).from(0, 255),

    // What new entities get
    current<OdDbTableKind::kLayer>    (string("CLAYER", L"0")),
    current<OdDbTableKind::kLinetype> (string("CELTYPE", L"ByLayer")),
    current<OdDbTableKind::kTextStyle>(string("TEXTSTYLE", L"Standard")),
    computed(string("DIMSTYLE", L"Standard"), kDrawing, &currentRecord<OdDbTableKind::kDimStyle>),
    elsewhere(string("CECOLOR", L"BYLAYER"),  kDrawing, &currentColor, &setCurrentColor),
    number("CELTSCALE", kReal, 1).positive().header(40),
    number("CELWEIGHT", kShort, -1).checked(&checkLineweight).header(370),
    number("ELEVATION", kReal, 0).header(40),
    number("PELEVATION", kReal, 0).header(40),
    number("THICKNESS", kReal, 0).header(40),
    number("TEXTSIZE", kReal, 2.5).positive().header(40).remembered(),
    number("PLINEWID", kReal, 0).notNegative().header(40).remembered(),
    toggle("PLINEGEN", 0).header(70),
    number("PLINETYPE", kShort, 2).from(0, 2),
    number("TRACEWID", kReal, 1).positive().header(40),
    number("SKETCHINC", kReal, 1).positive().header(40),
    toggle("SKPOLY", 0).header(70),
    number("CMLJUST", kShort, 0).from(0, 2).header(70),
    number("CMLSCALE", kReal, 20).header(40),
    string("CMLSTYLE", L"Standard").header(2).readOnly(),
    number("SPLINETYPE", kShort, 6).from(5, 6).header(70),
    number("SPLINESEGS", kShort, 8).header(70),
    number("SURFTAB1", kShort, 6).from(2, 32766).header(70),
    number("SURFTAB2", kShort, 6).from(2, 32766).header(70),
    number("SURFTYPE", kShort, 6).from(5, 8).header(70),
    number("SURFU", kShort, 6).from(0, 200).header(70),
    number("SURFV", kShort, 6).from(0, 200).header(70),

    // What commands offer the next time
    elsewhere(point("LASTPOINT", kPoint3),    kDocument, &lastPoint, &setLastPoint).remembered(),
    computed(number("LASTANGLE", kReal, 0),   kDocument, &lastAngle),
    number("DISTANCE", kReal, 0).document().readOnly(),
    number("AREA", kReal, 0).document().readOnly(),
    number("PERIMETER", kReal, 0).document().readOnly(),
    number("CIRCLERAD", kReal, 0).notNegative().remembered(),
    number("POLYSIDES", kShort, 4).from(3, 1024).remembered(),
    number("DONUTID", kReal, 0.5).notNegative().remembered(),
    number("DONUTOD", kReal, 1).positive().remembered(),
    number("OFFSETDIST", kReal, 1).remembered(),
    number("OFFSETGAPTYPE", kShort, 0).from(0, 0),
    string("INSNAME").remembered(),
    number("FILLETRAD", kReal, 0).notNegative().header(40).remembered(),
    number("CHAMFERA", kReal, 0).notNegative().header(40).remembered(),
    number("CHAMFERB", kReal, 0).notNegative().header(40).remembered(),
    number("CHAMFERC", kReal, 0).notNegative().header(40).remembered(),
    number("CHAMFERD", kReal, 0).from(-360, 360).header(40).remembered(),

    // How commands behave
    toggle("ATTREQ", 1),
    toggle("ATTDIA", 0),
    toggle("COPYMODE", 0),
    number("DELOBJ", kShort, 1).from(-3, 3),
    toggle("EDGEMODE", 0),
    number("MAXARRAY", kInt, 100000).from(100, 10000000),
    toggle("TRIMMODE", 1),
    toggle("MIRRTEXT", 0).header(70),
    toggle("REGENMODE", 1).header(70),
    toggle("LIMCHECK", 0).header(70),
    toggle("VISRETAIN", 1).header(70),
    number("TREEDEPTH", kShort, 3020).header(70),
    toggle("EXTNAMES", 1).header(290).readOnly(),

    // Selecting
    number("PICKADD", kShort, 2).from(0, 2),
    number("PICKAUTO", kShort, 1).from(0, 2),
    number("PICKDRAG", kShort, 2).from(0, 2),
    toggle("PICKFIRST", 1),
    number("PICKBOX", kShort, 3).from(0, 50),
    number("PICKSTYLE", kShort, 1).from(0, 3),
    number("APERTURE", kShort, 10).from(1, 50),
    number("SORTENTS", kShort, 127).from(0, 127).header(280),

    // Drafting aids
    number("OSMODE", kShort, 37).from(0, 32767),
    number("3DOSMODE", kInt, 0).from(0, 511),
    number("AUTOSNAP", kShort, 63).from(0, 63),
    number("OSNAPCOORD", kShort, 2).from(0, 2),
    toggle("ORTHOMODE", 0).header(70),
    elsewhere(number("SNAPANG", kReal, 0),    kDrawing, &snapAngle, &setSnapAngle),
    elsewhere(point("SNAPBASE", kPoint2),     kDrawing, &snapBase, &setSnapBase),
    elsewhere(number("SNAPISOPAIR", kShort, 0).from(0, 2), kDrawing, &snapIsoPair, &setSnapIsoPair),
    elsewhere(toggle("SNAPMODE", 0),          kDrawing, &snapMode, &setSnapMode),
    elsewhere(toggle("SNAPSTYL", 0),          kDrawing, &snapStyle, &setSnapStyle),
    toggle("SNAPTYPE", 0),
    elsewhere(point("SNAPUNIT", kPoint2, 0.5, 0.5).positive(), kDrawing, &snapUnit, &setSnapUnit),
    elsewhere(toggle("GRIDMODE", 0),          kDrawing, &gridMode, &setGridMode),
    elsewhere(point("GRIDUNIT", kPoint2, 0.5, 0.5).notNegative(), kDrawing, &gridUnit, &setGridUnit),
    number("POLARDIST", kReal, 0).notNegative(),
    number("POLARANG", kReal, 90),
    string("POLARADDANG").checked(&checkAngles),
    number("POLARMODE", kShort, 0).from(0, 15),

    // Units and limits
    number("ANGBASE", kReal, 0).header(50),
    toggle("ANGDIR", 0).header(70),
    number("AUNITS", kShort, 0).from(0, 4).header(70),
    number("AUPREC", kShort, 2).from(0, 8).header(70),
    number("LUNITS", kShort, 2).from(1, 5).header(70),
    number("LUPREC", kShort, 4).from(0, 8).header(70),
    toggle("UNITMODE", 0).header(70),
    number("INSUNITS", kShort, 0).from(0, 24).header(70),
    toggle("MEASUREMENT", 1).header(70),
    point("INSBASE", kPoint3).header(10),
    point("PINSBASE", kPoint3).header(10),
    point("LIMMIN", kPoint2).header(10),
    point("LIMMAX", kPoint2, 420, 297).header(10),

    // How the drawing looks
    number("LTSCALE", kReal, 1).positive().header(40),
    toggle("PSLTSCALE", 1).header(70),
    number("PSVPSCALE", kReal, 0).notNegative().header(40),
    toggle("LWDISPLAY", 0).header(290),
    toggle("FILLMODE", 1).header(70),
    toggle("QTEXTMODE", 0).header(70),
    number("ATTMODE", kShort, 1).from(0, 2).header(70),
    number("PDMODE", kShort, 0).from(0, 100).checked(&checkPointShape).header(70),
    number("PDSIZE", kReal, 0).header(40),
    toggle("SPLFRAME", 0).header(70),
    toggle("DISPSILH", 0).header(70),
    number("MAXACTVP", kShort, 64).from(2, 64).header(70),
    number("SHADEDGE", kShort, 3).from(0, 3).header(70),
    number("SHADEDIF", kShort, 70).from(0, 100).header(70),
    toggle("TEXTFILL", 1),
    toggle("WORLDVIEW", 1).header(70),
    toggle("TILEMODE", 1).header(70),
    number("NAVVCUBEDISPLAY", kShort, 3).from(0, 3).document(),

    // The drawing
    computed(string("CTAB", L"Model"),        kDrawing, &currentLayout),
    computed(string("HANDSEED"),              kDrawing, &nextHandle),
    computed(point("EXTMIN", kPoint3),        kDrawing, &extentsMin),
    computed(point("EXTMAX", kPoint3),        kDrawing, &extentsMax),
    computed(point("UCSORG", kPoint3),        kDrawing, &ucsOrigin),
    computed(point("UCSXDIR", kPoint3, 1, 0), kDrawing, &ucsXAxis),
    computed(point("UCSYDIR", kPoint3, 0, 1), kDrawing, &ucsYAxis),
    computed(string("UCSNAME"),               kDrawing, &ucsName),
    computed(toggle("WORLDUCS", 1),           kDrawing, &isWorldUcs),
    number("UCSAXISANG", kReal, 90).from(-360, 360),
    string("DWGCODEPAGE").header(3).readOnly(),
    string("PROJECTNAME").header(1),
    string("HYPERLINKBASE").header(1),
    string("STYLESHEET").header(1),
    number("TDCREATE", kReal, 0).header(40).readOnly(),
    number("TDUPDATE", kReal, 0).header(40).readOnly(),
    number("TDINDWG", kReal, 0).header(40).readOnly(),

    // View
    computed(point("VIEWCTR", kPoint3),       kDrawing, &viewCenter),
    computed(number("VIEWSIZE", kReal, 1),    kDrawing, &viewHeight),
    computed(point("VIEWDIR", kPoint3),       kDrawing, &viewDirection),
    computed(point("TARGET", kPoint3),        kDrawing, &viewTarget),
    computed(number("VIEWTWIST", kReal, 0),   kDrawing, &viewTwist),

    // Main window
    number("WNDLMAIN", kShort, 0).from(0, 2),
    point("WNDSMAIN", kPoint2, 1024, 768).positive(),
    point("WNDPMAIN", kPoint2, 20, 20),
    toggle("WNDLSTAT", 1),
    toggle("WNDLSCRL", 0),

    // For anybody's own use
    number("USERI1", kShort, 0).header(70),
    number("USERI2", kShort, 0).header(70),
    number("USERI3", kShort, 0).header(70),
    number("USERI4", kShort, 0).header(70),
    number("USERI5", kShort, 0).header(70),
    number("USERR1", kReal, 0).header(40),
    number("USERR2", kReal, 0).header(40),
    number("USERR3", kReal, 0).header(40),
    number("USERR4", kReal, 0).header(40),
    number("USERR5", kReal, 0).header(40),
    string("USERS1"),
    string("USERS2"),
    string("USERS3"),
    string("USERS4"),
    string("USERS5"),
};
// clang-format on

} // namespace

std::span<SysVarRow const> sysVarTable()
{
    return kTable;
}

} // namespace ca
