#pragma once

#include "host/geom/od_ge_3d.h"
#include "host/geom/od_ge_scale3d.h"

/// Affine transformation of space. `entry[row][column]`; the columns are the images of the X, Y and Z axis and of
/// the origin, the last row is 0 0 0 1. Points are columns, so that a product applies its right factor first.
class OdGeMatrix3d
{
public:
    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    static OdGeMatrix3d const kIdentity;

    constexpr OdGeMatrix3d() = default;

    /// The transformation from a coordinate system with these axes into the world.
    OdGeMatrix3d& setCoordSystem(OdGePoint3d const& origin, OdGeVector3d const& xAxis, OdGeVector3d const& yAxis,
                                 OdGeVector3d const& zAxis);
    void getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis, OdGeVector3d& zAxis) const;
    /// Image of an axis, 0 to 2, or with 3 the part that moves the origin.
    constexpr OdGeVector3d column(int index) const { return {entry[0][index], entry[1][index], entry[2][index]}; }
    constexpr OdGeVector3d translation() const { return column(3); }

    static OdGeMatrix3d translation(OdGeVector3d const& offset);
    /// Turn by `angle` about the axis through `center`, counterclockwise when seen against the axis.
    /// Throws OdError(eDegenerateGeometry) for a zero axis; so do the other functions that take a direction.
    static OdGeMatrix3d rotation(double angle, OdGeVector3d const& axis,
                                 OdGePoint3d const& center = OdGePoint3d::kOrigin);
    static OdGeMatrix3d scaling(double factor, OdGePoint3d const& center = OdGePoint3d::kOrigin);
    static OdGeMatrix3d scaling(OdGeScale3d const& factors, OdGePoint3d const& center = OdGePoint3d::kOrigin);
    static OdGeMatrix3d mirroringAtPoint(OdGePoint3d const& center);
    /// Half a turn about a line.
    static OdGeMatrix3d mirroringAtLine(OdGePoint3d const& base, OdGeVector3d const& direction);
    static OdGeMatrix3d mirroringAtPlane(OdGePoint3d const& base, OdGeVector3d const& normal);
    /// From the coordinates of the plane through the world origin with this normal into the world. Its axes follow
    /// the arbitrary axis rule of drawing files.
    static OdGeMatrix3d planeToWorld(OdGeVector3d const& normal);
    static OdGeMatrix3d worldToPlane(OdGeVector3d const& normal);

    /// Determinant of the linear part: the factor by which volumes grow, negative when the matrix mirrors.
    double det() const;
    /// No inverse exists: the axes lie, relative to their lengths, in one plane.
    bool isSingular() const;
    /// Throws OdError(eSingularMatrix).
    OdGeMatrix3d inverse() const;
    /// The axes stay perpendicular and grow by one common factor (the matrix may mirror): circles stay circles.
    bool isUniScaledOrtho(OdGeTol const& tol = OdGeContext::gTol) const;
    /// The greatest length among the images of the axes: the common factor where isUniScaledOrtho() holds.
    double scale() const;

    /// Compares entry by entry.
    bool isEqualTo(OdGeMatrix3d const& other, OdGeTol const& tol = OdGeContext::gTol) const;
    friend bool operator==(OdGeMatrix3d const& a, OdGeMatrix3d const& b) { return a.isEqualTo(b); }

    OdGeMatrix3d operator*(OdGeMatrix3d const& right) const;
    OdGeMatrix3d& operator*=(OdGeMatrix3d const& right) { return *this = *this * right; }
    OdGeMatrix3d& preMultBy(OdGeMatrix3d const& left) { return *this = left * *this; }
    constexpr OdGeVector3d operator*(OdGeVector3d const& v) const
    {
        return column(0) * v.x + column(1) * v.y + column(2) * v.z;
    }
    constexpr OdGePoint3d operator*(OdGePoint3d const& p) const
    {
        OdGeVector3d const image = *this * p.asVector() + column(3);
        return {image.x, image.y, image.z};
    }

private:
    constexpr void setColumn(int index, OdGeVector3d const& v)
    {
        entry[0][index] = v.x;
        entry[1][index] = v.y;
        entry[2][index] = v.z;
    }
    static OdGeMatrix3d about(OdGePoint3d const& center, OdGeVector3d const& x, OdGeVector3d const& y,
                              OdGeVector3d const& z);
};

inline constexpr OdGeMatrix3d OdGeMatrix3d::kIdentity{};
