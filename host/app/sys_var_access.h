#pragma once

#include "host/app/sys_var_table.h"
#include "host/db/filer/od_db_field.h"

/// Values that are kept neither in the header of a drawing nor in a store: they are found out, or live in objects
/// of the drawing. `doc` is null only for variables of the application.
namespace ca::sysVarAccess {

/// @name Application
/// @{
SysVarValue lastPrompt(CaDoc const*);
SysVarValue commandNames(CaDoc const*);
SysVarValue isCommandActive(CaDoc const*);
SysVarValue julianDate(CaDoc const*);
SysVarValue calendarDate(CaDoc const*);
SysVarValue temporaryFolder(CaDoc const*);
/// @}

/// @name Document
/// @{
SysVarValue drawingName(CaDoc const* doc);
SysVarValue drawingFolder(CaDoc const* doc);
SysVarValue hasFileName(CaDoc const* doc);
SysVarValue isModified(CaDoc const* doc);
SysVarValue undoControl(CaDoc const* doc);
SysVarValue undoMarks(CaDoc const* doc);
SysVarValue isWritable(CaDoc const* doc);
SysVarValue lastPoint(CaDoc const* doc);
void setLastPoint(CaDoc* doc, SysVarValue const& value);
SysVarValue lastAngle(CaDoc const* doc);
/// @}

/// @name Drawing
/// @{
SysVarValue nextHandle(CaDoc const* doc);
SysVarValue currentLayout(CaDoc const* doc);
SysVarValue extentsMin(CaDoc const* doc);
SysVarValue extentsMax(CaDoc const* doc);
SysVarValue ucsOrigin(CaDoc const* doc);
SysVarValue ucsXAxis(CaDoc const* doc);
SysVarValue ucsYAxis(CaDoc const* doc);
SysVarValue ucsName(CaDoc const* doc);
SysVarValue isWorldUcs(CaDoc const* doc);
SysVarValue currentColor(CaDoc const* doc);
void setCurrentColor(CaDoc* doc, SysVarValue const& value);
/// Name of the current record of a table.
SysVarValue currentRecord(CaDoc const* doc, OdDbTableKind kind);
void setCurrentRecord(CaDoc* doc, OdDbTableKind kind, OdString const& name);
template <OdDbTableKind Kind>
SysVarValue currentRecord(CaDoc const* doc)
{
    return currentRecord(doc, Kind);
}
template <OdDbTableKind Kind>
void setCurrentRecord(CaDoc* doc, SysVarValue const& value)
{
    setCurrentRecord(doc, Kind, std::get<OdString>(value));
}
/// @}

/// @name Viewport of the screen
/// @{
SysVarValue viewCenter(CaDoc const* doc);
SysVarValue viewHeight(CaDoc const* doc);
SysVarValue viewDirection(CaDoc const* doc);
SysVarValue viewTarget(CaDoc const* doc);
SysVarValue viewTwist(CaDoc const* doc);
SysVarValue snapAngle(CaDoc const* doc);
void setSnapAngle(CaDoc* doc, SysVarValue const& value);
SysVarValue snapBase(CaDoc const* doc);
void setSnapBase(CaDoc* doc, SysVarValue const& value);
SysVarValue snapIsoPair(CaDoc const* doc);
void setSnapIsoPair(CaDoc* doc, SysVarValue const& value);
SysVarValue snapMode(CaDoc const* doc);
void setSnapMode(CaDoc* doc, SysVarValue const& value);
SysVarValue snapStyle(CaDoc const* doc);
void setSnapStyle(CaDoc* doc, SysVarValue const& value);
SysVarValue snapUnit(CaDoc const* doc);
void setSnapUnit(CaDoc* doc, SysVarValue const& value);
SysVarValue gridMode(CaDoc const* doc);
void setGridMode(CaDoc* doc, SysVarValue const& value);
SysVarValue gridUnit(CaDoc const* doc);
void setGridUnit(CaDoc* doc, SysVarValue const& value);
/// @}

} // namespace ca::sysVarAccess
