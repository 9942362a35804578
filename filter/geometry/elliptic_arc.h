// Elliptical arcs between the SVG 1.1 end-point form and the centre form (SVG 1.1, appendix F.6),
// with angles as the host counts them: degrees, counter-clockwise on a page whose y grows
// downwards.
#pragma once

namespace egfsvg {

/// An arc as a path command gives it. Points and radii share one unit; the rotation is the SVG
/// x-axis rotation in radians.
struct ArcEnds {
  double x1, y1;
  double x2, y2;
  double rx, ry;
  double rotation;
  bool largeArc;
  bool sweep;
};

/// The same arc by its centre. Angles are ellipse parameters in degrees: 0 <= start < 360 and
/// start < end <= start + 360. Without sweep the arc is drawn from start to end, with it from end
/// to start.
struct ArcCenter {
  double cx, cy;
  double rx, ry;  // scaled up where the ends lie too far apart
  double start, end;
};

/// False when both ends coincide, or when the numbers give no arc; radii of 0 are the caller's.
bool arcFromEnds(const ArcEnds& ends, ArcCenter* out);

/// Maps an angle through a scale that differs by axis, into its own quadrant and turn. Degrees.
/// Angles on an axis stay.
double scaledArcAngle(double degrees, double scaleX, double scaleY);

/// Scales both angles of an arc and keeps start below end by at most one turn.
void scaleArcAngles(double* start, double* end, double scaleX, double scaleY);

}  // namespace egfsvg
