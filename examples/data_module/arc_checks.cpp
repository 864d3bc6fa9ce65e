// What commands make of an arc is compared with the arc that the data say.
#include "arc_checks.h"

#include "testapi/ge_angle.h"
#include "testapi/ta_draw_utils.h"

#include <cmath>

ArcTest::ArcTest(std::string const& name, OdGeCircArc2d const& arc, Check check)
    : CppUnit::TestCase(name), ta::TestHelperEx(kModelSpace | kStoreOsnaps), m_arc(arc), m_check(check)
{
}

// A datum counts its angles from its reference vector in its own direction, a drawing counterclockwise from the X
// axis.
double ArcTest::startAngle() const
{
    double const reference = std::atan2(m_arc.refVec().y, m_arc.refVec().x);
    return m_arc.isClockWise() ? reference - m_arc.endAng() : reference + m_arc.startAng();
}

OdGePoint2d ArcTest::pointAt(double angle, double radius) const
{
    return m_arc.center() + OdGeVector2d(std::cos(angle), std::sin(angle)) * radius;
}

OdDbObjectId ArcTest::create(double radius, double startAngle, double endAngle)
{
    ge::normalizeAngle(startAngle, true); // as commands leave them
    ge::normalizeAngle(endAngle, true);
    OdDbObjectId const modelSpace = db().getModelSpaceId();
    OdGePoint3d const center(m_arc.center().x, m_arc.center().y, 0);
    return m_arc.isClosed() ? createCircle(modelSpace, center, radius)
                            : createArc(modelSpace, center, radius, startAngle, endAngle);
}

OdDbEntityPtr ArcTest::last() const
{
    OdDbBlockTableRecordPtr const modelSpace = db().getModelSpaceId().open<OdDbBlockTableRecord>();
    return OdDbObjectId(modelSpace->entities().back()).open<OdDbEntity>();
}

void ArcTest::trim()
{
    create(m_arc.radius(), startAngle(), startAngle() + sweep());
    OdGePoint2d const middle = pointAt(startAngle() + sweep() / 2, m_arc.radius());
    OdGePoint2d const end = pointAt(startAngle() + sweep(), m_arc.radius());
    ta::executeCommands(odFormat(L"BREAK L %.15g,%.15g %.15g,%.15g", middle.x, middle.y, end.x, end.y));
    OdDbEntityPtr const trimmed = last();
    OdDbObjectId const expected = create(m_arc.radius(), startAngle(), startAngle() + sweep() / 2);
    compareEntities(trimmed, expected.open<OdDbEntity>());
}

void ArcTest::offset()
{
    create(m_arc.radius(), startAngle(), startAngle() + sweep());
    OdGePoint2d const on = pointAt(startAngle() + sweep() / 3, m_arc.radius());
    OdGePoint2d const outside = pointAt(startAngle() + sweep() / 3, 3 * m_arc.radius());
    ta::executeCommands(odFormat(L"OFFSET 2 %.15g,%.15g %.15g,%.15g ", on.x, on.y, outside.x, outside.y));
    OdDbEntityPtr const outer = last();
    OdDbObjectId const expected = create(m_arc.radius() + 2, startAngle(), startAngle() + sweep());
    compareEntities(outer, expected.open<OdDbEntity>());
}
