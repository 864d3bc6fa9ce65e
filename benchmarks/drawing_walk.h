#pragma once

#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_circular_entity.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

/// A coordinate of an entity, as a program would ask for it that needs the geometry; 0 for classes without one.
inline double placeOf(OdDbEntity const& entity)
{
    if (auto const* const line = odCast<OdDbLine>(&entity))
        return line->startPoint().x;
    if (auto const* const circular = odCast<OdDbCircularEntity>(&entity))
        return circular->center().x;
    if (auto const* const text = odCast<OdDbText>(&entity))
        return text->position().x;
    if (auto const* const polyline = odCast<OdDbPolyline>(&entity))
        return polyline->numVerts() > 0 ? polyline->getPointAt(0).x : 0;
    if (auto const* const curve = odCast<OdDbCurve>(&entity)) {
        OdGePoint3d start;
        return curve->getStartPoint(start) == eOk ? start.x : 0;
    }
    if (auto const* const point = odCast<OdDbPoint>(&entity))
        return point->position().x;
    if (auto const* const reference = odCast<OdDbBlockReference>(&entity))
        return reference->position().x;
    return 0;
}

/// Walks over model space and adds up a coordinate of every entity.
inline double sumOfPlaces(OdDbDatabase const& database)
{
    double sum = 0;
    auto const space = database.getModelSpaceId().open<OdDbBlockTableRecord>();
    for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
        sum += placeOf(*it.entity());
    return sum;
}
