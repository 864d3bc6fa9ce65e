#include "host/app/unit_format.h"

#include "host/db/od_db_database.h"
#include "host/geom/od_ge_angle.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace ca {

namespace {

constexpr double kInchesOfFoot = 12;
constexpr double kMinutes = 60;
constexpr double kSeconds = 3600;
constexpr int kMaxPrecision = 8;

OdString toChars(double value, std::chars_format form, int decimals)
{
    std::array<char, 400> buffer; // the largest number has 309 digits in front of the point
    auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, form, decimals);
    return OdString::fromUtf8(std::string_view(buffer.data(), result.ptr));
}

/// Without the sign of a number that rounds to zero.
OdString withoutVainSign(OdString const& text)
{
    constexpr wchar_t const* kDigitsOfNumbers = L"123456789inf";
    bool const isZero = text.str().find_first_of(kDigitsOfNumbers) == std::wstring::npos;
    return isZero && text.startsWith(L"-") ? text.mid(1, text.getLength() - 1) : text;
}

OdString wholeText(double value)
{
    return toChars(value, std::chars_format::fixed, 0);
}

/// A number of halves, quarters and so on, taken apart.
struct Fraction
{
    Fraction(double value, int powerOfTwo)
    {
        double const parts = std::ldexp(1, powerOfTwo);
        double const all = std::round(value * parts);
        whole = std::floor(all / parts);
        numerator = static_cast<int>(all - whole * parts);
        denominator = 1 << powerOfTwo;
        for (; numerator != 0 && numerator % 2 == 0; numerator /= 2)
            denominator /= 2;
    }
    OdString text() const
    {
        if (numerator == 0)
            return wholeText(whole);
        OdString const fraction = odFormat(L"%d/%d", numerator, denominator);
        return whole == 0 ? fraction : wholeText(whole) + L" " + fraction;
    }

    double whole;
    int numerator;
    int denominator;
};

OdString feetText(double feet, OdString const& inches)
{
    return wholeText(feet) + L"'-" + inches + L"\"";
}

OdString engineeringText(double value, int decimals)
{
    double const scale = std::pow(10, decimals);
    // Rounded first: 11.99996 is a foot, not 12 inches. Numbers so large that this overflows have no decimals.
    double const rounded = std::isfinite(value * scale) ? std::round(value * scale) / scale : value;
    double const feet = std::floor(rounded / kInchesOfFoot);
    return feetText(feet, decimalText(rounded - feet * kInchesOfFoot, decimals));
}

OdString architecturalText(double value, int powerOfTwo)
{
    Fraction inches(value, powerOfTwo);
    double const feet = std::floor(inches.whole / kInchesOfFoot);
    inches.whole -= feet * kInchesOfFoot;
    // "1/2" alone would do for "0 1/2", but behind the feet the inches are read as a number of their own.
    OdString const text = inches.numerator != 0 && inches.whole == 0 ? L"0 " + inches.text() : inches.text();
    return feetText(feet, text);
}

/// Of a value that is not negative.
OdString magnitudeText(double value, UnitFormat const& format)
{
    switch (format.linear) {
    case ELinearUnits::kScientific:
        return toChars(value, std::chars_format::scientific, format.linearPrecision).makeUpper();
    case ELinearUnits::kEngineering: return engineeringText(value, format.linearPrecision);
    case ELinearUnits::kArchitectural: return architecturalText(value, format.linearPrecision);
    case ELinearUnits::kFractional: return Fraction(value, format.linearPrecision).text();
    case ELinearUnits::kDecimal: break;
    }
    return decimalText(value, format.linearPrecision);
}

/// The whole circle in the units, the decimals that are shown, and what is behind the number.
struct PlainAngle
{
    double circle;
    wchar_t const* suffix;
};

PlainAngle plainAngle(EAngularUnits units)
{
    switch (units) {
    case EAngularUnits::kGrads: return {400, L"g"};
    case EAngularUnits::kRadians: return {Oda2PI, L"r"};
    default: return {360, L""};
    }
}

bool showsMinutes(EAngularUnits units)
{
    return units == EAngularUnits::kDegreesMinutesSeconds || units == EAngularUnits::kSurveyor;
}

/// In how many parts the degree is rounded.
double partsOfDegree(int precision)
{
    if (precision == 0)
        return 1;
    if (precision <= 2)
        return kMinutes;
    return kSeconds * std::pow(10, std::max(0, precision - 4));
}

/// Of a value that is not negative and a whole number of the parts that are shown.
OdString degreesMinutesSeconds(double degrees, int precision)
{
    double const parts = partsOfDegree(precision);
    double const all = std::round(degrees * parts);
    double const whole = std::floor(all / parts);
    OdString text = wholeText(whole) + L"d";
    if (precision == 0)
        return text;
    double const rest = all - whole * parts; // exact: both are whole numbers
    double const partsOfMinute = parts / kMinutes;
    double const minutes = std::floor(rest / partsOfMinute);
    text += wholeText(minutes) + L"'";
    if (precision <= 2)
        return text;
    double const seconds = (rest - minutes * partsOfMinute) / (parts / kSeconds);
    return text + decimalText(seconds, std::max(0, precision - 4)) + L"\"";
}

/// The angle between 0 and the circle, rounded as it is shown, so that nothing is shown as a whole circle.
double roundedFolded(double value, double circle, double parts)
{
    double const rounded = std::round(odgeFoldAngle(value * Oda2PI / circle) / Oda2PI * circle * parts) / parts;
    return rounded >= circle ? 0 : rounded;
}

/// From north or south towards east or west.
OdString bearingText(double degreesFromEast, int precision)
{
    double const degrees = roundedFolded(degreesFromEast, 360, partsOfDegree(precision));
    constexpr wchar_t const* kDue[] = {L"E", L"N", L"W", L"S"};
    double const quadrant = std::floor(degrees / 90);
    double const inQuadrant = degrees - quadrant * 90;
    auto const index = static_cast<int>(quadrant);
    if (inQuadrant == 0)
        return kDue[index];
    bool const isNorth = index < 2;
    bool const isEast = index == 0 || index == 3;
    double const fromPole = isNorth == isEast ? 90 - inQuadrant : inQuadrant;
    return OdString(isNorth ? L"N " : L"S ") + degreesMinutesSeconds(fromPole, precision) +
           (isEast ? L" E" : L" W");
}

} // namespace

UnitFormat unitFormatOf(OdDbDatabase const& db)
{
    OdDbHeader const& header = db.header();
    auto const ranged = [&header](char const* name, int initial, int low, int high) {
        return static_cast<int>(std::clamp<std::int64_t>(header.integer(name, initial), low, high));
    };
    UnitFormat format;
    format.linear = static_cast<ELinearUnits>(ranged("LUNITS", 2, 1, 5));
    format.linearPrecision = ranged("LUPREC", 4, 0, kMaxPrecision);
    format.angular = static_cast<EAngularUnits>(ranged("AUNITS", 0, 0, 4));
    format.angularPrecision = ranged("AUPREC", 2, 0, kMaxPrecision);
    format.angleBase = odgeToRadians(header.real("ANGBASE"));
    format.isClockwise = header.integer("ANGDIR", 0) != 0;
    return format;
}

OdString decimalText(double value, int decimals)
{
    return withoutVainSign(toChars(value, std::chars_format::fixed, decimals));
}

OdString distanceText(double value, UnitFormat const& format)
{
    if (!std::isfinite(value))
        return decimalText(value, 0);
    OdString const text = magnitudeText(std::abs(value), format);
    return withoutVainSign(value < 0 ? L"-" + text : text);
}

OdString areaText(double value, UnitFormat const& format)
{
    bool const isInInches =
        format.linear == ELinearUnits::kEngineering || format.linear == ELinearUnits::kArchitectural;
    if (!isInInches)
        return distanceText(value, format);
    constexpr int kDecimals = 4;
    return decimalText(value, kDecimals) + L" square in. (" +
           decimalText(value / (kInchesOfFoot * kInchesOfFoot), kDecimals) + L" square ft.)";
}

OdString angleText(double radians, UnitFormat const& format)
{
    if (!std::isfinite(radians))
        return decimalText(radians, 0);
    if (format.angular == EAngularUnits::kSurveyor)
        return bearingText(odgeToDegrees(radians), format.angularPrecision);
    double const turned = (radians - format.angleBase) * (format.isClockwise ? -1 : 1);
    if (showsMinutes(format.angular)) {
        double const parts = partsOfDegree(format.angularPrecision);
        return degreesMinutesSeconds(roundedFolded(odgeToDegrees(turned), 360, parts), format.angularPrecision);
    }
    PlainAngle const units = plainAngle(format.angular);
    double const parts = std::pow(10, format.angularPrecision);
    double const shown = roundedFolded(turned * units.circle / Oda2PI, units.circle, parts);
    return decimalText(shown, format.angularPrecision) + units.suffix;
}

OdString turnText(double radians, UnitFormat const& format)
{
    if (!std::isfinite(radians))
        return decimalText(radians, 0);
    if (showsMinutes(format.angular)) {
        OdString const text = degreesMinutesSeconds(std::abs(odgeToDegrees(radians)), format.angularPrecision);
        return withoutVainSign(radians < 0 ? L"-" + text : text);
    }
    PlainAngle const units = plainAngle(format.angular);
    return decimalText(radians * units.circle / Oda2PI, format.angularPrecision) + units.suffix;
}

} // namespace ca
