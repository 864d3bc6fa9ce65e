#pragma once

#include "testapi/ta_test_cmd.h"

/// A command test whose operation `assertReference` compares the drawing with the reference drawing: first what is
/// named alike in both (layers, linetypes, styles, blocks), then entities. Attributes of the operation:
///   entities         names or handles of the entities to compare, and of what is named alike only what they use;
///                    without it, all of model space, in order
///   references       handles of their partners in the reference drawing; without it, those of equal handle
///   tolerance        what numbers may differ by (1e-6)
///   relTolerance     the same for what polylines are made of, ends of ellipses and the fit tolerance of splines;
///                    without it, as tolerance
///   skipCommonProps  true: color, layer, linetype, its scale and lineweight do not matter
class ReferenceTest : public ta::TestCmdArg
{
public:
    using TestCmdArg::TestCmdArg;
    void assertReference(ReferenceContext const& context) override;
};
