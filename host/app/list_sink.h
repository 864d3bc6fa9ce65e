#pragma once

#include "host/app/unit_format.h"
#include "host/db/od_db_property_sink.h"
#include "host/geom/od_ge_matrix3d.h"

#include <functional>

class OdDbEntity;

namespace ca {

/// Writes properties as lines of text, in the units of a drawing and the user coordinate system.
class ListSink : public OdDbPropertySink
{
public:
    using Writer = std::function<void(OdString const& line)>;

    ListSink(UnitFormat const& format, OdGeMatrix3d const& worldToUcs, Writer write)
        : m_format(format), m_worldToUcs(worldToUcs), m_write(std::move(write))
    {
    }

    void point(wchar_t const* name, OdGePoint3d const& value) override;
    void vector(wchar_t const* name, OdGeVector3d const& value) override;
    void distance(wchar_t const* name, double value) override;
    void area(wchar_t const* name, double value) override;
    void angle(wchar_t const* name, double radians) override;
    void direction(wchar_t const* name, OdGeVector3d const& value) override;
    void direction(wchar_t const* name, double radians, OdGeVector3d const& normal) override;
    void number(wchar_t const* name, double value) override;
    void count(wchar_t const* name, long long value) override;
    void text(wchar_t const* name, OdString const& value) override;
    void flag(wchar_t const* name, bool value) override;
    void reference(wchar_t const* name, OdDbObjectId value) override;
    void part(wchar_t const* name, int number) override;

private:
    void line(OdString const& text) { m_write(m_indent + text); }
    void property(wchar_t const* name, OdString const& value) { line(OdString(name) + L": " + value); }

    UnitFormat m_format;
    OdGeMatrix3d m_worldToUcs;
    Writer m_write;
    OdString m_indent;
};

/// Writes all about an entity: what it is and where it stands, the properties of every entity as far as they are
/// not by layer, and its own.
void listEntity(OdDbEntity const& entity, UnitFormat const& format, OdGeMatrix3d const& worldToUcs,
                ListSink::Writer const& write);

} // namespace ca
