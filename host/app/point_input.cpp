#include "host/app/point_input.h"

#include "host/ut/ut_number.h"

#include <vector>

namespace ca {

namespace {

/// The numbers of "a,b,c"; empty when one of them is none.
std::vector<double> numbers(std::wstring_view text)
{
    std::vector<double> values;
    for (std::size_t start = 0; start <= text.size();) {
        std::size_t const comma = std::min(text.find(L',', start), text.size());
        double value = 0;
        if (!ut::parseReal(text.substr(start, comma - start), value))
            return {};
        values.push_back(value);
        start = comma + 1;
    }
    return values;
}

/// Coordinates as written, with z missing when there are only two.
struct Coordinates
{
    OdGePoint3d point;
    bool hasZ = false;
};

std::optional<Coordinates> parsePolar(std::wstring_view text, std::size_t separator)
{
    double distance = 0;
    std::vector<double> const rest = numbers(text.substr(separator + 1));
    if (!ut::parseReal(text.substr(0, separator), distance) || rest.empty() || rest.size() > 2)
        return std::nullopt;
    double const angle = rest[0] * (OdaPI / 180.0);
    OdGePoint3d const point(distance * std::cos(angle), distance * std::sin(angle),
                            rest.size() == 2 ? rest[1] : 0);
    return Coordinates{point, rest.size() == 2};
}

std::optional<Coordinates> parseCoordinates(std::wstring_view text)
{
    if (std::size_t const separator = text.find(L'<'); separator != std::wstring_view::npos)
        return parsePolar(text, separator);
    std::vector<double> const values = numbers(text);
    if (values.size() < 2 || values.size() > 3)
        return std::nullopt;
    return Coordinates{{values[0], values[1], values.size() == 3 ? values[2] : 0}, values.size() == 3};
}

} // namespace

std::optional<OdGePoint3d> parsePoint(OdString const& text, CoordinateFrame const& frame)
{
    std::wstring_view rest = text.str();
    auto const take = [&rest](wchar_t mark) {
        bool const found = rest.starts_with(mark);
        rest.remove_prefix(found ? 1 : 0);
        return found;
    };
    bool const isRelative = take(L'@');
    if (!isRelative)
        take(L'#');
    bool const isWorld = take(L'*');
    if (isRelative && rest.empty())
        return frame.lastPoint;
    std::optional<Coordinates> const read = parseCoordinates(rest);
    if (!read)
        return std::nullopt;
    if (isRelative) {
        OdGeVector3d const offset = read->point.asVector();
        return frame.lastPoint + (isWorld ? offset : frame.ucsToWorld * offset);
    }
    OdGePoint3d point = read->point;
    if (isWorld)
        return point;
    if (!read->hasZ)
        point.z = frame.elevation;
    return frame.ucsToWorld * point;
}

OdString formatPoint(OdGePoint3d const& point)
{
    return ut::formatRealShortest(point.x) + L"," + ut::formatRealShortest(point.y) + L"," +
           ut::formatRealShortest(point.z);
}

} // namespace ca
