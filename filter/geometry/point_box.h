// Points and boxes that are at hand: boxes of points, boxes that grow, and whether neighbours meet.
// All coordinates are compared at once with SSE2, else one by one, with the same results.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>

#include "host/egf_small.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace egfsvg {

/// The box in plain C++. Of equal coordinates the first one stays, as zeros have a sign.
class PlainPointBox {
 public:
  void include(const _mpl_spacept_tag* point) {
    const float x = point->x;
    const float y = point->y;
    if (x < box_.left) box_.left = x;
    if (x > box_.right) box_.right = x;
    if (y < box_.top) box_.top = y;
    if (y > box_.bottom) box_.bottom = y;
    finite_ = finite_ && x - x == 0.0F && y - y == 0.0F;
  }

  /// Makes the box hold another one, whose points are finite or none.
  void include(const PlainPointBox& other) {
    if (other.box_.left < box_.left) box_.left = other.box_.left;
    if (other.box_.right > box_.right) box_.right = other.box_.right;
    if (other.box_.top < box_.top) box_.top = other.box_.top;
    if (other.box_.bottom > box_.bottom) box_.bottom = other.box_.bottom;
  }

  /// Whether another box, of finite points, stands within this one.
  bool holds(const PlainPointBox& other) const {
    return box_.left <= other.box_.left && other.box_.right <= box_.right &&
           box_.top <= other.box_.top && other.box_.bottom <= box_.bottom;
  }
  /// Whether nothing was included.
  bool isEmpty() const { return box_.left > box_.right; }
  /// Whether no coordinate is an infinity or a NaN.
  bool isFinite() const { return finite_; }
  /// Of at least one point, all of them finite.
  _mpl_spacerect_tag rect() const { return box_; }

 private:
  static constexpr float kInfinity = std::numeric_limits<float>::infinity();
  _mpl_spacerect_tag box_{kInfinity, -kInfinity, kInfinity, -kInfinity};
  bool finite_ = true;
};

/// Whether two neighbours of four points are at one place.
inline bool plainNeighboursMeet(const _mpl_spacept_tag* four) {
  const auto meet = [&](int a, int b) { return four[a].x == four[b].x && four[a].y == four[b].y; };
  return meet(0, 1) || meet(1, 2) || meet(2, 3);
}

inline bool plainIsNone(const _mpl_spacerect_tag& box) {
  return box.left == 0.0F && box.right == 0.0F && box.top == 0.0F && box.bottom == 0.0F;
}
inline void plainGrowBox(_mpl_spacerect_tag* box, const _mpl_spacerect_tag& by) {
  const _mpl_spacerect_tag old = *box;
  if (plainIsNone(old)) {
    *box = by;
    return;
  }
  *box = {by.left < old.left ? by.left : old.left, by.right > old.right ? by.right : old.right,
          by.top < old.top ? by.top : old.top, by.bottom > old.bottom ? by.bottom : old.bottom};
}

#if defined(__SSE2__)

inline __m128 sidesOf(const _mpl_spacerect_tag& box) {
  __m128 sides;
  std::memcpy(&sides, &box, sizeof sides);
  return sides;
}

/// Whether a rectangle is all zeros, of either sign, which stands for none.
inline bool isNone(const _mpl_spacerect_tag& box) {
  constexpr int kAll = 15;
  return _mm_movemask_ps(_mm_cmpeq_ps(sidesOf(box), _mm_setzero_ps())) == kAll;
}

/// Grows a rectangle so that it holds another; none becomes a copy. The sides stand in turns, the
/// low one and the high one of x, then of y.
inline void growBox(_mpl_spacerect_tag* box, const _mpl_spacerect_tag& by) {
  const __m128 old = sidesOf(*box);
  const __m128 added = sidesOf(by);
  const __m128 lows = _mm_castsi128_ps(_mm_setr_epi32(-1, 0, -1, 0));
  const __m128 grown = _mm_or_ps(_mm_and_ps(lows, _mm_min_ps(added, old)),
                                 _mm_andnot_ps(lows, _mm_max_ps(added, old)));
  const __m128 result = isNone(*box) ? added : grown;
  std::memcpy(box, &result, sizeof *box);
}

class PointBox {
 public:
  [[gnu::always_inline]] void include(const _mpl_spacept_tag* point) {
    // The upper half is zeros and never looked at.
    const __m128 both = _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(point)));
    low_ = _mm_min_ps(both, low_);  // the second one, where neither is less
    high_ = _mm_max_ps(both, high_);
    differences_ = _mm_or_ps(differences_, _mm_sub_ps(both, both));
  }

  void include(const PointBox& other) {
    low_ = _mm_min_ps(other.low_, low_);
    high_ = _mm_max_ps(other.high_, high_);
  }

  bool holds(const PointBox& other) const {
    constexpr int kBoth = 3;
    const __m128 inside =
        _mm_and_ps(_mm_cmple_ps(low_, other.low_), _mm_cmple_ps(other.high_, high_));
    return (_mm_movemask_ps(inside) & kBoth) == kBoth;
  }
  bool isEmpty() const { return _mm_cvtss_f32(low_) > _mm_cvtss_f32(high_); }

  /// What is finite differs from itself by zero.
  bool isFinite() const { return _mm_cvtsi128_si64(_mm_castps_si128(differences_)) == 0; }

  _mpl_spacerect_tag rect() const {
    const __m128 sides = _mm_unpacklo_ps(low_, high_);
    _mpl_spacerect_tag box;
    std::memcpy(&box, &sides, sizeof box);
    return box;
  }

 private:
  __m128 low_ = _mm_set1_ps(std::numeric_limits<float>::infinity());
  __m128 high_ = _mm_set1_ps(-std::numeric_limits<float>::infinity());
  __m128 differences_ = _mm_setzero_ps();
};

[[gnu::always_inline]] inline bool neighboursMeet(const _mpl_spacept_tag* four) {
  constexpr int kFirstOfPair = 5;  // a bit for each coordinate of two points
  // By halves, as the points were just stored: a wider load would wait for both.
  const auto two = [&](int at) {
    const __m128i low = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(four + at));
    return _mm_loadh_pi(_mm_castsi128_ps(low), reinterpret_cast<const __m64*>(four + at + 1));
  };
  const __m128 middle = two(1);
  const int before = _mm_movemask_ps(_mm_cmpeq_ps(two(0), middle));
  const int behind = _mm_movemask_ps(_mm_cmpeq_ps(middle, two(2)));
  return (((before & before >> 1) | (behind & behind >> 1)) & kFirstOfPair) != 0;
}

#else

using PointBox = PlainPointBox;
inline bool isNone(const _mpl_spacerect_tag& box) { return plainIsNone(box); }
inline void growBox(_mpl_spacerect_tag* box, const _mpl_spacerect_tag& by) {
  plainGrowBox(box, by);
}
inline bool neighboursMeet(const _mpl_spacept_tag* four) { return plainNeighboursMeet(four); }

#endif

}  // namespace egfsvg
