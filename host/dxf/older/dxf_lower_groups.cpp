#include "host/dxf/older/dxf_lower_groups.h"

#include <algorithm>
#include <iterator>

namespace dxf {

namespace {

using enum ERelease;

constexpr double kNone = -1e300; // no value is the usual one

// clang-format off
constexpr LateGroup s_groups[] = {
    // all entities
    {"", "",  48,  48, kR13,   L"linetype scale", 1},
    {"", "",  60,  60, kR13,   L"visibility"},
    {"", "",  92,  92, kR2000, nullptr},                   // size of the picture that stands in for the entity
    {"", "", 160, 160, kR2010, nullptr},
    {"", "", 310, 310, kR2000, nullptr},
    {"", "", 370, 370, kR2000, L"line weight", -1},
    {"", "", 380, 380, kR2000, nullptr},
    {"", "", 390, 390, kR2000, L"plot style"},
    {"", "", 410, 410, kR2000, nullptr},                   // layout, which the owner says too
    {"", "", 420, 420, kR2004, L"true color", kNone},
    {"", "", 430, 430, kR2004, L"color name", kNone},
    {"", "", 440, 440, kR2004, L"transparency"},
    {"", "", 284, 284, kR2007, L"shadow mode"},
    {"", "", 347, 347, kR2007, L"material"},
    {"", "", 348, 348, kR2007, L"visual style"},

    // tables
    {"LAYER", "", 290, 290, kR2000, L"plot flag", 1},
    {"LAYER", "", 370, 370, kR2000, L"line weight", -3},
    {"LAYER", "", 390, 390, kR2000, nullptr},
    {"LAYER", "", 420, 420, kR2004, L"true color", kNone},
    {"LAYER", "", 430, 430, kR2004, L"color name", kNone},
    {"LAYER", "", 440, 440, kR2004, L"transparency"},
    {"LAYER", "", 347, 348, kR2007, nullptr},
    {"LTYPE", "",  74,  74, kR13, L"shape or text in the line"},
    {"LTYPE", "",  75,  75, kR13, nullptr},
    {"LTYPE", "", 340, 340, kR13, nullptr},
    {"LTYPE", "",  44,  46, kR13, nullptr},
    {"LTYPE", "",  50,  50, kR13, nullptr},
    {"LTYPE", "",   9,   9, kR13, nullptr},
    {"APPID", "",  71,  71, kR2000, nullptr},
    {"UCS", "",  13,  13, kR2000, L"origin for an orthographic view", kNone},
    {"UCS", "",  23,  23, kR2000, nullptr},
    {"UCS", "",  33,  33, kR2000, nullptr},
    {"UCS", "",  71,  71, kR2000, nullptr},
    {"UCS", "",  79,  79, kR2000, nullptr},
    {"UCS", "", 146, 146, kR2000, L"elevation"},
    {"UCS", "", 346, 346, kR2000, nullptr},
    {"VIEW", "",  72,  72, kR2000, L"UCS of the view"},
    {"VIEW", "", 110, 132, kR2000, nullptr},
    {"VIEW", "",  79,  79, kR2000, nullptr},
    {"VIEW", "", 146, 146, kR2000, nullptr},
    {"VIEW", "", 345, 346, kR2000, nullptr},
    {"VIEW", "", 281, 281, kR2000, L"render mode"},
    {"VIEW", "",  73,  73, kR2007, nullptr},
    {"VIEW", "", 332, 334, kR2007, nullptr},
    {"VIEW", "", 348, 348, kR2007, L"visual style"},
    {"VIEW", "", 361, 361, kR2007, nullptr},
    {"VPORT", "",   1,   1, kR2000, nullptr},
    {"VPORT", "",  65,  65, kR2000, nullptr},
    {"VPORT", "",  79,  79, kR2000, nullptr},
    {"VPORT", "", 110, 132, kR2000, nullptr},
    {"VPORT", "", 146, 146, kR2000, nullptr},
    {"VPORT", "", 281, 281, kR2000, L"render mode"},
    {"VPORT", "", 345, 346, kR2000, nullptr},
    {"VPORT", "",  60,  61, kR2007, nullptr},
    {"VPORT", "",  63,  63, kR2007, nullptr},
    {"VPORT", "", 141, 142, kR2007, nullptr},
    {"VPORT", "", 170, 170, kR2007, nullptr},
    {"VPORT", "", 282, 282, kR2007, nullptr},
    {"VPORT", "", 292, 292, kR2007, nullptr},
    {"VPORT", "", 332, 333, kR2007, nullptr},
    {"VPORT", "", 348, 348, kR2007, L"visual style"},
    {"VPORT", "", 361, 361, kR2007, nullptr},
    {"VPORT", "", 421, 421, kR2007, nullptr},
    {"VPORT", "", 431, 431, kR2007, nullptr},
    {"BLOCK_RECORD", "", 310, 310, kR2000, nullptr},       // preview
    {"BLOCK_RECORD", "", 340, 340, kR2000, nullptr},       // layout
    {"BLOCK_RECORD", "",  70,  70, kR2007, L"units"},
    {"BLOCK_RECORD", "", 280, 280, kR2007, L"lock against exploding", 1},
    {"BLOCK_RECORD", "", 281, 281, kR2007, L"uniform scaling"},

    // entities
    {"3DSOLID", "", 350, 350, kR2007, nullptr},            // how the body was made
    {"ATTDEF", "",  280, 280, kR2010, L"lock of the position"},
    {"ATTRIB", "",  280, 280, kR2010, L"lock of the position"},
    {"ATTDEF", "AcDbAttributeDefinition", 71, 72, kR2018, nullptr},
    {"ATTDEF", "AcDbAttributeDefinition", 11, 11, kR2018, nullptr},
    {"ATTDEF", "AcDbAttributeDefinition", 21, 21, kR2018, nullptr},
    {"ATTDEF", "AcDbAttributeDefinition", 31, 31, kR2018, nullptr},
    {"ATTRIB", "AcDbAttribute",           71, 72, kR2018, nullptr},
    {"ATTRIB", "AcDbAttribute",           11, 11, kR2018, nullptr},
    {"ATTRIB", "AcDbAttribute",           21, 21, kR2018, nullptr},
    {"ATTRIB", "AcDbAttribute",           31, 31, kR2018, nullptr},
    {"BLOCK", "", 4, 4, kR2000, L"description", kNone},
    {"DIMENSION", "AcDbDimension", 71, 71, kR2000, nullptr},
    {"DIMENSION", "AcDbDimension", 72, 72, kR2000, nullptr},
    {"DIMENSION", "AcDbDimension", 41, 42, kR2000, nullptr},
    {"DIMENSION", "AcDbDimension", 73, 73, kR2007, nullptr},
    {"DIMENSION", "AcDbDimension", 74, 75, kR2007, L"flipped arrow"},
    {"DIMENSION", "AcDbDimension", 280, 280, kR2010, nullptr},
    {"HATCH", "", 450, 453, kR2004, L"gradient"},
    {"HATCH", "", 460, 463, kR2004, nullptr},
    {"HATCH", "", 470, 470, kR2004, nullptr},
    {"HATCH", "", 421, 421, kR2004, nullptr},
    {"HATCH", "",  63,  63, kR2004, nullptr},
    {"IMAGE", "", 290, 290, kR2010, L"inverted clipping"},
    {"WIPEOUT", "", 290, 290, kR2010, L"inverted clipping"},
    {"LWPOLYLINE", "", 91, 91, kR2010, nullptr},
    {"VERTEX", "", 91, 91, kR2010, nullptr},
    {"MTEXT", "",  73,  73, kR2000, L"line spacing style", 1},
    {"MTEXT", "",  44,  44, kR2000, L"line spacing", 1},
    {"MTEXT", "",  90,  90, kR2004, L"background"},
    {"MTEXT", "",  63,  63, kR2004, nullptr},
    {"MTEXT", "",  45,  45, kR2004, nullptr},
    {"MTEXT", "", 420, 421, kR2004, nullptr},
    {"MTEXT", "", 430, 431, kR2004, nullptr},
    {"MTEXT", "", 441, 441, kR2004, nullptr},
    {"MTEXT", "",  46,  46, kR2007, nullptr},
    {"SHAPE", "", 340, 340, kR13, nullptr},
    {"VIEWPORT", "", 170, 170, kR2004, L"shade plot mode"},
    {"VIEWPORT", "",  61,  61, kR2007, nullptr},
    {"VIEWPORT", "",  63,  63, kR2007, nullptr},
    {"VIEWPORT", "", 141, 142, kR2007, nullptr},
    {"VIEWPORT", "", 282, 282, kR2007, nullptr},
    {"VIEWPORT", "", 292, 292, kR2007, nullptr},
    {"VIEWPORT", "", 332, 333, kR2007, nullptr},
    {"VIEWPORT", "", 348, 348, kR2007, L"visual style"},
    {"VIEWPORT", "", 361, 361, kR2007, nullptr},
    {"VIEWPORT", "", 421, 421, kR2007, nullptr},
    {"VIEWPORT", "", 431, 431, kR2007, nullptr},

    // objects and classes
    {"CLASS", "", 91, 91, kR2004, nullptr},
    {"DICTIONARY", "", 280, 281, kR2000, nullptr},
    {"ACDBDICTIONARYWDFLT", "", 281, 281, kR2000, nullptr},
    {"LAYOUT", "AcDbPlotSettings", 76, 78, kR2004, nullptr},
    {"LAYOUT", "AcDbPlotSettings", 333, 333, kR2007, nullptr},
    {"PLOTSETTINGS", "AcDbPlotSettings", 76, 78, kR2004, nullptr},
    {"PLOTSETTINGS", "AcDbPlotSettings", 333, 333, kR2007, nullptr},
    {"MLINESTYLE", "", 420, 420, kR2004, L"true color", kNone},
    {"MLINESTYLE", "", 430, 430, kR2004, nullptr},
    {"XRECORD", "AcDbXrecord", 280, 280, kR2000, nullptr},
};

constexpr LateSection s_sections[] = {
    {"ATTRIB", "AcDbXrecord",        kR2010, L"text of several lines"},
    {"ATTDEF", "AcDbXrecord",        kR2010, L"text of several lines"},
    {"3DSOLID", "AcDb3dSolid",       kR2007, nullptr},
    {"TABLE",   "AcDbDimStyleTable", kR2000, nullptr},
};
// clang-format on

} // namespace

LateGroups::LateGroups(std::string_view type, ERelease target)
{
    for (LateGroup const& group : s_groups) {
        if (group.type != type || group.first <= target)
            continue;
        m_groups.push_back(&group);
        std::fill(m_mentioned.begin() + group.firstCode, m_mentioned.begin() + group.lastCode + 1, true);
    }
}

LateGroups LateGroups::common(ERelease target)
{
    return LateGroups("", target);
}

LateGroups LateGroups::ofType(std::string_view type, ERelease target)
{
    return LateGroups(type, target);
}

LateGroup const* LateGroups::findMentioned(int code, std::string_view marker) const
{
    auto const it = std::find_if(m_groups.begin(), m_groups.end(), [code, marker](LateGroup const* group) {
        return group->firstCode <= code && code <= group->lastCode &&
               (group->marker.empty() || group->marker == marker);
    });
    return it == m_groups.end() ? nullptr : *it;
}

LateSection const* findLateSection(std::string_view type, std::string_view marker, ERelease target)
{
    auto const it = std::find_if(std::begin(s_sections), std::end(s_sections), [&](LateSection const& section) {
        return section.marker == marker && section.type == type && section.first > target;
    });
    return it == std::end(s_sections) ? nullptr : it;
}

} // namespace dxf
