// A rectangle that grows by points. Values that are not finite spoil it for good.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>

#include "embedded_host/float_pair.h"
#include "host/egf_small.h"

namespace egfhost {

class Box {
 public:
  Box() = default;
  // A box that is to grow from a rectangle, whose own values spoil nothing.
  explicit Box(const _mpl_spacerect_tag& rect) : low_(lowCorner(rect)), high_(highCorner(rect)) {}

  void include(const _mpl_spacept_tag* points, std::size_t count) {
    Box grown = *this;  // in registers
    std::size_t i = 0;
    for (; i + 1 < count; i += 2) {
      grown.include(FloatPair::at(points + i));
      grown.include(FloatPair::at(points + i + 1));
    }
    if (i < count) grown.include(FloatPair::at(points + i));
    *this = grown;
  }
  void include(_mpl_spacept_tag point) { include(FloatPair::at(&point)); }
  void include(double x, double y) {
    include(FloatPair::of(static_cast<float>(x), static_cast<float>(y)));
  }
  // Of equal values the first one stays.
  void include(FloatPair point) {
    low_ = lesser(point, low_);
    high_ = greater(point, high_);
    finite_.add(point);
  }
  void include(_mpl_spacerect_tag rect) {
    include(FloatPair::of(rect.left, rect.top));
    include(FloatPair::of(rect.right, rect.bottom));
  }

  // True for a point that would not make the box larger, were it included.
  bool holds(const _mpl_spacept_tag* point) const {
    return isBetween(low_, FloatPair::at(point), high_);
  }

  // True when all points were finite.
  bool isUnspoilt() const { return finite_.allFinite(); }
  // True when at least one point is in and all were finite.
  bool isUsable() const {
    if (!isUnspoilt()) return false;
    const _mpl_spacerect_tag all = rect();
    return all.left <= all.right;
  }
  _mpl_spacerect_tag rect() const { return rectBetween(low_, high_); }

 private:
  static constexpr float kInfinity = std::numeric_limits<float>::infinity();
  FloatPair low_ = FloatPair::of(kInfinity, kInfinity);
  FloatPair high_ = FloatPair::of(-kInfinity, -kInfinity);
  FiniteCheck finite_;
};

// True for the rectangle that stands for none: zeros of either sign.
inline bool isEmpty(const _mpl_spacerect_tag& rect) {
  constexpr std::uint64_t kAllButSigns = 0x7fffffff7fffffff;
  std::uint64_t words[2];
  static_assert(sizeof words == sizeof rect);
  std::memcpy(words, &rect, sizeof words);
  return ((words[0] | words[1]) & kAllButSigns) == 0;
}

}  // namespace egfhost
