#include "host/geom/od_ge_matrix3d.h"

#include "host/root/od_error.h"

namespace {

OdGeVector3d unitOrThrow(OdGeVector3d const& direction)
{
    if (direction.isZeroLength())
        throw OdError(eDegenerateGeometry);
    return direction.normal();
}

} // namespace

OdGeVector3d OdGeVector3d::perpVector() const
{
    OdGeVector3d const n = unitOrThrow(*this);
    // Near the world's Z axis a cross product with it would lose all digits; the bound is part of the file format.
    constexpr double kNear = 1.0 / 64;
    OdGeVector3d const& across = std::abs(n.x) < kNear && std::abs(n.y) < kNear ? kYAxis : kZAxis;
    return across.crossProduct(n).normal();
}

OdGeMatrix3d& OdGeMatrix3d::setCoordSystem(OdGePoint3d const& origin, OdGeVector3d const& xAxis,
                                           OdGeVector3d const& yAxis, OdGeVector3d const& zAxis)
{
    *this = OdGeMatrix3d();
    setColumn(0, xAxis);
    setColumn(1, yAxis);
    setColumn(2, zAxis);
    setColumn(3, origin.asVector());
    return *this;
}

void OdGeMatrix3d::getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
                                  OdGeVector3d& zAxis) const
{
    origin = OdGePoint3d::kOrigin + column(3);
    xAxis = column(0);
    yAxis = column(1);
    zAxis = column(2);
}

OdGeMatrix3d OdGeMatrix3d::about(OdGePoint3d const& center, OdGeVector3d const& x, OdGeVector3d const& y,
                                 OdGeVector3d const& z)
{
    OdGeMatrix3d matrix;
    matrix.setCoordSystem(OdGePoint3d::kOrigin, x, y, z);
    matrix.setColumn(3, center - matrix * center);
    return matrix;
}

OdGeMatrix3d OdGeMatrix3d::translation(OdGeVector3d const& offset)
{
    OdGeMatrix3d matrix;
    matrix.setColumn(3, offset);
    return matrix;
}

OdGeMatrix3d OdGeMatrix3d::rotation(double angle, OdGeVector3d const& axis, OdGePoint3d const& center)
{
    OdGeVector3d const k = unitOrThrow(axis);
    double const cosine = std::cos(angle);
    double const sine = std::sin(angle);
    auto const turned = [&](OdGeVector3d const& v) {
        return v * cosine + k.crossProduct(v) * sine + k * (k.dotProduct(v) * (1 - cosine));
    };
    return about(center, turned(OdGeVector3d::kXAxis), turned(OdGeVector3d::kYAxis), turned(OdGeVector3d::kZAxis));
}

OdGeMatrix3d OdGeMatrix3d::scaling(double factor, OdGePoint3d const& center)
{
    return scaling(OdGeScale3d(factor), center);
}

OdGeMatrix3d OdGeMatrix3d::scaling(OdGeScale3d const& factors, OdGePoint3d const& center)
{
    return about(center, {factors.sx, 0, 0}, {0, factors.sy, 0}, {0, 0, factors.sz});
}

OdGeMatrix3d OdGeMatrix3d::mirroringAtPoint(OdGePoint3d const& center)
{
    return scaling(-1, center);
}

OdGeMatrix3d OdGeMatrix3d::mirroringAtLine(OdGePoint3d const& base, OdGeVector3d const& direction)
{
    OdGeVector3d const d = unitOrThrow(direction);
    auto const mirrored = [&](OdGeVector3d const& v) { return d * (2 * d.dotProduct(v)) - v; };
    return about(base, mirrored(OdGeVector3d::kXAxis), mirrored(OdGeVector3d::kYAxis),
                 mirrored(OdGeVector3d::kZAxis));
}

OdGeMatrix3d OdGeMatrix3d::mirroringAtPlane(OdGePoint3d const& base, OdGeVector3d const& normal)
{
    // Half a turn about the normal leaves what lies along it and reverses the rest: exactly the opposite is
    // wanted.
    return mirroringAtPoint(base) * mirroringAtLine(base, normal);
}

OdGeMatrix3d OdGeMatrix3d::planeToWorld(OdGeVector3d const& normal)
{
    OdGeVector3d const z = unitOrThrow(normal);
    OdGeVector3d const x = z.perpVector();
    return OdGeMatrix3d().setCoordSystem(OdGePoint3d::kOrigin, x, z.crossProduct(x).normal(), z);
}

OdGeMatrix3d OdGeMatrix3d::worldToPlane(OdGeVector3d const& normal)
{
    // The axes are perpendicular units, so that the transposed matrix is the inverse one.
    OdGeMatrix3d matrix = planeToWorld(normal);
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < row; ++col)
            std::swap(matrix.entry[row][col], matrix.entry[col][row]);
    }
    return matrix;
}

double OdGeMatrix3d::det() const
{
    return column(0).dotProduct(column(1).crossProduct(column(2)));
}

bool OdGeMatrix3d::isSingular() const
{
    // Compared with the box of the same edges, so that tiny and huge scales are as good as others. Written so that
    // values that are no numbers count as singular.
    constexpr double kFlat = 1e-13;
    return !(std::abs(det()) > kFlat * column(0).length() * column(1).length() * column(2).length());
}

OdGeMatrix3d OdGeMatrix3d::inverse() const
{
    if (isSingular())
        throw OdError(eSingularMatrix);
    double const determinant = det();
    OdGeVector3d const rows[3] = {column(1).crossProduct(column(2)) / determinant,
                                  column(2).crossProduct(column(0)) / determinant,
                                  column(0).crossProduct(column(1)) / determinant};
    OdGeMatrix3d result;
    for (int i = 0; i < 3; ++i) {
        result.entry[i][0] = rows[i].x;
        result.entry[i][1] = rows[i].y;
        result.entry[i][2] = rows[i].z;
        result.entry[i][3] = -rows[i].dotProduct(column(3));
    }
    return result;
}

bool OdGeMatrix3d::isUniScaledOrtho(OdGeTol const& tol) const
{
    double const factor = scale();
    if (!(factor > 0))
        return false;
    double const allowed = tol.equalVector();
    for (int i = 0; i < 3; ++i) {
        OdGeVector3d const axis = column(i) / factor;
        OdGeVector3d const next = column((i + 1) % 3) / factor;
        if (std::abs(axis.length() - 1) > allowed || std::abs(axis.dotProduct(next)) > allowed)
            return false;
    }
    return true;
}

double OdGeMatrix3d::scale() const
{
    return std::max({column(0).length(), column(1).length(), column(2).length()});
}

bool OdGeMatrix3d::isEqualTo(OdGeMatrix3d const& other, OdGeTol const& tol) const
{
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            if (!(std::abs(entry[row][col] - other.entry[row][col]) <= tol.equalVector()))
                return false;
        }
    }
    return true;
}

OdGeMatrix3d OdGeMatrix3d::operator*(OdGeMatrix3d const& right) const
{
    OdGeMatrix3d product;
    for (int i = 0; i < 3; ++i)
        product.setColumn(i, *this * right.column(i));
    product.setColumn(3, *this * right.column(3) + column(3));
    return product;
}
