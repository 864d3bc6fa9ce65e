#pragma once

// Drawing utilities for tests: values and corners to hand to commands, entities made of plain data, records with
// names of their own, the user coordinate system, scripts and saving.

#include "testapi/ta_host.h"

#include <optional>

namespace ta {

/// A number that can stand for something in a drawing: finite and less than 1e20 in magnitude, the value by which
/// drawings say that there is nothing (extents of an empty drawing).
bool isValidDouble(double value);

/// Makes two corners in user coordinates fit for a window selection, which goes from left to right: the points
/// change places where the first lies to the right. False, with the points as they were, when a coordinate is no
/// isValidDouble() or the box has no width or no height under the global tolerance.
bool correctWindowSelectionArgs(OdGePoint3d& pt1Uc, OdGePoint3d& pt2Uc);

/// @name Builders
/// Each makes a new entity that is in no drawing yet. Points of polylines in a plane are coordinates of that plane
/// (ECS). Bulges and widths belong to the segments that leave the points; what a list lacks, and a null one,
/// counts as 0. The normal need not be of unit length; null is the Z axis. Throw OdError: eInvalidInput for a list
/// longer than the points, eOutOfRange for a negative width, eDegenerateGeometry for a zero normal.
/// @{
OdDbPolylinePtr createOdDbPolyline(OdGePoint2dArray const& points, OdGeDoubleArray const* bulges = nullptr,
                                   bool isClosed = false, OdGeVector3d const* normal = nullptr,
                                   double elevation = 0, OdGeDoubleArray const* startWidths = nullptr,
                                   OdGeDoubleArray const* endWidths = nullptr);
OdDb2dPolylinePtr createOdDb2dPolyline(OdGePoint2dArray const& points, OdGeDoubleArray const* bulges = nullptr,
                                       bool isClosed = false, OdGeVector3d const* normal = nullptr,
                                       double elevation = 0, OdGeDoubleArray const* startWidths = nullptr,
                                       OdGeDoubleArray const* endWidths = nullptr);
OdDb3dPolylinePtr createOdDb3dPolyline(OdGePoint3dArray const& points, bool isClosed = false);
/// A spline that is not periodic. Weights count for rational ones only, null makes all of them 1. Throws OdError:
/// eInvalidInput for data that make no curve, eOutOfRange for a negative tolerance.
OdDbSplinePtr createOdDbSpline(int degree, bool isRational, bool isClosed, OdGePoint3dArray const& controlPoints,
                               OdGeKnotVector const& knots, OdGeDoubleArray const* weights = nullptr,
                               double tolerance = 1e-7);
/// @}

/// What a new layer has beside its name; what is not given is the default of new layers.
struct LayerProperties
{
    std::optional<OdCmColor> color;
    OdDbObjectId linetype;
    std::optional<int> lineWeight; ///< hundredths of a millimetre, or -3 for the default
};

/// @name Records
/// Each adds a new record to the drawing, under the prefix and a number that make a name of its own, and returns
/// its id. Where that fails, nothing is added.
/// @{
/// Throws OdError: eOutOfRange for a color or weight that layers cannot have, eWrongDatabase for a linetype of
/// another drawing.
OdDbObjectId createLayer(OdDbDatabase& database, wchar_t const* prefix = L"Layer_",
                         LayerProperties const& properties = {});
OdDbObjectId createTextStyle(OdDbDatabase& database, wchar_t const* prefix = L"Style_");
OdDbObjectId createMaterial(OdDbDatabase& database, wchar_t const* prefix = L"Material_");
OdDbObjectId createDimStyle(OdDbDatabase& database, wchar_t const* prefix = L"DStyle_");
/// @}

/// Makes the world coordinate system, turned about its X axis, then about the Y axis that came of it, then about
/// the Z axis, current in the document. Degrees; an angle up to 1e-10 counts as none.
void setUCS(ca::CaDoc& doc, double rotX, double rotY, double rotZ);
/// Moves the origin of the current user coordinate system to a point of the world.
void setUCSORG(ca::CaDoc& doc, OdGePoint3d const& origin);

/// Runs a script. Each line is input to the command line, as if typed: a blank (or tab) ends an answer like Enter
/// does, so "LINE 0,0 1,1" are three answers, and an empty line, two blanks in a row and a blank at the end of a
/// line are an empty one. Where the command asks for a text (names of files and layers, the text of a TEXT), the
/// rest of the line is one answer with its blanks. Lines that begin with ";" are comments. File names are asked
/// for without dialogs, and the history of the command line does not show the answers.
///
/// Fails the test, naming the line, at an answer that is refused; that cancels the command, and the rest of the
/// script is not run. A command that needs more answers than the script has goes on waiting.
void executeCommands(OdString const& text);

/// Saves the drawing in the current format, whatever the extension; references to environment variables are
/// expanded. Documents keep their names. Fails the test with the reason where it cannot be done.
void saveFile(OdDbDatabase const& database, OdString const& fileName);

} // namespace ta
