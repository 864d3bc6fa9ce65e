#pragma once

#include "host/db/filer/od_db_record_reader.h"
#include "host/db/od_db_entity.h"
#include "host/db/od_db_outline.h"

#include <cppunit/extensions/HelperMacros.h>

#include <charconv>

/// Keeps an outline as places on it: ends, corners and points exactly, arcs also by many places between their
/// ends. Two outlines agree when every place of one lies near a place of the other, and the exact ones exactly.
class SampledOutline : public OdDbOutlineSink
{
public:
    explicit SampledOutline(OdDbEntity const& entity, OdGeMatrix3d const& transformation = {})
        : m_transformation(transformation)
    {
        entity.outline(*this);
    }

    void point(OdGePoint3d const& position) override { exactly(position); }
    void segment(OdGePoint3d const& start, OdGePoint3d const& end) override
    {
        ++segments;
        exactly(start);
        exactly(end);
        for (int i = 1; i < kSamples; ++i)
            roughly(start + (end - start) * (double(i) / kSamples));
    }
    void arc(OdGeEllipticArc const& arc) override
    {
        ++arcs;
        OdGeEllipticArc moved = arc;
        m_extents.addExt(moved.transformBy(m_transformation).extents());
        if (!arc.isClosed()) {
            exactly(arc.startPoint());
            exactly(arc.endPoint());
        }
        for (int i = 0; i <= kSamples; ++i)
            roughly(arc.evalPoint(arc.start + arc.sweep() * i / kSamples));
    }
    void spline(OdGeNurbCurve3d const& curve) override
    {
        ++splines;
        OdGeNurbCurve3d moved = curve;
        moved.transformBy(m_transformation);
        m_extents.addExt(moved.extents());
        OdGeInterval const interval = curve.getInterval();
        exactly(curve.evalPoint(interval.lower));
        exactly(curve.evalPoint(interval.upper));
        for (int i = 0; i <= kSamples; ++i)
            roughly(curve.evalPoint(interval.lower + interval.length() * i / kSamples));
    }
    /// Places at round distances stand for the whole line.
    void endless(OdGePoint3d const& base, OdGeVector3d const& direction, bool isRay) override
    {
        exactly(base);
        for (int i = isRay ? 0 : -kSamples; i <= kSamples; ++i)
            roughly(base + direction.normal() * (i * 0.1));
    }
    void polygon(std::span<OdGePoint3d const> corners) override
    {
        ++polygons;
        for (OdGePoint3d const& corner : corners)
            exactly(corner);
    }

    /// The greatest distance from an exact place of one outline to the nearest of the other, and of their boxes.
    double exactDistanceTo(SampledOutline const& other) const
    {
        if (m_exact.empty() != other.m_exact.empty())
            return std::numeric_limits<double>::infinity();
        double const boxes = std::max(m_extents.minPoint().distanceTo(other.m_extents.minPoint()),
                                      m_extents.maxPoint().distanceTo(other.m_extents.maxPoint()));
        return std::max({boxes, farthest(m_exact, other.m_exact), farthest(other.m_exact, m_exact)});
    }
    double roughDistanceTo(SampledOutline const& other) const
    {
        if (m_rough.empty() != other.m_rough.empty())
            return std::numeric_limits<double>::infinity();
        return std::max(farthest(m_rough, other.m_rough), farthest(other.m_rough, m_rough));
    }
    std::vector<OdGePoint3d> const& exactPlaces() const { return m_exact; }
    std::vector<OdGePoint3d> const& roughPlaces() const { return m_rough; }

    int segments = 0;
    int arcs = 0;
    int polygons = 0;
    int splines = 0;

private:
    static constexpr int kSamples = 180;
    void exactly(OdGePoint3d const& p)
    {
        m_exact.push_back(m_transformation * p);
        m_extents.addPoint(m_exact.back());
    }
    void roughly(OdGePoint3d const& p) { m_rough.push_back(m_transformation * p); }
    static double farthest(std::vector<OdGePoint3d> const& from, std::vector<OdGePoint3d> const& to)
    {
        std::vector<OdGePoint3d> byX = to;
        std::ranges::sort(byX, {}, &OdGePoint3d::x);
        double result = 0;
        for (OdGePoint3d const& p : from)
            result = std::max(result, nearestSqrd(p, byX));
        return std::sqrt(result);
    }
    /// From the place with the nearest X on, to both sides, as far as X alone does not rule them out.
    static double nearestSqrd(OdGePoint3d const& p, std::vector<OdGePoint3d> const& byX)
    {
        double nearest = std::numeric_limits<double>::infinity();
        auto const isFar = [&](OdGePoint3d const& q) { return (q.x - p.x) * (q.x - p.x) >= nearest; };
        auto const middle = std::ranges::lower_bound(byX, p.x, {}, &OdGePoint3d::x);
        for (auto it = middle; it != byX.end() && !isFar(*it); ++it)
            nearest = std::min(nearest, (p - *it).lengthSqrd());
        for (auto it = middle; it != byX.begin() && !isFar(*(it - 1)); --it)
            nearest = std::min(nearest, (p - *(it - 1)).lengthSqrd());
        return nearest;
    }

    OdGeMatrix3d m_transformation;
    OdGeExtents3d m_extents;
    std::vector<OdGePoint3d> m_exact;
    std::vector<OdGePoint3d> m_rough;
};

/// Knows the symbol table records that a test gives it.
class TestResolver : public OdDbReferenceResolver
{
public:
    OdDbObjectId known;
    OdDbObjectId byName(OdDbTableKind, std::string_view) override { return known; }
    OdDbObjectId byHandle(OdDbHandle) override { return {}; }
};

/// A tag as "code value"; values with a dot are reals.
inline OdDbTag testTag(std::string_view text)
{
    std::size_t const blank = text.find(' ');
    int const code = std::stoi(std::string(text.substr(0, blank)));
    std::string_view const value = text.substr(blank + 1);
    bool const isText = code < 10 || code == 100 || code == 101;
    if (isText)
        return OdDbTag::ofText(code, value);
    if (value.find('.') != std::string_view::npos)
        return OdDbTag::ofReal(code, std::stod(std::string(value)));
    return OdDbTag::ofInteger(code, std::stoll(std::string(value)));
}

inline void readTags(OdDbObject& object, std::initializer_list<std::string_view> tags, OdDbObjectId known = {})
{
    TestResolver resolver;
    resolver.known = known;
    OdDbRecordReader reader(object, resolver);
    for (std::string_view const tag : tags)
        reader.put(testTag(tag));
}

/// The fields of an object as "code value" lines; reals as they are read back exactly.
inline std::vector<std::string> writtenTags(OdDbObject const& object)
{
    OdDbTagList list;
    OdDbFieldTable const& table = object.fieldTable();
    for (int group = 0; group < table.numGroups(); ++group)
        table.write(object, group, list);
    std::vector<std::string> lines;
    for (OdDbTag const tag : list) {
        char number[64];
        char* end = number;
        if (tag.kind == OdDbTagKind::kReal)
            end = std::to_chars(number, std::end(number), tag.real).ptr;
        else if (tag.kind == OdDbTagKind::kInteger)
            end = std::to_chars(number, std::end(number), tag.integer).ptr;
        std::string value = tag.kind == OdDbTagKind::kText ? std::string(tag.text) : std::string(number, end);
        if (tag.kind == OdDbTagKind::kReal && value.find('.') == std::string::npos)
            value += ".0";
        lines.push_back(std::to_string(tag.code) + ' ' + value);
    }
    return lines;
}

inline std::string joined(std::vector<std::string> const& lines)
{
    std::string text;
    for (std::string const& line : lines)
        text += line + '\n';
    return text;
}

/// Reads the tags, which follow the common ones, and demands them back.
template <class Entity>
OdSmartPtr<Entity> roundTrip(std::initializer_list<std::string_view> tags)
{
    OdSmartPtr<Entity> entity(new Entity);
    readTags(*entity, tags);
    std::vector<std::string> expected{"100 AcDbEntity", "8 "};
    expected.insert(expected.end(), tags.begin(), tags.end());
    CPPUNIT_ASSERT_EQUAL(joined(expected), joined(writtenTags(*entity)));
    return entity;
}
