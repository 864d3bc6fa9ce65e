#include "host/app/commands/base_point.h"

#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_curve.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_text.h"
#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"

#include <optional>

namespace ca {

namespace {

template <class T>
bool takePosition(OdDbEntity const& entity, OdGePoint3d& point)
{
    auto const* object = odCast<T>(&entity);
    if (object)
        point = object->position();
    return object != nullptr;
}

std::optional<OdGePoint3d> placeOf(OdGeCurve3d const& curve)
{
    OdGePoint3d start;
    switch (curve.type()) {
    case OdGeCurve3d::EType::kCircArc: return static_cast<OdGeCircArc3d const&>(curve).center();
    case OdGeCurve3d::EType::kEllipArc: return static_cast<OdGeEllipArc3d const&>(curve).center();
    case OdGeCurve3d::EType::kLine: return static_cast<OdGeLine3d const&>(curve).pointOnLine();
    default: return curve.hasStartPoint(start) ? std::optional(start) : std::nullopt;
    }
}

} // namespace

OdGePoint3d basePointOf(OdDbEntity const& entity)
{
    OdGePoint3d point;
    if (takePosition<OdDbPoint>(entity, point) || takePosition<OdDbText>(entity, point) ||
        takePosition<OdDbBlockReference>(entity, point))
        return point;
    if (auto const* curveEntity = odCast<OdDbCurve>(&entity)) {
        std::unique_ptr<OdGeCurve3d> const curve = curveEntity->getOdGeCurve();
        std::optional<OdGePoint3d> const place = curve ? placeOf(*curve) : std::nullopt;
        if (place)
            return *place;
    }
    OdGeExtents3d const box = entity.extents();
    return box.isValidExtents() ? box.minPoint() + (box.maxPoint() - box.minPoint()) / 2 : OdGePoint3d();
}

} // namespace ca
