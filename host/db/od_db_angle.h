#pragma once

#include "host/geom/od_ge_tol.h"

/// An angle as it was given: degrees from a drawing file, radians from a program. Converting back and forth would
/// change the last bit, and a value that was read has to be written back bit for bit.
class OdDbAngle
{
public:
    constexpr OdDbAngle() = default;
    static constexpr OdDbAngle ofRadians(double value) { return OdDbAngle(value, false); }
    static constexpr OdDbAngle ofDegrees(double value) { return OdDbAngle(value, true); }

    constexpr double radians() const { return m_isDegrees ? m_value * (OdaPI / 180.0) : m_value; }
    constexpr double degrees() const { return m_isDegrees ? m_value : m_value * (180.0 / OdaPI); }

    friend constexpr bool operator==(OdDbAngle, OdDbAngle) = default;

private:
    constexpr OdDbAngle(double value, bool isDegrees) : m_value(value), m_isDegrees(isDegrees) {}

    double m_value = 0.0;
    bool m_isDegrees = false;
};
