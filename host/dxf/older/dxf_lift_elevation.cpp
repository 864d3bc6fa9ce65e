#include "host/dxf/older/dxf_lift_elevation.h"

namespace dxf {

namespace {

constexpr int kElevation = 38;
constexpr int kFirstPoint = 10;
constexpr int kLastPoint = 13;

bool isReal(LiftRecord const& record, std::size_t index)
{
    return index != record.size() && record.at(index).kind == OdDbTagKind::kReal;
}

/// Entities that had no z at all while they had an elevation: a z of 0 beside it means nothing.
bool isPlane(std::string_view type)
{
    return type != "LINE" && type != "POINT" && type != "POLYLINE";
}

void liftPoint(LiftRecord& record, int code, double elevation)
{
    std::size_t const y = record.find(code + 10);
    if (!isReal(record, record.find(code)) || !isReal(record, y))
        return;
    OdDbTag const lifted = OdDbTag::ofReal(code + 20, elevation);
    std::size_t const z = record.find(code + 20);
    if (z == record.size())
        record.insert(y + 1, lifted);
    else if (isReal(record, z) && record.at(z).real == 0 && isPlane(record.type()))
        record.replace(z, lifted);
}

} // namespace

void liftElevation(LiftRecord& record, LiftHeader const&)
{
    std::size_t const index = record.find(kElevation);
    if (record.hasMarker() || !isReal(record, index))
        return;
    double const elevation = record.at(index).real;
    record.remove(index);
    if (record.type() == "POLYLINE" && !record.has(kFirstPoint)) {
        record.insert(index, OdDbTag::ofReal(kFirstPoint, 0));
        record.insert(index + 1, OdDbTag::ofReal(kFirstPoint + 10, 0));
    }
    for (int code = kFirstPoint; code <= kLastPoint; ++code)
        liftPoint(record, code, elevation);
}

} // namespace dxf
