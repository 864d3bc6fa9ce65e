#pragma once

#include "host/geom/curves/od_ge_box_tree.h"
#include "host/geom/curves/od_ge_offset_outline.h"

inline bool odgeIsArc(OdGeCurve3d const& curve)
{
    return curve.type() == OdGeCurve3d::EType::kCircArc;
}
inline OdGePoint3d odgeStartOf(OdGeCurve3d const& curve)
{
    return curve.evalPoint(curve.getInterval().lower);
}
inline OdGePoint3d odgeEndOf(OdGeCurve3d const& curve)
{
    return curve.evalPoint(curve.getInterval().upper);
}

/// Takes arcs that round a corner out of the runs of a chain's offset and extends their neighbours instead, where
/// these meet and nothing else is in the way.
class OdGeCornerSharpener
{
public:
    using Pieces = std::vector<std::unique_ptr<OdGeCurve3d>>;

    /// `isCorner` says for each piece whether it is an arc that rounds a corner.
    OdGeCornerSharpener(Pieces const& pieces, std::vector<bool> const& isCorner, OdGeOffsetTask const& task,
                        std::vector<OdGeOffsetRun>& runs);

    void run();

private:
    void sharpen(OdGeOffsetRun& run);
    bool isWholeCorner(OdGeOffsetRun const& run, std::size_t before, std::size_t corner, std::size_t after) const;
    bool extend(OdGeOffsetStretch& before, OdGeOffsetStretch const& corner, OdGeOffsetStretch& after);
    bool isFree(OdGeCurve3d const& extension, OdGePoint3d const& from, OdGePoint3d const& to) const;

    Pieces const& m_pieces;
    std::vector<bool> const& m_isCorner;
    OdGeOffsetTask const& m_task;
    std::vector<OdGeOffsetRun>& m_runs;
    Pieces m_obstacles; ///< the stretches of all runs
    std::unique_ptr<OdGeBoxTree> m_tree;
    Pieces m_extensions;
    std::vector<OdGeExtents3d> m_extensionBoxes;
};
