// Variables of the header.
#include "testapi/ta_drawing_comparison_fields.h"
#include "testapi/ta_drawing_comparison_teller.h"

namespace ta {

namespace {

/// Variables that saving changes, or that say how the drawing was saved.
constexpr std::string_view s_leftOut[] = {
    "HANDSEED", // the next handle
    "TDCREATE",        "TDUCREATE",    "TDUPDATE",         "TDUUPDATE",
    "TDINDWG",         "TDUSRTIMER",                                      // when it was worked on
    "FINGERPRINTGUID", "VERSIONGUID",  "LASTSAVEDBY",                     // which save it was, and by whom
    "ACADVER",         "ACADMAINTVER", "REQUIREDVERSIONS", "DWGCODEPAGE", // the format of the file
    "CECOLOR",                                                            // compared as the drawing has it
};

/// Variables that name a current record; what counts is which one the drawing has.
struct CurrentRecord
{
    std::string_view name;
    OdDbTableKind kind;
};
constexpr CurrentRecord s_currentRecords[] = {
    {"CLAYER", OdDbTableKind::kLayer},
    {"CELTYPE", OdDbTableKind::kLinetype},
    {"TEXTSTYLE", OdDbTableKind::kTextStyle},
    {"DIMSTYLE", OdDbTableKind::kDimStyle},
};

bool isLeftOut(std::string_view name)
{
    return std::ranges::find(s_leftOut, name) != std::end(s_leftOut) ||
           std::ranges::find(s_currentRecords, name, &CurrentRecord::name) != std::end(s_currentRecords);
}

void takeValues(OdDbTagList const& tags, TagBuffer& buffer)
{
    constexpr int kComment = 999;
    buffer.clear();
    for (OdDbTag const tag : tags)
        if (tag.code != kComment)
            buffer.put(tag);
}

OdString textOf(TagBuffer const& values, OdDbDatabase const& database)
{
    OdString text;
    for (std::size_t i = 0; i < values.size(); ++i) {
        OdDbTag const tag = values[i];
        text += (i > 0 ? L", " : L"") + TagComparison::textOf(&tag, database);
    }
    return values.size() > 1 ? L"(" + text + L")" : text;
}

} // namespace

void DrawingComparison::tellHeader()
{
    TagComparison const comparison(*m_bridge, m_options.eps);
    TagBuffer values1, values2;
    auto const tellOnlyIn = [this](DrawingDifference::EKind kind, std::string_view name) {
        DrawingDifference difference;
        difference.kind = kind;
        difference.place = L"header";
        difference.name = OdString::fromUtf8(name);
        tell(difference);
    };
    for (OdDbHeader::Variable const& variable : m_first.header().variables()) {
        if (isLeftOut(variable.name))
            continue;
        OdDbHeader::Variable const* const other = m_second.header().find(variable.name);
        if (!other) {
            tellOnlyIn(DrawingDifference::EKind::kOnlyInFirst, variable.name);
            continue;
        }
        takeValues(variable.tags, values1);
        takeValues(other->tags, values2);
        if (!comparison.agree(values1, values2))
            tellVariable(variable.name, textOf(values1, m_first), textOf(values2, m_second));
    }
    for (OdDbHeader::Variable const& variable : m_second.header().variables())
        if (!isLeftOut(variable.name) && !m_first.header().find(variable.name))
            tellOnlyIn(DrawingDifference::EKind::kOnlyInSecond, variable.name);
    for (CurrentRecord const& current : s_currentRecords) {
        OdDbObjectId const id1 = m_first.current(current.kind), id2 = m_second.current(current.kind);
        if (!m_bridge->same(id1, id2))
            tellVariable(current.name, Comparison::textOf(id1), Comparison::textOf(id2));
    }
    if (m_first.getCECOLOR() != m_second.getCECOLOR())
        tellVariable("CECOLOR", Comparison::textOf(m_first.getCECOLOR()),
                     Comparison::textOf(m_second.getCECOLOR()));
}

void DrawingComparison::tellVariable(std::string_view name, OdString const& value1, OdString const& value2)
{
    DrawingDifference difference;
    difference.place = L"header";
    difference.name = OdString::fromUtf8(name);
    difference.isFileField = true;
    difference.property = {.expression = nullptr,
                           .message = L"Incorrect value",
                           .expected = value2,
                           .actual = value1,
                           .part = {},
                           .place = {"testapi/ta_drawing_comparison", __LINE__}};
    tell(difference);
}

} // namespace ta
