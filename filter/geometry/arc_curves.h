// Arcs as chains of cubic curves: 3 * segments + 1 points, each chain sharing its inner ends.
#pragma once

#include "host/egf_small.h"

namespace egfsvg {

/// Length of the control lines of an arc's curves, in parts of (1 - cos half) / sin half. Kept: the
/// bare filter leaves out the factor 4/3 of a close fit, so that a quarter turn in one curve is 7 %
/// too flat.
inline constexpr double kArcControlFactor = 1.0;
inline constexpr double kTrueArcControlFactor = 4.0 / 3.0;

/// An arc of an ellipse with turned axes. The angles are degrees of the ellipse's parameter,
/// counter-clockwise on a page whose y grows downwards; the rotation is SVG 1.1's, in radians.
/// Lengths are in space units.
struct ArcCurve {
  double rotation;
  _mpl_spacept_tag center;
  double startDegrees;
  double endDegrees;
  double rx;
  double ry;
  bool reverse;  // drawn from end to start
  bool large;    // takes the long way round
};

/// A new zeroed array from the host's allocator, filled but for its first point, which is the
/// caller's: the arc's exact start. Null, with a count of 0, when memory ran out.
_mpl_spacept_tag* arcToCurves(const ArcCurve& arc, double controlFactor, int* count);

}  // namespace egfsvg
