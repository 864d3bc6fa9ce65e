#pragma once

#include "testapi/ta_test_helper.h"

#include <cppunit/TestCase.h>

/// One check of one arc or circle, in a new drawing.
class ArcTest : public CppUnit::TestCase, private ta::TestHelperEx
{
public:
    using Check = void (ArcTest::*)();

    ArcTest(std::string const& name, OdGeCircArc2d const& arc, Check check);

    void setUp() override { setUpDefault(true); }
    void tearDown() override { tearDownDefault(); }
    void runTest() override { (this->*m_check)(); }

    /// BREAK takes away the second half of an arc.
    void trim();
    /// OFFSET to the outside keeps center and angles.
    void offset();

private:
    OdDbObjectId create(double radius, double startAngle, double endAngle);
    double startAngle() const;
    double sweep() const { return m_arc.endAng() - m_arc.startAng(); }
    OdGePoint2d pointAt(double angle, double radius) const;
    OdDbEntityPtr last() const;

    OdGeCircArc2d m_arc;
    Check m_check;
};
