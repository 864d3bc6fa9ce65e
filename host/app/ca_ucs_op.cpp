#include "host/app/ca_ucs_op.h"

#include "host/app/ca_doc.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/oa_space.h"
#include "host/db/records/od_db_viewport_table_record.h"

#include <array>
#include <deque>

namespace ca {

namespace {

using System = UcsOp::System;

/// Systems that were current before, the latest last.
struct UcsHistory
{
    std::array<std::deque<System>, 2> bySpace; ///< sheet, model space
};

std::deque<System>& historyOf(CaDoc& document)
{
    return document.commandMemory().get<UcsHistory>().bySpace[document.database()->getTILEMODE() ? 1 : 0];
}

/// Header variables of a sheet have a letter more.
std::string headerName(OdDbDatabase const& database, char const* name)
{
    return std::string(database.getTILEMODE() ? "" : "P") + name;
}

System current(CaDoc const& document)
{
    System system;
    OdGeVector3d zAxis;
    oa::getUCS(document.database(), system.origin, system.xAxis, system.yAxis, zAxis);
    if (!system.xAxis.isPerpendicularTo(system.yAxis)) // a damaged drawing
        system.yAxis = zAxis.crossProduct(system.xAxis);
    system.name = currentUcsName(document);
    return system;
}

OdGePoint3d asPoint(OdGeVector3d const& vector)
{
    return OdGePoint3d::kOrigin + vector;
}

/// Other programs take the system of the viewport where each viewport has its own.
void writeToViewport(OdDbDatabase& database, System const& system)
{
    OdDbObjectId const id = database.table(OdDbTableKind::kViewport).getAt(L"*Active");
    if (id.isErased())
        return;
    OdDbObjectId const record =
        system.name.isEmpty() ? OdDbObjectId() : database.table(OdDbTableKind::kUcs).getAt(system.name);
    id.open<OdDbViewportTableRecord>(OdDb::kForWrite)->setUcs(system.origin, system.xAxis, system.yAxis, record);
}

void write(CaDoc& document, System const& system)
{
    OdDbDatabase& database = *document.database();
    auto const name = [&database](char const* variable) { return headerName(database, variable); };
    database.setHeaderPoint(name("UCSORG"), system.origin);
    database.setHeaderPoint(name("UCSXDIR"), asPoint(system.xAxis));
    database.setHeaderPoint(name("UCSYDIR"), asPoint(system.yAxis));
    database.setHeaderText(name("UCSNAME"), 2, system.name);
    if (database.header().integer(name("UCSORTHOVIEW")) != 0)
        database.setHeaderInteger(name("UCSORTHOVIEW"), 70, 0);
    if (database.getTILEMODE())
        writeToViewport(database, system);
}

bool areSame(OdGeVector3d const& a, OdGeVector3d const& b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

} // namespace

bool UcsOp::System::isSameAs(System const& other) const
{
    return areSame(origin.asVector(), other.origin.asVector()) && areSame(xAxis, other.xAxis) &&
           areSame(yAxis, other.yAxis) && name.equalsNoCase(other.name);
}

OdString currentUcsName(CaDoc const& document)
{
    OdDbDatabase const& database = *document.database();
    return database.header().text(headerName(database, "UCSNAME"));
}

UcsOp::UcsOp(CaDoc& document) : m_document(document), m_prepared(current(document)) {}

void UcsOp::set(OdGePoint3d const& origin, OdGeVector3d const& xAxis, OdGeVector3d const& yAxis)
{
    if (xAxis.isZeroLength() || yAxis.isZeroLength() || !xAxis.isPerpendicularTo(yAxis))
        throw OdError(eDegenerateGeometry, L"The axes of a coordinate system must be perpendicular");
    m_prepared = {
        origin, odDbCleanDirection(xAxis, m_prepared.xAxis), odDbCleanDirection(yAxis, m_prepared.yAxis), {}};
}

void UcsOp::setWorld()
{
    m_prepared = {};
}

void UcsOp::setOrigin(OdGePoint3d const& origin)
{
    m_prepared.origin = origin;
    m_prepared.name = OdString();
}

void UcsOp::rotate(int axis, double angle)
{
    constexpr OdGeVector3d kAxes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    if (axis < 0 || axis > 2)
        throw OdError(eOutOfRange, L"The axes of a coordinate system are numbered 0 to 2");
    rotate(kAxes[axis], angle);
}

void UcsOp::rotate(OdGeVector3d const& axis, double angle)
{
    OdGeMatrix3d const turn = OdGeMatrix3d::rotation(angle, ucsToWorld() * axis);
    set(m_prepared.origin, turn * m_prepared.xAxis, turn * m_prepared.yAxis);
}

OdGeMatrix3d UcsOp::ucsToWorld() const
{
    OdGeMatrix3d matrix;
    matrix.setCoordSystem(origin(), xAxis(), yAxis(), zAxis());
    return matrix;
}

bool UcsOp::isWorld() const
{
    return ucsToWorld() == OdGeMatrix3d::kIdentity;
}

void UcsOp::commit()
{
    constexpr std::size_t kRemembered = 10;
    System const before = current(m_document);
    if (m_prepared.isSameAs(before))
        return;
    std::deque<System>& history = historyOf(m_document);
    history.push_back(before);
    if (history.size() > kRemembered)
        history.pop_front();
    write(m_document, m_prepared);
}

bool UcsOp::restorePrevious(CaDoc& document)
{
    // What U took back is remembered still: systems that are current again are passed over.
    std::deque<System>& history = historyOf(document);
    System const now = current(document);
    while (!history.empty() && history.back().isSameAs(now))
        history.pop_back();
    if (history.empty())
        return false;
    System previous = history.back();
    history.pop_back();
    if (!document.database()->table(OdDbTableKind::kUcs).has(previous.name))
        previous.name = OdString();
    write(document, previous);
    return true;
}

} // namespace ca
