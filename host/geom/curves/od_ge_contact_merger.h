#pragma once

#include "host/geom/curves/od_ge_intersect_pairs.h"

/// Makes one list of what the parts of two curves have in common: what was found twice is given once, stretches
/// that run on become one, and points of stretches are left out.
class OdGeContactMerger
{
public:
    OdGeContactMerger(OdGeCurve3d const& a, OdGeCurve3d const& b, double slack);

    std::vector<OdGeIntersection> merged(OdGeContacts contacts) const;

private:
    /// One of the curves with what comparing its parameters needs.
    struct Side
    {
        OdGeCurve3d const& curve;
        OdGeInterval interval;
        bool isClosed;
        double slack;

        Side(OdGeCurve3d const& c, double s);
        /// How far the parameter may be off while the point moves by little more than the tolerance.
        double step(double param) const;
        /// The parameters agree, or are the two of the seam of a closed curve.
        bool isSame(double x, double y) const;
        /// As isSame(), but only roughly.
        bool isNear(double x, double y) const;
        bool isBetween(double param, double from, double to) const;
    };

    bool isSame(OdGeIntersection const& x, OdGeIntersection const& y) const;
    bool isOneTouch(OdGeIntersection const& x, OdGeIntersection const& y) const;
    double gap(OdGeIntersection const& point) const;
    void dropPointsOfStretches(OdGeContacts& contacts) const;
    std::vector<OdGeIntersection> distinctPoints(std::vector<OdGeIntersection> const& points) const;
    std::vector<OdGeStretch> joinedStretches(std::vector<OdGeStretch> const& stretches) const;

    Side m_a;
    Side m_b;
    double m_slack;
};
