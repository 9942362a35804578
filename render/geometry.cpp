#include "render/geometry.h"

#include <algorithm>
#include <cmath>

namespace egfrender {
namespace {

// cairo keeps coordinates as 24.8 fixed point; half of that leaves room for pens.
constexpr double kFarthest = 4000000.0;

double withinReach(double coordinate) {
  return std::isnan(coordinate) ? 0.0 : std::clamp(coordinate, -kFarthest, kFarthest);
}

}  // namespace

void Box::add(Point point) {
  if (empty) {
    *this = {point.x, point.y, point.x, point.y, false};
    return;
  }
  left = std::min(left, point.x);
  top = std::min(top, point.y);
  right = std::max(right, point.x);
  bottom = std::max(bottom, point.y);
}

void Box::add(const Box& other) {
  if (other.empty) return;
  add(Point{other.left, other.top});
  add(Point{other.right, other.bottom});
}

Point pixelsOf(const _mpl_spacept_tag& point) {
  return {static_cast<double>(point.x) / egfsvg::kSpaceUnits,
          static_cast<double>(point.y) / egfsvg::kSpaceUnits};
}

Point Placement::device(Point page) const {
  return {withinReach((page.x - origin.x) * scale), withinReach((page.y - origin.y) * scale)};
}

}  // namespace egfrender
