#include "host/dxf/older/dxf_lower_dim_variables.h"

#include "host/db/records/od_db_dim_variable.h"
#include "host/dxf/older/dxf_old_dimensions.h"

#include <algorithm>

namespace dxf {

namespace {

using enum ERelease;

constexpr int kUnit = 277;
constexpr int kFraction = 276;
constexpr int kFit = 289;
constexpr int kMove = 279;
constexpr int kFill = 69;
constexpr int kFillColor = 70; // behind kFill; else the flags of the record

struct LateVariables
{
    std::int16_t firstCode;
    std::int16_t lastCode;
    ERelease first;
};

/// Codes that came later than R12; the others are as old as styles.
// clang-format off
constexpr LateVariables s_late[] = {
    { 49,  50, kR2007}, { 69,  69, kR2007}, { 79,  79, kR2000}, { 90,  90, kR2007}, {148, 148, kR2000},
    {179, 179, kR2000}, {270, 275, kR13},   {276, 279, kR2000}, {280, 288, kR13},   {289, 289, kR2000},
    {290, 290, kR2007}, {294, 295, kR2010}, {340, 340, kR13},   {341, 344, kR2000}, {345, 347, kR2007},
    {371, 372, kR2000},
};
// clang-format on

ERelease releaseOfCode(int code)
{
    for (LateVariables const& late : s_late)
        if (late.firstCode <= code && code <= late.lastCode)
            return late.first;
    return kR12;
}

/// What releases before R2000 say with one number and today's say with two: their variables here.
bool isJoined(int code)
{
    return code == kUnit || code == kFraction || code == kFit || code == kMove || code == kOldDimUnitCode ||
           code == kOldDimFitCode;
}

std::vector<OdDbTag> joined(TagSpan variables)
{
    std::vector<OdDbTag> result;
    if (findTag(variables, kUnit) || findTag(variables, kFraction))
        result.push_back(OdDbTag::ofInteger(
            kOldDimUnitCode, oldDimUnitOf(integerOf(variables, kUnit, 2), integerOf(variables, kFraction))));
    if (findTag(variables, kFit) || findTag(variables, kMove))
        result.push_back(OdDbTag::ofInteger(
            kOldDimFitCode, oldDimFitOf(integerOf(variables, kFit, 3), integerOf(variables, kMove))));
    if (!result.empty())
        return result;
    for (OdDbTag const& tag : variables)
        if (tag.code == kOldDimUnitCode || tag.code == kOldDimFitCode)
            result.push_back(tag);
    return result;
}

OldArrow const* findArrow(OdDbTag const& tag)
{
    std::span<OldArrow const> const arrows = oldArrows();
    auto const it = std::find_if(arrows.begin(), arrows.end(), [&tag](OldArrow const& arrow) {
        return tag.kind == OdDbTagKind::kHandle && arrow.todayCode == tag.code;
    });
    return it == arrows.end() ? nullptr : &*it;
}

} // namespace

std::optional<std::int64_t> drawingUnit(OdDbDatabase const& database, int styleCode)
{
    for (OldUnitSource const& source : oldUnitSources())
        if (source.code == styleCode)
            return database.header().integer(source.variable.substr(1));
    return std::nullopt;
}

std::vector<OdDbTag> LowerDimVariables::ofStyle(TagSpan style, OdDbHandle handle) const
{
    std::vector<OdDbTag> result = ofOverrides(style, "DIMSTYLE", handle);
    if (m_context.target >= kR2000)
        return result;
    // Old styles mention the arrow built in, too; all stand in one place, wherever their references stood.
    std::vector<OdDbTag> arrows;
    for (OldArrow const& arrow : oldArrows()) {
        OdDbTag const* const named = findTag(result, arrow.code);
        arrows.push_back(named ? *named : OdDbTag::ofText(arrow.code, ""));
        std::erase_if(result, [&arrow](OdDbTag const& tag) { return tag.code == arrow.code; });
    }
    result.insert(result.end(), arrows.begin(), arrows.end());
    return result;
}

std::vector<OdDbTag> LowerDimVariables::ofOverrides(TagSpan overrides, std::string_view subject,
                                                    OdDbHandle handle) const
{
    ERelease const target = m_context.target;
    bool const isOld = target < kR2000;
    std::vector<OdDbTag> result;
    result.reserve(overrides.size() + 3);
    bool hasFill = false;
    for (OdDbTag const& tag : overrides) {
        hasFill |= tag.code == kFill;
        ERelease const first = tag.code == kFillColor && hasFill ? kR2007 : releaseOfCode(tag.code);
        if (OldArrow const* const arrow = isOld ? findArrow(tag) : nullptr)
            result.push_back(OdDbTag::ofText(arrow->code, m_names.ofRecord(OdDbTableKind::kBlock, tag.handle())));
        else if (isOld && target >= kR13 && isJoined(tag.code))
            continue;
        else if (first <= target)
            result.push_back(tag);
        else
            note(tag, first, subject, handle);
    }
    if (isOld && target >= kR13)
        for (OdDbTag const& tag : joined(overrides))
            result.push_back(tag);
    return result;
}

void LowerDimVariables::note(OdDbTag const& tag, ERelease first, std::string_view subject, OdDbHandle handle) const
{
    OdDbDimVariable const* const variable = odDbFindDimVariable(tag.code);
    if (!variable)
        return; // a number of R13 whose meaning is in others, too
    bool saysNothing = tag.text.empty();
    if (tag.kind == OdDbTagKind::kReal)
        saysNothing = tag.real == variable->defaultValue;
    else if (tag.kind == OdDbTagKind::kHandle)
        saysNothing = tag.handle().isNull();
    else if (tag.kind == OdDbTagKind::kInteger)
        saysNothing = static_cast<double>(tag.integer) == variable->defaultValue ||
                      (m_context.target == kR12 && drawingUnit(m_context.database, tag.code) == tag.integer);
    if (variable->kind == OdDbDimVariable::kTextStyle) {
        OdString const style = OdString::fromUtf8(m_names.ofRecord(OdDbTableKind::kTextStyle, tag.handle()));
        saysNothing = style.isEmpty() || style.equalsNoCase(L"Standard");
    }
    if (!saysNothing)
        m_context.noteLeftOut(subject, OdString::fromUtf8(variable->name), first, handle);
}

} // namespace dxf
