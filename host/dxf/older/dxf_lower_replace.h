#pragma once

#include "host/dxf/older/dxf_lower_context.h"
#include "host/dxf/older/dxf_lower_record.h"
#include "host/dxf/older/dxf_lower_types.h"

// Entities that stand in for those that an older release lacks. They are put in the form of the current release,
// the first one with handle, common properties and extended data of the original.

namespace dxf {

/// Handles for records that a drawing does not have.
class NewHandles
{
public:
    explicit NewHandles(OdDbHandle first) : m_next(first.value()) {}
    OdDbHandle take() { return OdDbHandle(m_next++); }
    OdDbHandle next() const { return OdDbHandle(m_next); }

private:
    std::uint64_t m_next;
};

/// Where replacements go.
struct ReplacementTarget
{
    LowerContext const& context;
    NewHandles& handles;
    OdDbTagSink& sink;
};

/// Puts the replacement; false when the entity has nothing that could be shown.
bool putReplacement(EReplacement how, TagSpan record, ReplacementTarget const& target);
/// The type of the records that stand in.
wchar_t const* replacementName(EReplacement how, ERelease release);

/// @name The replacements one by one
/// @{
bool putLightPolyline(TagSpan record, ReplacementTarget const& target);
bool putEllipse(TagSpan record, ReplacementTarget const& target);
bool putSpline(TagSpan record, ReplacementTarget const& target);
bool putLeader(TagSpan record, ReplacementTarget const& target);
bool putParagraphs(TagSpan record, ReplacementTarget const& target);
/// @}

/// @name For replacements
/// @{
/// What the first record has in common with the original: everything up to the section of the class, with a type
/// of its own.
void putHead(TagSpan record, std::string_view type, OdDbTagSink& sink);
/// The same for a further record, under a new handle.
void putFurtherHead(TagSpan record, std::string_view type, OdDbHandle handle, OdDbHandle owner, OdDbTagSink& sink);
void putAll(TagSpan tags, OdDbTagSink& sink);
void putPoint(int code, OdGePoint3d const& point, OdDbTagSink& sink);
void putNormal(OdGeVector3d const& normal, OdDbTagSink& sink);
/// False where coordinates that were computed of those of a file went beyond all numbers.
bool isFinite(OdGePoint3d const& point);
/// The owner that the record names; null when it names none.
OdDbHandle ownerOf(TagSpan record);
/// Group 210, or the Z axis where it is missing or zero.
OdGeVector3d normalOf(TagSpan section);
/// @}

} // namespace dxf
