// A rectangle that grows by points. Values that are not finite spoil it for good.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/egf_small.h"

namespace egfhost {

class Box {
 public:
  void include(double x, double y) {
    const auto px = static_cast<float>(x);
    const auto py = static_cast<float>(y);
    finite_ = finite_ && std::isfinite(px) && std::isfinite(py);
    left_ = std::min(left_, px);
    right_ = std::max(right_, px);
    top_ = std::min(top_, py);
    bottom_ = std::max(bottom_, py);
  }
  void include(_mpl_spacept_tag point) { include(point.x, point.y); }
  void include(const _mpl_spacept_tag* points, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) include(points[i]);
  }
  void include(_mpl_spacerect_tag rect) {
    include(rect.left, rect.top);
    include(rect.right, rect.bottom);
  }

  // True when at least one point is in and all were finite.
  bool isUsable() const { return finite_ && left_ <= right_; }
  _mpl_spacerect_tag rect() const { return {left_, right_, top_, bottom_}; }

 private:
  float left_ = std::numeric_limits<float>::infinity();
  float right_ = -std::numeric_limits<float>::infinity();
  float top_ = std::numeric_limits<float>::infinity();
  float bottom_ = -std::numeric_limits<float>::infinity();
  bool finite_ = true;
};

// True for the rectangle that stands for none.
inline bool isEmpty(_mpl_spacerect_tag rect) {
  return rect.left == 0.0F && rect.right == 0.0F && rect.top == 0.0F && rect.bottom == 0.0F;
}

}  // namespace egfhost
