#include "host/geom/curves/od_ge_intersect_pairs.h"
#include "host/geom/curves/od_ge_nurb_basis.h"

#include <algorithm>
#include <array>
#include <cmath>

// Two Bezier curves. Stretches that both share begin and end at ends of the pieces, since the curves are analytic.
// For the rest both are halved as long as they may meet: boxes first, and once both are nearly straight the
// distance of their chords, less the width of the curves about them. Pairs that cross at an angle leave the rest
// to Newton's method; nearly parallel ones are halved until they part or are as good as straight.

namespace {

constexpr int kMostPairs = 100'000;
constexpr double kStraight = 0.3;     // radians between chord and control polygon
constexpr double kLeastWidth = 1e-11; // of the parameter interval of the piece

// What is known of a part about its chord.
struct Chord
{
    OdGePoint3d start;
    OdGeVector3d vector;
    double length = 0;
    double width = 0;    ///< no point is farther from the chord
    double turn = OdaPI; ///< greatest angle between the chord and a tangent

    explicit Chord(OdGeBezierPiece const& piece) : start(piece.startPoint()), vector(piece.endPoint() - start)
    {
        length = vector.length();
        auto const points = piece.points();
        OdGePoint3d last = start;
        if (length > 0)
            turn = 0;
        for (OdGeWeightedPoint const& weighted : points) {
            OdGePoint3d const point = weighted.point();
            OdGeVector3d const v = point - start;
            width = std::max(width, length > 0 ? v.crossProduct(vector).length() / length : v.length());
            OdGeVector3d const leg = point - last;
            if (length > 0 && leg.lengthSqrd() > 0)
                turn = std::max(turn, leg.angleTo(vector));
            last = point;
        }
    }
    bool isStraight() const { return turn <= kStraight; }
};

// Least distance of two chords and where on them, as shares from 0 to 1.
struct ChordGap
{
    double distance = std::numeric_limits<double>::infinity();
    double shareA = 0;
    double shareB = 0;

    ChordGap(Chord const& a, Chord const& b)
    {
        for (double const end : {0.0, 1.0}) {
            take(a, b, end, project(a.start + a.vector * end, b));
            take(a, b, project(b.start + b.vector * end, a), end);
        }
        // By cross products: nearly parallel chords leave nothing of a difference of scalar products.
        OdGeVector3d const normal = a.vector.crossProduct(b.vector);
        OdGeVector3d const gap = b.start - a.start;
        double const square = normal.lengthSqrd();
        double const onA = gap.crossProduct(b.vector).dotProduct(normal) / square;
        double const onB = gap.crossProduct(a.vector).dotProduct(normal) / square;
        if (onA > 0 && onA < 1 && onB > 0 && onB < 1)
            take(a, b, onA, onB);
    }

private:
    static double project(OdGePoint3d const& point, Chord const& chord)
    {
        double const square = chord.vector.lengthSqrd();
        return square > 0 ? std::clamp((point - chord.start).dotProduct(chord.vector) / square, 0.0, 1.0) : 0;
    }
    void take(Chord const& a, Chord const& b, double onA, double onB)
    {
        double const between = (a.start + a.vector * onA).distanceTo(b.start + b.vector * onB);
        if (between < distance) {
            distance = between;
            shareA = onA;
            shareB = onB;
        }
    }
};

class PiecePair
{
public:
    PiecePair(OdGeNurbCurve3d const& a, OdGeNurbCurve3d const& b, double slack, OdGeContacts& contacts)
        : m_a(a),
          m_b(b),
          m_rangeA(a.getInterval()),
          m_rangeB(b.getInterval()),
          m_slack(slack),
          m_contacts(contacts)
    {
    }

    void run()
    {
        findStretches();
        halve(OdGeBezierPiece(m_a.definition(), static_cast<std::size_t>(m_a.degree())),
              OdGeBezierPiece(m_b.definition(), static_cast<std::size_t>(m_b.degree())));
    }

private:
    OdGeCurveValue valueA(double param) const { return odgeNurbValue(m_a.definition(), param); }
    OdGeCurveValue valueB(double param) const { return odgeNurbValue(m_b.definition(), param); }

    void findStretches()
    {
        std::vector<OdGeIntersection> ends = odgeEndContacts(m_a, m_b, m_slack);
        std::ranges::sort(ends, {}, &OdGeIntersection::paramA);
        for (std::size_t i = 0; i + 1 < ends.size(); ++i)
            if (ends[i].point.distanceTo(ends[i + 1].point) > 2 * m_slack && isShared(ends[i], ends[i + 1]))
                m_stretches.push_back({ends[i], ends[i + 1]});
        m_contacts.points.insert(m_contacts.points.end(), ends.begin(), ends.end());
        m_contacts.stretches.insert(m_contacts.stretches.end(), m_stretches.begin(), m_stretches.end());
    }

    // Both run together between two contacts; more samples than two curves of their degrees can have points in
    // common are not needed, since a stretch within the tolerance counts.
    bool isShared(OdGeIntersection const& from, OdGeIntersection const& to) const
    {
        for (double const share : {0.5, 0.2, 0.8, 0.35, 0.65}) {
            OdGePoint3d const point = m_a.evalPoint(from.paramA + (to.paramA - from.paramA) * share);
            double const paramB = m_b.closestParam(point);
            bool const isBetween = (paramB - from.paramB) * (paramB - to.paramB) <= 0;
            if (!isBetween || m_b.evalPoint(paramB).distanceTo(point) > m_slack)
                return false;
        }
        return true;
    }

    bool isCovered(OdGeBezierPiece const& a) const
    {
        return std::ranges::any_of(m_stretches, [&](OdGeStretch const& stretch) {
            return a.from() >= stretch.start.paramA && a.to() <= stretch.end.paramA;
        });
    }

    void halve(OdGeBezierPiece a, OdGeBezierPiece b)
    {
        if (m_pairs++ > kMostPairs || a.hull().isDisjoint(b.hull(), m_slack) || isCovered(a))
            return;
        Chord const chordA(a);
        Chord const chordB(b);
        double const widthA = a.to() - a.from();
        double const widthB = b.to() - b.from();
        bool const isSmall =
            widthA <= kLeastWidth * m_rangeA.length() && widthB <= kLeastWidth * m_rangeB.length();
        if (isSmall || (chordA.isStraight() && chordB.isStraight())) {
            ChordGap const gap(chordA, chordB);
            if (gap.distance > chordA.width + chordB.width + m_slack)
                return;
            double const angle = std::asin(std::min(1.0, chordA.vector.crossProduct(chordB.vector).length() /
                                                             (chordA.length * chordB.length)));
            bool const crosses = angle > chordA.turn + chordB.turn;
            bool const isThin = chordA.width + chordB.width <= m_slack / 4;
            if (isSmall || crosses || isThin) {
                solve(a.from() + widthA * gap.shareA, b.from() + widthB * gap.shareB, widthA, widthB, crosses);
                return;
            }
        }
        bool const cutsA = chordB.length + chordB.width <= 2 * (chordA.length + chordA.width) || widthB <= 0;
        bool const cutsB = chordA.length + chordA.width <= 2 * (chordB.length + chordB.width);
        cut(a, b, cutsA, cutsB);
    }

    void cut(OdGeBezierPiece& a, OdGeBezierPiece& b, bool cutsA, bool cutsB)
    {
        if (!cutsA && !cutsB)
            cutsA = cutsB = true;
        auto const secondHalf = [](OdGeBezierPiece& piece) {
            return piece.cutOff(piece.from() + (piece.to() - piece.from()) / 2);
        };
        if (!cutsA) {
            OdGeBezierPiece const restB = secondHalf(b);
            halve(a, b);
            halve(a, restB);
            return;
        }
        OdGeBezierPiece const restA = secondHalf(a);
        if (!cutsB) {
            halve(a, b);
            halve(restA, b);
            return;
        }
        OdGeBezierPiece const restB = secondHalf(b);
        halve(a, b);
        halve(a, restB);
        halve(restA, b);
        halve(restA, restB);
    }

    // Refines a point near the parameters and keeps it when the curves meet there.
    void solve(double s, double t, double widthA, double widthB, bool crosses)
    {
        double const startS = s;
        double const startT = t;
        if (!crosses)
            approachTouch(s, t);
        bool const wandered = std::abs(s - startS) > 2 * widthA || std::abs(t - startT) > 2 * widthB;
        if (!crosses && (wandered || gapAt(s, t) > m_slack)) {
            s = startS;
            t = startT;
        }
        if (crosses || gapAt(s, t) > m_slack / 16)
            approachCrossing(s, t);
        if (gapAt(s, t) <= m_slack)
            m_contacts.points.push_back({m_a.evalPoint(s), s, t, false});
    }

    double gapAt(double s, double t) const { return m_a.evalPoint(s).distanceTo(m_b.evalPoint(t)); }

    // Gauss and Newton: the least squares of the gap between the tangents.
    void approachCrossing(double& s, double& t) const
    {
        for (int step = 0; step < 20; ++step) {
            OdGeCurveValue const a = valueA(s);
            OdGeCurveValue const b = valueB(t);
            OdGeVector3d const gap = b.point - a.point;
            OdGeVector3d const normal = a.first.crossProduct(b.first);
            double const square = normal.lengthSqrd();
            if (!(square > 1e-28 * a.first.lengthSqrd() * b.first.lengthSqrd()))
                return;
            double const ds = gap.crossProduct(b.first).dotProduct(normal) / square;
            double const dt = gap.crossProduct(a.first).dotProduct(normal) / square;
            s = m_rangeA.clamped(s + ds);
            t = m_rangeB.clamped(t + dt);
            if (std::abs(ds) <= 1e-16 * m_rangeA.length() && std::abs(dt) <= 1e-16 * m_rangeB.length())
                return;
        }
    }

    // Newton's method for parallel tangents with the gap across them.
    void approachTouch(double& s, double& t) const
    {
        for (int step = 0; step < 12; ++step) {
            OdGeCurveValue const a = valueA(s);
            OdGeCurveValue const b = valueB(t);
            OdGeVector3d const gap = a.point - b.point;
            OdGeVector3d const bend = a.first.crossProduct(a.second) * b.first.lengthSqrd() -
                                      b.first.crossProduct(b.second) * a.first.lengthSqrd();
            double const across = gap.dotProduct(a.first);
            double const turn = a.first.crossProduct(b.first).dotProduct(bend);
            double const acrossS = a.first.lengthSqrd() + gap.dotProduct(a.second);
            double const acrossT = -b.first.dotProduct(a.first);
            double const turnS = a.second.crossProduct(b.first).dotProduct(bend);
            double const turnT = a.first.crossProduct(b.second).dotProduct(bend);
            double const det = acrossS * turnT - acrossT * turnS;
            if (!std::isnormal(det))
                return;
            double const ds = (acrossT * turn - across * turnT) / det;
            double const dt = (across * turnS - acrossS * turn) / det;
            s = m_rangeA.clamped(s + ds);
            t = m_rangeB.clamped(t + dt);
            if (std::abs(ds) <= 1e-15 * m_rangeA.length() && std::abs(dt) <= 1e-15 * m_rangeB.length())
                return;
        }
    }

    OdGeNurbCurve3d const& m_a;
    OdGeNurbCurve3d const& m_b;
    OdGeInterval m_rangeA;
    OdGeInterval m_rangeB;
    double m_slack;
    OdGeContacts& m_contacts;
    std::vector<OdGeStretch> m_stretches;
    int m_pairs = 0;
};

} // namespace

void odgeIntersectPieces(OdGeNurbCurve3d const& a, OdGeNurbCurve3d const& b, double slack, OdGeContacts& contacts)
{
    PiecePair(a, b, slack, contacts).run();
}
