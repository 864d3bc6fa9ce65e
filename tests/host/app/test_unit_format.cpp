// Distances, areas and angles in the units of the drawing.
#include "host/app/unit_format.h"

#include "host/db/od_db_database.h"
#include "host/geom/od_ge_angle.h"

#include <cppunit/extensions/HelperMacros.h>

#include <limits>

namespace {

using enum ca::ELinearUnits;
using enum ca::EAngularUnits;

class UnitFormatTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(UnitFormatTest);
    CPPUNIT_TEST(distances);
    CPPUNIT_TEST(areas);
    CPPUNIT_TEST(directions);
    CPPUNIT_TEST(directionsFromABase);
    CPPUNIT_TEST(turns);
    CPPUNIT_TEST(comesFromTheDrawing);
    CPPUNIT_TEST_SUITE_END();

    static void checkText(char const* expected, OdString const& actual, double value)
    {
        CPPUNIT_ASSERT_EQUAL_MESSAGE("of " + std::to_string(value), std::string(expected), actual.toUtf8());
    }

public:
    void distances()
    {
        struct Case
        {
            ca::ELinearUnits units;
            int precision;
            double value;
            char const* text;
        };
        constexpr double kInfinite = std::numeric_limits<double>::infinity();
        Case const cases[] = {
            {kDecimal, 4, 15.5, "15.5000"},
            {kDecimal, 0, 2.5000001, "3"},
            {kDecimal, 2, -0.004, "0.00"},
            {kDecimal, 2, -0.006, "-0.01"},
            {kDecimal, 1, 1e22, "10000000000000000000000.0"},
            {kDecimal, 4, -kInfinite, "-inf"},
            {kScientific, 4, 15.5, "1.5500E+01"},
            {kScientific, 2, -0.000125, "-1.25E-04"},
            {kScientific, 0, 0, "0E+00"},
            {kEngineering, 4, 15.5, "1'-3.5000\""},
            {kEngineering, 2, 0, "0'-0.00\""},
            {kEngineering, 2, 11.996, "1'-0.00\""},
            {kEngineering, 1, -25.25, "-2'-1.3\""},
            {kEngineering, 4, 1e307, nullptr},
            {kArchitectural, 4, 15.5, "1'-3 1/2\""},
            {kArchitectural, 4, 0, "0'-0\""},
            {kArchitectural, 4, 0.0625, "0'-0 1/16\""},
            {kArchitectural, 2, 12.3, "1'-0 1/4\""},
            {kArchitectural, 0, 11.5, "1'-0\""},
            {kArchitectural, 8, -11.99, "-0'-11 253/256\""},
            {kFractional, 4, 15.5, "15 1/2"},
            {kFractional, 4, 0.375, "3/8"},
            {kFractional, 3, -0.01, "0"},
            {kFractional, 1, -7.75, "-8"},
        };
        for (Case const& each : cases) {
            ca::UnitFormat format;
            format.linear = each.units;
            format.linearPrecision = each.precision;
            OdString const text = ca::distanceText(each.value, format);
            if (each.text)
                checkText(each.text, text, each.value);
            else
                CPPUNIT_ASSERT_MESSAGE("feet and whole inches", text.getLength() > 300);
        }
    }

    void areas()
    {
        ca::UnitFormat format;
        checkText("144.0000", ca::areaText(144, format), 144);
        format.linear = kFractional;
        checkText("1/2", ca::areaText(0.5, format), 0.5);
        format.linear = kArchitectural;
        checkText("216.0000 square in. (1.5000 square ft.)", ca::areaText(216, format), 216);
    }

    void directions()
    {
        struct Case
        {
            ca::EAngularUnits units;
            int precision;
            double degrees;
            char const* text;
        };
        Case const cases[] = {
            {kDegrees, 2, 45, "45.00"},
            {kDegrees, 0, -90, "270"},
            {kDegrees, 2, 359.999, "0.00"},
            {kDegrees, 2, 725.25, "5.25"},
            {kDegreesMinutesSeconds, 0, 45.5, "46d"},
            {kDegreesMinutesSeconds, 1, 45.5, "45d30'"},
            {kDegreesMinutesSeconds, 2, 45.9999, "46d0'"},
            {kDegreesMinutesSeconds, 4, 12.3456, "12d20'44\""},
            {kDegreesMinutesSeconds, 6, 12.3456, "12d20'44.16\""},
            {kDegreesMinutesSeconds, 4, 359.99999, "0d0'0\""},
            {kGrads, 2, 45, "50.00g"},
            {kRadians, 4, 180, "3.1416r"},
            {kRadians, 0, 359, "6r"},
            {kSurveyor, 4, 0, "E"},
            {kSurveyor, 4, 90, "N"},
            {kSurveyor, 4, 179.999999, "W"},
            {kSurveyor, 4, 270, "S"},
            {kSurveyor, 0, 30, "N 60d E"},
            {kSurveyor, 1, 100.5, "N 10d30' W"},
            {kSurveyor, 3, 225, "S 45d0'0\" W"},
            {kSurveyor, 5, -1.5, "S 88d30'0.0\" E"},
        };
        for (Case const& each : cases) {
            ca::UnitFormat format;
            format.angular = each.units;
            format.angularPrecision = each.precision;
            checkText(each.text, ca::angleText(odgeToRadians(each.degrees), format), each.degrees);
        }
    }

    void directionsFromABase()
    {
        ca::UnitFormat format;
        format.angleBase = odgeToRadians(90);
        checkText("315.00", ca::angleText(odgeToRadians(45), format), 45);
        format.isClockwise = true;
        checkText("45.00", ca::angleText(odgeToRadians(45), format), 45);
        format.angular = kSurveyor;
        format.angularPrecision = 0;
        checkText("N 45d E", ca::angleText(odgeToRadians(45), format), 45);
    }

    void turns()
    {
        ca::UnitFormat format;
        format.angleBase = 1;
        checkText("-30.00", ca::turnText(odgeToRadians(-30), format), -30);
        checkText("400.00", ca::turnText(odgeToRadians(400), format), 400);
        format.angular = kSurveyor;
        format.angularPrecision = 4;
        checkText("-10d30'0\"", ca::turnText(odgeToRadians(-10.5), format), -10.5);
        format.angular = kGrads;
        format.angularPrecision = 0;
        checkText("0g", ca::turnText(-1e-9, format), -1e-9);
    }

    void comesFromTheDrawing()
    {
        OdDbDatabasePtr const db(new OdDbDatabase);
        checkText("1.5000", ca::distanceText(1.5, ca::unitFormatOf(*db)), 1.5);
        db->setHeaderInteger("LUNITS", 70, 4);
        db->setHeaderInteger("LUPREC", 70, 99);
        db->setHeaderInteger("AUNITS", 70, 2);
        db->setHeaderInteger("AUPREC", 70, -1);
        db->setHeaderReal("ANGBASE", 50, 90);
        db->setHeaderInteger("ANGDIR", 70, 1);
        ca::UnitFormat const format = ca::unitFormatOf(*db);
        checkText("0'-1 1/256\"", ca::distanceText(1.00390625, format), 1.00390625);
        checkText("100g", ca::angleText(0, format), 0);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(UnitFormatTest);

} // namespace
