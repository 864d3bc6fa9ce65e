#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_nurb_basis.h"
#include "host/geom/curves/od_ge_offset_outline.h"
#include "host/root/od_error.h"

#include <AdvApprox_ApproxAFunction.hxx>
#include <AdvApprox_EvaluatorFunction.hxx>
#include <Standard_Failure.hxx>

#include <algorithm>
#include <cmath>

// Offsets of ellipses and splines are no splines; OpenCASCADE fits splines to them. First the curve is taken apart
// at corners and where the offset would turn back because the curve is bent too much; what turns back comes nearer
// to the curve than the distance and is left out. The parts between are short enough not to meet themselves.

namespace {

using Curves = std::vector<std::unique_ptr<OdGeCurve3d>>;

constexpr double kFitPrecision = 1e-7; // of the size of the curve
constexpr double kMostTurn = 1.5;      // radians in one part
constexpr int kSamplesBetweenKnots = 64;

class OffsetFunction
{
public:
    OffsetFunction(OdGeCurve3d const& curve, OdGeOffsetTask const& task) : m_curve(curve), m_task(task) {}

    OdGeVector3d tangent(double param) const
    {
        OdGeVector3d first = m_curve.derivative(param);
        if (first.lengthSqrd() > 0)
            return first;
        // The curve stands still: its direction a little further inside.
        OdGeInterval const interval = m_curve.getInterval();
        double const inside = interval.lower + interval.length() / 2;
        return m_curve.derivative(param + (inside - param) * 1e-6);
    }
    OdGePoint3d point(double param) const
    {
        return m_curve.evalPoint(param) + m_task.rightOf(tangent(param)) * m_task.distance;
    }
    // By which the offset moves faster than the curve; negative where it turns back.
    double growth(double param) const
    {
        OdGeVector3d const first = tangent(param);
        double const bend = first.crossProduct(m_curve.derivative(param, 2)).dotProduct(m_task.normal);
        return 1 + m_task.distance * bend / std::pow(first.lengthSqrd(), 1.5);
    }
    OdGeVector3d derivative(double param) const { return tangent(param) * growth(param); }

private:
    OdGeCurve3d const& m_curve;
    OdGeOffsetTask m_task;
};

class Evaluator : public AdvApprox_EvaluatorFunction
{
public:
    explicit Evaluator(OffsetFunction const& function) : m_function(function) {}

    void Evaluate(int* /*dimension*/, double /*startEnd*/[2], double* param, int* order, double* result,
                  int* errorCode) override
    {
        OdGeVector3d const value =
            *order == 0 ? m_function.point(*param).asVector() : m_function.derivative(*param);
        result[0] = value.x;
        result[1] = value.y;
        result[2] = value.z;
        *errorCode = *order > 1 || !std::isfinite(value.lengthSqrd());
    }

private:
    OffsetFunction const& m_function;
};

std::unique_ptr<OdGeNurbCurve3d> fit(OffsetFunction const& function, double from, double to, double precision)
{
    constexpr int kDegree = 9;
    constexpr int kMostPieces = 200;
    Evaluator const evaluator(function);
    Handle(TColStd_HArray1OfReal) const none;
    Handle(TColStd_HArray1OfReal) const precisions = new TColStd_HArray1OfReal(1, 1, precision);
    AdvApprox_ApproxAFunction const fitted(0, 0, 1, none, none, precisions, from, to, GeomAbs_C1, kDegree,
                                           kMostPieces, evaluator);
    if (!fitted.HasResult())
        throw OdError(eNotApplicable, L"no spline can be fitted to the offset of the curve");
    OdGeNurbCurve3d::Definition definition;
    definition.degree = fitted.Degree();
    std::vector<double> knots;
    for (int i = 1; i <= fitted.NbKnots(); ++i)
        knots.insert(knots.end(), static_cast<std::size_t>(fitted.Multiplicities()->Value(i)),
                     fitted.Knots()->Value(i));
    definition.knots = OdGeKnotVector(std::move(knots));
    TColgp_Array1OfPnt poles(1, fitted.NbPoles());
    fitted.Poles(1, poles);
    for (gp_Pnt const& pole : poles)
        definition.controlPoints.emplace_back(pole.X(), pole.Y(), pole.Z());
    return std::make_unique<OdGeNurbCurve3d>(
        OdGeNurbCurve3d(std::move(definition)).elevated(std::max(kDegree, fitted.Degree())));
}

// Parts of a curve at whose ends it has corners.
Curves smoothParts(OdGeCurve3d const& curve)
{
    constexpr double kCorner = 1e-6;
    OdGeInterval const interval = curve.getInterval();
    std::vector<double> ends = {interval.lower};
    for (double const param : curve.breakParams()) {
        auto const before = curve.trimmed(ends.back(), param);
        bool const isSmooth =
            before->derivative(param).isCodirectionalTo(curve.derivative(param), OdGeTol(0, kCorner));
        if (!isSmooth)
            ends.push_back(param);
    }
    ends.push_back(interval.upper);
    Curves parts;
    for (std::size_t i = 0; i + 1 < ends.size(); ++i)
        parts.push_back(curve.trimmed(ends[i], ends[i + 1]));
    return parts;
}

// Where the growth changes its sign between two parameters.
double turningPoint(OffsetFunction const& function, double from, double to)
{
    bool const grows = function.growth(from) > 0;
    while (true) {
        double const middle = from + (to - from) / 2;
        if (middle <= from || middle >= to)
            return middle;
        ((function.growth(middle) > 0) == grows ? from : to) = middle;
    }
}

class FittedOffset
{
public:
    FittedOffset(OdGeCurve3d const& curve, OdGeOffsetTask const& task) : m_curve(curve), m_task(task)
    {
        OdGeExtents3d const box = curve.extents();
        double const size = box.minPoint().distanceTo(box.maxPoint()) + std::abs(task.distance);
        m_precision = std::max(kFitPrecision * size, task.slack);
    }

    void makePieces()
    {
        Curves const parts = smoothParts(m_curve);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            addPart(*parts[i]);
            bool const isLast = i + 1 == parts.size();
            if (!isLast || m_task.isClosed)
                roundCorner(*parts[i], *parts[isLast ? 0 : i + 1]);
        }
    }

    Curves run()
    {
        makePieces();
        m_outline.distanceTo = [&](OdGePoint3d const& point) { return m_curve.distanceTo(point); };
        m_outline.allowed = 4 * m_precision;
        if (!m_task.isClosed) {
            m_outline.others = odgeOffsetEnds(m_curve, m_task);
            OdGeOffsetTask const opposite = m_task.opposite();
            FittedOffset otherSide(m_curve, opposite);
            otherSide.makePieces();
            std::ranges::move(otherSide.m_outline.pieces, std::back_inserter(m_outline.others));
        }
        OdGeOffsetTask task = m_task;
        task.slack = std::max(m_task.slack, m_precision / 100);
        Curves curves;
        for (OdGeOffsetRun const& run : odgeOffsetRuns(m_outline, task))
            curves.push_back(splineOf(run));
        return curves;
    }

private:
    // Cuts where the offset turns back and where it has turned far enough.
    void addPart(OdGeCurve3d const& part)
    {
        OffsetFunction const function(part, m_task);
        std::vector<double> const params = samples(part);
        double begin = params.front();
        double turned = 0;
        for (std::size_t i = 0; i + 1 < params.size(); ++i) {
            double const from = params[i];
            double const to = params[i + 1];
            bool const grows = function.growth(from) > 0;
            turned += function.tangent(from).angleTo(function.tangent(to));
            if (grows != (function.growth(to) > 0)) {
                double const turn = turningPoint(function, from, to);
                addFitted(function, begin, turn, grows);
                begin = turn;
                turned = 0;
            } else if (turned > kMostTurn) {
                addFitted(function, begin, to, grows);
                begin = to;
                turned = 0;
            }
        }
        addFitted(function, begin, params.back(), function.growth(params.back()) > 0);
    }

    void addFitted(OffsetFunction const& function, double from, double to, bool grows)
    {
        if (grows && from < to && function.point(from).distanceTo(function.point(to)) > m_task.slack)
            m_outline.pieces.push_back(fit(function, from, to, m_precision));
    }

    static std::vector<double> samples(OdGeCurve3d const& part)
    {
        OdGeInterval const interval = part.getInterval();
        std::vector<double> knots = {interval.lower, interval.upper};
        if (part.type() == OdGeCurve3d::EType::kNurb)
            knots = static_cast<OdGeNurbCurve3d const&>(part).definition().knots.asVector();
        std::vector<double> params;
        for (std::size_t i = 0; i + 1 < knots.size(); ++i)
            for (int j = 0; knots[i] < knots[i + 1] && j < kSamplesBetweenKnots; ++j)
                params.push_back(knots[i] + (knots[i + 1] - knots[i]) * j / kSamplesBetweenKnots);
        params.push_back(interval.upper);
        return params;
    }

    // An arc about a corner that opens up.
    void roundCorner(OdGeCurve3d const& before, OdGeCurve3d const& after)
    {
        OdGePoint3d const corner = after.evalPoint(after.getInterval().lower);
        OdGePoint3d const from = OffsetFunction(before, m_task).point(before.getInterval().upper);
        OdGePoint3d const to = OffsetFunction(after, m_task).point(after.getInterval().lower);
        OdGeVector3d const axis = m_task.distance > 0 ? m_task.normal : -m_task.normal;
        double const sweep = (from - corner).angleTo(to - corner, axis);
        if (from.distanceTo(to) <= m_precision || sweep > OdaPI)
            return;
        OdGeCircArc3d const arc(corner, axis, from - corner, std::abs(m_task.distance), 0, sweep);
        OffsetFunction const function(arc, OdGeOffsetTask{m_task.normal, 0, m_task.slack, false});
        m_outline.pieces.push_back(fit(function, 0, sweep, m_precision));
    }

    std::unique_ptr<OdGeCurve3d> splineOf(OdGeOffsetRun const& run) const
    {
        OdGeNurbCurve3d::Definition whole;
        for (OdGeOffsetStretch const& stretch : run) {
            auto const part = m_outline.pieces[stretch.piece]->trimmed(stretch.from, stretch.to);
            OdGeNurbCurve3d::Definition definition = static_cast<OdGeNurbCurve3d const&>(*part).definition();
            definition.controlPoints.front() = stretch.start;
            definition.controlPoints.back() = stretch.end;
            if (whole.controlPoints.empty())
                whole = std::move(definition);
            else
                whole = odgeNurbJoined(std::move(whole), definition);
        }
        if (m_task.isClosed)
            whole.controlPoints.back() = whole.controlPoints.front();
        return std::make_unique<OdGeNurbCurve3d>(std::move(whole));
    }

    OdGeCurve3d const& m_curve;
    OdGeOffsetTask const& m_task;
    double m_precision = 0;
    OdGeOffsetOutline m_outline;
};

} // namespace

Curves odgeOffsetFitted(OdGeCurve3d const& curve, OdGeOffsetTask const& task)
{
    try {
        return FittedOffset(curve, task).run();
    } catch (Standard_Failure const&) {
        throw OdError(eNotApplicable, L"no spline can be fitted to the offset of the curve");
    }
}
