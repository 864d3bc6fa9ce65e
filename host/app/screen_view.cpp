#include "host/app/screen_view.h"

#include "host/app/ca_doc.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/records/od_db_viewport_table_record.h"

#include <deque>

namespace ca {

namespace {

/// Views that were shown before, the latest last.
struct ViewHistory
{
    std::deque<ScreenView> views;
};

std::deque<ScreenView>& historyOf(CaDoc& document)
{
    return document.commandMemory().get<ViewHistory>().views;
}

/// The viewport that is current; the first of those that are shown.
OdDbViewportTableRecordPtr viewport(OdDbDatabase const& database, OdDb::OpenMode mode)
{
    OdDbObjectId const id = database.table(OdDbTableKind::kViewport).getAt(L"*Active");
    if (id.isErased())
        throw OdError(eKeyNotFound, L"The drawing has no viewport");
    return id.open<OdDbViewportTableRecord>(mode);
}

bool areSame(ScreenView const& a, ScreenView const& b)
{
    return a.center == b.center && a.height == b.height && a.direction == b.direction && a.target == b.target &&
           a.twist == b.twist;
}

void write(CaDoc& document, ScreenView const& view)
{
    OdDbViewportTableRecordPtr const record = viewport(*document.database(), OdDb::kForWrite);
    record->setCenterPoint(view.center);
    record->setSize(view.height, view.aspect);
    record->setViewDirection(view.direction);
    record->setTarget(view.target);
    record->setViewTwist(view.twist);
}

} // namespace

OdGeMatrix3d ScreenView::displayToWorld() const
{
    OdGeMatrix3d const turn = OdGeMatrix3d::rotation(-twist, direction);
    return OdGeMatrix3d::translation(target.asVector()) * turn * odDbPlaneToWorld(direction);
}

void ScreenView::lookAtPlan(OdGeMatrix3d const& ucsToWorld)
{
    direction = ucsToWorld * OdGeVector3d::kZAxis;
    target = OdGePoint3d::kOrigin;
    OdGeVector3d const xAxis = odDbWorldToPlane(direction) * (ucsToWorld * OdGeVector3d::kXAxis);
    double const angle = xAxis.convert2d().angle();
    twist = angle > 0 ? Oda2PI - angle : 0;
}

void ScreenView::showBox(OdGeExtents2d const& box)
{
    center = box.center();
    OdGeVector2d const size = box.maxPoint() - box.minPoint();
    double const needed = std::max(size.y, size.x / aspect);
    if (needed > 0)
        height = needed;
}

ScreenView screenView(OdDbDatabase const& database)
{
    OdDbViewportTableRecordPtr const record = viewport(database, OdDb::kForRead);
    auto const size = [](double value) { return value > 0 ? value : 1; }; // of a damaged drawing
    ScreenView view;
    view.center = record->centerPoint();
    view.height = size(record->height());
    view.aspect = size(record->aspect());
    view.direction = odDbSaneNormal(record->viewDirection());
    view.target = record->target();
    view.twist = record->viewTwist();
    return view;
}

void setScreenView(CaDoc& document, ScreenView const& view)
{
    constexpr std::size_t kRemembered = 10;
    ScreenView const before = screenView(*document.database());
    if (areSame(before, view))
        return;
    write(document, view);
    std::deque<ScreenView>& history = historyOf(document);
    history.push_back(before);
    if (history.size() > kRemembered)
        history.pop_front();
}

bool restorePreviousView(CaDoc& document)
{
    // What U took back is remembered still: views that are shown again are passed over.
    std::deque<ScreenView>& history = historyOf(document);
    ScreenView const now = screenView(*document.database());
    while (!history.empty() && areSame(history.back(), now))
        history.pop_back();
    if (history.empty())
        return false;
    write(document, history.back());
    history.pop_back();
    return true;
}

} // namespace ca
