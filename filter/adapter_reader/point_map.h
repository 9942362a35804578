// The map of one element for point after point, in line: its numbers are taken once.
#pragma once

#include "adapter_reader/mapping.h"
#include "geometry/point_checks.h"
#include "host/egf_small.h"

namespace egfsvg {

/// Whether a map, just found for an element, leaves finite points where they are. Only a zero loses
/// its sign, which adding a zero does too.
inline bool isIdentity(const _viewPortMap& map) {
  return map.viewport == nullptr && map.userSpace->transformCount <= 0;
}
inline _mpl_spacept_tag unsignedZeros(_mpl_spacept_tag point) {
  return {point.x + 0.0F, point.y + 0.0F};
}

/// Takes points in space units of user space to space units of the page.
class PointMap {
 public:
  explicit PointMap(const _transformMatrix& matrix)
      : alongX_{matrix.m[0][0], matrix.m[1][0]},
        alongY_{matrix.m[0][1], matrix.m[1][1]},
        shift_{matrix.m[0][2] * kSpaceUnits, matrix.m[1][2] * kSpaceUnits} {}

  _mpl_spacept_tag operator()(_mpl_spacept_tag point) const {
    const double x = static_cast<double>(point.x);
    const double y = static_cast<double>(point.y);
    return {static_cast<float>(x * alongX_[0] + y * alongY_[0] + shift_[0]),
            static_cast<float>(x * alongX_[1] + y * alongY_[1] + shift_[1])};
  }

 private:
  double alongX_[2];  // what one unit along x adds to both coordinates
  double alongY_[2];
  double shift_[2];  // space units
};

/// Maps the points in place; without a map they stay.
inline void mapPoints(_mpl_spacept_tag* points, std::int32_t count, const _viewPortMap* map) {
  if (map == nullptr) return;
  if (isIdentity(*map)) {
    FiniteCheck check;
    for (std::int32_t i = 0; i < count; ++i) {
      points[i] = unsignedZeros(points[i]);
      check.include(&points[i]);
    }
    if (check.isFinite()) [[likely]]
      return;
  }
  const PointMap mapped(map->matrix);
  for (std::int32_t i = 0; i < count; ++i) points[i] = mapped(points[i]);
}

}  // namespace egfsvg
