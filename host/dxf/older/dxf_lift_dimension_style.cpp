#include "host/dxf/older/dxf_lift_dimension_style.h"

#include "host/db/records/od_db_dim_variable.h"
#include "host/dxf/older/dxf_old_dimensions.h"

#include <charconv>
#include <string>

namespace dxf {

namespace {

/// Group 5 is a handle elsewhere: names of hexadecimal digits alone come as such.
std::string nameOf(OdDbTag const& tag)
{
    if (tag.kind != OdDbTagKind::kHandle || !tag.text.empty())
        return std::string(tag.text);
    return tag.handle().ascii().toUtf8();
}

void liftArrow(LiftRecord& record, OldArrow const& arrow)
{
    std::size_t const index = record.find(arrow.code);
    if (index == record.size())
        return;
    std::string const name = nameOf(record.at(index));
    if (name.empty())
        record.remove(index); // the arrow built in, which today is not mentioned
    else
        record.replace(index, OdDbTag::ofText(arrow.todayCode, name));
}

/// Adds an integer variable unless the style has it.
void addVariable(LiftRecord& record, std::size_t index, int code, std::int64_t value)
{
    if (!record.has(code))
        record.insert(index, OdDbTag::ofInteger(code, value));
}

void addNamed(LiftRecord& record, std::size_t index, std::string_view name, std::int64_t value)
{
    addVariable(record, index, odDbFindDimVariable(name)->code, value);
}

} // namespace

void liftDimensionStyle(LiftRecord& record, LiftHeader const& header)
{
    for (OldArrow const& arrow : oldArrows())
        liftArrow(record, arrow);
    if (std::size_t const at = record.find(kOldDimUnitCode); at != record.size()) {
        if (OldDimUnit const* const unit = findOldDimUnit(record.integer(kOldDimUnitCode))) {
            addNamed(record, at + 1, "DIMLUNIT", unit->linearUnit);
            addNamed(record, at + 1, "DIMFRAC", unit->fraction);
        }
    }
    if (std::size_t const at = record.find(kOldDimFitCode); at != record.size()) {
        if (OldDimFit const* const fit = findOldDimFit(record.integer(kOldDimFitCode))) {
            addNamed(record, at + 1, "DIMATFIT", fit->arrowTextFit);
            addNamed(record, at + 1, "DIMTMOVE", fit->textMove);
        }
    }
    if (record.hasMarker())
        return;
    for (OldUnitSource const& source : oldUnitSources())
        if (std::optional<std::int64_t> const given = header.value(source.variable))
            addVariable(record, record.bodyEnd(), source.code, *given);
}

} // namespace dxf
