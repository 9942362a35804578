// Questions about points at hand: are they finite, do neighbours meet, what is their box; and
// rectangles that grow.
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

/// Whether points are finite, in plain C++.
class PlainFiniteCheck {
 public:
  void include(const _mpl_spacept_tag* point) {
    finite_ = finite_ && point->x - point->x == 0.0F && point->y - point->y == 0.0F;
  }
  /// Whether no coordinate is an infinity or a NaN.
  bool isFinite() const { return finite_; }

 private:
  bool finite_ = true;
};

/// The box of points, in plain C++. Of equal coordinates the first one stays, as zeros have a sign.
class PlainPointBox {
 public:
  void include(const _mpl_spacept_tag* point) {
    check_.include(point);
    if (point->x < box_.left) box_.left = point->x;
    if (point->x > box_.right) box_.right = point->x;
    if (point->y < box_.top) box_.top = point->y;
    if (point->y > box_.bottom) box_.bottom = point->y;
  }
  bool isFinite() const { return check_.isFinite(); }
  /// Of at least one point, all of them finite.
  _mpl_spacerect_tag rect() const { return box_; }

 private:
  static constexpr float kInfinity = std::numeric_limits<float>::infinity();
  PlainFiniteCheck check_;
  _mpl_spacerect_tag box_{kInfinity, -kInfinity, kInfinity, -kInfinity};
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

/// A point in the lower half, zeros above.
inline __m128 pairOf(const _mpl_spacept_tag* point) {
  return _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(point)));
}

class FiniteCheck {
 public:
  [[gnu::always_inline]] void include(const _mpl_spacept_tag* point) {
    const __m128 both = pairOf(point);
    differences_ = _mm_or_ps(differences_, _mm_sub_ps(both, both));
  }
  /// What is finite differs from itself by zero.
  bool isFinite() const { return _mm_cvtsi128_si64(_mm_castps_si128(differences_)) == 0; }

 private:
  __m128 differences_ = _mm_setzero_ps();
};

class PointBox {
 public:
  [[gnu::always_inline]] void include(const _mpl_spacept_tag* point) {
    const __m128 both = pairOf(point);
    check_.include(point);
    low_ = _mm_min_ps(both, low_);  // the second one, where neither is less
    high_ = _mm_max_ps(both, high_);
  }
  bool isFinite() const { return check_.isFinite(); }
  _mpl_spacerect_tag rect() const {
    const __m128 sides = _mm_unpacklo_ps(low_, high_);
    _mpl_spacerect_tag box;
    std::memcpy(&box, &sides, sizeof box);
    return box;
  }

 private:
  FiniteCheck check_;
  __m128 low_ = _mm_set1_ps(std::numeric_limits<float>::infinity());
  __m128 high_ = _mm_set1_ps(-std::numeric_limits<float>::infinity());
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

using FiniteCheck = PlainFiniteCheck;
using PointBox = PlainPointBox;
inline bool isNone(const _mpl_spacerect_tag& box) { return plainIsNone(box); }
inline void growBox(_mpl_spacerect_tag* box, const _mpl_spacerect_tag& by) {
  plainGrowBox(box, by);
}
inline bool neighboursMeet(const _mpl_spacept_tag* four) { return plainNeighboursMeet(four); }

#endif

}  // namespace egfsvg
