#pragma once

// Geometry in XML: the attributes of one element, for chains its children. As for values (oa_xml.h), reading is
// false with the target as it was, also for geometry that cannot be (a radius of 0, knots that make no curve), and
// writing is false with nothing written. Angles are radians; directions and axes may be given at any length
// above 1e-10; the axes of ellipses are written as half axes.

#include "host/geom/curves/od_ge_circ_arc2d.h"
#include "host/geom/curves/od_ge_circ_arc3d.h"
#include "host/geom/curves/od_ge_ellip_arc2d.h"
#include "host/geom/curves/od_ge_ellip_arc3d.h"
#include "host/geom/curves/od_ge_linear2d.h"
#include "host/geom/curves/od_ge_linear3d.h"
#include "host/geom/curves/od_ge_nurb_curve3d.h"
#include "host/geom/curves/od_ge_segment_chain2d.h"
#include "host/xml/oa_xml.h"

namespace oa {

/// start, end
bool readAttr(pugi::xml_node node, OdGeLineSeg2d& value);
bool readAttr(pugi::xml_node node, OdGeLineSeg3d& value);
/// base, dir
bool readAttr(pugi::xml_node node, OdGeRay3d& value);
bool readAttr(pugi::xml_node node, OdGeLine3d& value);
/// center, radius, startAng, endAng, optional refVec (the X axis), optional clockwise (false)
bool readAttr(pugi::xml_node node, OdGeCircArc2d& value);
/// center, normal, refVec, radius, startAng, endAng
bool readAttr(pugi::xml_node node, OdGeCircArc3d& value);
/// center, majorAxis, minorAxis, majorRadius, minorRadius, startAng, endAng: the angles are the parameters of the
/// ellipse. What of the minor axis lies along the major one does not count.
bool readAttr(pugi::xml_node node, OdGeEllipArc2d& value);
bool readAttr(pugi::xml_node node, OdGeEllipArc3d& value);
/// degree, periodic, nKnot and aKnot, nPt and aPt, optional nWeight and aWeight: numbers or points separated by
/// blanks, and how many they are.
bool readAttr(pugi::xml_node node, OdGeNurbCurve3d& value);
/// A grid of points: two attributes for the numbers of rows and columns, and aPt with the points row by row.
bool readAttr(pugi::xml_node node, OdGePoint3dArray& points, unsigned& m, unsigned& n, wchar_t const* mName,
              wchar_t const* nName);

bool writeAttr(pugi::xml_node node, OdGeLineSeg2d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, OdGeLineSeg3d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, OdGeRay3d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, OdGeLine3d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, OdGeCircArc2d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, OdGeCircArc3d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, OdGeEllipArc2d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, OdGeEllipArc3d const& value, int precision = kXmlPrecision);
bool writeAttr(pugi::xml_node node, OdGeNurbCurve3d const& value, int precision = kXmlPrecision);
/// False also when the sizes do not give the number of points.
bool writeAttr(pugi::xml_node node, OdGePoint3dArray const& points, unsigned m, unsigned n, wchar_t const* mName,
               wchar_t const* nName, int precision = kXmlPrecision);

/// Optional attribute closed (false) and one child `vertex` for each vertex, at least one and no other elements:
/// pt, optional bulge (0).
bool read(pugi::xml_node node, OdGeSegmentChain2d& value);
/// The children are appended.
bool write(pugi::xml_node node, OdGeSegmentChain2d const& value, int precision = kXmlPrecision);

} // namespace oa
