// How splines stand in drawing files: plane, flags, degree and counts first, then tolerances and tangents, then
// the lists. Lists are kept as they are, also where they do not fit together.
#include "host/db/entities/od_db_spline.h"

OD_DB_DEFINE_CLASS(OdDbSpline, OdDbCurve, "SPLINE")

namespace {

constexpr std::string_view kMarker = "AcDbSpline";
constexpr int kKnotCount = 72;
constexpr int kControlPointCount = 73;
constexpr int kFitPointCount = 74;
constexpr int kKnot = 40;
constexpr int kWeight = 41;
constexpr int kControlPoint = 10;
constexpr int kFitPoint = 11;

bool readReal(std::vector<double>& list, OdDbTag const& tag)
{
    list.push_back(tag.real);
    return true;
}

/// An X coordinate begins a new point.
bool readCoordinate(std::vector<OdGePoint3d>& list, int coordinate, double value)
{
    if (coordinate == 0)
        list.emplace_back();
    if (list.empty())
        return false;
    OdGePoint3d& point = list.back();
    (coordinate == 0 ? point.x : coordinate == 1 ? point.y : point.z) = value;
    return true;
}

void writeReals(int code, std::vector<double> const& list, OdDbTagSink& sink)
{
    for (double const value : list)
        sink.real(code, value);
}

void writePoints(int code, std::vector<OdGePoint3d> const& list, OdDbTagSink& sink)
{
    for (OdGePoint3d const& point : list)
        sink.point(code, &point.x, 3);
}

} // namespace

OdDbFieldTable const& OdDbSpline::fields()
{
    // clang-format off
    static constexpr OdDbField s_head[] = {
        odField<&OdDbSpline::m_normal>(210),
        odField<&OdDbSpline::m_flags> (70, OdDbWriteRule::kAlways),
        odField<&OdDbSpline::m_degree>(71, OdDbWriteRule::kAlways),
    };
    static constexpr OdDbField s_tolerances[] = {
        odField<&OdDbSpline::m_knotTolerance>   (42),
        odField<&OdDbSpline::m_controlTolerance>(43),
        odField<&OdDbSpline::m_fitTolerance>    (44),
        odField<&OdDbSpline::m_startTangent>    (12),
        odField<&OdDbSpline::m_endTangent>      (13),
    };
    // clang-format on
    static OdDbFieldTable const s_table({
        entitySection(),
        {.marker = kMarker, .fields = s_head, .readTail = &readCount, .writeTail = &writeCounts},
        {.marker = kMarker,
         .fields = s_tolerances,
         .readTail = &readList,
         .writeTail = &writeLists,
         .continues = true},
    });
    return s_table;
}

bool OdDbSpline::readCount(OdDbObject&, OdDbTag const& tag)
{
    // The lists themselves are counted.
    return tag.kind == OdDbTagKind::kInteger && tag.code >= kKnotCount && tag.code <= kFitPointCount;
}

void OdDbSpline::writeCounts(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& spline = static_cast<OdDbSpline const&>(object);
    sink.integer(kKnotCount, spline.numKnots());
    sink.integer(kControlPointCount, spline.numControlPoints());
    sink.integer(kFitPointCount, spline.numFitPoints());
}

bool OdDbSpline::readList(OdDbObject& object, OdDbTag const& tag)
{
    auto& spline = static_cast<OdDbSpline&>(object);
    if (tag.kind != OdDbTagKind::kReal)
        return false;
    switch (tag.code) {
    case kKnot: return readReal(spline.m_knots, tag);
    case kWeight: return readReal(spline.m_weights, tag);
    case kControlPoint:
    case kControlPoint + 10:
    case kControlPoint + 20: return readCoordinate(spline.m_controlPoints, tag.code / 10 - 1, tag.real);
    case kFitPoint:
    case kFitPoint + 10:
    case kFitPoint + 20: return readCoordinate(spline.m_fitPoints, tag.code / 10 - 1, tag.real);
    default: return false;
    }
}

void OdDbSpline::writeLists(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& spline = static_cast<OdDbSpline const&>(object);
    writeReals(kKnot, spline.m_knots, sink);
    writeReals(kWeight, spline.m_weights, sink);
    writePoints(kControlPoint, spline.m_controlPoints, sink);
    writePoints(kFitPoint, spline.m_fitPoints, sink);
}
