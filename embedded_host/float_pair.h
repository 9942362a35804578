// Two floats at once: the coordinates of a point. SSE2 where there is any, else one by one, with
// the same results.
#pragma once

#include <cstring>

#include "host/egf_small.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace egfhost {

#if defined(__SSE2__)

// The upper half of the vector is never looked at.
struct FloatPair {
  __m128 both;

  static FloatPair of(float x, float y) { return {_mm_setr_ps(x, y, 0.0F, 0.0F)}; }
  static FloatPair at(const _mpl_spacept_tag* point) {
    return {_mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(point)))};
  }
};

// b where neither is less, or one is no number.
inline FloatPair lesser(FloatPair a, FloatPair b) { return {_mm_min_ps(a.both, b.both)}; }
inline FloatPair greater(FloatPair a, FloatPair b) { return {_mm_max_ps(a.both, b.both)}; }

// True when low <= value <= high for both.
inline bool isBetween(FloatPair low, FloatPair value, FloatPair high) {
  constexpr int kBoth = 3;
  const __m128 inside =
      _mm_and_ps(_mm_cmple_ps(low.both, value.both), _mm_cmple_ps(value.both, high.both));
  return (_mm_movemask_ps(inside) & kBoth) == kBoth;
}

// Gathers whether every value was finite: the difference of one and itself is 0 just then.
class FiniteCheck {
 public:
  void add(FloatPair value) { seen_ = _mm_or_ps(seen_, _mm_sub_ps(value.both, value.both)); }
  bool allFinite() const { return _mm_cvtsi128_si64(_mm_castps_si128(seen_)) == 0; }

 private:
  __m128 seen_ = _mm_setzero_ps();
};

// The corners of a rectangle.
inline __m128 sidesOf(const _mpl_spacerect_tag& rect) {
  __m128 sides;
  std::memcpy(&sides, &rect, sizeof sides);
  return sides;
}
inline FloatPair lowCorner(const _mpl_spacerect_tag& rect) {
  const __m128 sides = sidesOf(rect);
  return {_mm_shuffle_ps(sides, sides, _MM_SHUFFLE(3, 1, 2, 0))};
}
inline FloatPair highCorner(const _mpl_spacerect_tag& rect) {
  const __m128 sides = sidesOf(rect);
  return {_mm_shuffle_ps(sides, sides, _MM_SHUFFLE(2, 0, 3, 1))};
}

// The rectangle between two corners.
inline _mpl_spacerect_tag rectBetween(FloatPair low, FloatPair high) {
  const __m128 sides = _mm_unpacklo_ps(low.both, high.both);
  _mpl_spacerect_tag rect;
  std::memcpy(&rect, &sides, sizeof rect);
  return rect;
}

#else

struct FloatPair {
  float x;
  float y;

  static FloatPair of(float x, float y) { return {x, y}; }
  static FloatPair at(const _mpl_spacept_tag* point) { return {point->x, point->y}; }
};

inline FloatPair lesser(FloatPair a, FloatPair b) {
  return {a.x < b.x ? a.x : b.x, a.y < b.y ? a.y : b.y};
}
inline FloatPair greater(FloatPair a, FloatPair b) {
  return {a.x > b.x ? a.x : b.x, a.y > b.y ? a.y : b.y};
}
inline bool isBetween(FloatPair low, FloatPair value, FloatPair high) {
  return low.x <= value.x && value.x <= high.x && low.y <= value.y && value.y <= high.y;
}

class FiniteCheck {
 public:
  void add(FloatPair value) { seen_ = seen_ && value.x - value.x == 0 && value.y - value.y == 0; }
  bool allFinite() const { return seen_; }

 private:
  bool seen_ = true;
};

inline FloatPair lowCorner(const _mpl_spacerect_tag& rect) { return {rect.left, rect.top}; }
inline FloatPair highCorner(const _mpl_spacerect_tag& rect) { return {rect.right, rect.bottom}; }

inline _mpl_spacerect_tag rectBetween(FloatPair low, FloatPair high) {
  return {low.x, high.x, low.y, high.y};
}

#endif

}  // namespace egfhost
