#pragma once

#include "host/root/od_string.h"

class OdDbDatabase;

namespace ca {

/// Values are those of LUNITS. Engineering and architectural texts take the unit of the drawing for an inch.
enum class ELinearUnits
{
    kScientific = 1,
    kDecimal,
    kEngineering,
    kArchitectural,
    kFractional
};

/// Values are those of AUNITS.
enum class EAngularUnits
{
    kDegrees,
    kDegreesMinutesSeconds,
    kGrads,
    kRadians,
    kSurveyor
};

/// How numbers are shown to the user.
struct UnitFormat
{
    ELinearUnits linear = ELinearUnits::kDecimal;
    /// 0 to 8: decimals; with architectural and fractional units, the power of two of the smallest fraction.
    int linearPrecision = 4;
    EAngularUnits angular = EAngularUnits::kDegrees;
    /// 0 to 8: decimals; with minutes and seconds, 1 adds minutes, 3 seconds, 5 and more decimals of these.
    int angularPrecision = 2;
    double angleBase = 0; ///< radians: the direction that is shown as 0
    bool isClockwise = false;
};

/// That of the drawing: LUNITS, LUPREC, AUNITS, AUPREC, ANGBASE, ANGDIR. Values out of range, as damaged files
/// hold them, count as the nearest that is in range.
UnitFormat unitFormatOf(OdDbDatabase const& db);

/// "15.5000", "1.5500E+01", "1'-3.5000"", "1'-3 1/2"", "15 1/2".
OdString distanceText(double value, UnitFormat const& format);
/// As a distance; with feet and inches "144.0000 square in. (1.0000 square ft.)".
OdString areaText(double value, UnitFormat const& format);
/// A direction in the plane of the user coordinate system, radians from its X axis: "45.00", "45d0'0"", "50.00g",
/// "0.79r", "N 45d0'0" E". A bearing counts from the Y axis, whatever the base.
OdString angleText(double radians, UnitFormat const& format);
/// How far something turns, without regard to the base, not folded: "-30.00", "400.00". In surveyor's units as
/// degrees, minutes and seconds.
OdString turnText(double radians, UnitFormat const& format);

/// A number without unit, with the decimals of distances.
OdString decimalText(double value, int decimals);

} // namespace ca
