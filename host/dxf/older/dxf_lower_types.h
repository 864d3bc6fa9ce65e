#pragma once

#include "host/dxf/dxf_release.h"

#include <cstdint>
#include <string_view>

namespace dxf {

/// What stands in for an entity in releases before its own.
enum class EReplacement : std::uint8_t
{
    kNone,
    kLightPolyline, ///< POLYLINE with its vertices
    kEllipse,       ///< POLYLINE of sufficient points, as splines and leaders
    kSpline,
    kHelix, ///< SPLINE where the release has it, else as kSpline
    kLeader,
    kParagraphs, ///< one TEXT for each line
    kRay,        ///< LINE that reaches past the drawing
    kXLine,
    kBlock ///< INSERT of the block that shows it
};

/// A type of records: entities, objects, symbol tables and their records, sections.
struct RecordType
{
    std::string_view name;
    ERelease first; ///< the release that brought it
    EReplacement replacement = EReplacement::kNone;
    bool isTold = true; ///< false: nobody misses it
};

/// Null for an unknown type.
RecordType const* findEntityType(std::string_view name);
RecordType const* findObjectType(std::string_view name);
RecordType const* findSectionType(std::string_view name);

} // namespace dxf
