// Where the points of a gradient lie before the shape's own map: the gradient's transform list, and
// the box of the shape for objectBoundingBox.
#pragma once

#include <cstdint>

#include "adapter_reader/mapping.h"
#include "host/egf_small.h"
#include "model/elements.h"

class CAdapterReader;

namespace egfsvg {

/// The box that objectBoundingBox points are given in, in pixels.
inline constexpr _mpl_spacerect_tag kUnitBounds{0.0F, 1.0F, 0.0F, 1.0F};

class GradientSpace {
 public:
  GradientSpace(CAdapterReader& adapter, const _svg_gradient& gradient);

  void map(_mpl_spacept_tag& point);
  _userSpace* userSpace() { return &space_; }

 private:
  CAdapterReader& adapter_;
  _userSpace space_{};
  _viewPortMap map_{};
};

/// Multiplies the shape's box (pixels) into a map; null is allowed.
void multiplyBounds(CAdapterReader& adapter, const _mpl_spacerect_tag& bounds, _viewPortMap* map);

/// A point of raw numbers, scaled to space units.
_mpl_spacept_tag rawPoint(const _svg_value& x, const _svg_value& y);

}  // namespace egfsvg
