#include "tests/host/geom/curve_samples.h"

#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/geom/curves/od_ge_segment_chain3d.h"

namespace {

OdGeVector3d const kTilted{1, -2, 3};

class Samples
{
public:
    template <class Curve>
    void add(char const* name, Curve curve)
    {
        m_samples.push_back({name, std::make_shared<Curve const>(std::move(curve))});
    }
    std::vector<CurveSample> take() { return std::move(m_samples); }

private:
    std::vector<CurveSample> m_samples;
};

void addArcs(Samples& samples)
{
    OdGeCircArc3d mirrored({1, 2, 3}, kTilted, {1, 0, 0}, 2, 1, 5);
    mirrored.reverseParam();
    samples.add("circle", OdGeCircArc3d({1, 2, 0}, {0, 0, 1}, 3));
    samples.add("tilted circle", OdGeCircArc3d({1, 2, 3}, kTilted, {1, 0, 0}, 2, 5, 5));
    samples.add("tiny circle", OdGeCircArc3d({0, 0, 0}, {0, 0, 1}, 1e-6));
    samples.add("far circle", OdGeCircArc3d({1e8, -1e8, 0}, {0, 0, 1}, 50));
    samples.add("arc over angle 0", OdGeCircArc3d({1, 2, 3}, {0, 0, 1}, {0, 1, 0}, 2, 5.5, 1));
    samples.add("reversed tilted arc", mirrored);
    samples.add("short arc", OdGeCircArc3d({-4, 2, 3}, kTilted, {0, 0, 1}, 1000, 1, 1.001));

    OdGeEllipArc3d sheared;
    OdGeMatrix3d shear;
    shear.setCoordSystem({1, 1, 0}, {3, 1, 0}, {2.5, 0.5, 1}, {0, 0, 1});
    sheared.transformBy(shear);
    samples.add("ellipse", OdGeEllipArc3d({1, 2, 0}, {4, 0, 0}, {0, 2, 0}));
    samples.add("upright ellipse", OdGeEllipArc3d({1, 2, 0}, {1, 1, 0}, {-4, 4, 0}, -9, -8));
    samples.add("tilted arc of an ellipse", OdGeEllipArc3d({1, 2, 3}, {3, 0, 1}, {0, 1, 0}, 2, 7));
    samples.add("flat ellipse", OdGeEllipArc3d({0, 0, 0}, {100, 0, 0}, {0, 0.01, 0}));
    samples.add("tiny ellipse", OdGeEllipArc3d({0, 0, 0}, {3e-6, 0, 0}, {0, 1e-6, 0}));
    samples.add("sheared ellipse", sheared);
}

void addChains(Samples& samples)
{
    samples.add("open chain", OdGeSegmentChain3d({{0, 0, 0}, {3, 0, 1}, {3, 4, 2}, {-1, 4, 5}}, false));
    samples.add("closed chain", OdGeSegmentChain3d({{0, 0, 0}, {3, 0, 0}, {3, 4, 0}, {-1, 4, 0}}, true));
    samples.add("chain with arcs", OdGeSegmentChain3d({{0, 0}, {3, 0}, {3, 4}, {-1, 4}}, {0.5, -0.3, 2}, false));
    samples.add("closed tilted chain with arcs",
                OdGeSegmentChain3d({{0, 0}, {9, 0}, {9, 9}, {0, 9}}, {0.2, -0.4, 0.1, 1}, true, kTilted, 2));
    samples.add("ring of two arcs", OdGeSegmentChain3d({{1, 1}, {5, 1}}, {-1, -1}, true));
    samples.add("chain with repeated points",
                OdGeSegmentChain3d({{0, 0}, {0, 0}, {4, 0}, {4, 0}, {4, 3}}, {0, 0.5, 1, 1, 0}, true));
    samples.add("nearly straight arcs", OdGeSegmentChain3d({{0, 0}, {10, 0}, {10, 10}}, {1e-8, -3e-6}, false));
}

void addSplines(Samples& samples)
{
    std::vector<OdGePoint3d> const points{{0, 0, 0}, {2, 3, 1}, {4, -1, 2}, {7, 2, 0}, {9, 0, -2}, {11, 1, 0}};
    samples.add("spline of control points", OdGeNurbCurve3d::ofControlPoints(3, points));
    samples.add("spline through points", OdGeNurbCurve3d::interpolate(points));
    samples.add("rational spline", OdGeNurbCurve3d::of(OdGeCircArc3d({1, 2, 3}, kTilted, {1, 0, 0}, 2, 1, 4)));
}

void addRandom(Samples& samples)
{
    RandomNumbers random;
    for (int i = 0; i < 10; ++i) {
        OdGePoint3d const place = OdGePoint3d::kOrigin + random.vector(10);
        double const start = random.between(-20, 20);
        double const end = start + random.between(0.01, Oda2PI);
        samples.add("random arc",
                    OdGeCircArc3d(place, random.vector(1), random.vector(1), random.between(0.1, 9), start, end));
        samples.add("random arc of an ellipse",
                    OdGeEllipArc3d(place, random.vector(5), random.vector(5), start, end));
    }
}

} // namespace

std::vector<CurveSample> curveSamples()
{
    Samples samples;
    samples.add("segment", OdGeLineSeg3d({1, 2, 3}, {-4, 0, 7}));
    addArcs(samples);
    addChains(samples);
    addSplines(samples);
    addRandom(samples);
    return samples.take();
}

std::vector<CurveSample> closedCurveSamples()
{
    std::vector<CurveSample> closed;
    for (CurveSample const& sample : curveSamples()) {
        if (sample.curve->isClosed())
            closed.push_back(sample);
    }
    return closed;
}

double coordinateSize(OdGeCurve3d const& curve)
{
    OdGeExtents3d const box = curve.extents();
    double size = 0;
    for (double const value : {box.minPoint().x, box.minPoint().y, box.minPoint().z, box.maxPoint().x,
                               box.maxPoint().y, box.maxPoint().z})
        size = std::max(size, std::abs(value));
    return size;
}

OdGePoint3d RandomNumbers::pointNear(OdGeExtents3d const& box)
{
    // Around the box as far out as the box is wide, so that some points lie inside of what it holds.
    double const margin = (box.maxPoint() - box.minPoint()).length() / 2;
    return {between(box.minPoint().x - margin, box.maxPoint().x + margin),
            between(box.minPoint().y - margin, box.maxPoint().y + margin),
            between(box.minPoint().z - margin, box.maxPoint().z + margin)};
}

double RandomNumbers::paramOf(OdGeCurve3d const& curve)
{
    OdGeInterval const range = curve.getInterval();
    return between(range.lower, range.upper);
}
