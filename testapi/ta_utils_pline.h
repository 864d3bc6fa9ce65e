#pragma once

// For authors of tests of polyline commands: compares a polyline with what was expected (ta_pline_data.h) and
// turns what is wrong into failures with fixed texts.

#include "testapi/ta_pline_data.h"

namespace ta {

/// What differs between a polyline and its expected data.
enum class EPlineErrorCode
{
    kNone,
    kPosition, ///< a vertex
    kBulge,
    kStartWidth,
    kEndWidth,
    kVertexCount ///< more or fewer vertices than expected, or none expected
};

/// True when the vertices that are seen (those of the frame of a spline-fit one are not) agree with the points,
/// one by one under the global tolerance. Otherwise `code` says what is wrong and `segment` which vertex, counted
/// from 1; it is 0 where the number of vertices is wrong. A null polyline has no vertices.
bool check3dPlineData(OdGePoint3dArray const& points, OdDb3dPolyline const* pline, int& segment,
                      EPlineErrorCode& code);
/// The same with the points of `expected`, from where the iterator stands to its end.
bool check3dPlineData(CPlineData const& expected, tdx::PolylineIterator<OdDb3dPolyline>& it, int& segment,
                      EPlineErrorCode& code);

/// @name Failures
/// Each fails the running test unless the condition holds.
/// @{
void assertSegWidth(bool bExp, int segment);
void assertSegBulge(bool bExp, int segment);
void assertSegPosition(bool bExp, int segment);
/// Fails as the code of a check says. The first argument, the result of the check, is not looked at.
void assertSegData(bool bExp, int segment, EPlineErrorCode code);

void assertClosed(bool bClosed);
void assertOpen(bool bOpen);
void assertSimplePoly(bool bSimplePoly);
void assertNoBulges(bool bNoBulges);
void assertPolyType(bool bCorrectType);
/// Its message speaks of "must not", though the condition is that there are such vertices.
void assertFitVertices(bool bHasFitVertices);
void assertSplineFitVertices(bool bHasSplineFitVerts);
void assertSplineCtlVertices(bool bHasSplineCtlVerts);
void assertWidth(bool bHasWidth, double width);

/// True, or a failure where isValidDouble() does not hold (ta_draw_utils.h).
bool assertValidDouble(double value);
/// Corrects the corners with correctWindowSelectionArgs(), or fails where they make no window.
void assertCorrectWindowSelectionArgs(OdGePoint3d& pt1Uc, OdGePoint3d& pt2Uc);
/// @}

} // namespace ta
