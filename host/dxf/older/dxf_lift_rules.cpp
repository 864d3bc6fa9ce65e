#include "host/dxf/older/dxf_lift_rules.h"

#include "host/db/records/od_db_table_kinds.h"
#include "host/dxf/older/dxf_lift_dimension_style.h"
#include "host/dxf/older/dxf_lift_elevation.h"
#include "host/dxf/older/dxf_lift_viewport.h"

#include <algorithm>

namespace dxf {

namespace {

/// Blocks whose names begin with "*" could not stand in files of R12.
struct SpaceName
{
    std::string_view old;
    std::string_view today;
};

constexpr SpaceName s_spaceNames[] = {
    {"$MODEL_SPACE", "*Model_Space"},
    {"$PAPER_SPACE", "*Paper_Space"},
};

bool equalsNoCase(std::string_view a, std::string_view b)
{
    auto const upper = [](char ch) { return ch >= 'a' && ch <= 'z' ? static_cast<char>(ch - 'a' + 'A') : ch; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [upper](char left, char right) { return upper(left) == upper(right); });
}

void liftSpaceNames(LiftRecord& record, LiftHeader const&)
{
    for (int const code : {2, 3}) {
        std::size_t const index = record.find(code);
        if (index == record.size())
            continue;
        for (SpaceName const& name : s_spaceNames)
            if (equalsNoCase(record.at(index).text, name.old))
                record.replace(index, OdDbTag::ofText(code, name.today));
    }
}

/// 3DLINE is what a LINE out of the plane was called once.
void lift3dLine(LiftRecord& record, LiftHeader const&)
{
    record.setType("LINE");
}

struct Rule
{
    std::string_view type;
    ERelease last; ///< release that still has the old form
    void (*lift)(LiftRecord& record, LiftHeader const& header);
};

constexpr Rule s_rules[] = {
    {"VIEWPORT", ERelease::kR14, &liftViewport}, {"DIMSTYLE", ERelease::kR14, &liftDimensionStyle},
    {"BLOCK", ERelease::kR12, &liftSpaceNames},  {"INSERT", ERelease::kR12, &liftSpaceNames},
    {"INSERT", ERelease::kR12, &liftElevation},  {"LINE", ERelease::kR12, &liftElevation},
    {"POINT", ERelease::kR12, &liftElevation},   {"CIRCLE", ERelease::kR12, &liftElevation},
    {"ARC", ERelease::kR12, &liftElevation},     {"SOLID", ERelease::kR12, &liftElevation},
    {"TRACE", ERelease::kR12, &liftElevation},   {"TEXT", ERelease::kR12, &liftElevation},
    {"SHAPE", ERelease::kR12, &liftElevation},   {"ATTRIB", ERelease::kR12, &liftElevation},
    {"ATTDEF", ERelease::kR12, &liftElevation},  {"POLYLINE", ERelease::kR12, &liftElevation},
    {"3DLINE", ERelease::kR12, &lift3dLine},
};

} // namespace

LiftRules::LiftRules(ERelease release, LiftHeader const& header) : m_header(header)
{
    for (OldForm const& form : oldForms())
        m_kinds.try_emplace(form.type, Kind{&form, {}});
    for (Rule const& rule : s_rules)
        if (release <= rule.last)
            m_kinds[rule.type].lifts.push_back(rule.lift);
}

LiftRules::EWish LiftRules::wishOf(std::string_view type, bool isInTable)
{
    auto const it = m_kinds.find(type);
    bool const isTableRecord = type == "TABLE" || odDbFindTableKind(type);
    m_kind = it == m_kinds.end() || isTableRecord != isInTable ? nullptr : &it->second;
    return !m_kind ? EWish::kNothing : m_kind->lifts.empty() ? EWish::kUnlessMarked : EWish::kWhole;
}

void LiftRules::lift(LiftRecord& record)
{
    for (Lift const change : m_kind->lifts)
        change(record, m_header);
    if (m_kind->form->type == "POLYLINE")
        m_polylineFlags = record.integer(70);
    if (isToBeSorted(record))
        record.sortBelow(formOf(record));
}

/// Heads of tables that nobody knows stay as they are.
bool LiftRules::isToBeSorted(LiftRecord const& record) const
{
    if (record.hasMarker() || m_kind->form->type != "TABLE")
        return !record.hasMarker();
    std::size_t const name = record.find(2);
    return name != record.size() && findOldForm(record.at(name).text);
}

OldForm const& LiftRules::formOf(LiftRecord const& record) const
{
    constexpr int kFlags = 70, kRows = 71;
    OldForm const& plain = *m_kind->form;
    if (plain.type == "VERTEX")
        return oldVertexForm(record.integer(kFlags), m_polylineFlags);
    if (plain.type == "POLYLINE")
        return oldPolylineForm(m_polylineFlags);
    if (plain.type == "DIMENSION")
        return oldDimensionForm(record.integer(kFlags));
    bool const isGrid = plain.type == "INSERT" && (record.integer(kFlags) > 1 || record.integer(kRows) > 1);
    return isGrid ? oldGridInsertForm() : plain;
}

} // namespace dxf
