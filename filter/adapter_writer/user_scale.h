// From the space units of a view to user units of 96 in an inch.
#pragma once

#include "adapter_writer/svg_adapterwriter.h"

namespace egfsvg {

inline constexpr double kUserUnitsPerInch = 96.0;
inline constexpr double kPerSpaceUnit = 1.0 / kSpaceUnits;

/// Factors from device units. Each value is multiplied by its factor first, then by the size of a
/// space unit; a difference is taken between the two.
struct UserScale {
  double kx;
  double ky;

  double x(double spaceUnits) const { return kx * spaceUnits * kPerSpaceUnit; }
  double y(double spaceUnits) const { return ky * spaceUnits * kPerSpaceUnit; }
  double acrossX(double from, double to) const { return (kx * to - kx * from) * kPerSpaceUnit; }
  /// The factor of one length for both axes.
  double mean() const { return (ky + kx) * 0.5; }
};

inline UserScale scaleOf(const CAdapterWriter& writer) {
  return {kUserUnitsPerInch / writer.xFactor, kUserUnitsPerInch / writer.yFactor};
}

inline void setPixels(_svg_value& field, double number) {
  field.unit = kUnitPixel;
  field.value = number;
}

inline void setPoint(_svg_point& field, const UserScale& scale, double x, double y) {
  field = {pixels(scale.x(x)), pixels(scale.y(y))};
}

/// Turns a side that runs backwards, moving its start.
inline void turnForward(_svg_value& start, _svg_value& side) {
  if (!(side.value < 0.0)) return;
  start.value += side.value;
  side.value = -side.value;
}

}  // namespace egfsvg
