// Variables that live in the viewport of the screen: the view, snap and grid.
#include "host/app/ca_doc.h"
#include "host/app/screen_view.h"
#include "host/app/sys_var_access.h"
#include "host/db/oa_space.h"
#include "host/db/records/od_db_viewport_table_record.h"

namespace ca::sysVarAccess {

namespace {

/// The viewport that is current; the first of those that are shown.
OdDbViewportTableRecordPtr viewport(CaDoc const* doc, OdDb::OpenMode mode = OdDb::kForRead)
{
    return doc->database()->table(OdDbTableKind::kViewport).getAt(L"*Active").open<OdDbViewportTableRecord>(mode);
}

OdDbViewportTableRecordPtr editViewport(CaDoc const* doc)
{
    return viewport(doc, OdDb::kForWrite);
}

OdGeMatrix3d worldToUcs(CaDoc const* doc)
{
    return oa::ucsToWorld(doc->database()).inverse();
}

/// Degrees as they were given: what the way over radians added to the last digits is taken off.
double degrees(double radians)
{
    constexpr double kFineness = 1e10;
    double const exact = radians * (180 / OdaPI);
    double const rounded = std::round(exact * kFineness) / kFineness;
    return std::abs(exact - rounded) < 1e-12 * std::max(1.0, std::abs(exact)) ? rounded : exact;
}

OdGePoint2d asPoint(OdGeVector2d const& vector)
{
    return {vector.x, vector.y};
}

OdGeVector2d asVector(SysVarValue const& value)
{
    auto const& point = std::get<OdGePoint2d>(value);
    return {point.x, point.y};
}

} // namespace

SysVarValue viewCenter(CaDoc const* doc)
{
    ScreenView const view = screenView(*doc->database());
    return worldToUcs(doc) * (view.displayToWorld() * OdGePoint3d(view.center.x, view.center.y, 0));
}

SysVarValue viewHeight(CaDoc const* doc)
{
    return viewport(doc)->height();
}

SysVarValue viewDirection(CaDoc const* doc)
{
    return OdGePoint3d::kOrigin + worldToUcs(doc) * viewport(doc)->viewDirection();
}

SysVarValue viewTarget(CaDoc const* doc)
{
    return worldToUcs(doc) * viewport(doc)->target();
}

SysVarValue viewTwist(CaDoc const* doc)
{
    return degrees(viewport(doc)->viewTwist());
}

SysVarValue snapAngle(CaDoc const* doc)
{
    return degrees(viewport(doc)->snapAngle());
}

void setSnapAngle(CaDoc* doc, SysVarValue const& value)
{
    editViewport(doc)->setSnapAngle(std::get<double>(value) * (OdaPI / 180));
}

SysVarValue snapBase(CaDoc const* doc)
{
    return viewport(doc)->snapBase();
}

void setSnapBase(CaDoc* doc, SysVarValue const& value)
{
    editViewport(doc)->setSnapBase(std::get<OdGePoint2d>(value));
}

SysVarValue snapIsoPair(CaDoc const* doc)
{
    return viewport(doc)->snapPair();
}

void setSnapIsoPair(CaDoc* doc, SysVarValue const& value)
{
    editViewport(doc)->setSnapPair(std::get<int>(value));
}

SysVarValue snapMode(CaDoc const* doc)
{
    return viewport(doc)->snapEnabled() ? 1 : 0;
}

void setSnapMode(CaDoc* doc, SysVarValue const& value)
{
    editViewport(doc)->setSnapEnabled(std::get<int>(value) != 0);
}

SysVarValue snapStyle(CaDoc const* doc)
{
    return viewport(doc)->isometricSnapEnabled() ? 1 : 0;
}

void setSnapStyle(CaDoc* doc, SysVarValue const& value)
{
    editViewport(doc)->setIsometricSnapEnabled(std::get<int>(value) != 0);
}

SysVarValue snapUnit(CaDoc const* doc)
{
    return asPoint(viewport(doc)->snapIncrements());
}

void setSnapUnit(CaDoc* doc, SysVarValue const& value)
{
    editViewport(doc)->setSnapIncrements(asVector(value));
}

SysVarValue gridMode(CaDoc const* doc)
{
    return viewport(doc)->gridEnabled() ? 1 : 0;
}

void setGridMode(CaDoc* doc, SysVarValue const& value)
{
    editViewport(doc)->setGridEnabled(std::get<int>(value) != 0);
}

SysVarValue gridUnit(CaDoc const* doc)
{
    return asPoint(viewport(doc)->gridIncrements());
}

void setGridUnit(CaDoc* doc, SysVarValue const& value)
{
    editViewport(doc)->setGridIncrements(asVector(value));
}

} // namespace ca::sysVarAccess
