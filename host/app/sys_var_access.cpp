#include "host/app/sys_var_access.h"

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/ca_ucs_op.h"
#include "host/app/color_text.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_entity.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/db/records/od_db_layout.h"
#include "host/db/records/od_db_symbol_table.h"
#include "host/ut/ut_file_name.h"

#include <chrono>
#include <ctime>

namespace ca::sysVarAccess {

namespace {

struct LocalTime
{
    std::tm parts;
    double secondsOfDay; ///< with fractions
    long offset;         ///< from universal time, in seconds
    std::time_t universal;
};

LocalTime localTime()
{
    auto const now = std::chrono::system_clock::now();
    std::time_t const seconds = std::chrono::system_clock::to_time_t(now);
    std::chrono::duration<double> const fraction = now - std::chrono::system_clock::from_time_t(seconds);
    std::tm parts = {};
    ::localtime_r(&seconds, &parts);
    double const ofDay = parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec + fraction.count();
    return {parts, ofDay, parts.tm_gmtoff, seconds};
}

OdGeExtents3d activeSpaceExtents(CaDoc const* doc)
{
    OdGeExtents3d extents;
    auto const space = oa::getActiveSpace(doc->database()).open<OdDbBlockTableRecord>();
    for (OdDbStub const* const stub : space->entities())
        if (auto const* entity = stub->erased ? nullptr : odCast<OdDbEntity>(stub->object))
            extents.addExt(entity->extents());
    return extents;
}

struct Ucs
{
    explicit Ucs(CaDoc const* doc) { oa::getUCS(doc->database(), origin, xAxis, yAxis, zAxis); }

    OdGePoint3d origin;
    OdGeVector3d xAxis, yAxis, zAxis;
};

OdGePoint3d asPoint(OdGeVector3d const& vector)
{
    return {vector.x, vector.y, vector.z};
}

constexpr wchar_t const* kTrueColorMark = L"RGB:";

OdCmColor colorFromText(OdString const& text)
{
    OdString const mark = kTrueColorMark;
    bool const isTrueColor = text.left(mark.getLength()).equalsNoCase(mark);
    std::optional<OdCmColor> const color =
        isTrueColor ? parseTrueColor(text.mid(mark.getLength())) : parseEntityColor(text);
    if (!color)
        throw OdError(eOutOfRange, L"Requires a color: BYLAYER, BYBLOCK, a number between 1 and 255, the name of "
                                   L"one of the first seven, or RGB:red,green,blue.");
    return *color;
}

} // namespace

SysVarValue lastPrompt(CaDoc const*)
{
    return app()->commandLine().lastPrompt();
}

SysVarValue commandNames(CaDoc const*)
{
    return app()->commandProcessor().activeNames();
}

SysVarValue isCommandActive(CaDoc const*)
{
    return app()->commandProcessor().isIdle() ? 0 : 1;
}

SysVarValue julianDate(CaDoc const*)
{
    constexpr double kJulianDayOfEpoch = 2440588; // the day counts from midnight
    LocalTime const now = localTime();
    std::time_t const days = (now.universal + now.offset) / 86400;
    return kJulianDayOfEpoch + static_cast<double>(days) + now.secondsOfDay / 86400;
}

SysVarValue calendarDate(CaDoc const*)
{
    LocalTime const now = localTime();
    double const date = (now.parts.tm_year + 1900) * 10000 + (now.parts.tm_mon + 1) * 100 + now.parts.tm_mday;
    double const seconds = std::fmod(now.secondsOfDay, 60);
    return date + (now.parts.tm_hour * 10000 + now.parts.tm_min * 100 + seconds) / 1e6;
}

SysVarValue temporaryFolder(CaDoc const*)
{
    return ut::FileName::getTempDir() + L"/";
}

SysVarValue drawingName(CaDoc const* doc)
{
    return doc->title();
}

SysVarValue drawingFolder(CaDoc const* doc)
{
    OdString const file = doc->fileName().isEmpty() ? CaApp::fullPath(doc->title()) : doc->fileName();
    return ut::FileName(file).getPath(ut::FileName::kTrailingSeparator);
}

SysVarValue hasFileName(CaDoc const* doc)
{
    return doc->fileName().isEmpty() ? 0 : 1;
}

SysVarValue isModified(CaDoc const* doc)
{
    return doc->isModified() ? 1 : 0;
}

/// Bits of UNDOCTL.
SysVarValue undoControl(CaDoc const* doc)
{
    constexpr int kIsOn = 1, kKeepsOne = 2, kGroupIsOpen = 8, kCombinesViews = 16;
    UndoControl const& control = doc->undoControl();
    return (control.limit == EUndoLimit::kNone ? 0 : kIsOn) | (control.limit == EUndoLimit::kOne ? kKeepsOne : 0) |
           (doc->database()->undoLog().isGroupOpen() ? kGroupIsOpen : 0) |
           (control.combinesViews ? kCombinesViews : 0);
}

SysVarValue undoMarks(CaDoc const* doc)
{
    return doc->database()->undoLog().marks();
}

SysVarValue isWritable(CaDoc const* doc)
{
    return doc->isReadOnly() ? 0 : 1;
}

SysVarValue lastPoint(CaDoc const* doc)
{
    return oa::ucsToWorld(doc->database()).inverse() * doc->lastPoint();
}

void setLastPoint(CaDoc* doc, SysVarValue const& value)
{
    doc->setLastPoint(oa::ucsToWorld(doc->database()) * std::get<OdGePoint3d>(value));
}

SysVarValue lastAngle(CaDoc const* doc)
{
    return doc->lastAngle() * (180 / OdaPI);
}

SysVarValue nextHandle(CaDoc const* doc)
{
    return doc->database()->handseed().ascii();
}

SysVarValue currentLayout(CaDoc const* doc)
{
    OdDbDatabase const* const drawing = doc->database();
    if (drawing->getTILEMODE())
        return OdString(L"Model");
    auto const sheet = drawing->getPaperSpaceId().open<OdDbBlockTableRecord>();
    return sheet->getLayoutId().open<OdDbLayout>()->getLayoutName();
}

SysVarValue extentsMin(CaDoc const* doc)
{
    OdGeExtents3d const extents = activeSpaceExtents(doc);
    return extents.isValidExtents() ? extents.minPoint() : OdGePoint3d(1e20, 1e20, 1e20);
}

SysVarValue extentsMax(CaDoc const* doc)
{
    OdGeExtents3d const extents = activeSpaceExtents(doc);
    return extents.isValidExtents() ? extents.maxPoint() : OdGePoint3d(-1e20, -1e20, -1e20);
}

SysVarValue ucsOrigin(CaDoc const* doc)
{
    return Ucs(doc).origin;
}

SysVarValue ucsXAxis(CaDoc const* doc)
{
    return asPoint(Ucs(doc).xAxis);
}

SysVarValue ucsYAxis(CaDoc const* doc)
{
    return asPoint(Ucs(doc).yAxis);
}

SysVarValue ucsName(CaDoc const* doc)
{
    return currentUcsName(*doc);
}

SysVarValue isWorldUcs(CaDoc const* doc)
{
    return oa::ucsToWorld(doc->database()) == OdGeMatrix3d::kIdentity ? 1 : 0;
}

SysVarValue currentColor(CaDoc const* doc)
{
    OdCmColor const color = doc->database()->getCECOLOR();
    if (color.isByLayer())
        return OdString(L"BYLAYER");
    if (color.isByBlock())
        return OdString(L"BYBLOCK");
    return color.isTrueColor() ? kTrueColorMark + colorText(color) : odFormat(L"%d", color.colorIndex());
}

void setCurrentColor(CaDoc* doc, SysVarValue const& value)
{
    doc->database()->setCECOLOR(colorFromText(std::get<OdString>(value)));
}

SysVarValue currentRecord(CaDoc const* doc, OdDbTableKind kind)
{
    OdDbObjectId const id = doc->database()->current(kind);
    return id.isValid() ? id.open<OdDbSymbolTableRecord>(OdDb::kForRead, true)->getName() : OdString();
}

void setCurrentRecord(CaDoc* doc, OdDbTableKind kind, OdString const& name)
{
    OdDbObjectId const id = doc->database()->table(kind).getAt(name);
    if (id.isNull())
        throw OdError(eKeyNotFound, odFormat(L"The drawing has nothing named \"%ls\".", name.c_str()));
    auto const* layer = odCast<OdDbLayerTableRecord>(id.stub()->object);
    if (layer && layer->isFrozen())
        throw OdError(eNotApplicable, odFormat(L"The layer \"%ls\" is frozen.", name.c_str()));
    doc->database()->setCurrent(kind, id);
}

} // namespace ca::sysVarAccess
