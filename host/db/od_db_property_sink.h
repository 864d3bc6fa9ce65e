#pragma once

#include "host/db/od_db_object_id.h"
#include "host/geom/od_ge_3d.h"
#include "host/root/od_string.h"

/// Receives what makes up an entity, piece by piece, in the order in which users read it. Names are in plain
/// English, first letter small: "center", "start angle". Values are in world coordinates and radians; the receiver
/// turns them into the coordinates and units of the user.
class OdDbPropertySink
{
public:
    virtual ~OdDbPropertySink() = default;
    virtual void point(wchar_t const* name, OdGePoint3d const& value) = 0;
    /// Directions and offsets: no place.
    virtual void vector(wchar_t const* name, OdGeVector3d const& value) = 0;
    virtual void distance(wchar_t const* name, double value) = 0;
    virtual void area(wchar_t const* name, double value) = 0;
    virtual void angle(wchar_t const* name, double radians) = 0;
    /// @name Where something points, for receivers that show it from the X axis of the user; else an angle
    /// @{
    /// In the XY plane, heights left aside.
    virtual void direction(wchar_t const* name, OdGeVector3d const& value)
    {
        angle(name, value.convert2d().angle());
    }
    /// From the X axis of the plane of a normal.
    virtual void direction(wchar_t const* name, double radians, OdGeVector3d const& /*normal*/)
    {
        angle(name, radians);
    }
    /// @}
    /// A number without unit: a ratio, a bulge.
    virtual void number(wchar_t const* name, double value) = 0;
    virtual void count(wchar_t const* name, long long value) = 0;
    virtual void text(wchar_t const* name, OdString const& value) = 0;
    virtual void flag(wchar_t const* name, bool value) = 0;
    virtual void reference(wchar_t const* name, OdDbObjectId value) = 0;
    /// A part follows, such as a vertex: "vertex", 1.
    virtual void part(wchar_t const* name, int number) = 0;
};
