// Flattening of curves and ellipses.
#pragma once

#include "embedded_host/angles.h"
#include "host/egf_objects.h"

namespace egfhost {

// How far a chord may stray from its curve, in space units: a twentieth of a pixel.
inline constexpr double kChordError = 0.05 * egfsvg::kSpaceUnits;

// The point of a turned ellipse at an angle.
_mpl_spacept_tag ellipsePoint(_mpl_spacept_tag center, double rx, double ry, Turn turn, Turn at);

// Chords that a cubic curve of four control points takes, 8 to 128.
int curveSegments(const _mpl_spacept_tag* controls);

// A polygon with the ellipse's outline, pen and style numbers; null when memory is short.
_egf_obj* polygonOf(const egfsvg::EgfEllipse* ellipse);

// The curve child of a path that draws the same as an arc child; null when memory is short.
_egf_obj* curveOf(const egfsvg::EgfArc* arc);

}  // namespace egfhost
