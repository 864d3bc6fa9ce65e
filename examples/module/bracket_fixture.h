#pragma once

#include "testapi/ta_draw_utils.h"
#include "testapi/ta_test_helper.h"

#include <cppunit/TestFixture.h>

#include <cmath>

/// Tests of brackets, plates with one round corner and a hole, each in a new drawing. Its coordinate system is the
/// skewed one of fixtures, so nothing passes by taking coordinates of the user for those of the world.
class BracketFixture : public CppUnit::TestFixture, protected ta::TestHelperEx
{
public:
    void setUp() override { setUpDefault(true); }
    void tearDown() override { tearDownDefault(); }

protected:
    static void drawOutline() { ta::executeCommands(L"PLINE 0,0 60,0 60,20 Arc 40,40 Line 0,40 Close"); }

    OdDbObjectId createOutline(OdDbObjectId owner)
    {
        double const quarterTurn = std::tan(OdaPI / 8); // bulges are tangents of a quarter of the angle
        OdGePoint2dArray const corners{{0, 0}, {60, 0}, {60, 20}, {40, 40}, {0, 40}};
        OdGeDoubleArray const bulges{0, 0, quarterTurn};
        return createPline(owner, corners, &bulges, false, true);
    }

    OdDbObjectId createHole(double radius)
    {
        return createCircle(modelSpace(), ucsToWorld() * OdGePoint3d(40, 20, 0), radius);
    }

    OdDbObjectId modelSpace() const { return db().getModelSpaceId(); }

    /// The entity that was drawn last.
    OdDbObjectId last() const
    {
        return OdDbObjectId(modelSpace().open<OdDbBlockTableRecord>()->entities().back());
    }

    static OdDbEntityPtr opened(OdDbObjectId id) { return id.open<OdDbEntity>(); }

    /// The entity as a change of the drawing would leave it.
    static OdDbEntityPtr transformed(OdDbObjectId id, OdGeMatrix3d const& matrix)
    {
        OdDbEntityPtr copy;
        getTransformedCopy(opened(id), matrix, copy);
        return copy;
    }
};
