#pragma once

// For fixtures that offer entities of further classes: the steps that the create functions of ta::TestHelperEx
// share. Authors of tests need ta_test_helper.h alone.

#include "testapi/ta_host.h"

#include <optional>

namespace ta {

/// Which normal a new entity gets: the one that was given, else in a layout the one for layouts, else none, and it
/// keeps the default of its class.
struct NormalRule
{
    OdGeVector3d const* given = nullptr;
    OdGeVector3d const* inLayouts = nullptr;

    /// Of unit length. Throws OdError(eDegenerateGeometry) for a normal that is zero or not finite.
    std::optional<OdGeVector3d> in(OdDbBlockTableRecord const& owner) const;
};

/// A new entity with the color, layer, linetype and so on that are current in the drawing, but not yet in it.
/// Throws OdError(eCreationFailed) for a class that cannot be created, OdError_NotThatKindOfClass where its record
/// creates something else.
template <class Entity>
OdSmartPtr<Entity> newEntity(OdDbDatabase& database)
{
    OdRxObjectPtr const object(Entity::desc()->create());
    OdSmartPtr<Entity> entity(object);
    entity->setDatabaseDefaults(database);
    return entity;
}

/// Appends the entity that `make` gives for the owner, as a smart pointer, and returns its id. Throws OdError for
/// an owner that is no block, before anything is made. Entity and owner are closed afterwards.
template <class Make>
OdDbObjectId appendTo(OdDbObjectId const& ownerId, Make const& make)
{
    auto const owner = ownerId.open<OdDbBlockTableRecord>(OdDb::kForWrite);
    OdDbEntityPtr const entity = make(*owner);
    return owner->appendOdDbEntity(entity);
}

/// A new entity in the owner, with the properties that `setProperties` sets; its exception leaves nothing behind.
template <class Entity, class SetProperties>
OdDbObjectId createEntity(OdDbObjectId const& ownerId, SetProperties const& setProperties)
{
    return appendTo(ownerId, [&](OdDbBlockTableRecord const& owner) {
        auto entity = newEntity<Entity>(*owner.database());
        setProperties(*entity);
        return entity;
    });
}

/// The same for an entity with a normal, which is set before the properties: points of the world are kept in the
/// plane of the normal.
template <class Entity, class SetProperties>
OdDbObjectId createEntity(OdDbObjectId const& ownerId, NormalRule const& rule, SetProperties const& setProperties)
{
    return appendTo(ownerId, [&](OdDbBlockTableRecord const& owner) {
        auto entity = newEntity<Entity>(*owner.database());
        if (auto const normal = rule.in(owner))
            entity->setNormal(*normal);
        setProperties(*entity);
        return entity;
    });
}

} // namespace ta
