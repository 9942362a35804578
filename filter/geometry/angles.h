// Angles of the drawing: the one pi of every degree conversion, and whole units read off a
// computed angle.
#pragma once

namespace egfsvg {

/// Pi as every degree conversion of the adapter takes it. Kept: it is not the full number, so that
/// angles stay what they always were.
inline constexpr double kAdapterPi = 3.1415926534;

/// Radians in a degree, as arcs and rings are cut into segments with it.
inline constexpr double kArcRadiansPerDegree = 0.01745329251888889;

inline constexpr double kDegreesInTurn = 360.0;

constexpr double radiansOf(double degrees) { return degrees * kAdapterPi / 180.0; }
constexpr double degreesOf(double radians) { return radians * 180.0 / kAdapterPi; }

/// Degrees pushed away from zero by far less than any unit of the host, so that an angle that was
/// computed as 29.9999999999 still truncates to 30.
constexpr double settledDegrees(double degrees) {
  constexpr double kNudge = 1e-9;
  return degrees < 0.0 ? degrees - kNudge : degrees > 0.0 ? degrees + kNudge : degrees;
}

}  // namespace egfsvg
