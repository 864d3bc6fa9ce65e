#include "host/db/template/od_db_template_header.h"

#include "host/db/od_db_header.h"
#include "host/db/records/od_db_dim_style_table_record.h"
#include "host/db/template/od_db_template_dim_style.h"

namespace {

struct Row
{
    enum EKind
    {
        kReal,
        kInteger,
        kText,
        kPoint2,
        kPoint3
    };

    std::string_view name;
    std::int16_t code;
    EKind kind;
    double values[3];
    std::string_view text;
};

constexpr Row real(std::string_view name, double value)
{
    return {name, 40, Row::kReal, {value, 0, 0}, {}};
}

constexpr Row angle(std::string_view name, double degrees)
{
    return {name, 50, Row::kReal, {degrees, 0, 0}, {}};
}

constexpr Row integer(std::string_view name, std::int16_t code, int value)
{
    return {name, code, Row::kInteger, {static_cast<double>(value), 0, 0}, {}};
}

constexpr Row text(std::string_view name, std::int16_t code, std::string_view value = {})
{
    return {name, code, Row::kText, {}, value};
}

constexpr Row point2(std::string_view name, double x, double y)
{
    return {name, 10, Row::kPoint2, {x, y, 0}, {}};
}

constexpr Row point3(std::string_view name, double x, double y, double z)
{
    return {name, 10, Row::kPoint3, {x, y, z}, {}};
}

constexpr double kNowhere = 1e20; // extents of nothing

// clang-format off
constexpr Row kBeforeDimensions[] = {
    point3 ("INSBASE", 0, 0, 0),
    point3 ("EXTMIN", kNowhere, kNowhere, kNowhere),
    point3 ("EXTMAX", -kNowhere, -kNowhere, -kNowhere),
    point2 ("LIMMIN", 0, 0),
    point2 ("LIMMAX", 420, 297),
    integer("ORTHOMODE", 70, 0),
    integer("REGENMODE", 70, 1),
    integer("FILLMODE", 70, 1),
    integer("QTEXTMODE", 70, 0),
    integer("MIRRTEXT", 70, 0),
    real   ("LTSCALE", 1),
    integer("ATTMODE", 70, 1),
    real   ("TEXTSIZE", 2.5),
    real   ("TRACEWID", 1),
    text   ("TEXTSTYLE", 7, "Standard"),
    text   ("CLAYER", 8, "0"),
    text   ("CELTYPE", 6, "ByLayer"),
    integer("CECOLOR", 62, 256),
    real   ("CELTSCALE", 1),
    integer("DISPSILH", 70, 0),
    integer("DIMASO", 70, 1),
    integer("DIMSHO", 70, 1),
    text   ("DIMSTYLE", 2, "Standard"),
};

constexpr Row kAfterDimensions[] = {
    integer("LUNITS", 70, 2),
    integer("LUPREC", 70, 4),
    real   ("SKETCHINC", 1),
    real   ("FILLETRAD", 0),
    integer("AUNITS", 70, 0),
    integer("AUPREC", 70, 2),
    text   ("MENU", 1, "."),
    real   ("ELEVATION", 0),
    real   ("PELEVATION", 0),
    real   ("THICKNESS", 0),
    integer("LIMCHECK", 70, 0),
    real   ("CHAMFERA", 0),
    real   ("CHAMFERB", 0),
    real   ("CHAMFERC", 0),
    real   ("CHAMFERD", 0),
    integer("SKPOLY", 70, 0),
    integer("USRTIMER", 70, 1),
    angle  ("ANGBASE", 0),
    integer("ANGDIR", 70, 0),
    integer("PDMODE", 70, 0),
    real   ("PDSIZE", 0),
    real   ("PLINEWID", 0),
    integer("SPLFRAME", 70, 0),
    integer("SPLINETYPE", 70, 6),
    integer("SPLINESEGS", 70, 8),
    integer("SURFTAB1", 70, 6),
    integer("SURFTAB2", 70, 6),
    integer("SURFTYPE", 70, 6),
    integer("SURFU", 70, 6),
    integer("SURFV", 70, 6),
    text   ("UCSBASE", 2),
    text   ("UCSNAME", 2),
    point3 ("UCSORG", 0, 0, 0),
    point3 ("UCSXDIR", 1, 0, 0),
    point3 ("UCSYDIR", 0, 1, 0),
    text   ("UCSORTHOREF", 2),
    integer("UCSORTHOVIEW", 70, 0),
    point3 ("UCSORGTOP", 0, 0, 0),
    point3 ("UCSORGBOTTOM", 0, 0, 0),
    point3 ("UCSORGLEFT", 0, 0, 0),
    point3 ("UCSORGRIGHT", 0, 0, 0),
    point3 ("UCSORGFRONT", 0, 0, 0),
    point3 ("UCSORGBACK", 0, 0, 0),
    text   ("PUCSBASE", 2),
    text   ("PUCSNAME", 2),
    point3 ("PUCSORG", 0, 0, 0),
    point3 ("PUCSXDIR", 1, 0, 0),
    point3 ("PUCSYDIR", 0, 1, 0),
    text   ("PUCSORTHOREF", 2),
    integer("PUCSORTHOVIEW", 70, 0),
    point3 ("PUCSORGTOP", 0, 0, 0),
    point3 ("PUCSORGBOTTOM", 0, 0, 0),
    point3 ("PUCSORGLEFT", 0, 0, 0),
    point3 ("PUCSORGRIGHT", 0, 0, 0),
    point3 ("PUCSORGFRONT", 0, 0, 0),
    point3 ("PUCSORGBACK", 0, 0, 0),
    integer("USERI1", 70, 0),
    integer("USERI2", 70, 0),
    integer("USERI3", 70, 0),
    integer("USERI4", 70, 0),
    integer("USERI5", 70, 0),
    real   ("USERR1", 0),
    real   ("USERR2", 0),
    real   ("USERR3", 0),
    real   ("USERR4", 0),
    real   ("USERR5", 0),
    integer("WORLDVIEW", 70, 1),
    integer("SHADEDGE", 70, 3),
    integer("SHADEDIF", 70, 70),
    integer("TILEMODE", 70, 1),
    integer("MAXACTVP", 70, 64),
    point3 ("PINSBASE", 0, 0, 0),
    integer("PLIMCHECK", 70, 0),
    point3 ("PEXTMIN", kNowhere, kNowhere, kNowhere),
    point3 ("PEXTMAX", -kNowhere, -kNowhere, -kNowhere),
    point2 ("PLIMMIN", 0, 0),
    point2 ("PLIMMAX", 420, 297),
    integer("UNITMODE", 70, 0),
    integer("VISRETAIN", 70, 1),
    integer("PLINEGEN", 70, 0),
    integer("PSLTSCALE", 70, 1),
    integer("TREEDEPTH", 70, 3020),
    text   ("CMLSTYLE", 2, "Standard"),
    integer("CMLJUST", 70, 0),
    real   ("CMLSCALE", 20),
    integer("PROXYGRAPHICS", 70, 1),
    integer("MEASUREMENT", 70, 1),
    integer("CELWEIGHT", 370, -1),
    integer("ENDCAPS", 280, 0),
    integer("JOINSTYLE", 280, 0),
    integer("LWDISPLAY", 290, 0),
    integer("INSUNITS", 70, 0),
    text   ("HYPERLINKBASE", 1),
    text   ("STYLESHEET", 1),
    integer("XEDIT", 290, 1),
    integer("CEPSNTYPE", 380, 0),
    integer("PSTYLEMODE", 290, 1),
    integer("EXTNAMES", 290, 1),
    real   ("PSVPSCALE", 0),
    integer("OLESTARTUP", 290, 0),
    integer("SORTENTS", 280, 127),
    integer("INDEXCTL", 280, 0),
    integer("HIDETEXT", 280, 1),
    integer("XCLIPFRAME", 280, 2),
    integer("HALOGAP", 280, 0),
    integer("OBSCOLOR", 70, 257),
    integer("OBSLTYPE", 280, 0),
    integer("INTERSECTIONDISPLAY", 280, 0),
    integer("INTERSECTIONCOLOR", 70, 257),
    integer("DIMASSOC", 280, 2),
    text   ("PROJECTNAME", 1),
    integer("CAMERADISPLAY", 290, 0),
    real   ("LENSLENGTH", 50),
    real   ("CAMERAHEIGHT", 0),
    real   ("STEPSPERSEC", 2),
    real   ("STEPSIZE", 6),
    real   ("3DDWFPREC", 2),
    real   ("PSOLWIDTH", 0.25),
    real   ("PSOLHEIGHT", 4),
    real   ("LOFTANG1", 1.5707963267948966),
    real   ("LOFTANG2", 1.5707963267948966),
    real   ("LOFTMAG1", 0),
    real   ("LOFTMAG2", 0),
    integer("LOFTPARAM", 70, 7),
    integer("LOFTNORMALS", 280, 1),
    real   ("LATITUDE", 0),
    real   ("LONGITUDE", 0),
    real   ("NORTHDIRECTION", 0),
    integer("TIMEZONE", 70, 0),
    integer("LIGHTGLYPHDISPLAY", 280, 1),
    integer("TILEMODELIGHTSYNCH", 280, 1),
    integer("SOLIDHIST", 280, 0),
    integer("SHOWHIST", 280, 1),
    integer("DWFFRAME", 280, 2),
    integer("DGNFRAME", 280, 0),
    integer("REALWORLDSCALE", 290, 1),
    integer("INTERFERECOLOR", 62, 1),
    integer("CSHADOW", 280, 0),
    real   ("SHADOWPLANELOCATION", 0),
};
// clang-format on

OdDbTagList tagsOf(Row const& row)
{
    OdDbTagList tags;
    switch (row.kind) {
    case Row::kReal: tags.real(row.code, row.values[0]); break;
    case Row::kInteger: tags.integer(row.code, static_cast<std::int64_t>(row.values[0])); break;
    case Row::kText: tags.text(row.code, row.text); break;
    case Row::kPoint2: tags.point(row.code, row.values, 2); break;
    case Row::kPoint3: tags.point(row.code, row.values, 3); break;
    }
    return tags;
}

/// A dimension variable as headers have it: other codes than in styles, angles in radians, references by name.
OdDbTagList tagsOf(OdDbDimVariable const& variable, OdDbDimStyleTableRecord const& style)
{
    OdDbTagList tags;
    switch (variable.kind) {
    case OdDbDimVariable::kReal:
    case OdDbDimVariable::kAngle: tags.real(40, style.real(variable.name)); break;
    case OdDbDimVariable::kInteger: tags.integer(70, style.integer(variable.name)); break;
    case OdDbDimVariable::kText:
    case OdDbDimVariable::kBlock: tags.text(1, std::string_view()); break;
    case OdDbDimVariable::kTextStyle: tags.text(7, std::string_view("Standard")); break;
    case OdDbDimVariable::kLinetype: tags.text(6, std::string_view()); break;
    }
    return tags;
}

OdDbHeader build()
{
    OdDbHeader header;
    for (Row const& row : kBeforeDimensions)
        header.set(row.name, tagsOf(row));
    for (OdDbDimVariable const& variable : odDbDimVariables())
        header.set(variable.name, tagsOf(variable, odDbTemplateDimStyle()));
    for (Row const& row : kAfterDimensions)
        header.set(row.name, tagsOf(row));
    return header;
}

} // namespace

OdDbHeader const& odDbTemplateHeader()
{
    static OdDbHeader const s_header = build();
    return s_header;
}
