#include "host/app/commands/entity_thickness.h"

#include "host/db/entities/od_db_2d_polyline.h"
#include "host/db/entities/od_db_circular_entity.h"
#include "host/db/entities/od_db_filled_quad.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"

namespace ca {

namespace {

/// Runs the function on the entity as the one of the classes that it is; false when it is none of them.
template <class... Classes>
struct AnyOf
{
    template <class Entity, class Function>
    static bool visit(Entity& entity, Function const& function)
    {
        return (visitAs<Classes>(entity, function) || ...);
    }

private:
    template <class T, class Entity, class Function>
    static bool visitAs(Entity& entity, Function const& function)
    {
        auto* const object = odCast<T>(&entity);
        if (object)
            function(*object);
        return object != nullptr;
    }
};

using ThickEntity =
    AnyOf<OdDbLine, OdDbPoint, OdDbCircularEntity, OdDbPolyline, OdDb2dPolyline, OdDbText, OdDbFilledQuad>;

} // namespace

std::optional<double> thicknessOf(OdDbEntity const& entity)
{
    std::optional<double> thickness;
    ThickEntity::visit(entity, [&thickness](auto const& object) { thickness = object.thickness(); });
    return thickness;
}

void setThicknessOf(OdDbEntity& entity, double thickness)
{
    ThickEntity::visit(entity, [thickness](auto& object) { object.setThickness(thickness); });
}

} // namespace ca
