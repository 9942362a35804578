// Points while they are computed, in space units (1/4096 pixel), and as objects store them.
#pragma once

#include "host/egf_small.h"

namespace egfsvg {

struct PlanePoint {
  double x, y;
  bool operator==(const PlanePoint&) const = default;
};

/// A point as it is stored.
inline _mpl_spacept_tag stored(const PlanePoint& point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

}  // namespace egfsvg
